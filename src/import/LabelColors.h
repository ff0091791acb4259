#pragma once

#include "base/ColorText.h"

#include <optional>

namespace mosaro::importing {

/// The colour that belongs to a file's label number, 1 to 7; nothing for others. It becomes the colour of a
/// tag that arrives with the file.
[[nodiscard]] std::optional<base::ColorValue> fileLabelColor(int fileLabelNumber);

} // namespace mosaro::importing
