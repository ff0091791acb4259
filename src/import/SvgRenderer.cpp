#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/ChildProcess.h"
#include "import/DecoderProgram.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/SvgSize.h"

#include <algorithm>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr qint64 kPixelBytes = 4;

/// Whole pixels of the declared size; made smaller, in the same shape, where that is beyond the limits.
QSize snapshotSize(QSizeF declared)
{
    const AnalysisLimits& limits = analysisLimits();
    const double sides = std::max(declared.width(), declared.height()) / limits.maxDrawnSide;
    // Root by root: the product of two declared numbers may be no number any more.
    const double area = std::sqrt(declared.width()) * std::sqrt(declared.height()) /
                        std::sqrt(static_cast<double>(limits.maxDrawnPixels));
    const QSizeF size = declared / std::max({1.0, sides, area});
    return {std::max(1, qRound(size.width())), std::max(1, qRound(size.height()))};
}

base::Result<QImage> snapshot(const QByteArray& document, QSize size)
{
    const AnalysisLimits& limits = analysisLimits();
    const qint64 pixelBytes = kPixelBytes * size.width() * size.height();
    const base::Result<QByteArray> pixels =
        runChild(decoderProgram(QStringLiteral("mosaro-svg")),
                 {QString::number(size.width()), QString::number(size.height())},
                 decoderLimits(limits.svgDecoderBytes, pixelBytes), document);
    if (!pixels)
        return pixels.failure();
    if (pixels.value().isEmpty())
        return damagedPicture();
    if (pixels.value().size() != pixelBytes)
        return base::Failure{base::text("Failure.Child.Output")};
    return QImage(reinterpret_cast<const uchar*>(pixels.value().constData()), size.width(), size.height(),
                  qsizetype(kPixelBytes) * size.width(), QImage::Format_ARGB32_Premultiplied)
        .copy();
}

bool fits(QSizeF size, QSizeF box)
{
    return size.width() <= box.width() && size.height() <= box.height();
}

/// Small pictures keep their own size, without a canvas around them, unless an edge is very short.
QImage svgPreview(const QImage& snapshot, QSizeF declared)
{
    const bool isShort = std::min(snapshot.width(), snapshot.height()) <= kSmallCanvas;
    if (fits(snapshot.size(), kPreviewBox) && fits(declared, {kSmallCanvas, kSmallCanvas}))
        return imageOnSmallCanvas(snapshot);
    return imageByScalingProportionallyToSize(snapshot, kPreviewBox, std::nullopt,
                                              isShort || !fits(snapshot.size(), kPreviewBox));
}

} // namespace

base::Result<RenderedDocument> renderSvg(const QString& path)
{
    const base::Result<QByteArray> document = readWholeFile(path, analysisLimits().maxSvgBytes);
    if (!document)
        return document.failure();
    // Packed documents have a type of their own, which is not accepted.
    if (document.value().startsWith("\x1f\x8b"))
        return base::Failure{base::text("Failure.Image.NotAPicture")};
    RenderedDocument rendered;
    rendered.documentSize = svgSizeOf(document.value());
    const QSize size = snapshotSize(rendered.documentSize);
    // The decoder's pixels, those of its answer and the picture.
    const QSemaphoreReleaser memory = decodingMemory().take(3 * kPixelBytes * size.width() * size.height());
    base::Result<QImage> picture = snapshot(document.value(), size);
    if (!picture)
        return picture.failure();
    rendered.fullSize = std::move(picture).value();
    rendered.preview = svgPreview(rendered.fullSize, rendered.documentSize);
    // Without a canvas: an icon's own colours are not to be lost beside its margins.
    rendered.colorSource =
        imageByScalingProportionallyToSize(rendered.fullSize, kPreviewBox, std::nullopt, false);
    rendered.metadata.hasAlpha = true;
    return rendered;
}

} // namespace mosaro::importing
