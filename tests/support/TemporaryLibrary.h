#pragma once

#include "base/ZNUserDefaults.h"
#include "store/Collections.h"
#include "store/Colors.h"
#include "store/Media.h"
#include "store/Tags.h"
#include "store/ZNDBManager.h"
#include "support/FakePlatform.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <memory>

namespace mosaro::test {

/// An open library in a temporary folder, with preferences and a support folder of its own. Its
/// ZNDBManager is not the shared one. Texts are installed.
class TemporaryLibrary {
public:
    TemporaryLibrary();
    ~TemporaryLibrary();

    [[nodiscard]] bool isOpen() const { return m_manager.isOpenedDatabase(); }
    [[nodiscard]] store::ZNDBManager& manager() { return m_manager; }
    [[nodiscard]] store::StoreContext& context() { return *m_manager.context(); }
    [[nodiscard]] store::LibraryState& state() { return m_manager.state(); }
    [[nodiscard]] const store::LibraryPackage& package() const { return m_manager.package(); }
    [[nodiscard]] base::ZNUserDefaults& defaults() { return m_defaults; }
    [[nodiscard]] FakeBookmarks& bookmarks() { return m_bookmarks; }
    [[nodiscard]] FakePrompts& prompts() { return m_prompts; }
    /// An existing folder for a test's files, outside the library.
    [[nodiscard]] QString folder(const QString& name = QStringLiteral("files"));
    [[nodiscard]] QString packagePath() const { return m_root.path() + QStringLiteral("/Test.mrlibrary"); }

    /// Closes and opens again; whether that went well.
    bool reopen();

    // Each is saved. Identifiers are fresh random ones where none is given.
    std::shared_ptr<store::Collections> addCollection(const QString& title, qint64 type = 10000,
                                                      const QString& parentID = {});
    /// A record with sensible values; with `files` the package gets a preview and an original of a few bytes.
    std::shared_ptr<store::Media>
    addMedia(const QString& title, const std::shared_ptr<store::Collections>& collection, bool files = false);
    std::shared_ptr<store::Tags> addTag(const QString& title);
    void link(const std::shared_ptr<store::Media>& media, const std::shared_ptr<store::Tags>& tag);
    std::shared_ptr<store::Colors> addColor(const QString& colorID, qint64 colorType);
    void link(const std::shared_ptr<store::Media>& media, const std::shared_ptr<store::Colors>& color);

private:
    void save();

    QTemporaryDir m_root;
    base::ZNUserDefaults m_defaults{m_root.path() + QStringLiteral("/preferences.ini")};
    FakeBookmarks m_bookmarks;
    FakePrompts m_prompts;
    store::ZNDBManager m_manager;
};

/// A random identifier as records have.
[[nodiscard]] QString freshID();

} // namespace mosaro::test
