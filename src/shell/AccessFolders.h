#pragma once

#include <QStringList>

namespace mosaro::platform {
class Bookmarks;
}
namespace mosaro::store {
class LibraryPackage;
}

namespace mosaro::shell {

/// The folders outside the open library that its user gave access to, from its opening to its closing.
class AccessFolders {
public:
    /// Resolves the library's access list anew. Entries whose folder is gone are passed over, one by one.
    void start(const store::LibraryPackage& package, const platform::Bookmarks& bookmarks);
    void stop() { m_folders.clear(); }
    [[nodiscard]] const QStringList& folders() const { return m_folders; }

private:
    QStringList m_folders;
};

} // namespace mosaro::shell
