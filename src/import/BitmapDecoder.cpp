#include "import/BitmapDecoder.h"

#include "base/Text.h"
#include "import/ImageMetadata.h"
#include "import/TgaReader.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace mosaro::importing {

namespace {

VipsPtr openWithVips(const QString& path, BitmapFormat format, int shrink)
{
    const QByteArray name = QFile::encodeName(path);
    return vipsMake([&](VipsImage** out) {
        const char* file = name.constData();
        switch (format) {
        case BitmapFormat::Jpeg:
            return vips_jpegload(file, out, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                 VIPS_FAIL_ON_TRUNCATED, "shrink", shrink, nullptr);
        case BitmapFormat::Png:
            return vips_pngload(file, out, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                VIPS_FAIL_ON_TRUNCATED, nullptr);
        case BitmapFormat::Gif:
            return vips_gifload(file, out, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                VIPS_FAIL_ON_TRUNCATED, nullptr);
        case BitmapFormat::Tiff:
            return vips_tiffload(file, out, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                 VIPS_FAIL_ON_TRUNCATED, nullptr);
        case BitmapFormat::WebP:
            return vips_webpload(file, out, "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                 VIPS_FAIL_ON_TRUNCATED, nullptr);
        case BitmapFormat::Bmp:
        case BitmapFormat::Tga:
            break;
        }
        return -1;
    });
}

bool withinLimits(QSize size, bool streamed)
{
    const AnalysisLimits& limits = analysisLimits();
    const qint64 pixels = qint64(size.width()) * size.height();
    return size.width() <= limits.maxSide && size.height() <= limits.maxSide &&
           pixels <= (streamed ? limits.maxPixels : limits.maxPixelsWithoutStreaming);
}

/// Whether rows come out one after another, with no need to hold the whole picture.
bool isStreamed(const OpenedBitmap& bitmap)
{
    switch (bitmap.format) {
    case BitmapFormat::Jpeg:
        return vips_image_get_typeof(bitmap.image.get(), "jpeg-multiscan") == 0 &&
               vips_image_get_typeof(bitmap.image.get(), "interlaced") == 0;
    case BitmapFormat::Png:
        return vips_image_get_typeof(bitmap.image.get(), "interlaced") == 0;
    case BitmapFormat::Tiff:
        return true;
    default:
        return false;
    }
}

base::Result<void> readPixelsByQt(QFile& file, OpenedBitmap& bitmap)
{
    const std::optional<BitmapHeader> header =
        bitmap.format == BitmapFormat::Tga ? readTgaHeader(file) : readBmpHeader(file);
    if (!header)
        return damagedPicture();
    if (!withinLimits(header->size, false))
        return tooLargePicture(header->size);
    if (file.size() < header->minimumBytes || !file.seek(0))
        return damagedPicture();

    if (bitmap.format == BitmapFormat::Tga) {
        bitmap.decoded = readTga(file);
    } else {
        QImageReader reader(&file, "bmp");
        bitmap.decoded = reader.read();
    }
    if (bitmap.decoded.size() != header->size)
        return damagedPicture();
    bitmap.metadata = metadataOfHeader(*header);
    bitmap.metadata.hasAlpha = header->hasAlpha && bitmap.decoded.hasAlphaChannel();
    bitmap.decoded = bitmap.decoded.convertToFormat(QImage::Format_RGBA8888);
    bitmap.image.reset(vips_image_new_from_memory(
        bitmap.decoded.constBits(), static_cast<std::size_t>(bitmap.decoded.sizeInBytes()),
        bitmap.decoded.width(), bitmap.decoded.height(), 4, VIPS_FORMAT_UCHAR));
    if (!bitmap.image)
        return damagedPicture();
    bitmap.image->Type = VIPS_INTERPRETATION_sRGB;
    if (!bitmap.metadata.hasAlpha)
        bitmap.image = vipsMake(
            [&](VipsImage** out) { return vips_extract_band(bitmap.image.get(), out, 0, "n", 3, nullptr); });
    return {};
}

base::Result<void> openLazily(QFile& file, OpenedBitmap& bitmap)
{
    // Own look at the headers first, so that not even the libraries' set-up meets a giant.
    if (bitmap.format == BitmapFormat::Png) {
        const std::optional<BitmapHeader> header = readPngHeader(file);
        if (header && !withinLimits(header->size, !header->isInterlaced))
            return tooLargePicture(header->size);
    }
    bitmap.image = openWithVips(bitmap.path, bitmap.format, 1);
    if (!bitmap.image)
        return damagedPicture();
    const QSize size(bitmap.image->Xsize, bitmap.image->Ysize);
    if (!withinLimits(size, isStreamed(bitmap)))
        return tooLargePicture(size);
    bitmap.pages = vips_image_get_n_pages(bitmap.image.get());
    bitmap.orientation = std::clamp(vips_image_get_orientation(bitmap.image.get()), 1, 8);
    return readMetadata(file, bitmap);
}

} // namespace

base::Failure damagedPicture()
{
    return {base::text("Failure.Image.Damaged")};
}

base::Failure tooLargePicture(QSize size)
{
    return {
        base::text("Failure.Image.TooLarge", QString::number(size.width()), QString::number(size.height()))};
}

base::Result<OpenedBitmap> openBitmap(const QString& path, DocumentType named)
{
    ensureImageLibrary();
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    if (file.size() > analysisLimits().maxFileBytes)
        return base::Failure{base::text("Failure.Image.FileTooLarge")};
    const std::optional<BitmapFormat> format = bitmapFormatOf(file.peek(64), named);
    if (!format)
        return base::Failure{base::text("Failure.Image.NotAPicture")};

    OpenedBitmap bitmap;
    bitmap.path = path;
    bitmap.format = *format;
    const bool whole = *format == BitmapFormat::Bmp || *format == BitmapFormat::Tga;
    const base::Result<void> done = whole ? readPixelsByQt(file, bitmap) : openLazily(file, bitmap);
    if (!done)
        return done.failure();
    return bitmap;
}

VipsPtr imageShrunkOnLoad(const OpenedBitmap& bitmap, int factor)
{
    if (factor <= 1 || bitmap.format != BitmapFormat::Jpeg)
        return vipsShare(bitmap.image.get());
    return openWithVips(bitmap.path, bitmap.format, factor);
}

} // namespace mosaro::importing
