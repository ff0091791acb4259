#pragma once

#include "base/Ports.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace mosaro::platform {

/// The desktop's database of file types, asked by file name extension only.
class TypeDatabase {
public:
    virtual ~TypeDatabase() = default;
    /// The MIME name for an extension as written (no dot), or empty.
    [[nodiscard]] virtual QString mimeTypeForExtension(const QString& extension) const = 0;
    /// Whether `mime` is `ancestor` or inherits it.
    [[nodiscard]] virtual bool inherits(const QString& mime, const QString& ancestor) const = 0;
};

/// The desktop thumbnailers that are registered for MIME names. Safe to call on any thread.
class ThumbnailerLookup {
public:
    virtual ~ThumbnailerLookup() = default;
    [[nodiscard]] virtual bool hasThumbnailer(const QStringList& mimeTypes) const = 0;
    /// Its command line, with fields as "%i" in it, for the first of the names that has one; else empty.
    [[nodiscard]] virtual QString thumbnailerCommand(const QStringList& mimeTypes) const = 0;
};

/// What the desktop knows of a file beside its contents. Safe to call on any thread.
struct FileIndexEntry {
    QString whereFrom;   ///< First source address, or empty.
    QString comment;     ///< The user's comment, or empty.
    QStringList tags;    ///< The file's tags in order.
    int labelNumber = 0; ///< The file's label number (not the item's label); 0 for none.
};
class FileIndex {
public:
    virtual ~FileIndex() = default;
    [[nodiscard]] virtual FileIndexEntry read(const QString& path) const = 0;
    virtual bool writeLabelNumber(const QString& path, int labelNumber) = 0;
};

/// Symbolic links and ".desktop" files of type Link to a local file. Safe to call on any thread.
class AliasResolver {
public:
    virtual ~AliasResolver() = default;
    /// The file that the path leads to, absolute; the path itself when it is no alias; empty when the alias
    /// leads nowhere.
    [[nodiscard]] virtual QString resolve(const QString& path) const = 0;
};

/// Persistent tokens for paths.
class Bookmarks {
public:
    virtual ~Bookmarks() = default;
    /// Empty when no token can be made, as for a path that is not readable.
    [[nodiscard]] virtual QByteArray bookmarkData(const QString& path) const = 0;
    /// The path, or empty when the data or the file is gone.
    [[nodiscard]] virtual QString resolve(const QByteArray& bookmark) const = 0;
};

/// Shows a file selected in the desktop's file manager.
class FileRevealer {
public:
    virtual ~FileRevealer() = default;
    virtual void reveal(const QString& path) = 0;
};

/// The badge on the application's launcher icon.
class LauncherBadge {
public:
    virtual ~LauncherBadge() = default;
    virtual void setPercent(int percent) = 0;
    virtual void clear() = 0;
};

/// Everything the desktop offers, made once by the program. Owned here; parts keep references.
struct Platform {
    std::unique_ptr<TypeDatabase> types;
    std::unique_ptr<ThumbnailerLookup> thumbnailers;
    std::unique_ptr<FileIndex> fileIndex;
    std::unique_ptr<AliasResolver> aliases;
    std::unique_ptr<Bookmarks> bookmarks;
    std::unique_ptr<FileRevealer> revealer;
    std::unique_ptr<LauncherBadge> badge;
    std::unique_ptr<base::UserNotifier> notifier;
    std::unique_ptr<base::SoundPlayer> sounds;
};

} // namespace mosaro::platform
