// The part of the image operations that turns pictures into bytes.
#include "import/ImageOperations.h"
#include "import/VipsSupport.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <csetjmp>
#include <png.h>
#include <vector>
#include <zlib.h>

namespace mosaro::importing {

namespace {

QImage flattenedOnBlack(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::black);
    QPainter(&flat).drawImage(0, 0, image);
    return flat;
}

template <class Save>
QByteArray saved(const QImage& image, Save&& save)
{
    const VipsPtr pixels = vipsFromQImage(image);
    void* buffer = nullptr;
    std::size_t length = 0;
    if (!pixels || save(pixels.get(), &buffer, &length) != 0) {
        vips_error_clear();
        return {};
    }
    return vipsTakeBuffer(buffer, length);
}

void appendBytes(png_structp png, png_bytep data, std::size_t length)
{
    static_cast<QByteArray*>(png_get_io_ptr(png))
        ->append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
}

void ignoreFlush(png_structp) {}
void ignoreWarning(png_structp, png_const_charp) {}

/// The encoder proper. It leaves by a long jump on an error, so no object with a destructor lives in here.
///
/// Run-length matching over one fixed row filter: for pictures of the preview's size that takes a third of
/// the time of the usual settings and, for photographs, gives smaller files (measured; 8 ms against 25 ms and
/// more).
bool writeInterlaced(png_structp png, png_infop info, const QImage& image, png_bytepp rows, QByteArray* bytes)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_set_write_fn(png, bytes, appendBytes, ignoreFlush);
    png_set_compression_level(png, 1);
    png_set_compression_strategy(png, Z_RLE);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width()), static_cast<png_uint_32>(image.height()),
                 8, image.hasAlphaChannel() ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_ADAM7, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
    png_write_info(png, info);
    png_write_image(png, rows);
    png_write_end(png, info);
    return true;
}

QByteArray bitmapRepresentation(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return QImageWriter(&buffer, "bmp").write(image) ? buffer.data() : QByteArray();
}

} // namespace

QByteArray PNGRepresentation(const QImage& image)
{
    if (image.isNull())
        return {};
    QImage pixels =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, ignoreWarning);
    if (!png)
        return {};
    png_infop info = png_create_info_struct(png);
    QByteArray bytes;
    bytes.reserve(pixels.sizeInBytes() / 3);
    std::vector<png_bytep> rows;
    rows.reserve(static_cast<std::size_t>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y)
        rows.push_back(pixels.scanLine(y));
    const bool done = info && writeInterlaced(png, info, pixels, rows.data(), &bytes);
    png_destroy_write_struct(&png, &info);
    return done ? bytes : QByteArray();
}

QByteArray JPEGRepresentation(const QImage& image, double quality)
{
    const int percent = std::clamp(qRound(quality * 100), 1, 100);
    return saved(flattenedOnBlack(image), [percent](VipsImage* pixels, void** buffer, std::size_t* length) {
        return vips_jpegsave_buffer(pixels, buffer, length, "Q", percent, "interlace", TRUE, nullptr);
    });
}

QByteArray JPEG(const QImage& image)
{
    return JPEGRepresentation(image, 1.0);
}

// The lightest effort: more of it costs twice the time and gains a few percent.
QByteArray GIFRepresentation(const QImage& image)
{
    return saved(image, [](VipsImage* pixels, void** buffer, std::size_t* length) {
        return vips_gifsave_buffer(pixels, buffer, length, "effort", 1, nullptr);
    });
}

QByteArray representationForFileType(const QImage& image, FileType type, double withQuality)
{
    switch (type) {
    case FileType::Tiff:
        return saved(image, [](VipsImage* pixels, void** buffer, std::size_t* length) {
            return vips_tiffsave_buffer(pixels, buffer, length, nullptr);
        });
    case FileType::Bmp:
        return bitmapRepresentation(image);
    case FileType::Gif:
        return GIFRepresentation(image);
    case FileType::Jpeg:
        return JPEGRepresentation(image, withQuality);
    case FileType::Png:
        return PNGRepresentation(image);
    }
    return {};
}

} // namespace mosaro::importing
