#include "store/ZNDBManager.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNFileManager.h"
#include "base/ZNUserDefaults.h"

#include <QDir>
#include <QFileInfo>

// The two ways in which the user names a library.

namespace mosaro::store {

namespace {

QString withPackageSuffix(const QString& path)
{
    const QString suffix = QLatin1Char('.') + QLatin1String(kPackageSuffix);
    return path.endsWith(suffix) ? path : path + suffix;
}

base::AlertRequest creationAlert(const QString& path)
{
    const QFileInfo info(path);
    return {base::text("Error.Create.Library", info.fileName(), info.dir().dirName()), base::text("Basic.OK"),
            QString(), base::text("Message.Permmision")};
}

} // namespace

bool ZNDBManager::chooseDatabase()
{
    if (m_prompts == nullptr)
        return false;
    base::OpenPanelRequest request;
    request.title = base::text("Message.Choose.Library");
    request.prompt = base::text("Basic.Choose");
    request.directory = panelDirectory();
    request.suffixes = {QLatin1String(kPackageSuffix)};
    request.packages = true;
    m_lastError.clear();
    const QStringList chosen = m_prompts->openPanel(request);
    if (chosen.isEmpty())
        return false;
    closeDatabase();
    rememberPanelDirectory(chosen.first());
    return validateDatabaseAtURL(chosen.first());
}

bool ZNDBManager::createDatabase()
{
    if (m_prompts == nullptr)
        return false;
    base::SavePanelRequest request;
    request.prompt = base::text("Basic.Create");
    request.nameLabel = base::text("Label.Save.As");
    request.name = QStringLiteral("Mosaro.mrlibrary");
    request.directory = panelDirectory();
    request.suffix = QLatin1String(kPackageSuffix);
    const auto chosen = m_prompts->savePanel(request);
    if (!chosen || chosen->isEmpty())
        return false;
    closeDatabase();
    rememberPanelDirectory(*chosen);
    const auto made = replaceChosen(*chosen);
    if (made)
        return true;
    closeDatabase();
    m_lastError = made.reason();
    m_prompts->alert(creationAlert(withPackageSuffix(*chosen)));
    return false;
}

base::Result<void> ZNDBManager::replaceChosen(const QString& path)
{
    const QString target = withPackageSuffix(path);
    if (QFileInfo::exists(target)) {
        // The panel asked about the path that it gave, and about no other.
        if (target != path)
            return base::Failure{base::text("Failure.Library.Exists", target)};
        if (QFileInfo(target).isDir()) {
            const auto lock = PackageLock::acquire(target);
            if (!lock)
                return lock.failure();
        }
        if (!base::ZNFileManager().removeItemAtPath(target))
            return base::Failure{base::text("Failure.Library.CannotReplace", target)};
    }
    if (!createLibaryAtPath(target))
        return base::Failure{m_lastError};
    return {};
}

QString ZNDBManager::panelDirectory() const
{
    return m_defaults->string(base::PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY);
}

void ZNDBManager::rememberPanelDirectory(const QString& chosen)
{
    m_defaults->updateUserDefaults(base::PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY,
                                   QFileInfo(chosen).path());
}

} // namespace mosaro::store
