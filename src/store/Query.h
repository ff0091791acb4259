#pragma once

#include "store/Record.h"

#include <QVariant>
#include <memory>
#include <span>
#include <vector>

namespace mosaro::store {

/// How a comparison is made. The text ones take a fold: none, [c] (case) or [cd] (case and diacritics).
enum class Comparison {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Contains,
    BeginsWith,
    EndsWith,
    Like, ///< The value is a pattern: * stands for any run of characters, ? for one.
    In,   ///< The value is a QVariantList.
};
enum class Fold { None, Case, CaseAndDiacritics };

/// A condition on records of one entity, as a tree of values; compiled to SQL with bound values by the
/// context. Values are only ever values: nothing in them is read as SQL, and only Like takes one for a
/// pattern.
class Predicate {
public:
    enum class Kind { All, Nothing, Compare, And, Or, Not, LinkedBy, Rows };

    [[nodiscard]] static Predicate all();
    [[nodiscard]] static Predicate nothing();
    [[nodiscard]] static Predicate compare(QLatin1String attribute, Comparison comparison, QVariant value,
                                           Fold fold = Fold::None);
    /// Empty `parts`: And is all, Or is nothing.
    [[nodiscard]] static Predicate allOf(std::vector<Predicate> parts);
    [[nodiscard]] static Predicate anyOf(std::vector<Predicate> parts);
    [[nodiscard]] static Predicate notOf(Predicate part);
    /// Records that a row of `linkEntity` leads to through its reference `reference`, where that row fulfils
    /// `condition`; as the items of a tag.
    [[nodiscard]] static Predicate linkedBy(const EntityInfo& linkEntity, QLatin1String reference,
                                            Predicate condition);

    /// Records of these rows.
    [[nodiscard]] static Predicate rows(std::span<const RowId> ids);

    [[nodiscard]] Kind kind() const { return m_kind; }

private:
    friend class SqlCompiler;

    Kind m_kind = Kind::All;
    QLatin1String m_attribute;
    Comparison m_comparison = Comparison::Equal;
    Fold m_fold = Fold::None;
    QVariant m_value;
    std::vector<Predicate> m_parts;
    const EntityInfo* m_linkEntity = nullptr;
};

struct SortOrder {
    QLatin1String attribute;
    bool ascending = true;
    bool natural = false; ///< Text by finderStyleCompare.
};

struct Query {
    Predicate predicate = Predicate::all();
    std::vector<SortOrder> order;
    int limit = -1;
};

} // namespace mosaro::store
