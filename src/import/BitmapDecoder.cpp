#include "import/BitmapDecoder.h"

#include "base/Text.h"
#include "import/ImageMetadata.h"
#include "import/MagickDecoder.h"
#include "import/QuickTimeImage.h"
#include "import/TgaReader.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <utility>

namespace mosaro::importing {

namespace {

// The stored bytes, the pixels made of them and those of three or four bands that are scaled.
constexpr qint64 kBytesOfPixelDecodedAtOnce = 12;
constexpr qint64 kBytesOfWaveletSample = 4;

/// JPEG 2000 keeps halves of halves: the number of halvings.
int halvings(int factor)
{
    return factor >= 8 ? 3 : factor / 2;
}

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
        case BitmapFormat::Jpeg2000:
            // Its pieces are decoded as they are asked for, in any order.
            return vips_jp2kload(file, out, "page", halvings(shrink), "fail_on", VIPS_FAIL_ON_TRUNCATED,
                                 nullptr);
        default:
            break;
        }
        return -1;
    });
}

DocumentType documentTypeOf(BitmapFormat format)
{
    switch (format) {
    case BitmapFormat::Jpeg:
        return DocumentType::Jpeg;
    case BitmapFormat::Gif:
        return DocumentType::Gif;
    case BitmapFormat::Tiff:
        return DocumentType::Tiff;
    case BitmapFormat::Bmp:
        return DocumentType::Bmp;
    case BitmapFormat::Tga:
        return DocumentType::Tga;
    case BitmapFormat::Jpeg2000:
        return DocumentType::Jpeg2000;
    case BitmapFormat::Pict:
        return DocumentType::Pict;
    case BitmapFormat::QuickTimeImage:
        return DocumentType::QuickTimeImage;
    case BitmapFormat::Png:
        break;
    }
    return DocumentType::Png;
}

bool isDecodedAtOnce(BitmapFormat format)
{
    return format == BitmapFormat::Bmp || format == BitmapFormat::Tga || format == BitmapFormat::Pict ||
           format == BitmapFormat::QuickTimeImage;
}

bool withinLimits(QSize size, bool streamed)
{
    const AnalysisLimits& limits = analysisLimits();
    const qint64 pixels = qint64(size.width()) * size.height();
    return size.width() <= limits.maxSide && size.height() <= limits.maxSide &&
           pixels <= (streamed ? limits.maxPixels : limits.maxPixelsWithoutStreaming);
}

// A picture in several scans is kept as coefficients of two bytes until the last scan is in.
qint64 jpegDecoderBytes(VipsImage* image, qint64 pixels)
{
    int severalScans = 0;
    const char* sampling = nullptr;
    if (vips_image_get_typeof(image, "jpeg-multiscan") == 0 ||
        vips_image_get_int(image, "jpeg-multiscan", &severalScans) != 0 || severalScans == 0)
        return 0;
    const bool halved = vips_image_get_typeof(image, "jpeg-chroma-subsample") != 0 &&
                        vips_image_get_string(image, "jpeg-chroma-subsample", &sampling) == 0 &&
                        qstrcmp(sampling, "4:2:0") == 0;
    return halved ? pixels * 3 : pixels * 2 * image->Bands;
}

/// 0 when rows come out one after another, with no need to hold the whole picture.
qint64 decoderBytesOf(const OpenedBitmap& bitmap)
{
    VipsImage* image = bitmap.image.get();
    const qint64 pixels = qint64(image->Xsize) * image->Ysize;
    switch (bitmap.format) {
    case BitmapFormat::Jpeg:
        return jpegDecoderBytes(image, pixels);
    case BitmapFormat::Png:
        return vips_image_get_typeof(image, "interlaced") == 0 ? 0 : pixels * VIPS_IMAGE_SIZEOF_PEL(image);
    case BitmapFormat::Tiff:
        return 0;
    case BitmapFormat::Jpeg2000:
        return pixels * image->Bands * kBytesOfWaveletSample;
    default:
        return pixels * VIPS_IMAGE_SIZEOF_PEL(image);
    }
}

