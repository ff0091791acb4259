#pragma once

#include "import/MediaClassification.h"

#include <QString>
#include <QUrl>
#include <QVariantMap>
#include <vector>

namespace mosaro::importing {

inline constexpr QLatin1String MR_IMPORTED_KEY_FILE_PATH{"MR_IMPORTED_KEY_FILE_PATH"};
inline constexpr QLatin1String MR_IMPORTED_KEY_URL{"MR_IMPORTED_KEY_URL"};
inline constexpr QLatin1String MR_IMPORTED_KEY_MEDIA_KIND{"MR_IMPORTED_KEY_MEDIA_KIND"};

/// One thing to import: a plain path, or a record with a path, a kind and perhaps an address. On the bus it
/// travels as a text or as a map with the keys above.
struct ImportItem {
    QString path;
    QString url;
    MediaKind kind = MediaKind::Unset;
    bool isRecord = false;

    [[nodiscard]] static ImportItem fromPath(const QString& path)
    {
        return {path, {}, MediaKind::Unset, false};
    }
    /// A text, a file URL or a map; other values give an item without a path.
    [[nodiscard]] static ImportItem fromVariant(const QVariant& value);
    /// The map that fromVariant() reads.
    [[nodiscard]] QVariantMap toRecord() const;
    [[nodiscard]] static std::vector<ImportItem> fromPaths(const QStringList& paths);
    /// Screen, Web and Other: copied into the library whatever its mode says.
    [[nodiscard]] bool isForcedCopy() const;
    /// Whether the file's name is no valid text, so that no path leads to it.
    [[nodiscard]] bool hasLostName() const;
};

struct SkippedPath {
    QString path;
    QString reason;
};

/// The flat list of acceptable items, in order, and what was left out. A folder counts as one level of files,
/// an application folder as its resources. Reads the disk; for a worker.
struct FilteredItems {
    std::vector<ImportItem> items;
    std::vector<SkippedPath> skipped;
};
[[nodiscard]] FilteredItems checkDraggedFiles(const std::vector<ImportItem>& items,
                                              const MediaClassification& classification,
                                              const platform::AliasResolver& aliases);

} // namespace mosaro::importing
