#include "store/Query.h"

namespace mosaro::store {

Predicate Predicate::all()
{
    return {};
}

Predicate Predicate::nothing()
{
    Predicate predicate;
    predicate.m_kind = Kind::Nothing;
    return predicate;
}

Predicate Predicate::compare(QLatin1String attribute, Comparison comparison, QVariant value, Fold fold)
{
    Predicate predicate;
    predicate.m_kind = Kind::Compare;
    predicate.m_attribute = attribute;
    predicate.m_comparison = comparison;
    predicate.m_fold = fold;
    predicate.m_value = std::move(value);
    return predicate;
}

Predicate Predicate::allOf(std::vector<Predicate> parts)
{
    Predicate predicate;
    predicate.m_kind = parts.empty() ? Kind::All : Kind::And;
    predicate.m_parts = std::move(parts);
    return predicate;
}

Predicate Predicate::anyOf(std::vector<Predicate> parts)
{
    Predicate predicate;
    predicate.m_kind = parts.empty() ? Kind::Nothing : Kind::Or;
    predicate.m_parts = std::move(parts);
    return predicate;
}

Predicate Predicate::notOf(Predicate part)
{
    Predicate predicate;
    predicate.m_kind = Kind::Not;
    predicate.m_parts.push_back(std::move(part));
    return predicate;
}

Predicate Predicate::linkedBy(const EntityInfo& linkEntity, QLatin1String reference, Predicate condition)
{
    Predicate predicate;
    predicate.m_kind = Kind::LinkedBy;
    predicate.m_attribute = reference;
    predicate.m_linkEntity = &linkEntity;
    predicate.m_parts.push_back(std::move(condition));
    return predicate;
}

Predicate Predicate::rows(std::span<const RowId> ids)
{
    QByteArray list = "[";
    for (const RowId id : ids)
        list += (list.size() > 1 ? "," : "") + QByteArray::number(id);
    Predicate predicate;
    predicate.m_kind = Kind::Rows;
    predicate.m_value = list + ']';
    return predicate;
}

} // namespace mosaro::store
