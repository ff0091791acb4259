#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/CarriedPreview.h"
#include "import/DesktopThumbnail.h"
#include "import/ImageOperations.h"

namespace mosaro::importing {

namespace {

constexpr qint64 kPixelBytes =
    8; ///< The decoder's pixel, and that of a picture which is not decoded row by row.

/// Pixels of the square into which the picture has to fit.
int previewSide(DocumentType type)
{
    switch (type) {
    case DocumentType::Sketch:
        return 512;
    case DocumentType::Acorn:
        return 256;
    default:
        return 1024;
    }
}

/// The picture in sRGB, scaled down to fit the square, never up. Null when it is damaged.
QImage decoded(const QByteArray& bytes, int side)
{
    const std::optional<BitmapFormat> format = bitmapFormatOf(bytes.left(64), DocumentType::Png);
    if (format != BitmapFormat::Png && format != BitmapFormat::Jpeg)
        return {};
    ensureImageLibrary();
    const VipsPtr stored(vips_image_new_from_buffer(bytes.constData(), static_cast<std::size_t>(bytes.size()),
                                                    "", "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr));
    if (!stored) {
        vips_error_clear();
        return {};
    }
    if (qint64(stored->Xsize) * stored->Ysize > analysisLimits().maxCarriedPixels)
        return {};
    // Decoded whole, since damage is passed over in silence where pictures are scaled while they are decoded.
    const QSemaphoreReleaser memory = decodingMemory().take(kPixelBytes * stored->Xsize * stored->Ysize);
    const VipsPtr whole = vipsMake([&](VipsImage** out) {
        *out = vips_image_copy_memory(stored.get());
        return *out ? 0 : -1;
    });
    const VipsPtr scaled = whole ? vipsMake([&](VipsImage** out) {
        return vips_thumbnail_image(whole.get(), out, side, "height", side, "size", VIPS_SIZE_DOWN, nullptr);
    })
                                 : nullptr;
    const VipsPtr srgb = scaled ? vipsToSrgb(scaled.get()) : nullptr;
    return srgb ? vipsToQImage(srgb.get(), false) : QImage();
}

QImage thumbnail(const QString& command, const QString& path, int side)
{
    const base::Result<QByteArray> drawn = desktopThumbnail(command, path, side);
    return drawn ? decoded(drawn.value(), side) : QImage();
}

QImage designPreview(const QImage& picture)
{
    const QSize size = picture.size();
    const bool isTiny = size.width() <= kSmallCanvas && size.height() <= kSmallCanvas;
    const bool isShort = size.width() <= kFillLimit || size.height() <= kFillLimit;
    const bool isLarge = size.width() > kPreviewBox.width() || size.height() > kPreviewBox.height();
    if (isTiny)
        return imageOnSmallCanvas(picture);
    if (isLarge && !isShort)
        return scaleImage(picture, kPreviewBox);
    return imageByScalingProportionallyToSize(picture, kPreviewBox, std::nullopt, true);
}

} // namespace

base::Result<RenderedDocument> renderDesignDocument(const QString& path, DocumentType type,
                                                    const QString& thumbnailer)
{
    const base::Result<QByteArray> carried = carriedPreview(path);
    if (!carried)
        return carried.failure();
    RenderedDocument rendered;
    rendered.fullSize = decoded(carried.value(), previewSide(type));
    if (rendered.fullSize.isNull() && !thumbnailer.isEmpty())
        rendered.fullSize = thumbnail(thumbnailer, path, previewSide(type));
    if (rendered.fullSize.isNull())
        return carried.value().isEmpty() ? base::Failure{base::text("Failure.Design.NoPreview")}
                                         : damagedPicture();
    rendered.preview = designPreview(rendered.fullSize);
    return rendered;
}

} // namespace mosaro::importing
