#include "support/Pictures.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QtEndian>
#include <random>
#include <vips/vips.h>

namespace mosaro::test {

namespace {

struct Unref {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Image = std::unique_ptr<VipsImage, Unref>;

template <class Operation>
Image make(Operation&& operation)
{
    VipsImage* out = nullptr;
    return Image(operation(&out) == 0 ? out : nullptr);
}

Image fromQImage(const QImage& image)
{
    VIPS_INIT("pictures");
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    Image all(vips_image_new_from_memory_copy(rgba.constBits(), static_cast<std::size_t>(rgba.sizeInBytes()),
                                              rgba.width(), rgba.height(), 4, VIPS_FORMAT_UCHAR));
    all->Type = VIPS_INTERPRETATION_sRGB;
    if (image.hasAlphaChannel())
        return all;
    return make([&](VipsImage** out) { return vips_extract_band(all.get(), out, 0, "n", 3, nullptr); });
}

Image inColourspace(Image image, VipsInterpretation space)
{
    return make([&](VipsImage** out) { return vips_colourspace(image.get(), out, space, nullptr); });
}

Image inProfile(Image image, const QString& profile)
{
    return make([&](VipsImage** out) {
        return vips_icc_transform(image.get(), out, profile.toUtf8().constData(), "input_profile", "srgb",
                                  "intent", VIPS_INTENT_RELATIVE, nullptr);
    });
}

/// A private copy whose header may be changed.
Image withHeader(Image image, double dpi, int orientation, const QString& software, const char* softwareField)
{
    // 0 writes no resolution; left alone, the library would write its own default.
    Image copy = make([&](VipsImage** out) {
        return vips_copy(image.get(), out, "xres", dpi / 25.4, "yres", dpi / 25.4, nullptr);
    });
    if (dpi > 0)
        vips_image_set_string(copy.get(), VIPS_META_RESOLUTION_UNIT, "in");
    if (orientation != 1)
        vips_image_set_int(copy.get(), VIPS_META_ORIENTATION, orientation);
    if (!software.isEmpty())
        vips_image_set_string(copy.get(), softwareField, software.toUtf8().constData());
    return copy;
}

Image stacked(const std::vector<QImage>& pages)
{
    std::vector<Image> images;
    std::vector<VipsImage*> pointers;
    for (const QImage& page : pages) {
        images.push_back(fromQImage(page));
        pointers.push_back(images.back().get());
    }
    Image all = make([&](VipsImage** out) {
        return vips_arrayjoin(pointers.data(), out, static_cast<int>(pointers.size()), "across", 1, nullptr);
    });
    Image copy = make([&](VipsImage** out) { return vips_copy(all.get(), out, nullptr); });
    vips_image_set_int(copy.get(), VIPS_META_PAGE_HEIGHT, pages.front().height());
    return copy;
}

Image wide(Image image)
{
    const bool gray = image->Bands < 3;
    return inColourspace(std::move(image), gray ? VIPS_INTERPRETATION_GREY16 : VIPS_INTERPRETATION_RGB16);
}

} // namespace

QImage quarters(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const int x = size.width() / 2;
    const int y = size.height() / 2;
    painter.fillRect(0, 0, x, y, QColor(255, 0, 0));
    painter.fillRect(x, 0, size.width() - x, y, QColor(0, 255, 0));
    painter.fillRect(0, y, x, size.height() - y, QColor(0, 0, 255));
    return image;
}

QImage plain(QSize size, const QColor& color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QImage halfTransparent(QSize size, const QColor& color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(size.width() / 2, 0, size.width(), size.height(), color);
    return image;
}

QImage noise(QSize size, unsigned seed)
{
    std::mt19937 random(seed);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::generate(line, line + size.width(),
                      [&random] { return static_cast<QRgb>(random() | 0xff000000U); });
    }
    return image;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 95);
    return buffer.data();
}

bool writeJpeg(const QString& path, const QImage& image, const JpegOptions& options)
{
    Image pixels = fromQImage(image);
    if (options.cmyk)
        pixels = inProfile(std::move(pixels), QStringLiteral("cmyk"));
    if (!options.profile.isEmpty())
        pixels = inProfile(std::move(pixels), options.profile);
    // The library takes a description off the end of an EXIF text.
    const QString software = options.software.isEmpty()
                                 ? QString()
                                 : options.software + QStringLiteral(" (x, ASCII, 2 components, 2 bytes)");
    pixels = withHeader(std::move(pixels), options.dpi, options.orientation, software, "exif-ifd0-Software");
    return vips_jpegsave(pixels.get(), QFile::encodeName(path).constData(), "Q", 95, "interlace",
                         options.progressive ? TRUE : FALSE, nullptr) == 0;
}

bool writePng(const QString& path, const QImage& image, const PngOptions& options)
{
    Image pixels = fromQImage(image);
    if (options.gray)
        pixels = inColourspace(std::move(pixels), VIPS_INTERPRETATION_B_W);
    if (!options.profile.isEmpty())
        pixels = inProfile(std::move(pixels), options.profile);
    if (options.sixteenBit)
        pixels = wide(std::move(pixels));
    pixels = withHeader(std::move(pixels), options.dpi, 1, options.software, "png-comment-0-Software");
    return vips_pngsave(pixels.get(), QFile::encodeName(path).constData(), "interlace",
                        options.interlaced ? TRUE : FALSE, "palette", options.palette ? TRUE : FALSE,
                        "compression", 1, nullptr) == 0;
}

bool writeGif(const QString& path, const std::vector<QImage>& frames)
{
    const Image pixels = stacked(frames);
    return vips_gifsave(pixels.get(), QFile::encodeName(path).constData(), "dither", 0.0, "effort", 1,
                        nullptr) == 0;
}

bool writeTiff(const QString& path, const std::vector<QImage>& pages, const TiffOptions& options)
{
    Image pixels = stacked(pages);
    const int pageHeight = pages.front().height();
    if (options.sixteenBit)
        pixels = wide(std::move(pixels));
    if (options.cmyk)
        pixels = inProfile(std::move(pixels), QStringLiteral("cmyk"));
    if (options.lab)
        pixels = inColourspace(inColourspace(std::move(pixels), VIPS_INTERPRETATION_LAB),
                               VIPS_INTERPRETATION_LABS);
    pixels = withHeader(std::move(pixels), options.dpi, 1, {}, "");
    return vips_tiffsave(pixels.get(), QFile::encodeName(path).constData(), "compression",
                         VIPS_FOREIGN_TIFF_COMPRESSION_LZW, "tile", options.tiled ? TRUE : FALSE,
                         "page_height", pageHeight, nullptr) == 0;
}

bool writeBmp(const QString& path, const QImage& image)
{
    QImage copy = image;
    copy.setDotsPerMeterX(11811);
    return copy.save(path, "BMP");
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool cutOff(const QString& path, double keep)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.resize(static_cast<qint64>(static_cast<double>(file.size()) * keep));
}

} // namespace mosaro::test
