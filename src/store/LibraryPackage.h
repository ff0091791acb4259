#pragma once

#include "base/Result.h"

#include <QDate>
#include <QString>
#include <QVariantMap>

namespace mosaro::store {

/// The places inside a library package. A value; touches no file unless told below.
class LibraryPackage {
public:
    LibraryPackage() = default;
    explicit LibraryPackage(const QString& rootPath);

    [[nodiscard]] bool isNull() const { return m_root.isEmpty(); }
    [[nodiscard]] const QString& libraryDirPath() const { return m_root; }
    [[nodiscard]] QString dbPath() const;             ///< "Mosaro"
    [[nodiscard]] QString masterDirPath() const;      ///< "Masters"
    [[nodiscard]] QString xmlPath() const;            ///< "Mosaro Library.plist"
    [[nodiscard]] QString libraryVersionPath() const; ///< "MRLib.data"
    [[nodiscard]] QString accessListInfoPath() const; ///< "MRAccessList.data"
    /// Where items are put together before they are renamed into their place; on the same file system.
    [[nodiscard]] QString stagingDirPath() const; ///< "Masters/.incoming"

    /// "/year/month/day/mediaID.mritem", numbers not padded; below Masters, with a slash in front.
    [[nodiscard]] static QString itemFolder(const QDate& date, const QString& mediaID);

    /// The version record; an empty map when it is missing or unreadable.
    [[nodiscard]] QVariantMap versionRecord() const;
    base::Result<void> writeVersionRecord(const QVariantMap& record) const;

private:
    QString m_root;
};

inline constexpr auto kOriginalsDir = "Originals";
inline constexpr auto kPreviewDir = "Preivew"; ///< Spelled so in every library.
inline constexpr auto kPreviewFile = "preview.png";
inline constexpr auto kPackageSuffix = "mrlibrary";
inline constexpr auto kItemSuffix = "mritem";

/// Whether a title or file name may become one path component: not empty, not "." or "..", no slash, no NUL.
[[nodiscard]] bool isSafePathComponent(const QString& name);

} // namespace mosaro::store
