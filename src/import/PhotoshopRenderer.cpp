#include "import/RenderedDocument.h"

#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/MagickDecoder.h"
#include "import/PhotoshopPixels.h"

#include <QFile>
#include <algorithm>

namespace mosaro::importing {

namespace {

// How much larger than the preview the picture comes out of the child.
constexpr int kHeadroom = 3;

/// Covers the preview some times over, and never more than the picture has.
QSize sizeToDecode(QSize pixels)
{
    const QSize covering = pixels.scaled(kPreviewBox * kHeadroom, Qt::KeepAspectRatioByExpanding);
    return covering.width() < pixels.width() ? covering.expandedTo({1, 1}) : QSize();
}

} // namespace

base::Result<RenderedDocument> renderPhotoshop(const QString& path)
{
    QFile file(path);
    const base::Result<void> opened = openDocument(file);
    if (!opened)
        return opened.failure();
    const QByteArray head = file.peek(kTypeHeadBytes);
    if (!head.startsWith("8BPS"))
        return otherContents(head, DocumentType::Photoshop);
    const std::optional<ImageMetadata> metadata = readPhotoshopHeader(file);
    if (!metadata)
        return damagedPicture();
    const QSize pixels(metadata->width, metadata->height);
    const AnalysisLimits& limits = analysisLimits();
    if (std::max(pixels.width(), pixels.height()) > limits.maxSide ||
        qint64(pixels.width()) * pixels.height() > limits.maxPixelsWithoutStreaming)
        return tooLargePicture(pixels);

    const QSize wanted = sizeToDecode(pixels);
    const std::optional<PhotoshopPixels> layout = readPhotoshopLayout(file);
    const bool isOwn = layout && hasReadablePixels(file, *layout);
    const base::Result<QImage> picture = isOwn ? readPhotoshopPixels(file, *layout, wanted)
                                               : readByMagick({path, "psd", wanted, metadata->hasAlpha});
    if (!picture)
        return picture.failure();
    RenderedDocument document;
    document.preview = previewOfDrawing(picture.value(), QSizeF(pixels) * (72 / metadata->dpi));
    document.metadata = *metadata;
    return document;
}

} // namespace mosaro::importing
