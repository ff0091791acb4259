#pragma once

#include "base/Result.h"
#include "import/ChildProcess.h"

#include <QImage>
#include <QRectF>
#include <QSize>
#include <functional>

namespace mosaro::importing {

// What documents of pages have in common: another program draws them, at any scale.

/// Draws a part of the page, in points from its upper left corner, at a size in pixels.
using PageDrawer = std::function<base::Result<QImage>(const QRectF& part, QSize pixels)>;

/// The limits of a program that draws pages.
[[nodiscard]] ChildLimits pageChildLimits();

/// That a page has a size, and one within the limits.
[[nodiscard]] base::Result<void> checkPageSize(QSizeF points);

/// The picture that a program wrote as PNG. It must have the size that was asked for.
[[nodiscard]] base::Result<QImage> drawnPicture(const QByteArray& png, QSize expected);
/// The same of one that was written as TIFF, whose colours are multiplied by the opacity already.
[[nodiscard]] base::Result<QImage> drawnTiff(const QByteArray& tiff, QSize expected);

struct PagePictures {
    QImage preview;
    QImage fullSize; ///< A point is a pixel, unless that were too many.
};

/// Preview and full size of a page that counts as a picture of as many pixels as it has points: what is
/// larger than the preview box fills it, even when it has to be enlarged; the rest keeps its size.
[[nodiscard]] base::Result<PagePictures> drawPage(const PageDrawer& draw, QSizeF points);

} // namespace mosaro::importing
