#pragma once

#include <QString>

namespace mosaro::browser {

/// The line below the grid: how many are selected of how many, else how many there are and their size in all.
/// Empty for an empty list.
[[nodiscard]] QString countLine(qint64 selected, qint64 total, qint64 totalFileSize);

} // namespace mosaro::browser
