#include "store/Verification.h"

#include "store/Media.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace mosaro::store {

namespace {

/// "/y/m/d/ID.mritem/Originals/name" gives "/y/m/d/ID.mritem".
QString itemFolderOf(const QString& path)
{
    return path.section(QLatin1Char('/'), 0, 4);
}

QString textOf(SQLite::Statement& row, int column)
{
    const SQLite::Column value = row.getColumn(column);
    const char* bytes = value.getText();
    return QString::fromUtf8(bytes, value.getBytes());
}

QStringList foldersIn(const QString& path)
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
}

bool isNumber(const QString& name)
{
    bool ok = false;
    return name.toInt(&ok) > 0 && ok;
}

/// Calls `visit` with the path of every day's folder, relative to Masters and with a slash in front.
template <class Visit>
void forEachDay(const QString& masters, Visit visit)
{
    const auto datePartsIn = [&masters](const QString& folder) {
        QStringList parts;
        const QStringList names = foldersIn(masters + folder);
        for (const QString& name : names) {
            if (isNumber(name))
                parts.append(folder + QLatin1Char('/') + name);
        }
        return parts;
    };
    for (const QString& year : datePartsIn(QString())) {
        for (const QString& month : datePartsIn(year)) {
            for (const QString& day : datePartsIn(month))
                visit(day);
        }
    }
}

/// What the records say of files.
struct RecordedFiles {
    QSet<QString> ids;
    QSet<QString> folders;
};

RecordedFiles checkRecords(StoreContext& context, const QString& masters, VerificationReport& report)
{
    RecordedFiles files;
    const auto read =
        context.forEachRow(Media::info(), "mediaID, mediaPath, mediaThumbPath, mediaOriginalPath", {},
                           [&](SQLite::Statement& row) {
                               const QString id = textOf(row, 0);
                               const QString stored = textOf(row, 1);
                               const QString preview = textOf(row, 2);
                               files.ids.insert(id);
                               files.folders.insert(itemFolderOf(stored));
                               files.folders.insert(itemFolderOf(preview));
                               if (preview.isEmpty() || !QFileInfo::exists(masters + preview))
                                   report.missingPreviews.append(id);
                               if (!QFileInfo::exists(stored.isEmpty() ? textOf(row, 3) : masters + stored))
                                   report.missingOriginals.append(id);
                           });
    report.isComplete = read.ok();
    return files;
}

} // namespace

bool VerificationReport::isClean() const
{
    return isComplete && storeDamage.isEmpty() && foldersWithoutRecord.isEmpty() &&
           missingPreviews.isEmpty() && missingOriginals.isEmpty();
}

VerificationReport verifyLibrary(StoreContext& context, const LibraryPackage& package)
{
    VerificationReport report;
    if (const auto sound = context.checkIntegrity(true); !sound) {
        // Records that a damaged store does not tell of may be there after it is restored.
        report.storeDamage = sound.reason();
        return report;
    }
    const QString masters = package.masterDirPath();
    const RecordedFiles recorded = checkRecords(context, masters, report);
    if (!report.isComplete)
        return report; // With records unread, every folder would seem to have none.
    const QString suffix = QLatin1Char('.') + QLatin1String(kItemSuffix);
    forEachDay(masters, [&](const QString& day) {
        const QStringList names = foldersIn(masters + day);
        for (const QString& name : names) {
            const QString folder = day + QLatin1Char('/') + name;
            if (name.endsWith(suffix) && !recorded.folders.contains(folder) &&
                !recorded.ids.contains(name.chopped(suffix.size())))
                report.foldersWithoutRecord.append(masters + folder);
        }
    });
    const QStringList staged =
        QDir(package.stagingDirPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& name : staged)
        report.foldersWithoutRecord.append(package.stagingDirPath() + QLatin1Char('/') + name);
    return report;
}

} // namespace mosaro::store
