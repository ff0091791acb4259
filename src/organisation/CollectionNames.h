#pragma once

#include "organisation/TreeWalk.h"

namespace mosaro::organisation {

/// A free name beside the given titles, which may be in any order. A title that merely contains the name
/// counts as taken: beside "Photo archive", "Photo" comes out as "Photo (2)".
[[nodiscard]] QString availableName(const QString& name, const QStringList& titles);

/// A free name among siblings.
[[nodiscard]] QString availableCollectionName(const QString& name, const NodeList& inArray);

/// The name of a collection that is made for dropped or chosen files: that of the first folder among them,
/// with a word more when there are several; else that of an untitled collection. Looks at the disk.
[[nodiscard]] QString collectionNameFromPaths(const QStringList& paths);

} // namespace mosaro::organisation
