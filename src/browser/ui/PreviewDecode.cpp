#include "browser/ui/PreviewDecode.h"

#include <QImageReader>
#include <algorithm>

namespace mosaro::browser {

namespace {

/// A preview is small; a file that claims to be larger than this is not one.
constexpr qint64 kMaximumPixels = 64LL * 1024 * 1024;

constexpr int kSamplesAcross = 160;
constexpr int kVisibleAlpha = 32;
constexpr int kDarkGray = 80;
constexpr int kLightGray = 190;

/// What is seen in a picture, by samples that are evenly spread.
struct Visible {
    int step = 1;
    qint64 dark = 0;
    qint64 light = 0;
    qint64 all = 0;
    QRect bounds; ///< In steps.

    explicit Visible(const QImage& image)
        : step(std::max(1, std::max(image.width(), image.height()) / kSamplesAcross))
    {
        for (int y = 0; y < image.height(); y += step) {
            const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            for (int x = 0; x < image.width(); x += step) {
                if (qAlpha(row[x]) >= kVisibleAlpha) {
                    add(qUnpremultiply(row[x]), QPoint(x, y) / step);
                }
            }
        }
    }

    /// Hardly anything within the bounds is seen through.
    [[nodiscard]] bool isRectangle() const
    {
        return all * 100 >= qint64(bounds.width()) * bounds.height() * 97;
    }

private:
    void add(QRgb pixel, QPoint at)
    {
        bounds |= QRect(at, QSize(1, 1));
        ++all;
        dark += qGray(pixel) < kDarkGray ? 1 : 0;
        light += qGray(pixel) > kLightGray ? 1 : 0;
    }
};

QSize pixelsFor(const QSize& original, const PreviewRequest& request)
{
    const QSizeF fitted = fittedSize(original, request.box);
    return (fitted * request.ratio).toSize().boundedTo(original).expandedTo({1, 1});
}

bool isBelievable(const QSize& size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= kMaximumPixels;
}

QImage readScaled(QImageReader& reader, const PreviewRequest& request, QSize& originalSize)
{
    const QSize stored = reader.size();
    if (!isBelievable(stored)) {
        return {};
    }
    const bool rotated = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    originalSize = rotated ? stored.transposed() : stored;
    const QSize wanted = pixelsFor(originalSize, request);
    // JPEG shrinks while it decodes; twice the size is left for the good filter below.
    const QSize rough = (rotated ? wanted.transposed() : wanted) * 2;
    if (reader.format() == "jpeg" && rough.width() < stored.width()) {
        reader.setScaledSize(rough);
    }
    QImage image = reader.read();
    if (!image.isNull() && image.size() != wanted) {
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return image;
}

} // namespace

QSize fittedSize(const QSize& original, const QSize& box)
{
    if (original.isEmpty() || (original.width() <= box.width() && original.height() <= box.height())) {
        return original;
    }
    return original.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

bool isDarkDrawing(const QImage& image)
{
    if (image.format() != QImage::Format_ARGB32_Premultiplied) {
        return false;
    }
    const Visible visible(image);
    return visible.all > 0 && !visible.isRectangle() && visible.dark * 4 >= visible.all &&
           visible.dark > visible.light;
}

PreviewResult loadPreview(const PreviewRequest& request)
{
    PreviewResult result;
    result.file = fileState(request.file);
    if (request.wantsImage) {
        QImageReader reader(request.path);
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
        const QImage image = readScaled(reader, request, result.originalSize);
        const auto format =
            image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
        result.image = image.isNull() ? image : image.convertToFormat(format);
        result.isDarkDrawing = isDarkDrawing(result.image);
    }
    return result;
}

} // namespace mosaro::browser
