#pragma once

#include "base/ColorText.h"

#include <QDateTime>
#include <QString>
#include <optional>

namespace mosaro::importing {
class MRBrowserItem;
}

namespace mosaro::browser {

/// What the state of an item's file follows from.
struct FileFacts {
    QString path;
    QDateTime dateModified;
    qint64 fileSize = 0;
};

/// What a look at the disk says of an item's file.
struct FileState {
    bool readable = false;
    bool modified = false; ///< Changed outside: another time and another size than the record's, both.
    bool operator==(const FileState&) const = default;
};

/// Looks at the disk, so on a worker.
[[nodiscard]] FileState fileState(const FileFacts& facts);

/// All that a cell shows of one item, read once: painting asks neither the store nor the disk.
struct CellContent {
    QString title;
    QString subtitle;
    int rating = 0;
    QString ratingText;
    QString ratingShortText;
    int label = 0;
    bool hasTags = false;
    bool isThirdPartyFormat = false;
    bool isReferencedMedia = false;
    QString badge;
    std::optional<base::ColorValue> background;
    int width = 0; ///< Of the original, 0 when it has none.
    int height = 0;
    QString previewPath;
    int imageVersion = 1;
    FileFacts file;
};

[[nodiscard]] CellContent cellContent(const importing::MRBrowserItem& item, bool hasTags);

/// The content in one line, for screen readers.
[[nodiscard]] QString accessibleText(const CellContent& content);

} // namespace mosaro::browser
