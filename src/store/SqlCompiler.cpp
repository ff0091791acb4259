#include "store/SqlCompiler.h"

#include "base/Text.h"
#include "store/TextFolding.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

namespace mosaro::store {

namespace {

/// Lists longer than this go as one JSON value, so that no limit on parameters is met.
constexpr qsizetype kInlineList = 500;

const char* operatorOf(Comparison comparison)
{
    switch (comparison) {
    case Comparison::Less:
        return " < ";
    case Comparison::LessOrEqual:
        return " <= ";
    case Comparison::Greater:
        return " > ";
    case Comparison::GreaterOrEqual:
        return " >= ";
    case Comparison::NotEqual:
        return " IS NOT ";
    default:
        return " = ";
    }
}

const char* functionOf(Comparison comparison)
{
    switch (comparison) {
    case Comparison::BeginsWith:
        return "mosaro_begins(";
    case Comparison::EndsWith:
        return "mosaro_ends(";
    case Comparison::Like:
        return "mosaro_like(";
    default:
        return "mosaro_contains(";
    }
}

/// Whether an index on the attribute is worth following. Other indexes are there for sorting: most values of
/// a rating or a width lead to so many rows that reading the table along is faster.
bool isLookupKey(const AttributeInfo& attribute)
{
    return attribute.type == ValueType::Text || attribute.type == ValueType::Reference ||
           attribute.name == QLatin1String("mediaKind") || attribute.name == QLatin1String("colorType") ||
           attribute.name == QLatin1String("mediaDateImported");
}

bool isWholeNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return false;
    default:
        return value.canConvert<qlonglong>();
    }
}

/// The value as the attribute's column holds such; nothing when it cannot be one.
std::optional<SqlParameter> parameter(ValueType type, const QVariant& value)
{
    bool ok = true;
    switch (type) {
    case ValueType::Text:
        if (!value.canConvert<QString>())
            return std::nullopt;
        return value.toString().toStdString();
    case ValueType::Integer:
    case ValueType::Bool:
    case ValueType::Real:
    case ValueType::Reference: {
        if (isWholeNumber(value))
            return value.toLongLong();
        const double number = value.toDouble(&ok);
        return ok ? std::optional<SqlParameter>(number) : std::nullopt;
    }
    case ValueType::Date: {
        const QDateTime date = value.toDateTime();
        return date.isValid() ? std::optional<SqlParameter>(date.toMSecsSinceEpoch()) : std::nullopt;
    }
    case ValueType::Dictionary:
    case ValueType::Array:
        break;
    }
    return std::nullopt;
}

QJsonValue jsonValue(const SqlParameter& value)
{
    if (const auto* number = std::get_if<qint64>(&value))
        return QJsonValue(*number);
    if (const auto* number = std::get_if<double>(&value))
        return QJsonValue(*number);
    return QJsonValue(QString::fromStdString(std::get<std::string>(value)));
}

bool fitsJson(const SqlParameter& value)
{
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr || text->find('\0') == std::string::npos; // SQLite's JSON ends a text there.
}

} // namespace

void CompiledSql::bindTo(SQLite::Statement& statement, int first) const
{
    int position = first;
    for (const SqlParameter& value : values) {
        if (const auto* number = std::get_if<qint64>(&value))
            statement.bind(position, static_cast<int64_t>(*number));
        else if (const auto* real = std::get_if<double>(&value))
            statement.bind(position, *real);
        else
            statement.bind(position, std::get<std::string>(value));
        ++position;
    }
}

base::Result<CompiledSql> SqlCompiler::select(const EntityInfo& entity, const QByteArray& columns,
                                              const Query& query)
{
    SqlCompiler compiler(entity);
    compiler.m_result.sql = "SELECT " + columns + " FROM " + entity.name.data();
    if (query.predicate.kind() != Predicate::Kind::All) {
        compiler.m_result.sql += " WHERE ";
        compiler.add(query.predicate);
    }
    compiler.addOrder(query);
    if (query.limit >= 0)
        compiler.m_result.sql += " LIMIT " + QByteArray::number(query.limit);
    if (!compiler.m_failure.isEmpty())
        return base::Failure{compiler.m_failure};
    return std::move(compiler.m_result);
}

