#pragma once

#include "base/Result.h"
#include "import/Analysis.h"

#include <QImage>
#include <QSizeF>
#include <QString>
#include <optional>

namespace mosaro::importing {

/// What a renderer makes of a file that is no plain bitmap, in one pass over it.
struct RenderedDocument {
    QImage preview;     ///< As it is stored: sized, on its canvas, 8-bit sRGB.
    QImage fullSize;    ///< What the side file holds; null for types without one.
    QImage colorSource; ///< What the colours are taken from; null: the preview, whose margins count as black.
    ImageMetadata metadata; ///< Width and height count only where there is no documentSize.
    QSizeF documentSize;    ///< In points, or as an SVG document says; empty for what is measured in pixels.
    std::optional<PdfMetadata> pdf;
    bool hasFrames = false; ///< Several representations or pages.
};

// One function for each family of types. All may run on any thread, several at once, open no network
// connection and no file beside the given one, and keep to analysisLimits().
[[nodiscard]] base::Result<RenderedDocument> renderPdf(const QString& path);
[[nodiscard]] base::Result<RenderedDocument> renderIllustrator(const QString& path);
[[nodiscard]] base::Result<RenderedDocument> renderPostScript(const QString& path);
[[nodiscard]] base::Result<RenderedDocument> renderSvg(const QString& path,
                                                       const AnalysisLimits& limits = analysisLimits());
/// Icns and Ico: several representations in one file.
[[nodiscard]] base::Result<RenderedDocument> renderIcon(const QString& path, DocumentType type);
[[nodiscard]] base::Result<RenderedDocument> renderPhotoshop(const QString& path);
[[nodiscard]] base::Result<RenderedDocument> renderCameraRaw(const QString& path);
/// The types from AffinityDesigner on: by the preview that the document carries, else by a thumbnailer of the
/// desktop, if there is one.
[[nodiscard]] base::Result<RenderedDocument> renderDesignDocument(const QString& path, DocumentType type,
                                                                  const QString& thumbnailer);

} // namespace mosaro::importing
