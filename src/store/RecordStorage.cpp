#include "store/RecordStorage.h"

#include "store/RecordState.h"
#include "store/SqlValue.h"

namespace mosaro::store {

namespace {

using SqlPerEntity = QHash<const EntityInfo*, QByteArray>;

/// The text made once for each entity.
const QByteArray& sqlFor(const EntityInfo& entity, SqlPerEntity& cache, QByteArray (*make)(const EntityInfo&))
{
    QByteArray& sql = cache[&entity];
    if (sql.isEmpty())
        sql = make(entity);
    return sql;
}

QByteArray names(const EntityInfo& entity)
{
    QByteArray joined;
    for (const AttributeInfo& attribute : entity.attributes)
        joined += (joined.isEmpty() ? "" : ", ") + QByteArray(attribute.name.data());
    return joined;
}

QByteArray makeInsert(const EntityInfo& entity)
{
    QByteArray marks;
    for (size_t i = 0; i < entity.attributes.size(); ++i)
        marks += i == 0 ? "?" : ", ?";
    return QByteArray("INSERT INTO ") + entity.name.data() + " (" + names(entity) + ") VALUES (" + marks +
           ')';
}

QByteArray makeSelect(const EntityInfo& entity)
{
    return "SELECT " + RecordStorage::columns(entity) + " FROM " + entity.name.data() + " WHERE id = ?";
}

QByteArray makeRemove(const EntityInfo& entity)
{
    return QByteArray("DELETE FROM ") + entity.name.data() + " WHERE id = ?";
}

} // namespace

std::shared_ptr<Record> unsavedTarget(const QVariant& reference)
{
    return reference.canConvert<std::shared_ptr<Record>>() ? reference.value<std::shared_ptr<Record>>()
                                                           : nullptr;
}

QVariant referenceTo(const std::shared_ptr<Record>& target)
{
    if (target == nullptr || target->isRemoved())
        return {};
    return target->isSaved() ? QVariant(static_cast<qlonglong>(target->rowId()))
                             : QVariant::fromValue(target);
}

QByteArray RecordStorage::columns(const EntityInfo& entity)
{
    return "id, " + names(entity);
}

void RecordStorage::readRow(SQLite::Statement& statement, const Record& record)
{
    if (RecordState::isLoaded(record))
        return;
    auto& values = RecordState::values(record);
    values.reserve(record.entity().attributes.size());
    int column = 1;
    for (const AttributeInfo& attribute : record.entity().attributes)
        values.push_back(columnValue(statement, column++, attribute.type));
}

bool RecordStorage::load(const Record& record, RowId id)
{
    static SqlPerEntity cache;
    auto query = m_file.statement(sqlFor(record.entity(), cache, makeSelect));
    query->bind(1, static_cast<int64_t>(id));
    if (!query->executeStep())
        return false;
    readRow(*query, record);
    return true;
}

void RecordStorage::bind(SQLite::Statement& statement, int position, const Record& record, size_t attribute,
                         const std::function<RowId(const Record&)>& rowOf)
{
    const QVariant& value = RecordState::values(record)[attribute];
    const ValueType type = record.entity().attributes[attribute].type;
    if (const auto target = type == ValueType::Reference ? unsavedTarget(value) : nullptr)
        statement.bind(position, static_cast<int64_t>(rowOf(*target)));
    else
        bindValue(statement, position, type, value);
}

RowId RecordStorage::insert(const Record& record, const std::function<RowId(const Record&)>& rowOf)
{
    static SqlPerEntity cache;
    auto statement = m_file.statement(sqlFor(record.entity(), cache, makeInsert));
    for (size_t i = 0; i < record.entity().attributes.size(); ++i)
        bind(*statement, static_cast<int>(i) + 1, record, i, rowOf);
    statement->exec();
    return m_file.database().getLastInsertRowid();
}

void RecordStorage::update(const Record& record, const std::function<RowId(const Record&)>& rowOf)
{
    const auto& dirty = RecordState::dirty(record);
    QByteArray changes;
    for (size_t i = 0; i < dirty.size(); ++i) {
        if (dirty[i])
            changes += (changes.isEmpty() ? "" : ", ") +
                       QByteArray(record.entity().attributes[i].name.data()) + " = ?";
    }
    auto statement = m_file.statement(QByteArray("UPDATE ") + record.entity().name.data() + " SET " +
                                      changes + " WHERE id = ?");
    int position = 1;
    for (size_t i = 0; i < dirty.size(); ++i) {
        if (dirty[i])
            bind(*statement, position++, record, i, rowOf);
    }
    statement->bind(position, static_cast<int64_t>(record.rowId()));
    statement->exec();
}

void RecordStorage::remove(const EntityInfo& entity, RowId id)
{
    static SqlPerEntity cache;
    auto statement = m_file.statement(sqlFor(entity, cache, makeRemove));
    statement->bind(1, static_cast<int64_t>(id));
    statement->exec();
}

} // namespace mosaro::store
