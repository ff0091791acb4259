#pragma once

#include "import/FileHeaders.h"

#include <QImage>

class QIODevice;

namespace mosaro::importing {

// A QuickTime image file: atoms, of which one describes the picture and one holds its data. The form is
// published in the reference "QuickTime File Format", under "QuickTime Image File".

[[nodiscard]] std::optional<BitmapHeader> readQuickTimeImageHeader(QIODevice& file);

/// The picture in sRGB: stored as JPEG, PNG or TIFF or as plain pixels. Null for data in another form, cut
/// off or damaged.
[[nodiscard]] QImage readQuickTimeImage(QIODevice& file);

} // namespace mosaro::importing
