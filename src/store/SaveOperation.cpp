#include "store/SaveOperation.h"

#include "store/RecordState.h"

namespace mosaro::store {

namespace {

int rankOf(const Record& record)
{
    const auto entities = allEntities();
    return static_cast<int>(std::find(entities.begin(), entities.end(), &record.entity()) - entities.begin());
}

} // namespace

void SaveOperation::findDoomed()
{
    const auto& removed = m_changes.removed();
    if (removed.isEmpty())
        return;
    for (const auto& record : m_inserts) {
        const auto& attributes = record->entity().attributes;
        for (size_t i = 0; i < attributes.size() && !m_doomed.contains(record.get()); ++i) {
            if (attributes[i].type != ValueType::Reference)
                continue;
            const auto unsaved = unsavedTarget(RecordState::values(*record)[i]);
            const bool leadsToRemoved = std::any_of(removed.begin(), removed.end(), [&](const auto& gone) {
                return targetEntity(attributes[i]) == &gone->entity() && leadsTo(*record, i, *gone);
            });
            if (leadsToRemoved || (unsaved != nullptr && m_doomed.contains(unsaved.get())))
                m_doomed.insert(record.get());
        }
    }
}

bool SaveOperation::isDoomed(const Record& record) const
{
    return m_doomed.contains(&record) || m_changes.removed().contains(&record);
}

RowId SaveOperation::rowOf(const Record& record) const
{
    if (record.isSaved())
        return record.rowId();
    const auto found = m_newRows.constFind(&record);
    if (found == m_newRows.cend())
        throw SQLite::Exception("a reference leads to a record that is not being saved");
    return *found;
}

void SaveOperation::write()
{
    m_inserts = m_changes.inserted();
    std::stable_sort(m_inserts.begin(), m_inserts.end(),
                     [](const auto& a, const auto& b) { return rankOf(*a) < rankOf(*b); });
    findDoomed();
    const auto row = [this](const Record& record) { return rowOf(record); };
    for (const auto& record : m_inserts) {
        if (!isDoomed(*record))
            m_newRows.insert(record.get(), m_storage.insert(*record, row));
    }
    for (const auto& record : m_changes.dirty()) {
        if (!isDoomed(*record))
            m_storage.update(*record, row);
    }
    for (const auto& record : m_changes.removed())
        m_storage.remove(record->entity(), record->rowId());
}

void SaveOperation::resolveReferences(const Record& record)
{
    for (QVariant& value : RecordState::values(record)) {
        if (const auto target = unsavedTarget(value))
            value = referenceTo(target);
    }
}

void SaveOperation::apply(IdentityMap& identity, const std::vector<RemovedRow>& removedRows)
{
    for (const auto& record : m_inserts) {
        if (isDoomed(*record)) {
            RecordState::detach(*record);
            continue;
        }
        RecordState::setRowId(*record, m_newRows.value(record.get()));
        RecordState::setClean(*record);
        identity.insert(record);
    }
    for (const auto& record : m_inserts)
        resolveReferences(*record);
    for (const auto& record : m_changes.dirty()) {
        RecordState::setClean(*record);
        resolveReferences(*record);
    }
    for (const RemovedRow& row : removedRows) {
        if (const auto record = identity.take(*row.entity, row.id))
            RecordState::detach(*record);
    }
    for (const auto& record : m_changes.removed())
        RecordState::detach(*record);
}

} // namespace mosaro::store
