#include "store/IdentityMap.h"

namespace mosaro::store {

std::shared_ptr<Record> IdentityMap::find(const EntityInfo& entity, RowId id) const
{
    const auto table = m_tables.constFind(&entity);
    return table == m_tables.cend() ? nullptr : table->records.value(id).lock();
}

void IdentityMap::insert(const std::shared_ptr<Record>& record)
{
    Table& table = m_tables[&record->entity()];
    if (table.records.size() >= table.sweepAt) {
        erase_if(table.records, [](const auto& entry) { return entry.value().expired(); });
        table.sweepAt = std::max<qsizetype>(1024, table.records.size() * 2);
    }
    table.records.insert(record->rowId(), record);
}

std::shared_ptr<Record> IdentityMap::take(const EntityInfo& entity, RowId id)
{
    const auto table = m_tables.find(&entity);
    return table == m_tables.end() ? nullptr : table->records.take(id).lock();
}

std::vector<std::shared_ptr<Record>> IdentityMap::takeAll()
{
    std::vector<std::shared_ptr<Record>> held;
    for (const Table& table : std::as_const(m_tables)) {
        for (const auto& record : table.records) {
            if (auto live = record.lock())
                held.push_back(std::move(live));
        }
    }
    m_tables.clear();
    return held;
}

} // namespace mosaro::store
