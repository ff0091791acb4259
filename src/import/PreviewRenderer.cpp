#include "import/PreviewRenderer.h"

#include "base/Text.h"
#include "import/ImageOperations.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QTransform>
#include <cmath>

namespace mosaro::importing {

namespace {

// How much larger than the preview the decoder's own shrinking must leave the picture.
constexpr double kShrinkHeadroom = 1.2;

/// A rectangle of the upright picture in the picture as stored.
QRect storedRect(const QRect& upright, QSize stored, int orientation)
{
    const int fromRight =
        stored.width() - (orientation >= 5 ? upright.y() + upright.height() : upright.x() + upright.width());
    const int fromBottom =
        stored.height() - (orientation >= 5 ? upright.x() + upright.width() : upright.y() + upright.height());
    const int left = orientation >= 5 ? upright.y() : upright.x();
    const int top = orientation >= 5 ? upright.x() : upright.y();
    const bool mirroredAcross = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
    const bool mirroredDown = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    const QSize size = orientation >= 5 ? upright.size().transposed() : upright.size();
    return {QPoint(mirroredAcross ? fromRight : left, mirroredDown ? fromBottom : top), size};
}

QImage turnedUpright(const QImage& image, int orientation)
{
    const QTransform quarter = QTransform().rotate(90);
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.mirrored(true, true);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.transformed(quarter).mirrored(true, false);
    case 6:
        return image.transformed(quarter);
    case 7:
        return image.transformed(quarter).mirrored(false, true);
    case 8:
        return image.transformed(quarter).mirrored(true, true);
    default:
        return image;
    }
}

int shrinkFactor(QSize source, QSize target)
{
    for (const int factor : {8, 4, 2}) {
        if (source.width() >= target.width() * kShrinkHeadroom * factor &&
            source.height() >= target.height() * kShrinkHeadroom * factor)
            return factor;
    }
    return 1;
}

/// Stops an evaluation that takes longer than any honest file needs.
class Deadline {
public:
    explicit Deadline(VipsImage* image) : m_image(image)
    {
        m_timer.start();
        vips_image_set_progress(image, TRUE);
        m_handler = g_signal_connect(image, "eval", G_CALLBACK(check), this);
    }
    ~Deadline() { g_signal_handler_disconnect(m_image, m_handler); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

    [[nodiscard]] bool passed() const
    {
        return m_timer.elapsed() > analysisLimits().maxSeconds * qint64(1000);
    }

private:
    static void check(VipsImage* image, VipsProgress*, Deadline* self)
    {
        if (self->passed())
            vips_image_set_kill(image, TRUE);
    }

    VipsImage* m_image;
    QElapsedTimer m_timer;
    gulong m_handler = 0;
};

/// The rows below what the preview shows are decoded as well, so that a file that is cut off down there is
/// found.
bool readToLastRow(VipsImage* image)
{
    VipsRegion* region = vips_region_new(image);
    VipsRect lastRow = {0, image->Ysize - 1, image->Xsize, 1};
    const bool done = vips_region_prepare(region, &lastRow) == 0;
    g_object_unref(region);
    if (!done)
        vips_error_clear();
    return done;
}

VipsPtr cropped(VipsImage* image, const QRect& rect)
{
    if (rect == QRect(0, 0, image->Xsize, image->Ysize))
        return vipsShare(image);
    return vipsMake([&](VipsImage** out) {
        return vips_extract_area(image, out, rect.x(), rect.y(), rect.width(), rect.height(), nullptr);
    });
}

/// Colours weighted with their alpha in the same number format, so that scaling mixes them rightly.
VipsPtr premultiplied(VipsImage* image)
{
    const VipsPtr result = vipsMake([&](VipsImage** out) { return vips_premultiply(image, out, nullptr); });
    if (!result)
        return nullptr;
    return vipsMake([&](VipsImage** out) { return vips_cast(result.get(), out, image->BandFmt, nullptr); });
}

VipsPtr unpremultiplied(VipsImage* image)
{
    const VipsPtr result = vipsMake([&](VipsImage** out) { return vips_unpremultiply(image, out, nullptr); });
    if (!result)
        return nullptr;
    return vipsMake([&](VipsImage** out) { return vips_cast(result.get(), out, image->BandFmt, nullptr); });
}

/// The rectangle of the stored picture where it lies in the shrunk one.
QRect inShrunk(const QRect& stored, QSize storedSize, const VipsImage* shrunk)
{
    const double across = static_cast<double>(shrunk->Xsize) / storedSize.width();
    const double down = static_cast<double>(shrunk->Ysize) / storedSize.height();
    const int left = static_cast<int>(std::floor(stored.x() * across));
    const int top = static_cast<int>(std::floor(stored.y() * down));
    const int right = static_cast<int>(std::ceil((stored.x() + stored.width()) * across));
    const int bottom = static_cast<int>(std::ceil((stored.y() + stored.height()) * down));
    return {QPoint(left, top),
            QPoint(std::min(right, shrunk->Xsize) - 1, std::min(bottom, shrunk->Ysize) - 1)};
}

/// Decoded, cut, scaled and in memory, still as stored and in the file's colours.
base::Result<VipsPtr> smallPicture(const OpenedBitmap& bitmap, const QRect& stored, QSize target)
{
    const VipsPtr source = imageShrunkOnLoad(bitmap, shrinkFactor(stored.size(), target));
    if (!source)
        return damagedPicture();
    VipsPtr picture = cropped(source.get(), inShrunk(stored, bitmap.storedSize(), source.get()));
    if (picture && QSize(picture->Xsize, picture->Ysize) != target) {
        if (bitmap.metadata.hasAlpha)
            picture = premultiplied(picture.get());
        if (picture)
            picture = vipsResizeTo(picture.get(), target);
    }
    if (!picture)
        return damagedPicture();
    const Deadline deadline(picture.get());
    VipsPtr small(vips_image_copy_memory(picture.get()));
    if (!small) {
        vips_error_clear();
        return deadline.passed() ? base::Failure{base::text("Failure.Image.TooSlow")} : damagedPicture();
    }
    if (bitmap.decoded.isNull() && !readToLastRow(source.get()))
        return damagedPicture();
    return small;
}

/// The premultiplied form is kept where no colours are to be converted.
QImage inSrgb(VipsPtr small, bool isPremultiplied)
{
    const bool plain = small->Type == VIPS_INTERPRETATION_sRGB && small->BandFmt == VIPS_FORMAT_UCHAR;
    if (isPremultiplied && (!plain || !vipsProfileName(small.get()).isEmpty())) {
        small = unpremultiplied(small.get());
        isPremultiplied = false;
    }
    const VipsPtr srgb = small ? vipsToSrgb(small.get()) : nullptr;
    return srgb ? vipsToQImage(srgb.get(), isPremultiplied) : QImage();
}

QImage onCanvas(const QImage& picture, QSize canvasSize)
{
    if (picture.size() == canvasSize)
        return picture;
    QImage canvas(canvasSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.drawImage((canvasSize.width() - picture.width()) / 2,
                      (canvasSize.height() - picture.height()) / 2, picture);
    return canvas;
}

} // namespace

PreviewPlan planPreview(QSize pixelSize)
{
    const QRect whole(QPoint(0, 0), pixelSize);
    const bool inBox = pixelSize.width() <= kPreviewBox.width() && pixelSize.height() <= kPreviewBox.height();
    if (inBox && pixelSize.width() <= kSmallCanvas && pixelSize.height() <= kSmallCanvas)
        return {whole, pixelSize, {kSmallCanvas, kSmallCanvas}};
    if (!inBox && pixelSize.width() > kFillLimit && pixelSize.height() > kFillLimit)
        return {fillSourceRect(pixelSize, kPreviewBox), kPreviewBox, kPreviewBox};
    return {whole, proportionalSize(pixelSize, kPreviewBox), kPreviewBox};
}

base::Result<QImage> renderPreview(const OpenedBitmap& bitmap)
{
    const PreviewPlan plan = planPreview(bitmap.pixelSize());
    const QRect stored = storedRect(plan.source, bitmap.storedSize(), bitmap.orientation);
    const QSize target = bitmap.orientation >= 5 ? plan.picture.transposed() : plan.picture;
    base::Result<VipsPtr> small = smallPicture(bitmap, stored, target);
    if (!small)
        return small.failure();
    const bool scaled = stored.size() != target;
    const QImage picture = inSrgb(std::move(small).value(), scaled && bitmap.metadata.hasAlpha);
    if (picture.isNull())
        return damagedPicture();
    return onCanvas(turnedUpright(picture, bitmap.orientation), plan.canvas);
}

} // namespace mosaro::importing
