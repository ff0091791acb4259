#include "import/BitmapDecoder.h"

#include "base/Text.h"
#include "import/BmpReader.h"
#include "import/DocumentSupport.h"
#include "import/ImageMetadata.h"
#include "import/MagickDecoder.h"
#include "import/QuickTimeImage.h"
#include "import/TgaReader.h"

#include <QFile>
#include <QImageReader>
#include <utility>

namespace mosaro::importing {

namespace {

// The stored bytes, the pixels made of them and those of three or four bands that are scaled.
constexpr qint64 kBytesOfPixelDecodedAtOnce = 12;

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
        default:
            break;
        }
        return -1;
    });
}

bool isDecodedAtOnce(BitmapFormat format, const QString& path)
{
    switch (format) {
    case BitmapFormat::Bmp:
    case BitmapFormat::Tga:
    case BitmapFormat::Pict:
    case BitmapFormat::QuickTimeImage:
    case BitmapFormat::Jpeg2000:
        return true;
    case BitmapFormat::Tiff:
        return readRareTiffHeader(path).has_value();
    default:
        return false;
    }
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
    default:
        return pixels * VIPS_IMAGE_SIZEOF_PEL(image);
    }
}

std::optional<BitmapHeader> readHeader(QFile& file, BitmapFormat format)
{
    switch (format) {
    case BitmapFormat::Tga:
        return readTgaHeader(file);
    case BitmapFormat::Pict:
        return readPictHeader(file);
    case BitmapFormat::QuickTimeImage:
        return readQuickTimeImageHeader(file);
    case BitmapFormat::Jpeg2000:
        return readJpeg2000Header(file);
    case BitmapFormat::Tiff:
        return readRareTiffHeader(file.fileName());
    default:
        return readBmpHeader(file);
    }
}

/// The usual reader leaves the pixels that a run jumps over as they were in memory, and does not know every
/// header.
base::Result<QImage> readBmp(QFile& file, const BitmapHeader& header)
{
    if (header.isRare)
        return readRareBmp(file, header);
    QImageReader reader(&file, "bmp");
    QImage picture(header.size, reader.imageFormat());
    picture.fill(0);
    if (reader.read(&picture))
        return picture;
    return readByMagick({file.fileName(), "bmp", {}, true});
}

