#pragma once

#include "store/Record.h"

#include <QHash>

namespace mosaro::store {

/// The records with a row that somebody holds: one object for one row.
class IdentityMap {
public:
    [[nodiscard]] std::shared_ptr<Record> find(const EntityInfo& entity, RowId id) const;
    void insert(const std::shared_ptr<Record>& record);
    /// Takes the record of a row out, if somebody holds it.
    std::shared_ptr<Record> take(const EntityInfo& entity, RowId id);
    /// All that are held, and forgets them.
    [[nodiscard]] std::vector<std::shared_ptr<Record>> takeAll();

private:
    struct Table {
        QHash<RowId, std::weak_ptr<Record>> records;
        qsizetype sweepAt = 1024; ///< Size at which entries that nobody holds are looked for.
    };
    QHash<const EntityInfo*, Table> m_tables;
};

} // namespace mosaro::store
