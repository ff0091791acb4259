#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

namespace mosaro::importing {

// The number that a camera notes for how it was held, 1 to 8 as in EXIF: 2 and 4 mirrored, 3 upside down, 5
// to 8 lying on a side.

/// A rectangle of the upright picture in the picture as stored.
[[nodiscard]] QRect storedRect(const QRect& upright, QSize stored, int orientation);

[[nodiscard]] QImage turnedUpright(const QImage& image, int orientation);

} // namespace mosaro::importing
