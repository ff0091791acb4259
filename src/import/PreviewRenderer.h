#pragma once

#include "import/BitmapDecoder.h"

#include <QImage>
#include <QRect>

namespace mosaro::importing {

/// How a bitmap of a given size becomes a preview: which part of it, how large, on which canvas.
struct PreviewPlan {
    QRect source;  ///< Part of the picture as it is looked at.
    QSize picture; ///< Size of that part in the preview.
    QSize canvas;  ///< Size of the preview; the picture sits in its middle, the rest is transparent.
    bool operator==(const PreviewPlan&) const = default;
};

/// A large picture fills the box and loses what sticks out; one with a short edge is fitted into it; a small
/// one keeps its own size in the box, and a tiny one in a small square. Goes by pixels alone.
[[nodiscard]] PreviewPlan planPreview(QSize pixelSize);

/// Decodes the bitmap, through its last row, and draws its preview: upright, in 8-bit sRGB.
[[nodiscard]] base::Result<QImage> renderPreview(const OpenedBitmap& bitmap);

} // namespace mosaro::importing
