#pragma once

#include "base/Result.h"
#include "import/PhotoshopHeader.h"

#include <QImage>
#include <QSize>

class QIODevice;

namespace mosaro::importing {

/// Whether the merged picture is one that can be read here: there is one, of whole numbers, plain or in runs.
[[nodiscard]] bool hasReadablePixels(QIODevice& file, const PhotoshopPixels& pixels);

/// The merged picture of a Photoshop document in sRGB, made smaller while it is read, and scaled to `wanted`
/// where that is not empty. Read here, since ImageMagick reads no palettes, mistakes the transparency of some
/// colour models and refuses many channels.
[[nodiscard]] base::Result<QImage> readPhotoshopPixels(QIODevice& file, const PhotoshopPixels& pixels,
                                                       QSize wanted);

} // namespace mosaro::importing