base::Result<QImage> readPixels(QFile& file, BitmapFormat format, const BitmapHeader& header)
{
    switch (format) {
    case BitmapFormat::Tga:
        return readTga(file);
    case BitmapFormat::Pict:
        return readByMagick({file.fileName(), "pict", {}, true});
    case BitmapFormat::QuickTimeImage:
        return readQuickTimeImage(file);
    case BitmapFormat::Tiff:
        if (header.isReadAsRgba)
            return readTiffAsRgba(file.fileName(), header.size);
        return readByMagick({file.fileName(), "tiff", {}, header.hasAlpha});
    case BitmapFormat::Jpeg2000:
        return readByMagick(
            {file.fileName(), file.peek(2) == "\xff\x4f" ? "j2k" : "jp2", {}, header.hasAlpha});
    default:
        return readBmp(file, header);
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
    base::Result<QImage> pixels = readPixels(file, bitmap.format, *header);
    if (!pixels)
        return pixels.failure();
    bitmap.decoded = std::move(pixels).value();
    if (bitmap.decoded.size() != header->size)
        return damagedPicture();
    bitmap.orientation = std::clamp(header->orientation, 1, 8);
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

/// The opacity of 16 bits, which is stored with no regard to what the colours are, in 8.
VipsPtr opacityOf(VipsImage* image)
{
    VipsPtr opacity =
        vipsMake([&](VipsImage** out) { return vips_extract_band(image, out, image->Bands - 1, nullptr); });
    if (opacity)
        opacity = vipsMake([&](VipsImage** out) {
            return vips_copy(opacity.get(), out, "format", VIPS_FORMAT_USHORT, nullptr);
        });
    if (opacity)
        opacity = vipsMake([&](VipsImage** out) {
            return vips_linear1(opacity.get(), out, 1 / 257.0, 0, "uchar", TRUE, nullptr);
        });
    return opacity;
}

/// CMYK and Lab in sRGB where the image library takes the opacity for another number, or keeps the colours in
/// a packed form; all else as it is.
VipsPtr inPlainForm(VipsPtr image)
{
    if (image->Coding == VIPS_CODING_LABQ)
        return vipsMake([&](VipsImage** out) {
            return vips_colourspace(image.get(), out, VIPS_INTERPRETATION_sRGB, nullptr);
        });
    const bool isDeep = image->BandFmt == VIPS_FORMAT_USHORT || image->BandFmt == VIPS_FORMAT_SHORT;
    const int colours = image->Type == VIPS_INTERPRETATION_CMYK ? 4 : 3;
    const bool isOther = colours == 4 || image->Type == VIPS_INTERPRETATION_LABS;
    if (!isDeep || !isOther || image->Bands != colours + 1)
        return image;
    const VipsPtr plain = vipsMake(
        [&](VipsImage** out) { return vips_extract_band(image.get(), out, 0, "n", colours, nullptr); });
    const VipsPtr srgb = plain ? vipsToSrgb(plain.get()) : nullptr;
    const VipsPtr opacity = opacityOf(image.get());
    if (!srgb || !opacity)
        return nullptr;
    return vipsMake([&](VipsImage** out) { return vips_bandjoin2(srgb.get(), opacity.get(), out, nullptr); });
}

base::Result<void> openLazily(QFile& file, OpenedBitmap& bitmap)
{
    // Own look at the headers first, so that not even the libraries' set-up meets a giant.
    if (bitmap.format == BitmapFormat::Png) {
        const std::optional<BitmapHeader> header = readPngHeader(file);
        if (!header)
            return damagedPicture();
        if (!withinLimits(header->size, !header->isInterlaced))
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
    bitmap.orientation = std::clamp(vips_image_get_orientation(bitmap.image.get()), 1, 8);
    base::Result<void> read = readMetadata(file, bitmap);
    if (!read)
        return read;
    bitmap.image = inPlainForm(std::move(bitmap.image));
    if (!bitmap.image)
        return damagedPicture();
    return {};
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

base::Failure otherContents(const QByteArray& head, DocumentType named)
{
    const std::optional<DocumentType> type = markedTypeOf(head);
    if (!type || *type == named)
        return {base::text("Failure.Image.NotAPicture")};
    return {base::text("Failure.Image.Misnamed", MediaClassification::contentTypeName(named),
                       MediaClassification::contentTypeName(*type))};
}

base::Result<OpenedBitmap> openBitmap(const QString& path, DocumentType named)
{
    ensureImageLibrary();
    QFile file(path);
    const base::Result<void> opened = openDocument(file);
    if (!opened)
        return opened.failure();
    const QByteArray head = file.peek(kTypeHeadBytes);
    const std::optional<BitmapFormat> format = bitmapFormatOf(head, named);
    if (!format || documentTypeOf(*format) != named)
        return otherContents(head, named);

    OpenedBitmap bitmap;
    bitmap.path = path;
    bitmap.format = *format;
    const bool whole = isDecodedAtOnce(*format, path);
    const base::Result<void> done = whole ? readWholePicture(file, bitmap) : openLazily(file, bitmap);
    if (!done)
        return done.failure();
    return bitmap;
}

VipsPtr imageShrunkOnLoad(const OpenedBitmap& bitmap, int factor)
{
    if (bitmap.format != BitmapFormat::Jpeg || factor <= 1)
        return vipsShare(bitmap.image.get());
    return openWithVips(bitmap.path, bitmap.format, factor);
}

} // namespace mosaro::importing
