#pragma once

#include "import/Analysis.h"

#include <optional>

class QIODevice;

namespace mosaro::importing {

/// What the head and the resources of a Photoshop document tell. The form of the file is published by its
/// maker as "Adobe Photoshop File Formats Specification"; every length in it is checked.
[[nodiscard]] std::optional<ImageMetadata> readPhotoshopHeader(QIODevice& file);

} // namespace mosaro::importing
