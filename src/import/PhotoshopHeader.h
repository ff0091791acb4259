#pragma once

#include "import/Analysis.h"

#include <optional>

class QIODevice;

namespace mosaro::importing {

/// What the head and the resources of a Photoshop document tell. Its maker publishes the form of the file
/// ("Photoshop File Formats", the sections on the file header and the image resources); every length in it is
/// checked.
[[nodiscard]] std::optional<ImageMetadata> readPhotoshopHeader(QIODevice& file);

} // namespace mosaro::importing
