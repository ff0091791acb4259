#include "store/PackageCheck.h"

#include "base/Text.h"
#include "store/Collections.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::store {

namespace {

/// A store of this size, some ten thousand items, is looked through in a few hundredths of a second.
constexpr qint64 kReadWholeSize = qint64(24) * 1024 * 1024;

bool holdsItems(const LibraryPackage& package)
{
    return QFileInfo::exists(package.masterDirPath()) && !QDir(package.masterDirPath()).isEmpty();
}

QStringList foreignEntries(const LibraryPackage& package)
{
    QStringList names = QDir(package.libraryDirPath())
                            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& own : {package.dbPath(), package.masterDirPath(), package.xmlPath(),
                               package.libraryVersionPath(), package.accessListInfoPath()})
        names.removeAll(QFileInfo(own).fileName());
    return names;
}

} // namespace

base::Result<void> checkPackage(const LibraryPackage& package)
{
    const QFileInfo store(package.dbPath());
    if (store.isFile() && store.size() > 0)
        return {};
    const bool isOwn = QFileInfo::exists(package.masterDirPath()) || QFileInfo::exists(package.xmlPath());
    if (holdsItems(package))
        return base::Failure{base::text("Failure.Library.StoreGone", package.libraryDirPath())};
    if (!isOwn && !foreignEntries(package).isEmpty())
        return base::Failure{base::text("Failure.Library.NotALibrary", package.libraryDirPath())};
    return {};
}

base::Result<void> probeStore(StoreContext& context)
{
    if (QFileInfo(context.path()).size() <= kReadWholeSize) {
        if (auto sound = context.checkIntegrity(false); !sound)
            return sound;
    }
    for (const EntityInfo* entity : allEntities()) {
        if (const auto counted = context.count(*entity, Predicate::all()); !counted)
            return counted.failure();
    }
    if (const auto collections = context.fetch<Collections>({}); !collections)
        return collections.failure();
    return {};
}

} // namespace mosaro::store
