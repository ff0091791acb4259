#include "store/ZNDBManager.h"

#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/Text.h"
#include "base/ZNFileManager.h"
#include "base/ZNUserDefaults.h"
#include "store/PackageCheck.h"
#include "store/Verification.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::store {

ZNDBManager& ZNDBManager::sharedManager()
{
    static ZNDBManager manager;
    return manager;
}

ZNDBManager::ZNDBManager() = default;
ZNDBManager::~ZNDBManager()
{
    letGo();
}

void ZNDBManager::setUp(base::ZNUserDefaults& defaults, const platform::Bookmarks& bookmarks,
                        QString supportFolder)
{
    m_defaults = &defaults;
    m_sandBox = std::make_unique<ZNSandBoxManager>(defaults, bookmarks);
    m_supportFolder = std::move(supportFolder);
}

QString ZNDBManager::masterDirPath() const
{
    return m_package.isNull() ? QString() : m_package.masterDirPath();
}

QString ZNDBManager::downloadDirectory()
{
    checkEssentialFolders();
    return m_supportFolder + QStringLiteral("/Mosaro/Downloads");
}

bool ZNDBManager::isOpenedDatabase() const
{
    return m_context != nullptr && !m_state.isEmpty();
}

bool ZNDBManager::openDatabase()
{
    closeDatabase();
    const QString remembered = m_sandBox->rememberedLibrary();
    return remembered.isEmpty() ? createDefaultDB() : validateDatabaseAtURL(remembered);
}

bool ZNDBManager::createDefaultDB()
{
    checkEssentialFolders();
    const QString plain = m_supportFolder + QStringLiteral("/Mosaro/Mosaro");
    return createLibaryAtPath(base::ZNFileManager().availableFileName(plain, QLatin1String(kPackageSuffix)));
}

bool ZNDBManager::openDatabaseAtPath(const QString& path)
{
    if (const auto readable = m_sandBox->isReadableSecurityScopeWithURL(path); !readable) {
        m_lastError = readable.reason();
        return false;
    }
    closeDatabase();
    return validateDatabaseAtURL(path);
}

bool ZNDBManager::createLibaryAtPath(const QString& path)
{
    const bool isNew = !path.isEmpty() && !QFileInfo::exists(path);
    const bool isMade = isNew && QDir().mkpath(path);
    if (isNew && !isMade) {
        closeDatabase();
        return fail(base::text("Failure.Library.CannotCreate", path));
    }
    const bool isOpen = validateDatabaseAtURL(path);
    if (isMade && !isOpen)
        QDir(path).removeRecursively(); // Half a library, made a moment ago.
    if (isOpen && !isMade)
        m_lastError = base::text("Failure.Library.Exists", path);
    if (!isOpen || !isMade)
        return false;
    // Without its version record a library counts as old and has its previews made anew: harmless.
    (void)m_package.writeVersionRecord(libraryVersionXML());
    return true;
}

bool ZNDBManager::validateDatabaseAtURL(const QString& path)
{
    if (path.isEmpty()) {
        m_lastError = base::text("Failure.Library.Missing", path);
        return false;
    }
    checkEssentialFolders();
    closeDatabase();
    if (const auto opened = openPackage(path); !opened)
        return fail(opened.reason());
    checkEssentialFolders();
    m_lastError.clear();
    return true;
}

base::Result<void> ZNDBManager::openPackage(const QString& path)
{
    m_package = LibraryPackage(path);
    if (!QFileInfo::exists(path))
        return base::Failure{base::text("Failure.Library.Missing", path)};
    if (!QFileInfo(path).isDir())
        return base::Failure{base::text("Failure.Library.NotALibrary", path)};
    auto lock = PackageLock::acquire(path);
    if (!lock)
        return lock.failure();
    m_lock = std::move(lock).value();
    if (const auto fit = checkPackage(m_package); !fit)
        return fit;
    if (const auto opened = openStore(); !opened)
        return opened;
    if (const auto read = readState(); !read)
        return read;
    if (const auto remembered = remember(path); !remembered)
        return remembered;
    return probeStore(*m_context);
}

base::Result<void> ZNDBManager::openStore()
{
    auto context = StoreContext::open(m_package.dbPath());
    if (!context)
        return context.failure();
    m_context = std::move(context).value();
    if (!QDir().mkpath(m_package.masterDirPath()))
        return base::Failure{base::text("Failure.Library.CannotCreate", m_package.masterDirPath())};
    return {};
}

base::Result<void> ZNDBManager::readState()
{
    if (!QFileInfo::exists(m_package.xmlPath())) {
        const auto written = base::writePropertyListFile(
            m_package.xmlPath(), LibraryState::defaultLibraryXML(), base::PropertyListFormat::Binary);
        if (!written)
            return written;
    }
    const auto record = base::readPropertyListFile(m_package.xmlPath());
    if (!record)
        return base::Failure{base::text("Failure.Library.StateUnreadable", record.reason())};
    m_state = LibraryState(record.value().toMap());
    if (m_state.isEmpty())
        return base::Failure{base::text("Failure.Library.StateEmpty", m_package.xmlPath())};
    return {};
}

base::Result<void> ZNDBManager::remember(const QString& path)
{
    return m_remembers ? m_sandBox->addScope(path) : m_sandBox->isReadableSecurityScopeWithURL(path);
}

void ZNDBManager::closeDatabase()
{
    // A record that cannot be written leaves the older one in its place.
    if (isOpenedDatabase())
        (void)base::writePropertyListFile(m_package.xmlPath(), m_state.record(),
                                          base::PropertyListFormat::Binary);
    letGo();
}

bool ZNDBManager::fail(const QString& reason)
{
    letGo();
    m_lastError = reason;
    return false;
}

void ZNDBManager::letGo()
{
    m_context.reset();
    m_state = LibraryState();
    m_package = LibraryPackage();
    m_lock = PackageLock(); // Last: until here nobody else may open the store.
}

bool ZNDBManager::saveChanges()
{
    if (!isOpenedDatabase())
        return false;
    const auto saved = m_context->save();
    if (!saved)
        m_lastError = saved.reason();
    return saved.ok();
}

void ZNDBManager::checkEssentialFolders()
{
    QDir().mkpath(m_supportFolder + QStringLiteral("/Mosaro/Downloads"));
    if (isOpenedDatabase())
        QDir().mkpath(m_package.masterDirPath());
}

void ZNDBManager::clearDownloadDirectory()
{
    const QString folder = m_supportFolder + QStringLiteral("/Mosaro/Downloads");
    // A link goes, and what it leads to stays: that is the user's.
    if (!QFile::remove(folder))
        QDir(folder).removeRecursively();
    checkEssentialFolders();
}

void ZNDBManager::unusedFolderInPath(const QString& path)
{
    pruneDateFolders(path);
}

QVariantMap ZNDBManager::libraryVersionXML()
{
    return {{QStringLiteral("Version"), base::ZNUserDefaults::applicationVersion()},
            {QStringLiteral("Copy items to library"), true}};
}

} // namespace mosaro::store
