#include "import/PreviewRenderer.h"

#include "base/Text.h"
#include "import/ImageOperations.h"
#include "import/Orientation.h"

#include <QElapsedTimer>
#include <QPainter>
#include <cmath>

namespace mosaro::importing {

namespace {

// How much larger than the preview the decoder's own shrinking must leave the picture.
constexpr double kShrinkHeadroom = 1.2;
// Up to here a picture is decoded into memory and scaled there, which takes a third of the time of streaming.
constexpr qint64 kInMemoryPixels = 8'000'000;
constexpr qint64 kInMemoryPixelBytes = 8; ///< The decoder's pixel and the one that is scaled.

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

VipsPtr cropped(VipsImage* image, const QRect& rect)
{
    if (rect == QRect(0, 0, image->Xsize, image->Ysize))
        return vipsShare(image);
    return vipsMake([&](VipsImage** out) {
        return vips_extract_area(image, out, rect.x(), rect.y(), rect.width(), rect.height(), nullptr);
    });
}

/// `picture`, made of `part`, with the file's last row below it, so that the rows which the preview does not
/// show are decoded too, in the same pass, and a file that is cut off down there is found.
VipsPtr withLastRow(VipsImage* picture, VipsImage* source, const QRect& part)
{
    VipsPtr row = cropped(source, {part.x(), source->Ysize - 1, part.width(), 1});
    if (row && row->Xsize != picture->Xsize)
        row = vipsResizeTo(row.get(), {picture->Xsize, 1});
    if (!row)
        return nullptr;
    return vipsMake([&](VipsImage** out) {
        return vips_join(picture, row.get(), out, VIPS_DIRECTION_VERTICAL, nullptr);
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

VipsPtr cutAndScaled(VipsImage* source, const QRect& part, QSize target, bool weighted)
{
    VipsPtr picture = cropped(source, part);
    if (!picture || QSize(picture->Xsize, picture->Ysize) == target)
        return picture;
    if (weighted)
        picture = premultiplied(picture.get());
    return picture ? vipsResizeTo(picture.get(), target) : nullptr;
}

base::Failure decodingFailure(const Deadline& deadline)
{
    return deadline.passed() ? base::Failure{base::text("Failure.Image.TooSlow")} : damagedPicture();
}

/// Colours that are sRGB already, or gray.
bool isPlain(VipsImage* image)
{
    return image->BandFmt == VIPS_FORMAT_UCHAR && image->Bands <= 4 && !hasForeignProfile(image) &&
           (image->Type == VIPS_INTERPRETATION_sRGB || image->Type == VIPS_INTERPRETATION_B_W);
}

/// What decoding and scaling keep in memory at once. In a stream these are strips of sixteen rows of the
/// result, in each of a few stages. 0 for a picture that holds its share already.
qint64 renderingBytes(const OpenedBitmap& bitmap, VipsImage* source, QSize part, QSize target, bool inMemory)
{
    constexpr qint64 kStreamedRows = 64;
    if (!bitmap.decoded.isNull())
        return 0;
    if (inMemory)
        return bitmap.decoderBytes + qint64(source->Xsize) * source->Ysize * kInMemoryPixelBytes;
    const qint64 rows = std::min<qint64>(part.height(), kStreamedRows * part.height() / target.height());
    return bitmap.decoderBytes + rows * part.width() * qint64(VIPS_IMAGE_SIZEOF_PEL(source));
}

base::Result<QImage> scaledInMemory(VipsImage* source, const QRect& part, QSize target)
{
    const VipsPtr srgb = vipsToSrgb(source);
    if (!srgb)
        return damagedPicture();
    const Deadline deadline(srgb.get());
    const QImage all = vipsToQImage(srgb.get(), false);
    if (all.isNull())
        return decodingFailure(deadline);
    const QImage cut = part == all.rect() ? all : all.copy(part);
    return cut.size() == target ? cut : shrunk(cut, target);
}

/// `picture` and what follows from it, in memory, without the row that went along to be checked.
base::Result<VipsPtr> decoded(VipsImage* picture, QSize size)
{
    const Deadline deadline(picture);
    const VipsPtr pixels(vips_image_copy_memory(picture));
    VipsPtr result = pixels ? cropped(pixels.get(), QRect(QPoint(0, 0), size)) : nullptr;
    if (result)
        return result;
    vips_error_clear();
    return decodingFailure(deadline);
}

/// Decoded, cut, scaled and in memory, still in the file's colours. For pictures that are too large to be
/// held.
base::Result<VipsPtr> scaledInStream(VipsImage* source, const QRect& part, QSize target, bool weighted)
{
    VipsPtr picture = cutAndScaled(source, part, target, weighted);
    if (picture && part.bottom() < source->Ysize - 1)
        picture = withLastRow(picture.get(), source, part);
    if (!picture)
        return damagedPicture();
    return decoded(picture.get(), target);
}

/// The same for a part that becomes larger. The filter for that does not go from top to bottom, as a stream
/// has to be read; but such a part is small.
base::Result<VipsPtr> enlargedFromStream(VipsImage* source, const QRect& part, QSize target, bool weighted)
{
    VipsPtr picture = cropped(source, part);
    if (picture && part.bottom() < source->Ysize - 1)
        picture = withLastRow(picture.get(), source, part);
    if (!picture)
        return damagedPicture();
    const base::Result<VipsPtr> held = decoded(picture.get(), part.size());
    if (!held)
        return held.failure();
    VipsPtr scaled = cutAndScaled(held.value().get(), QRect(QPoint(0, 0), part.size()), target, weighted);
    if (!scaled)
        return damagedPicture();
    return decoded(scaled.get(), target);
}

/// The premultiplied form is kept where no colours are to be converted.
base::Result<QImage> inSrgb(VipsPtr small, bool isPremultiplied)
{
    if (isPremultiplied && !isPlain(small.get())) {
        small = unpremultiplied(small.get());
        isPremultiplied = false;
    }
    const VipsPtr srgb = small ? vipsToSrgb(small.get()) : nullptr;
    const QImage image = srgb ? vipsToQImage(srgb.get(), isPremultiplied) : QImage();
    if (image.isNull())
        return damagedPicture();
    return image;
}

/// The part of the stored picture at the target size, in sRGB.
base::Result<QImage> pictureOf(const OpenedBitmap& bitmap, const QRect& stored, QSize target)
{
    const VipsPtr source = imageShrunkOnLoad(bitmap, shrinkFactor(stored.size(), target));
    if (!source)
        return damagedPicture();
    const QRect part = inShrunk(stored, bitmap.storedSize(), source.get());
    const bool enlarges = part.width() < target.width() || part.height() < target.height();
    const qint64 pixels = qint64(source->Xsize) * source->Ysize;
    const bool inMemory = pixels <= kInMemoryPixels && isPlain(source.get()) && !enlarges;
    const QSemaphoreReleaser memory =
        decodingMemory().take(renderingBytes(bitmap, source.get(), part.size(), target, inMemory));
    if (inMemory)
        return scaledInMemory(source.get(), part, target);
    const bool weighted = bitmap.metadata.hasAlpha && part.size() != target;
    base::Result<VipsPtr> small = enlarges ? enlargedFromStream(source.get(), part, target, weighted)
                                           : scaledInStream(source.get(), part, target, weighted);
    if (!small)
        return small.failure();
    return inSrgb(std::move(small).value(), weighted);
}

QImage withoutUselessAlpha(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return image;
    const QImage pixels = CGImage(image);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        if (std::any_of(line, line + pixels.width(), [](QRgb pixel) { return qAlpha(pixel) < 255; }))
            return pixels;
    }
    return pixels.convertToFormat(QImage::Format_RGB32);
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
    const base::Result<QImage> picture = pictureOf(bitmap, stored, target);
    if (!picture)
        return picture;
    return onCanvas(withoutUselessAlpha(turnedUpright(picture.value(), bitmap.orientation)), plan.canvas);
}

} // namespace mosaro::importing
