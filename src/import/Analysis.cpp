#include "import/Analysis.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/ColorEngine.h"
#include "import/ImageOperations.h"
#include "import/PreviewRenderer.h"

#include <QImage>

namespace mosaro::importing {

namespace {

bool hasBitmapRenderer(DocumentType type)
{
    switch (type) {
    case DocumentType::Jpeg:
    case DocumentType::Png:
    case DocumentType::Gif:
    case DocumentType::Tiff:
    case DocumentType::Bmp:
    case DocumentType::Tga:
        return true;
    default:
        return false;
    }
}

/// The bytes go by what the file is called, not by what it holds.
QByteArray encodedPreview(const QImage& preview, DocumentType type)
{
    switch (type) {
    case DocumentType::Jpeg:
    case DocumentType::Jpeg2000:
    case DocumentType::Raw:
        return JPEGRepresentation(preview, kPreviewQuality);
    case DocumentType::Gif:
        return GIFRepresentation(preview);
    default:
        return PNGRepresentation(preview);
    }
}

void decideKind(AnalysisResult& result, int pages)
{
    const bool frames = pages >= 2;
    result.hasFrames = frames && (result.type == DocumentType::Gif || result.type == DocumentType::Tiff);
    if (frames && result.type == DocumentType::Gif)
        result.kind = MediaKind::AnimatedGif;
    else if (result.kind == MediaKind::Unset)
        result.kind =
            MediaClassification::kindOf(result.type, {result.metadata.width, result.metadata.height});
}

base::Result<void> analyseBitmap(const QString& path, AnalysisResult& result)
{
    const base::Result<OpenedBitmap> bitmap = openBitmap(path, result.type);
    if (!bitmap)
        return bitmap.failure();
    const base::Result<QImage> preview = renderPreview(bitmap.value());
    if (!preview)
        return preview.failure();
    result.preview = encodedPreview(preview.value(), result.type);
    if (result.preview.isEmpty())
        return base::Failure{base::text("Failure.Image.Encoding")};
    result.metadata = bitmap.value().metadata;
    result.colors = ZNColorEngine(preview.value(), 1).results();
    decideKind(result, bitmap.value().pages);
    return {};
}

} // namespace

const AnalysisLimits& analysisLimits()
{
    static const AnalysisLimits limits;
    return limits;
}

AnalysisResult analyse(const AnalysisRequest& request)
{
    AnalysisResult result;
    result.type = request.type;
    result.kind = request.kind;
    if (!hasBitmapRenderer(request.type)) {
        result.outcome = base::Failure{
            base::text("Failure.Format.NoRenderer", MediaClassification::contentTypeName(request.type))};
        return result;
    }
    result.outcome = analyseBitmap(request.path, result);
    // The image library keeps buffers for each thread, and pool threads end when there is nothing to do.
    vips_thread_shutdown();
    return result;
}

} // namespace mosaro::importing
