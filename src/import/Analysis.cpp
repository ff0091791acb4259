#include "import/Analysis.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/BrowserTables.h"
#include "import/ColorEngine.h"
#include "import/ImageOperations.h"
#include "import/PreviewRenderer.h"
#include "import/RenderedDocument.h"

#include <QImage>

namespace mosaro::importing {

namespace {

bool hasBitmapRenderer(DocumentType type)
{
    switch (type) {
    case DocumentType::Jpeg:
    case DocumentType::Jpeg2000:
    case DocumentType::Pict:
    case DocumentType::QuickTimeImage:
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

base::Result<RenderedDocument> render(const AnalysisRequest& request)
{
    const QString& path = request.path;
    switch (request.type) {
    case DocumentType::Pdf:
        return renderPdf(path);
    case DocumentType::Illustrator:
        return renderIllustrator(path);
    case DocumentType::Eps:
        return renderPostScript(path);
    case DocumentType::Svg:
        return renderSvg(path);
    case DocumentType::Icns:
    case DocumentType::Ico:
        return renderIcon(path, request.type);
    case DocumentType::Photoshop:
        return renderPhotoshop(path);
    case DocumentType::Raw:
        return renderCameraRaw(path);
    default:
        return renderDesignDocument(path, request.type, request.thumbnailer);
    }
}

/// As the file says it; a size that is no whole number is none that screens have.
QSize pixelSizeOf(const AnalysisResult& result)
{
    if (result.documentSize.isEmpty())
        return {result.metadata.width, result.metadata.height};
    const QSize whole = result.documentSize.toSize();
    return QSizeF(whole) == result.documentSize ? whole : QSize();
}

/// Documents of pages, of PostScript and of design programs have a kind whatever their size.
void decideDocumentKind(AnalysisResult& result)
{
    const bool isOther = result.type == DocumentType::Illustrator || result.type >= DocumentType::Eps;
    if (isOther)
        result.kind = MediaKind::Other;
    else if (result.kind == MediaKind::Unset && result.type == DocumentType::Pdf)
        result.kind = MediaKind::Pdf;
    else if (result.kind == MediaKind::Unset)
        result.kind = MediaClassification::kindOf(result.type, pixelSizeOf(result));
}

QByteArray encodedSideFile(const QImage& picture, DocumentType type)
{
    return type == DocumentType::Raw ? JPEGRepresentation(picture, kPreviewQuality)
                                     : PNGRepresentation(picture);
}

base::Result<void> analyseDocument(const AnalysisRequest& request, AnalysisResult& result)
{
    base::Result<RenderedDocument> rendered = render(request);
    if (!rendered)
        return rendered.failure();
    RenderedDocument& document = rendered.value();
    result.preview = encodedPreview(document.preview, result.type);
    if (result.preview.isEmpty())
        return base::Failure{base::text("Failure.Image.Encoding")};
    if (!document.fullSize.isNull()) {
        result.sideFile = encodedSideFile(document.fullSize, result.type);
        result.sideFileSuffix = sideFileSuffix(static_cast<int>(result.type));
    }
    result.metadata = document.metadata;
    result.documentSize = document.documentSize;
    result.pdf = document.pdf;
    result.hasFrames = document.hasFrames;
    const bool byPreview = document.colorSource.isNull();
    result.colors = ZNColorEngine(byPreview ? document.preview : document.colorSource, 1).results();
    decideDocumentKind(result);
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
    ensureImageLibrary(); // It is shut down for this thread below, also when no picture has met it.
    AnalysisResult result;
    result.type = request.type;
    result.kind = request.kind;
    result.outcome = hasBitmapRenderer(request.type) ? analyseBitmap(request.path, result)
                                                     : analyseDocument(request, result);
    // The image library keeps buffers for each thread, and pool threads end when there is nothing to do.
    vips_thread_shutdown();
    return result;
}

} // namespace mosaro::importing
