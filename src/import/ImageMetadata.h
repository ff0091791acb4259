#pragma once

#include "import/BitmapDecoder.h"

class QIODevice;

namespace mosaro::importing {

/// What a header alone tells.
[[nodiscard]] ImageMetadata metadataOfHeader(const BitmapHeader& header);

/// Fills the metadata of a bitmap that the image library has opened. Fails for a TIFF that needs too much
/// memory at once.
[[nodiscard]] base::Result<void> readMetadata(QIODevice& file, OpenedBitmap& bitmap);

/// The text out of the image library's way of writing an EXIF text, "text (text, ASCII, 5 components, 5
/// bytes)".
[[nodiscard]] QString exifText(const QString& field);

} // namespace mosaro::importing
