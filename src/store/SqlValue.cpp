#include "store/SqlValue.h"

#include "base/PropertyList.h"

#include <QDateTime>
#include <SQLiteCpp/Column.h>

namespace mosaro::store {

namespace {

void bindPropertyList(SQLite::Statement& statement, int position, const QVariant& value)
{
    const auto data = base::writePropertyList(value, base::PropertyListFormat::Binary);
    // What cannot be a property list is no value; the attribute then reads as empty.
    if (!data)
        statement.bind(position);
    else
        statement.bind(position, data.value().constData(), static_cast<int>(data.value().size()));
}

QVariant propertyList(const SQLite::Column& column)
{
    const auto value =
        base::readPropertyList(QByteArray(static_cast<const char*>(column.getBlob()), column.getBytes()));
    return value ? value.value() : QVariant();
}

} // namespace

void bindText(SQLite::Statement& statement, int position, const QString& text)
{
    statement.bind(position, text.toStdString());
}

void bindValue(SQLite::Statement& statement, int position, ValueType type, const QVariant& value)
{
    if (!value.isValid()) {
        statement.bind(position);
        return;
    }
    switch (type) {
    case ValueType::Text:
        bindText(statement, position, value.toString());
        return;
    case ValueType::Integer:
    case ValueType::Bool:
    case ValueType::Reference:
        statement.bind(position, static_cast<int64_t>(value.toLongLong()));
        return;
    case ValueType::Real:
        statement.bind(position, value.toDouble());
        return;
    case ValueType::Date:
        statement.bind(position, static_cast<int64_t>(value.toDateTime().toMSecsSinceEpoch()));
        return;
    case ValueType::Dictionary:
    case ValueType::Array:
        bindPropertyList(statement, position, value);
        return;
    }
}

QVariant columnValue(SQLite::Statement& statement, int index, ValueType type)
{
    const SQLite::Column column = statement.getColumn(index);
    if (column.isNull())
        return {};
    switch (type) {
    case ValueType::Text: {
        const char* text = column.getText(); // Before the size: it may convert.
        return QString::fromUtf8(text, column.getBytes());
    }
    case ValueType::Integer:
    case ValueType::Reference:
        return QVariant(static_cast<qlonglong>(column.getInt64()));
    case ValueType::Bool:
        return column.getInt() != 0;
    case ValueType::Real:
        return column.getDouble();
    case ValueType::Date:
        return QDateTime::fromMSecsSinceEpoch(column.getInt64());
    case ValueType::Dictionary:
        return propertyList(column).toMap();
    case ValueType::Array:
        return propertyList(column).toList();
    }
    return {};
}

} // namespace mosaro::store
