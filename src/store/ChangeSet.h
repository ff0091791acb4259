#pragma once

#include "store/Record.h"

#include <QHash>

namespace mosaro::store {

/// What a context has not saved yet. Holds the records, so that a change is not lost with its last holder.
class ChangeSet {
public:
    using Records = std::vector<std::shared_ptr<Record>>;

    [[nodiscard]] bool isEmpty() const
    {
        return m_inserted.empty() && m_dirty.empty() && m_removed.isEmpty();
    }
    [[nodiscard]] const Records& inserted() const { return m_inserted; }
    [[nodiscard]] const Records& dirty() const { return m_dirty; }
    [[nodiscard]] const QHash<const Record*, std::shared_ptr<Record>>& removed() const { return m_removed; }

    void noteInserted(std::shared_ptr<Record> record) { m_inserted.push_back(std::move(record)); }
    void noteDirty(std::shared_ptr<Record> record) { m_dirty.push_back(std::move(record)); }
    void noteRemoved(const std::shared_ptr<Record>& record);
    /// Takes an unsaved record out, with the unsaved ones that lead to it, and detaches them.
    void dropInserted(Record& record);
    /// The saved records whose pending reference leads to a record.
    [[nodiscard]] Records dirtyReferringTo(const Record& record) const;
    /// Pending records of an entity whose reference at `attribute` leads to a record.
    [[nodiscard]] Records referring(const EntityInfo& entity, int attribute, const Record& target) const;
    void clear();

private:
    Records m_inserted;
    Records m_dirty;
    QHash<const Record*, std::shared_ptr<Record>> m_removed;
};

/// Whether a record's loaded reference leads to another record, saved or not.
[[nodiscard]] bool leadsTo(const Record& record, size_t attribute, const Record& target);

} // namespace mosaro::store
