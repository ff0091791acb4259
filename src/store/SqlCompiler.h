#pragma once

#include "base/Result.h"
#include "store/Query.h"

#include <QByteArray>
#include <SQLiteCpp/Statement.h>
#include <variant>
#include <vector>

namespace mosaro::store {

using SqlParameter = std::variant<qint64, double, std::string>;

/// SQL with its values apart. Only names from the schema and text from this program are ever part of `sql`.
struct CompiledSql {
    QByteArray sql;
    std::vector<SqlParameter> values;

    /// Binds the values from position `first` on.
    void bindTo(SQLite::Statement& statement, int first = 1) const;
};

/// Turns predicates and queries on one entity into SQL. An attribute with no value fulfils no comparison but
/// NotEqual to some value, Equal to an invalid one, and In with an invalid one in its list.
class SqlCompiler {
public:
    /// "SELECT <columns> FROM <entity> …" for the query. `columns` is SQL of the program's own.
    [[nodiscard]] static base::Result<CompiledSql> select(const EntityInfo& entity, const QByteArray& columns,
                                                          const Query& query);

private:
    explicit SqlCompiler(const EntityInfo& entity) : m_entity(&entity) {}

    void add(const Predicate& predicate);
    [[nodiscard]] static bool foldsText(const Predicate& predicate);
    void addJoined(const Predicate& predicate, const char* word);
    void addLinked(const Predicate& predicate);
    void addComparison(const Predicate& predicate);
    void addOrdering(const AttributeInfo& attribute, const Predicate& predicate);
    void addTextTest(const AttributeInfo& attribute, const Predicate& predicate);
    void addList(const AttributeInfo& attribute, const Predicate& predicate);
    void addOrder(const Query& query);
    [[nodiscard]] QByteArray operand(const AttributeInfo& attribute, Fold fold) const;
    void addValue(const AttributeInfo& attribute, const QVariant& value, Fold fold);
    [[nodiscard]] const AttributeInfo* attribute(QLatin1String name);
    void fail(const QString& reason);

    const EntityInfo* m_entity;
    CompiledSql m_result;
    QString m_failure;
};

} // namespace mosaro::store