void SqlCompiler::add(const Predicate& predicate)
{
    switch (predicate.m_kind) {
    case Predicate::Kind::All:
        m_result.sql += "1";
        return;
    case Predicate::Kind::Nothing:
        m_result.sql += "0";
        return;
    case Predicate::Kind::Compare:
        addComparison(predicate);
        return;
    case Predicate::Kind::And:
        addJoined(predicate, " AND ");
        return;
    case Predicate::Kind::Or:
        addJoined(predicate, " OR ");
        return;
    case Predicate::Kind::Not:
        // What a missing value leaves open counts as not fulfilled, so its opposite is fulfilled.
        m_result.sql += "NOT ifnull(";
        add(predicate.m_parts.front());
        m_result.sql += ", 0)";
        return;
    case Predicate::Kind::LinkedBy:
        addLinked(predicate);
        return;
    case Predicate::Kind::Rows:
        m_result.sql += "id IN (SELECT value FROM json_each(?))";
        m_result.values.emplace_back(predicate.m_value.toByteArray().toStdString());
        return;
    }
}

bool SqlCompiler::foldsText(const Predicate& predicate)
{
    const bool isLink = predicate.m_kind == Predicate::Kind::LinkedBy; // Asked once for all items.
    return predicate.m_fold != Fold::None ||
           (!isLink && std::any_of(predicate.m_parts.begin(), predicate.m_parts.end(), foldsText));
}

void SqlCompiler::addJoined(const Predicate& predicate, const char* word)
{
    std::vector<const Predicate*> parts;
    for (const Predicate& part : predicate.m_parts)
        parts.push_back(&part);
    // SQLite tests in this order. Where one that fails settles it, those that fold a text come last.
    if (predicate.m_kind == Predicate::Kind::And)
        std::stable_partition(parts.begin(), parts.end(),
                              [](const Predicate* part) { return !foldsText(*part); });
    // A balanced tree: SQLite limits the depth of an expression, not its width.
    const auto addRange = [&](const auto& self, size_t from, size_t to) -> void {
        m_result.sql += '(';
        if (to - from == 1) {
            add(*parts[from]);
        } else {
            const size_t middle = from + (to - from) / 2;
            self(self, from, middle);
            m_result.sql += word;
            self(self, middle, to);
        }
        m_result.sql += ')';
    };
    addRange(addRange, 0, parts.size());
}

void SqlCompiler::addLinked(const Predicate& predicate)
{
    const EntityInfo* outer = m_entity;
    m_entity = predicate.m_linkEntity;
    const AttributeInfo* reference = attribute(predicate.m_attribute);
    if (reference != nullptr && reference->type != ValueType::Reference)
        fail(base::text("Failure.Query.NoReference", predicate.m_attribute, m_entity->name));
    m_result.sql += QByteArray("id IN (SELECT ") + predicate.m_attribute.data() + " FROM " +
                    m_entity->name.data() + " WHERE ";
    add(predicate.m_parts.front());
    m_result.sql += ')';
    m_entity = outer;
}

void SqlCompiler::addComparison(const Predicate& predicate)
{
    const AttributeInfo* info = attribute(predicate.m_attribute);
    if (info == nullptr)
        return;
    switch (predicate.m_comparison) {
    case Comparison::Contains:
    case Comparison::BeginsWith:
    case Comparison::EndsWith:
    case Comparison::Like:
        addTextTest(*info, predicate);
        return;
    case Comparison::In:
        addList(*info, predicate);
        return;
    default:
        addOrdering(*info, predicate);
    }
}

void SqlCompiler::addOrdering(const AttributeInfo& attribute, const Predicate& predicate)
{
    if (!predicate.m_value.isValid()) {
        const QByteArray name = attribute.name.data();
        if (predicate.m_comparison == Comparison::Equal)
            m_result.sql += name + " IS NULL";
        else if (predicate.m_comparison == Comparison::NotEqual)
            m_result.sql += name + " IS NOT NULL";
        else
            m_result.sql += "0";
        return;
    }
    // A range of dates may hold nearly all items; told so, SQLite follows its index only where that leads to
    // no reading of rows all over the table.
    const bool isRange = attribute.type == ValueType::Date && isLookupKey(attribute) &&
                         predicate.m_comparison != Comparison::Equal;
    m_result.sql += isRange ? "likely(" : "";
    m_result.sql += operand(attribute, predicate.m_fold) + operatorOf(predicate.m_comparison);
    addValue(attribute, predicate.m_value, predicate.m_fold);
    m_result.sql += isRange ? ")" : "";
}

