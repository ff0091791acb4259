#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/MagickDecoder.h"
#include "import/PhotoshopHeader.h"

#include <QFile>
#include <QFileInfo>

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
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    if (!file.peek(4).startsWith("8BPS"))
        return base::Failure{base::text("Failure.Image.NotAPicture")};
    const std::optional<ImageMetadata> metadata = readPhotoshopHeader(file);
    if (!metadata)
        return damagedPicture();
    const QSize pixels(metadata->width, metadata->height);
    if (qint64(pixels.width()) * pixels.height() > analysisLimits().maxPixelsWithoutStreaming)
        return tooLargePicture(pixels);

    const base::Result<QImage> picture =
        readByMagick({path, "psd", sizeToDecode(pixels), metadata->hasAlpha});
    if (!picture)
        return picture.failure();
    RenderedDocument document;
    document.preview = previewOfDrawing(picture.value(), QSizeF(pixels) * (72 / metadata->dpi));
    document.metadata = *metadata;
    return document;
}

} // namespace mosaro::importing
