#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

namespace mosaro::importing {

/// Copies a regular file to a name that is free: shares the blocks where the file system can, and keeps the
/// time of change. On failure nothing stands at the destination. For a worker.
[[nodiscard]] base::Result<void> copyFile(const QString& source, const QString& destination);

/// Writes a whole new file. On failure nothing stands at the destination.
[[nodiscard]] base::Result<void> writeFile(const QString& destination, const QByteArray& bytes);

/// A file name that fits into the library with side files named after it: never a path, and short enough for
/// a suffix. A name that cannot be used becomes "file".
[[nodiscard]] QString storedFileName(const QString& name);

/// The words for an error number of the system, for reasons of failure.
[[nodiscard]] QString systemReason(int errorNumber);

} // namespace mosaro::importing
