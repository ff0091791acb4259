#pragma once

#include "import/FolderGrants.h"
#include "import/ImportRun.h"
#include "import/ImportStaging.h"

namespace mosaro::importing {

/// Turns staged items into items of the library, one at a time on the main thread: folder into its place,
/// record, links, one save. Nothing is left of an item that fails.
class ItemCommitter {
public:
    ItemCommitter(const ImportEnvironment& environment, std::shared_ptr<store::Collections> collection,
                  bool copyMode);

    [[nodiscard]] base::Result<void> commit(StagedItem& staged);
    /// Access granted so far, to be written when the run ends.
    [[nodiscard]] const store::AccessList& accessList() const { return m_grants.list(); }

private:
    [[nodiscard]] base::Result<void> save(StagedItem& staged, const QString& itemFolder,
                                          const QDateTime& date);
    [[nodiscard]] std::shared_ptr<store::Media> makeRecord(const StagedItem& staged,
                                                           const QString& itemFolder, const QDateTime& date);
    void removeItemFolder(const QString& folder) const;

    store::StoreContext& m_context;
    store::LibraryPackage m_package;
    std::shared_ptr<store::Collections> m_collection;
    bool m_copyMode;
    FolderGrants m_grants;
};

} // namespace mosaro::importing
