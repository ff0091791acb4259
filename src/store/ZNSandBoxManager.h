#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QStringList>

namespace mosaro::base {
class ZNUserDefaults;
}
namespace mosaro::platform {
class Bookmarks;
}

namespace mosaro::store {

/// Tokens for what the user gave access to. A token resolves to the path as long as something stands there;
/// access ends with the process.
class ZNSandBoxManager {
public:
    /// References are kept.
    ZNSandBoxManager(base::ZNUserDefaults& defaults, const platform::Bookmarks& bookmarks)
        : m_defaults(defaults), m_bookmarks(bookmarks)
    {
    }

    /// Folders that give access to too much to be listed.
    [[nodiscard]] static QStringList excludedDestination();
    /// Empty when no token can be made.
    [[nodiscard]] QByteArray bookmarkDataWithURL(const QString& path) const;
    [[nodiscard]] base::Result<void> isReadableSecurityScopeWithURL(const QString& path) const;
    /// Remembers the library at the path as the one to open next time.
    [[nodiscard]] base::Result<void> addScope(const QString& path);
    /// The remembered library; empty when there is none or it is gone.
    [[nodiscard]] QString rememberedLibrary() const;

private:
    base::ZNUserDefaults& m_defaults;
    const platform::Bookmarks& m_bookmarks;
};

} // namespace mosaro::store
