#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

namespace mosaro::importing {

/// The picture of a document that a thumbnailer of the desktop draws, as PNG or JPEG bytes. `command` is its
/// command line as thumbnailers register it, with %i, %u, %o and %s for the file, its address, the picture
/// and its size. Runs it in a child under limits, without the network where the system lets programs go
/// without it.
[[nodiscard]] base::Result<QByteArray> desktopThumbnail(const QString& command, const QString& path,
                                                        int side);

} // namespace mosaro::importing
