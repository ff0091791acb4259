#include "store/Record.h"

#include "store/StoreContext.h"

namespace mosaro::store {

namespace {

QVariant ofType(ValueType type, const QVariant& value)
{
    if (!value.isValid())
        return {};
    switch (type) {
    case ValueType::Text: {
        const QString text = value.toString();
        return text.isNull() ? QVariant(QLatin1String("")) : QVariant(text);
    }
    case ValueType::Integer:
        return QVariant(value.toLongLong());
    case ValueType::Real:
        return QVariant(value.toDouble());
    case ValueType::Bool:
        return QVariant(value.toBool());
    case ValueType::Date: {
        const QDateTime date = value.toDateTime();
        return date.isValid() ? QVariant(date.toLocalTime()) : QVariant();
    }
    case ValueType::Dictionary:
        return QVariant(value.toMap());
    case ValueType::Array:
        return QVariant(value.toList());
    case ValueType::Reference:
        return value;
    }
    return {};
}

} // namespace

Record::Record(const EntityInfo& entity, StoreContext& context, RowId rowId)
    : m_entity(&entity), m_context(&context), m_rowId(rowId), m_dirty(entity.attributes.size(), false)
{
}

QVariant Record::attribute(int index) const
{
    if (m_context == nullptr || index < 0 || index >= static_cast<int>(m_entity->attributes.size()))
        return {};
    if (m_values.empty())
        m_context->load(*this);
    return m_values.at(static_cast<size_t>(index));
}

void Record::setAttribute(int index, const QVariant& value)
{
    if (m_context == nullptr || index < 0 || index >= static_cast<int>(m_entity->attributes.size()))
        return;
    const auto position = static_cast<size_t>(index);
    const QVariant typed = ofType(m_entity->attributes[position].type, value);
    if (attribute(index) == typed)
        return;
    m_values[position] = typed;
    if (m_dirty[position])
        return;
    m_dirty[position] = true;
    if (++m_dirtyCount == 1)
        m_context->noteDirty(*this);
}

bool Record::isEmptyAttribute(QLatin1String name) const
{
    return !attribute(m_entity->indexOf(name)).isValid();
}

} // namespace mosaro::store