std::optional<BitmapHeader> readHeader(QIODevice& file, BitmapFormat format)
{
    switch (format) {
    case BitmapFormat::Tga:
        return readTgaHeader(file);
    case BitmapFormat::Pict:
        return readPictHeader(file);
    case BitmapFormat::QuickTimeImage:
        return readQuickTimeImageHeader(file);
    default:
        return readBmpHeader(file);
    }
}

base::Result<QImage> readPixels(QFile& file, BitmapFormat format)
{
    switch (format) {
    case BitmapFormat::Tga:
        return readTga(file);
    case BitmapFormat::Pict:
        return readByMagick({file.fileName(), "pict", {}, true});
    case BitmapFormat::QuickTimeImage:
        return readQuickTimeImage(file);
    default:
        return QImageReader(&file, "bmp").read();
    }
}

/// For the formats that are decoded at once.
base::Result<void> readWholePicture(QFile& file, OpenedBitmap& bitmap)
{
    const std::optional<BitmapHeader> header = readHeader(file, bitmap.format);
    if (!header)
        return damagedPicture();
    if (!withinLimits(header->size, false))
        return tooLargePicture(header->size);
    if (file.size() < header->minimumBytes || !file.seek(0))
        return damagedPicture();

    bitmap.memory = decodingMemory().take(qint64(header->size.width()) * header->size.height() *
                                          kBytesOfPixelDecodedAtOnce);
    base::Result<QImage> pixels = readPixels(file, bitmap.format);
    if (!pixels)
        return pixels.failure();
    bitmap.decoded = std::move(pixels).value();
    if (bitmap.decoded.size() != header->size)
        return damagedPicture();
    bitmap.metadata = metadataOfHeader(*header);
    bitmap.metadata.hasAlpha = header->hasAlpha && bitmap.decoded.hasAlphaChannel();
    bitmap.decoded = std::move(bitmap.decoded).convertToFormat(QImage::Format_RGBA8888);
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
    bitmap.decoderBytes = decoderBytesOf(bitmap);
    if (!withinLimits(size, bitmap.decoderBytes == 0))
        return tooLargePicture(size);
    bitmap.pages = vips_image_get_n_pages(bitmap.image.get());
    if (bitmap.format == BitmapFormat::Jpeg2000)
        bitmap.halvings = std::exchange(bitmap.pages, 1) - 1;
    bitmap.orientation = std::clamp(vips_image_get_orientation(bitmap.image.get()), 1, 8);
    return readMetadata(file, bitmap);
}

} // namespace

base::MemoryBudget& decodingMemory()
{
    static base::MemoryBudget budget(analysisLimits().memoryForDecoding);
    return budget;
}

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
    if (documentTypeOf(*format) != named)
        return base::Failure{base::text("Failure.Image.Misnamed", MediaClassification::contentTypeName(named),
                                        MediaClassification::contentTypeName(documentTypeOf(*format)))};

    OpenedBitmap bitmap;
    bitmap.path = path;
    bitmap.format = *format;
    const bool whole = isDecodedAtOnce(*format);
    const base::Result<void> done = whole ? readWholePicture(file, bitmap) : openLazily(file, bitmap);
    if (!done)
        return done.failure();
    return bitmap;
}

VipsPtr imageShrunkOnLoad(const OpenedBitmap& bitmap, int factor)
{
    if (bitmap.format == BitmapFormat::Jpeg2000)
        factor = std::min(factor, 1 << std::min(bitmap.halvings, 3));
    else if (bitmap.format != BitmapFormat::Jpeg)
        factor = 1;
    if (factor <= 1)
        return vipsShare(bitmap.image.get());
    return openWithVips(bitmap.path, bitmap.format, factor);
}

} // namespace mosaro::importing