void SqlCompiler::addTextTest(const AttributeInfo& attribute, const Predicate& predicate)
{
    if (attribute.type != ValueType::Text)
        fail(base::text("Failure.Query.NoText", attribute.name));
    m_result.sql += QByteArray(functionOf(predicate.m_comparison)) + attribute.name.data() + ", ";
    addValue(attribute, predicate.m_value, predicate.m_fold);
    m_result.sql += ", " + QByteArray::number(static_cast<int>(predicate.m_fold)) + ')';
}

void SqlCompiler::addList(const AttributeInfo& attribute, const Predicate& predicate)
{
    const QVariantList list = predicate.m_value.toList();
    const QByteArray left = operand(attribute, predicate.m_fold);
    const bool asJson = list.size() > kInlineList;
    QByteArray inLine;
    QJsonArray json;
    bool withMissing = false;
    for (const QVariant& item : list) {
        if (!item.isValid()) {
            withMissing = true;
            continue;
        }
        addValue(attribute, item, predicate.m_fold);
        m_result.sql.chop(1);
        if (!m_failure.isEmpty())
            return;
        if (asJson && fitsJson(m_result.values.back())) {
            json.append(jsonValue(m_result.values.back()));
            m_result.values.pop_back();
        } else {
            inLine += inLine.isEmpty() ? "?" : ",?";
        }
    }
    QByteArrayList tests;
    if (!inLine.isEmpty() || list.isEmpty())
        tests.append(left + " IN (" + inLine + ')');
    if (withMissing)
        tests.append(attribute.name.data() + QByteArray(" IS NULL"));
    if (!json.isEmpty()) {
        tests.append(left + " IN (SELECT value FROM json_each(?))");
        m_result.values.emplace_back(QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString());
    }
    m_result.sql += '(' + tests.join(" OR ") + ')';
}

void SqlCompiler::addOrder(const Query& query)
{
    const auto& order = query.order;
    if (order.empty())
        return;
    // Few rows of many, all wanted, are sorted faster than found along the order's index: "+" keeps SQLite
    // off it.
    const bool sorts = query.predicate.kind() != Predicate::Kind::All && query.limit < 0;
    m_result.sql += " ORDER BY ";
    for (const SortOrder& key : order) {
        if (attribute(key.attribute) == nullptr)
            return;
        m_result.sql += sorts ? "+" : "";
        m_result.sql += key.attribute.data();
        m_result.sql += key.natural ? " COLLATE FINDER" : "";
        m_result.sql += key.ascending ? ", " : " DESC, ";
    }
    // Equal ones by row, so that the order is the same each time; an index gives it so, either way round.
    m_result.sql += order.back().ascending ? "id" : "id DESC";
}

QByteArray SqlCompiler::operand(const AttributeInfo& attribute, Fold fold) const
{
    if (fold == Fold::None || attribute.type != ValueType::Text)
        return (isLookupKey(attribute) ? "" : "+") + QByteArray(attribute.name.data());
    return QByteArray("mosaro_fold(") + attribute.name.data() + ", " +
           QByteArray::number(static_cast<int>(fold)) + ')';
}

void SqlCompiler::addValue(const AttributeInfo& attribute, const QVariant& value, Fold fold)
{
    m_result.sql += '?';
    auto bound = parameter(attribute.type, value);
    if (!bound) {
        fail(base::text("Failure.Query.BadValue", attribute.name));
        bound = qint64(0);
    }
    if (auto* text = std::get_if<std::string>(&*bound); text != nullptr && fold != Fold::None)
        *text = foldedText(*text, fold);
    m_result.values.push_back(std::move(*bound));
}

const AttributeInfo* SqlCompiler::attribute(QLatin1String name)
{
    const int index = m_entity->indexOf(name);
    if (index < 0) {
        fail(base::text("Failure.Query.UnknownAttribute", name, m_entity->name));
        return nullptr;
    }
    return &m_entity->attributes[static_cast<size_t>(index)];
}

void SqlCompiler::fail(const QString& reason)
{
    if (m_failure.isEmpty())
        m_failure = reason;
}

} // namespace mosaro::store
