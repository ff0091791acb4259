#include "import/ImportItem.h"

#include "base/FinderStyleCompare.h"
#include "base/Text.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::importing {

using base::text;

ImportItem ImportItem::fromVariant(const QVariant& value)
{
    if (value.typeId() == QMetaType::QUrl) {
        return fromPath(value.toUrl().toLocalFile());
    }
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap record = value.toMap();
        bool isNumber = false;
        const int kind = record.value(MR_IMPORTED_KEY_MEDIA_KIND).toInt(&isNumber);
        return {record.value(MR_IMPORTED_KEY_FILE_PATH).toString(),
                record.value(MR_IMPORTED_KEY_URL).toString(),
                isNumber && kind >= 0 ? static_cast<MediaKind>(kind) : MediaKind::Unset, true};
    }
    return value.typeId() == QMetaType::QString ? fromPath(value.toString()) : ImportItem();
}

std::vector<ImportItem> ImportItem::fromPaths(const QStringList& paths)
{
    std::vector<ImportItem> items;
    items.reserve(static_cast<size_t>(paths.size()));
    for (const QString& path : paths) {
        items.push_back(fromPath(path));
    }
    return items;
}

bool ImportItem::isForcedCopy() const
{
    return kind == MediaKind::Screen || kind == MediaKind::Web || kind == MediaKind::Other;
}

namespace {

/// One pass over a list of items.
class Filter {
public:
    Filter(const MediaClassification& classification, const platform::AliasResolver& aliases)
        : m_classification(classification), m_aliases(aliases)
    {
    }

    void take(const ImportItem& item)
    {
        if (item.isRecord) {
            takeRecord(item);
        } else {
            takePath(item.path);
        }
    }

    [[nodiscard]] FilteredItems result() && { return std::move(m_result); }

private:
    void takeRecord(const ImportItem& item)
    {
        if (item.path.isEmpty() || !QFileInfo(item.path).isFile()) {
            skip(item.path, text("Failure.Import.NoFile"));
        } else if (!isAccepted(item.path)) {
            skip(item.path, text("Failure.Import.NotAccepted"));
        } else {
            m_result.items.push_back(item);
        }
    }

    void takePath(const QString& given)
    {
        const QString path = given.isEmpty() ? QString() : m_aliases.resolve(given);
        const QFileInfo info(path);
        if (path.isEmpty() || !info.exists()) {
            skip(given, text("Failure.Import.NoFile"));
        } else if (info.isDir()) {
            takeFolder(path);
        } else if (!info.isFile() || !isAccepted(path)) {
            skip(given, text("Failure.Import.NotAccepted"));
        } else {
            m_result.items.push_back(ImportItem::fromPath(path));
        }
    }

    void takeFolder(const QString& path)
    {
        // The bare letters, no dot asked: a folder "wallapp" counts as an application too.
        const bool isApplication = path.endsWith(QLatin1String("app"));
        const QString folder = isApplication ? path + QStringLiteral("/Contents/Resources") : path;
        if (isApplication && !QFileInfo(folder).isDir()) {
            skip(path, text("Failure.Import.NoResources"));
            return;
        }
        const QDir directory(folder);
        QStringList names = directory.entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort);
        // The disk's own order is chance; runs shall repeat.
        names.sort();
        base::sortedArray(names, [](const QString& name) { return name; });
        for (const QString& name : std::as_const(names)) {
            takeEntry(directory.filePath(name));
        }
    }

    /// A folder inside the folder is never entered; with a picture's extension it counts as a file like any
    /// other.
    void takeEntry(const QString& path)
    {
        if (!isAccepted(path)) {
            skip(path, QFileInfo(path).isDir() ? text("Failure.Import.FolderInFolder")
                                               : text("Failure.Import.NotAccepted"));
            return;
        }
        const QString target = m_aliases.resolve(path);
        if (target.isEmpty()) {
            skip(path, text("Failure.Import.NoFile"));
        } else {
            m_result.items.push_back(ImportItem::fromPath(target));
        }
    }

    [[nodiscard]] bool isAccepted(const QString& path) const
    {
        return !m_classification.mediaContentType(path).isEmpty();
    }

    void skip(const QString& path, const QString& reason) { m_result.skipped.push_back({path, reason}); }

    const MediaClassification& m_classification;
    const platform::AliasResolver& m_aliases;
    FilteredItems m_result;
};

} // namespace

FilteredItems checkDraggedFiles(const std::vector<ImportItem>& items,
                                const MediaClassification& classification,
                                const platform::AliasResolver& aliases)
{
    Filter filter(classification, aliases);
    for (const ImportItem& item : items) {
        filter.take(item);
    }
    return std::move(filter).result();
}

} // namespace mosaro::importing
