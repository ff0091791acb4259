#include "import/ImageMetadata.h"

#include <QFile>
#include <QRegularExpression>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr double kDefaultDpi = 72;
constexpr double kMillimetresPerMetre = 1000;

QString colorModelOf(VipsInterpretation interpretation)
{
    switch (interpretation) {
    case VIPS_INTERPRETATION_B_W:
    case VIPS_INTERPRETATION_GREY16:
        return QStringLiteral("Gray");
    case VIPS_INTERPRETATION_CMYK:
        return QStringLiteral("CMYK");
    case VIPS_INTERPRETATION_LAB:
    case VIPS_INTERPRETATION_LABS:
    case VIPS_INTERPRETATION_LABQ:
        return QStringLiteral("Lab");
    default:
        return QStringLiteral("RGB");
    }
}

QString stringField(VipsImage* image, const char* name)
{
    const char* text = nullptr;
    if (vips_image_get_typeof(image, name) == 0)
        return {};
    if (vips_image_get_string(image, name, &text) != 0) {
        vips_error_clear();
        return {};
    }
    return QString::fromUtf8(text);
}

/// 0 when the file does not say; the library's own default must not count.
double jpegDpi(VipsImage* image)
{
    if (vips_image_get_typeof(image, VIPS_META_RESOLUTION_UNIT) == 0)
        return 0;
    return dpiFromMetre(vips_image_get_xres(image) * kMillimetresPerMetre);
}

} // namespace

QString exifText(const QString& field)
{
    static const QRegularExpression tail(QStringLiteral(", [A-Za-z]+, \\d+ components, \\d+ bytes\\)$"));
    const QRegularExpressionMatch match = tail.match(field);
    if (!match.hasMatch())
        return field.trimmed();
    // What is left is the text, " (" and the text again.
    const qsizetype length = (match.capturedStart() - 2) / 2;
    return length > 0 ? field.left(length).trimmed() : QString();
}

ImageMetadata metadataOfHeader(const BitmapHeader& header)
{
    ImageMetadata metadata;
    metadata.width = header.size.width();
    metadata.height = header.size.height();
    metadata.dpi = header.dpi > 0 ? header.dpi : kDefaultDpi;
    metadata.depth = header.depth;
    metadata.hasAlpha = header.hasAlpha;
    metadata.colorModel = header.isGray ? QStringLiteral("Gray") : QStringLiteral("RGB");
    if (!header.colorModel.isEmpty())
        metadata.colorModel = header.colorModel;
    metadata.profileName = header.profileName;
    metadata.software = header.software;
    return metadata;
}

base::Result<void> readMetadata(QIODevice& file, OpenedBitmap& bitmap)
{
    VipsImage* image = bitmap.image.get();
    ImageMetadata& metadata = bitmap.metadata;
    metadata.width = image->Xsize;
    metadata.height = image->Ysize;
    metadata.depth = 8;
    metadata.hasAlpha = image->Coding == VIPS_CODING_NONE && vips_image_hasalpha(image);
    metadata.colorModel = colorModelOf(image->Type);
    metadata.profileName = vipsProfileName(image);
    metadata.software = exifText(stringField(image, "exif-ifd0-Software"));
    double dpi = 0;
    if (bitmap.format == BitmapFormat::Jpeg)
        dpi = jpegDpi(image);
    if (bitmap.format == BitmapFormat::Png) {
        if (const std::optional<BitmapHeader> header = readPngHeader(file)) {
            metadata.depth = header->depth;
            dpi = header->dpi;
        }
        QFile unbuffered(bitmap.path);
        if (unbuffered.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            const QString software = pngSoftware(unbuffered);
            metadata.software = software.isEmpty() ? metadata.software : software;
        }
    }
    if (bitmap.format == BitmapFormat::Tiff) {
        if (const std::optional<TiffHeader> header = readTiffHeader(bitmap.path)) {
            if (!header->isWhole)
                return damagedPicture();
            if (header->piecePixels > analysisLimits().maxPixelsWithoutStreaming)
                return tooLargePicture({metadata.width, metadata.height});
            bitmap.decoderBytes = header->piecePixels * VIPS_IMAGE_SIZEOF_PEL(image);
            metadata.depth = header->depth;
            metadata.colorModel = header->colorModel;
            metadata.software = header->software;
            dpi = header->dpi;
        }
    }
    metadata.dpi = dpi > 0 && std::isfinite(dpi) ? dpi : kDefaultDpi;
    return {};
}

} // namespace mosaro::importing
