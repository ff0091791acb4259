#pragma once

#include <QString>

namespace mosaro::importing {

// The tables behind MRBrowserItem, by document type and label number.

/// Name of the badge that a grid cell shows; empty for none.
[[nodiscard]] QString documentBadge(int documentType);
[[nodiscard]] QString labelBadge(int label);
/// What the side file's name adds to the stem; empty for types without a side file.
[[nodiscard]] QString sideFileSuffix(int documentType);
/// Name of the design application, types 17 to 22; empty for others.
[[nodiscard]] QString designApplication(int documentType);
/// Types that no reader draws from the file itself: a side file or the preview stands in for it.
[[nodiscard]] bool isDrawnBySideFile(int documentType);

} // namespace mosaro::importing
