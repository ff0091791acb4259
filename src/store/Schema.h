#pragma once

#include <QLatin1String>
#include <span>

namespace mosaro::store {

/// How an attribute is kept. Date is milliseconds since 1970 UTC; Dictionary and Array are binary property
/// lists; Reference is the row id of a to-one relationship.
enum class ValueType { Text, Integer, Real, Bool, Date, Dictionary, Array, Reference };

struct AttributeInfo {
    QLatin1String name;
    ValueType type;
};

/// One entity: its table's name and its attributes, in column order after the row id.
struct EntityInfo {
    QLatin1String name;
    std::span<const AttributeInfo> attributes;

    /// Position of an attribute, or -1.
    [[nodiscard]] int indexOf(QLatin1String attribute) const;
};

/// The entity that a reference leads to.
[[nodiscard]] const EntityInfo* targetEntity(const AttributeInfo& reference);

/// All seven, each after those that its references lead to.
[[nodiscard]] std::span<const EntityInfo* const> allEntities();

} // namespace mosaro::store
