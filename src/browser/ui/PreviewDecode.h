#pragma once

#include "browser/CellContent.h"

#include <QColor>
#include <QImage>
#include <QSize>

namespace mosaro::browser {

/// What one picture of the grid is asked for: a value that a worker may keep.
struct PreviewRequest {
    QString path;
    int version = 1;
    QSize box;       ///< Points that the picture may take.
    qreal ratio = 1; ///< Device pixels of a point.
    FileFacts file;
    bool wantsImage = true;
};

struct PreviewResult {
    QImage image; ///< Null: the file is no picture that can be read.
    QSize originalSize;
    bool isDarkDrawing = false;
    FileState file;
};

/// A picture's size in the box: smaller when it must be, never larger than it is.
[[nodiscard]] QSize fittedSize(const QSize& original, const QSize& box);

/// Whether it is mostly dark and has a shape of its own, so that it would be lost on a dark ground. Plain
/// dark rectangles, as photos beside their margins, are none.
[[nodiscard]] bool isDarkDrawing(const QImage& image);
inline const QColor kGroundOfDarkDrawings{0xCC, 0xCC, 0xCF};

/// Reads and scales the preview and looks at the item's file. Pure, for a worker. The kind of file is told by
/// its content, whatever its name.
[[nodiscard]] PreviewResult loadPreview(const PreviewRequest& request);

} // namespace mosaro::browser
