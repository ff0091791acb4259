#pragma once

#include "store/Record.h"

namespace mosaro::store {

/// What the parts of the context may do with a record's inside. Nobody else includes this.
class RecordState {
public:
    [[nodiscard]] static std::vector<QVariant>& values(const Record& record) { return record.m_values; }
    [[nodiscard]] static bool isLoaded(const Record& record) { return !record.m_values.empty(); }
    [[nodiscard]] static const std::vector<bool>& dirty(const Record& record) { return record.m_dirty; }
    static void setRowId(Record& record, RowId id) { record.m_rowId = id; }

    static void setClean(Record& record)
    {
        record.m_dirty.assign(record.m_dirty.size(), false);
        record.m_dirtyCount = 0;
    }

    /// After this the record is an empty shell for those who still hold it.
    static void detach(Record& record)
    {
        record.m_context = nullptr;
        record.m_values.clear();
        setClean(record);
    }
};

} // namespace mosaro::store
