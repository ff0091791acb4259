#pragma once

#include "store/ChangeSet.h"
#include "store/IdentityMap.h"
#include "store/RecordStorage.h"

#include <QHash>
#include <QSet>
#include <vector>

namespace mosaro::store {

/// A row that a transaction took away, by itself or by the delete rules.
struct RemovedRow {
    const EntityInfo* entity;
    RowId id;
};

/// One save: first everything that can fail, inside the transaction, then what cannot, after the commit.
class SaveOperation {
public:
    SaveOperation(StoreFile& file, const ChangeSet& changes) : m_storage(file), m_changes(changes) {}

    /// New rows, then changed ones, then removals: what has moved to another owner is not taken along by the
    /// old one. Changes no record. Throws.
    void write();
    /// Brings the records up to date with the store.
    void apply(IdentityMap& identity, const std::vector<RemovedRow>& removedRows);

private:
    void findDoomed();
    [[nodiscard]] bool isDoomed(const Record& record) const;
    [[nodiscard]] RowId rowOf(const Record& record) const;
    static void resolveReferences(const Record& record);

    RecordStorage m_storage;
    const ChangeSet& m_changes;
    ChangeSet::Records m_inserts; ///< In the order of their entities.
    QSet<const Record*> m_doomed; ///< Unsaved ones that lead to what is being removed.
    QHash<const Record*, RowId> m_newRows;
};

} // namespace mosaro::store
