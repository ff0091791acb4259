#include "store/Verification.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::store {

namespace {

/// Whether a path is one that a report may name: an item folder of a date, or staged. Nothing else is
/// removed, whatever a report says.
bool isRemovable(const QString& path, const LibraryPackage& package)
{
    if (path != QDir::cleanPath(path))
        return false;
    const QFileInfo info(path);
    if (info.path() == package.stagingDirPath())
        return true;
    const QString masters = package.masterDirPath() + QLatin1Char('/');
    return path.startsWith(masters) && path.mid(masters.size()).count(QLatin1Char('/')) == 3 &&
           info.suffix() == QLatin1String(kItemSuffix);
}

bool removeEntry(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir() && !info.isSymLink())
        return QDir(path).removeRecursively();
    return QFile::remove(path);
}

} // namespace

void pruneDateFolders(const QString& dayFolder)
{
    // rmdir refuses a folder with anything in it, hidden files included.
    QString folder = QDir::cleanPath(dayFolder);
    for (int level = 0; level < 3; ++level) {
        if (!QDir().rmdir(folder))
            return;
        folder = QFileInfo(folder).path();
    }
}

QStringList repairLibrary(const VerificationReport& report, const LibraryPackage& package)
{
    QStringList removed;
    for (const QString& path : report.foldersWithoutRecord) {
        if (!isRemovable(path, package) || !removeEntry(path))
            continue;
        removed.append(path);
        const QString parent = QFileInfo(path).path();
        if (parent != package.stagingDirPath())
            pruneDateFolders(parent);
    }
    return removed;
}

} // namespace mosaro::store
