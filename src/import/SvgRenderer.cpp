#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/DecoderProcess.h"
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
QSize snapshotSize(QSizeF declared, const AnalysisLimits& limits)
{
    const double sides = std::max(declared.width(), declared.height()) / limits.maxDrawnSide;
    // Root by root: the product of two declared numbers may be no number any more.
    const double area = std::sqrt(declared.width()) * std::sqrt(declared.height()) /
                        std::sqrt(static_cast<double>(limits.maxDrawnPixels));
    const QSizeF size = declared / std::max({1.0, sides, area});
    return {std::max(1, qRound(size.width())), std::max(1, qRound(size.height()))};
}

/// Each thread has a decoder of its own, which ends with the thread.
base::Result<QImage> snapshot(const QByteArray& document, QSize size, const AnalysisLimits& limits)
{
    thread_local DecoderProcess decoder(decoderProgram(QStringLiteral("mosaro-svg")));
    ChildLimits ofDecoder = decoderLimits(limits.svgDecoderBytes, 0);
    ofDecoder.seconds = limits.maxSeconds;
    return decoder.draw(document, size, ofDecoder);
}

bool fits(QSizeF size, QSizeF box)
{
    return size.width() <= box.width() && size.height() <= box.height();
}

/// `fitted` is the snapshot, or what is left of it within the preview box. Small pictures keep their own
/// size, without a canvas around them, unless an edge is very short.
QImage svgPreview(const QImage& snapshot, const QImage& fitted, QSizeF declared)
{
    const bool isShort = std::min(snapshot.width(), snapshot.height()) <= kSmallCanvas;
    if (fits(snapshot.size(), kPreviewBox) && fits(declared, {kSmallCanvas, kSmallCanvas}))
        return imageOnSmallCanvas(snapshot);
    return imageByScalingProportionallyToSize(fitted, kPreviewBox, std::nullopt,
                                              isShort || !fits(snapshot.size(), kPreviewBox));
}

} // namespace

base::Result<RenderedDocument> renderSvg(const QString& path, const AnalysisLimits& limits)
{
    const base::Result<QByteArray> document = readWholeFile(path, limits.maxSvgBytes);
    if (!document)
        return document.failure();
    // Packed documents have a type of their own, which is not accepted.
    if (document.value().startsWith("\x1f\x8b"))
        return base::Failure{base::text("Failure.Image.NotAPicture")};
    const std::optional<DocumentType> type = markedTypeOf(document.value());
    if (type && *type != DocumentType::Svg)
        return otherContents(document.value(), DocumentType::Svg);
    RenderedDocument rendered;
    rendered.documentSize = svgSizeOf(document.value());
    const QSize size = snapshotSize(rendered.documentSize, limits);
    // In the decoder and here.
    const QSemaphoreReleaser memory = decodingMemory().take(2 * kPixelBytes * size.width() * size.height());
    base::Result<QImage> picture = snapshot(document.value(), size, limits);
    if (!picture)
        return picture.failure();
    rendered.fullSize = std::move(picture).value();
    // Without a canvas: an icon's own colours are not to be lost beside its margins.
    rendered.colorSource =
        imageByScalingProportionallyToSize(rendered.fullSize, kPreviewBox, std::nullopt, false);
    rendered.preview = svgPreview(rendered.fullSize, rendered.colorSource, rendered.documentSize);
    rendered.metadata.hasAlpha = true;
    return rendered;
}

} // namespace mosaro::importing
