#pragma once

#include "base/Ports.h"
#include "base/Result.h"
#include "store/LibraryPackage.h"
#include "store/LibraryState.h"
#include "store/PackageLock.h"
#include "store/StoreContext.h"
#include "store/ZNSandBoxManager.h"

#include <memory>
#include <optional>

namespace mosaro::base {
class ZNUserDefaults;
}
namespace mosaro::store {

/// The one open library: finds, creates, validates, opens and closes it. Main thread only.
class ZNDBManager {
public:
    static ZNDBManager& sharedManager();
    ZNDBManager();
    ~ZNDBManager();

    /// What the program puts in once, before anything else. References are kept.
    void setUp(base::ZNUserDefaults& defaults, const platform::Bookmarks& bookmarks, QString supportFolder);
    /// For the panels; without, chooseDatabase and createDatabase give false.
    void setPrompts(base::Prompts* prompts) { m_prompts = prompts; }

    [[nodiscard]] StoreContext* context() const { return m_context.get(); }
    [[nodiscard]] LibraryState& state() { return m_state; }
    [[nodiscard]] const LibraryPackage& package() const { return m_package; }
    [[nodiscard]] QString libraryDirPath() const { return m_package.libraryDirPath(); }
    [[nodiscard]] QString masterDirPath() const;
    [[nodiscard]] QString applicationSupportFolder() const { return m_supportFolder; }
    [[nodiscard]] QString downloadDirectory();
    [[nodiscard]] bool isOpenedDatabase() const;

    /// Closes any open library, then opens the remembered one or creates the default one.
    bool openDatabase();
    bool openDatabaseAtPath(const QString& path);
    void closeDatabase();
    bool createDatabase();
    bool chooseDatabase();
    /// For a new path. With something at the path already it gives false, and the library may be open then.
    bool createLibaryAtPath(const QString& path);
    /// The one way by which a library becomes the open one. On failure none is open, and nothing in an
    /// existing library was changed.
    bool validateDatabaseAtURL(const QString& path);
    bool saveChanges();
    void checkEssentialFolders();
    void clearDownloadDirectory();
    /// Removes a folder, its parent and its grandparent, each only while it is empty.
    static void unusedFolderInPath(const QString& path);

    /// Why the last open or create failed; empty after a success and after a cancelled choice.
    [[nodiscard]] const QString& lastError() const { return m_lastError; }
    /// Off: an opened library does not become the remembered one (mosaroctl).
    void setRemembersLibrary(bool remembers) { m_remembers = remembers; }

    [[nodiscard]] static QVariantMap libraryVersionXML();

private:
    [[nodiscard]] bool createDefaultDB();
    /// Notes the reason and lets go of a half-opened library, writing nothing into it.
    bool fail(const QString& reason);
    void letGo();
    [[nodiscard]] base::Result<void> openPackage(const QString& path);
    [[nodiscard]] base::Result<void> openStore();
    [[nodiscard]] base::Result<void> readState();
    [[nodiscard]] base::Result<void> remember(const QString& path);
    [[nodiscard]] base::Result<void> replaceChosen(const QString& path);
    [[nodiscard]] QString panelDirectory() const;
    void rememberPanelDirectory(const QString& chosen);

    base::ZNUserDefaults* m_defaults = nullptr;
    std::unique_ptr<ZNSandBoxManager> m_sandBox;
    base::Prompts* m_prompts = nullptr;
    QString m_supportFolder;
    QString m_lastError;
    bool m_remembers = true;

    LibraryPackage m_package;
    LibraryState m_state;
    PackageLock m_lock;
    std::unique_ptr<StoreContext> m_context;
};

} // namespace mosaro::store
