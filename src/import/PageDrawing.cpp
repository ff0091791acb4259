#include "import/PageDrawing.h"

#include "base/Text.h"
#include "import/Analysis.h"
#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr int kBytesPerPixel = 4;
// Where a thin page fills the preview box, the drawing programs count millions of pixels along it, and know
// numbers up to eight millions.
constexpr double kMostTimesLonger = 20'000;

/// Whole pixels that cover so many points. A hair more than a whole number is that number.
QSize coveringPixels(QSizeF points)
{
    const auto covering = [](double length) {
        return std::max(1, static_cast<int>(std::ceil(length - 0.001)));
    };
    return {covering(points.width()), covering(points.height())};
}

QSize withinPixelLimits(QSize size)
{
    const AnalysisLimits& limits = analysisLimits();
    const double pixels = double(size.width()) * size.height();
    const double edge = std::max(size.width(), size.height());
    const double factor =
        std::min(std::sqrt(double(limits.maxPagePixels) / pixels), limits.maxPageEdge / edge);
    return factor >= 1 ? size : coveringPixels(QSizeF(size) * factor);
}

/// The part of a page that fills the preview box, by whole pixels but in points.
QRectF fillingPart(QSizeF points, QSize size)
{
    const QRect pixels = fillSourceRect(size, kPreviewBox);
    const double across = points.width() / size.width();
    const double down = points.height() / size.height();
    return {pixels.x() * across, pixels.y() * down, pixels.width() * across, pixels.height() * down};
}

/// What would have to be made larger is drawn larger instead.
base::Result<QImage> drawPreview(const PageDrawer& draw, QSizeF points, const QImage& fullSize)
{
    const QSize size = coveringPixels(points);
    const bool fills = size.width() > kPreviewBox.width() || size.height() > kPreviewBox.height();
    const bool enlarges = size.width() < kPreviewBox.width() || size.height() < kPreviewBox.height();
    return fills && enlarges ? draw(fillingPart(points, size), kPreviewBox)
                             : base::Result<QImage>(previewOfDrawing(fullSize, size));
}

} // namespace

ChildLimits pageChildLimits()
{
    const AnalysisLimits& limits = analysisLimits();
    return {limits.maxPageSeconds, limits.maxPageMemory, limits.maxPageOutput};
}

base::Result<void> checkPageSize(QSizeF points)
{
    if (!(points.width() > 0 && points.height() > 0))
        return damagedPicture();
    const double most = analysisLimits().maxSide;
    if (points.width() > most || points.height() > most)
        return tooLargePicture(coveringPixels(points.boundedTo({1e9, 1e9})));
    const auto [shorter, longer] = std::minmax({points.width(), points.height()});
    if (longer > shorter * kMostTimesLonger)
        return base::Failure{base::text("Failure.Document.TooThin", QString::number(points.width()),
                                        QString::number(points.height()))};
    return {};
}

base::Result<QImage> drawnPicture(const QByteArray& png, QSize expected)
{
    QBuffer buffer;
    buffer.setData(png);
    QImageReader reader(&buffer, "png");
    const QImage image = !png.isEmpty() && reader.size() == expected ? reader.read() : QImage();
    if (image.isNull())
        return damagedPicture();
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

base::Result<PagePictures> drawPage(const PageDrawer& draw, QSizeF points)
{
    const QSize bounded = withinPixelLimits(coveringPixels(points));
    // Twice: as it is read, and as it is cut or changed.
    const QSemaphoreReleaser memory =
        decodingMemory().take(qint64(bounded.width()) * bounded.height() * kBytesPerPixel * 2);
    const base::Result<QImage> fullSize = draw(QRectF({0, 0}, points), bounded);
    if (!fullSize)
        return fullSize.failure();
    const base::Result<QImage> preview = drawPreview(draw, points, fullSize.value());
    if (!preview)
        return preview.failure();
    return PagePictures{preview.value(), fullSize.value()};
}

} // namespace mosaro::importing
