#pragma once

#include "store/Record.h"
#include "store/StoreFile.h"

#include <functional>

namespace mosaro::store {

/// Reads and writes whole rows of records.
class RecordStorage {
public:
    explicit RecordStorage(StoreFile& file) : m_file(file) {}

    /// "id, attribute, …": what readRow expects of a statement.
    [[nodiscard]] static QByteArray columns(const EntityInfo& entity);
    [[nodiscard]] static RowId rowId(SQLite::Statement& statement)
    {
        return statement.getColumn(0).getInt64();
    }
    /// Fills the record's attributes unless they are loaded already.
    static void readRow(SQLite::Statement& statement, const Record& record);

    /// Whether there is such a row; fills the record if so.
    bool load(const Record& record, RowId id);
    /// Writes every attribute of a new record; its references resolved by `rowOf`.
    [[nodiscard]] RowId insert(const Record& record, const std::function<RowId(const Record&)>& rowOf);
    /// Writes the dirty attributes.
    void update(const Record& record, const std::function<RowId(const Record&)>& rowOf);
    void remove(const EntityInfo& entity, RowId id);

private:
    void bind(SQLite::Statement& statement, int position, const Record& record, size_t attribute,
              const std::function<RowId(const Record&)>& rowOf);

    StoreFile& m_file;
};

/// A reference to a record that had no row when it was set; null when the value is none.
[[nodiscard]] std::shared_ptr<Record> unsavedTarget(const QVariant& reference);
[[nodiscard]] QVariant referenceTo(const std::shared_ptr<Record>& target);

} // namespace mosaro::store
