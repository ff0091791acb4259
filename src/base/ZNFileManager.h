#pragma once

#include <QString>

namespace mosaro::base {

/// Free file names and the few file operations that the system shares.
class ZNFileManager {
public:
    static ZNFileManager& sharedManager();

    /// A free variant of a folder path: the path itself, else "path (2)" … "path (9998)", else the path.
    [[nodiscard]] QString availableFolderName(const QString& path) const;
    /// The same for "path.suffix", "path (2).suffix" …
    [[nodiscard]] QString availableFileName(const QString& path, const QString& withSuffix) const;
    /// A number of bytes for people, in decimal units: "Zero KB", "1 byte", "12 KB", "3.4 MB".
    [[nodiscard]] QString fileSizeAsString(qint64 bytes) const;
    /// Creates it with its intermediates; false when it exists already or on failure.
    bool createDirectoryAtPath(const QString& path) const;
    /// Deletes a file or a whole folder.
    bool removeItemAtPath(const QString& path) const;
};

} // namespace mosaro::base
