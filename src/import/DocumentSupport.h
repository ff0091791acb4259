#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>

namespace mosaro::importing {

// What the renderers of documents share.

/// The bytes of a file of at most `maxBytes`.
[[nodiscard]] base::Result<QByteArray> readWholeFile(const QString& path, qint64 maxBytes);

/// A drawn document as its preview: filling the box when it is larger in any direction, else fitted or, when
/// it is tiny, on the small canvas. What counts is its size in points, which is that in pixels unless given.
[[nodiscard]] QImage previewOfDrawing(const QImage& drawing, QSizeF points = {});

/// In sRGB, when the picture says that it is in other colours.
[[nodiscard]] QImage inSrgbColors(QImage picture);

} // namespace mosaro::importing
