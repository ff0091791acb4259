#pragma once

#include "base/Result.h"
#include "store/LibraryPackage.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace mosaro::platform {
class Bookmarks;
}

namespace mosaro::store {

/// Folders outside the library that its user gave access to; each gives access to everything below it.
class AccessList {
public:
    enum class AddOutcome { Added, Excluded, AlreadyListed, AncestorListed, NoBookmark };

    /// Missing or unreadable file: an empty list.
    [[nodiscard]] static AccessList read(const LibraryPackage& package);
    base::Result<void> write(const LibraryPackage& package) const;

    [[nodiscard]] const QMap<QString, QByteArray>& entries() const { return m_entries; }
    /// The entry that grants access to a folder: itself, else the nearest to the root; empty for none.
    [[nodiscard]] QString grantFor(const QString& folder) const;
    /// By the three rules: not an excluded destination, not listed yet, no ancestor listed.
    AddOutcome add(const QString& folder, const platform::Bookmarks& bookmarks);
    /// Without the rules, as an import does; the bookmark may be empty.
    void enter(const QString& folder, const QByteArray& bookmark) { m_entries.insert(folder, bookmark); }
    void remove(const QString& folder) { m_entries.remove(folder); }

private:
    QMap<QString, QByteArray> m_entries;
};

} // namespace mosaro::store
