#include "store/ChangeSet.h"

#include "store/RecordState.h"
#include "store/RecordStorage.h"

namespace mosaro::store {

namespace {

bool hasDetachedTarget(const Record& record)
{
    const auto& values = RecordState::values(record);
    return std::any_of(values.begin(), values.end(), [](const QVariant& value) {
        const auto target = unsavedTarget(value);
        return target != nullptr && target->isRemoved();
    });
}

bool leadsToAnywhere(const Record& record, const Record& target)
{
    for (size_t i = 0; i < RecordState::values(record).size(); ++i) {
        if (record.entity().attributes[i].type == ValueType::Reference && leadsTo(record, i, target))
            return true;
    }
    return false;
}

} // namespace

bool leadsTo(const Record& record, size_t attribute, const Record& target)
{
    if (!RecordState::isLoaded(record))
        return false;
    const QVariant& value = RecordState::values(record)[attribute];
    if (!value.isValid())
        return false;
    if (const auto unsaved = unsavedTarget(value))
        return unsaved.get() == &target;
    return target.isSaved() && value.toLongLong() == target.rowId();
}

void ChangeSet::noteRemoved(const std::shared_ptr<Record>& record)
{
    m_removed.insert(record.get(), record);
}

void ChangeSet::dropInserted(Record& record)
{
    const auto kept = record.shared_from_this();
    std::erase(m_inserted, kept);
    RecordState::detach(record);
    // References only lead from later entities to earlier ones, so this ends.
    for (;;) {
        const auto orphan = std::find_if(m_inserted.begin(), m_inserted.end(),
                                         [](const auto& other) { return hasDetachedTarget(*other); });
        if (orphan == m_inserted.end())
            return;
        const auto dropped = *orphan;
        m_inserted.erase(orphan);
        RecordState::detach(*dropped);
    }
}

ChangeSet::Records ChangeSet::dirtyReferringTo(const Record& record) const
{
    Records found;
    std::copy_if(m_dirty.begin(), m_dirty.end(), std::back_inserter(found),
                 [&record](const auto& other) { return leadsToAnywhere(*other, record); });
    return found;
}

ChangeSet::Records ChangeSet::referring(const EntityInfo& entity, int attribute, const Record& target) const
{
    Records found;
    for (const Records* records : {&m_inserted, &m_dirty}) {
        for (const auto& record : *records) {
            if (&record->entity() == &entity && !m_removed.contains(record.get()) &&
                leadsTo(*record, static_cast<size_t>(attribute), target))
                found.push_back(record);
        }
    }
    return found;
}

void ChangeSet::clear()
{
    m_inserted.clear();
    m_dirty.clear();
    m_removed.clear();
}

} // namespace mosaro::store
