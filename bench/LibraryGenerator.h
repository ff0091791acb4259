#pragma once

#include "base/Result.h"

#include <QString>

namespace mosaro::bench {

/// Makes a library of so many items at a path where nothing stands yet: titles, dates, kinds, sizes, ratings,
/// labels, collections, tags and colours as a designer's library has them. The same seed gives the same
/// library. With `withPreviews` every item has its folder with a small preview and original; otherwise no
/// file is written for an item, which makes a million of them a matter of seconds.
[[nodiscard]] base::Result<void> generateLibrary(const QString& packagePath, int items, unsigned seed,
                                                 bool withPreviews = false);

} // namespace mosaro::bench
