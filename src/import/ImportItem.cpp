#include "import/ImportItem.h"

#include "base/FinderStyleCompare.h"
#include "base/Result.h"
#include "base/Text.h"
#include "import/FileCopy.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>

namespace mosaro::importing {

using base::Failure;
using base::Result;
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

QVariantMap ImportItem::toRecord() const
{
    QVariantMap record{{MR_IMPORTED_KEY_FILE_PATH, path}, {MR_IMPORTED_KEY_MEDIA_KIND, int(kind)}};
    if (!url.isEmpty()) {
        record.insert(MR_IMPORTED_KEY_URL, url);
    }
    return record;
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

bool ImportItem::hasLostName() const
{
    return path.contains(QChar::ReplacementCharacter) && !QFileInfo::exists(path);
}

namespace {

/// Every name in the folder, also one that is no valid text, which QDir leaves out.
Result<QStringList> namesIn(const QString& folder)
{
    std::error_code error;
    std::filesystem::directory_iterator entries(QFile::encodeName(folder).toStdString(), error);
    QStringList names;
    while (!error && entries != std::filesystem::end(entries)) {
        names.append(QFile::decodeName(entries->path().filename().c_str()));
        entries.increment(error);
    }
    if (error) {
        return Failure{text("Failure.Import.Folder", systemReason(error.value()))};
    }
    return names;
}

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
        if (takeLostName(path)) {
            return;
        }
        if (path.isEmpty() || !info.exists()) {
            skip(given, text("Failure.Import.NoFile"));
        } else if (info.isDir()) {
            takeFolder(path);
        } else if (!isAccepted(path)) {
            skip(given, text("Failure.Import.NotAccepted"));
        } else if (!info.isFile()) {
            skip(given, text("Failure.Import.NotAFile"));
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
        const auto read = namesIn(folder);
        if (!read) {
            skip(path, read.reason());
            return;
        }
        QStringList names = read.value();
        // The disk's own order is chance; runs shall repeat.
        names.sort();
        base::sortedArray(names, [](const QString& name) { return name; });
        for (const QString& name : std::as_const(names)) {
            takeEntry(QDir(folder).filePath(name));
        }
    }

    /// A folder inside the folder is never entered; with a picture's extension it counts as a file like any
    /// other.
    void takeEntry(const QString& path)
    {
        if (takeLostName(path)) {
            return;
        }
        if (!isAccepted(path)) {
            skip(path, refusal(QFileInfo(path)));
            return;
        }
        const QString target = m_aliases.resolve(path);
        if (target.isEmpty()) {
            skip(path, text("Failure.Import.NoFile"));
        } else {
            m_result.items.push_back(ImportItem::fromPath(target));
        }
    }

    /// A picture by its name that cannot be opened stays on the list, where it fails with a reason.
    bool takeLostName(const QString& path)
    {
        const ImportItem item = ImportItem::fromPath(path);
        if (!item.hasLostName() || !m_classification.documentTypeForExtension(QFileInfo(path).suffix())) {
            return false;
        }
        m_result.items.push_back(item);
        return true;
    }

    /// Why an entry of a folder is left out.
    [[nodiscard]] static QString refusal(const QFileInfo& entry)
    {
        if (entry.isDir()) {
            return text("Failure.Import.FolderInFolder");
        }
        return entry.exists() ? text("Failure.Import.NotAccepted") : text("Failure.Import.NoFile");
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
