#pragma once

#include "base/Result.h"
#include "import/FileHeaders.h"

#include <QImage>

class QIODevice;

namespace mosaro::importing {

/// The forms of BMP that the usual reader refuses or shows wrongly: colours packed by any masks, palettes of
/// four colours, and more colours than a pixel can name. All that are not packed in runs; the header says
/// which of them is `isRare`.
[[nodiscard]] base::Result<QImage> readRareBmp(QIODevice& file, const BitmapHeader& header);

} // namespace mosaro::importing
