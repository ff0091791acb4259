#pragma once

#include "store/Collections.h"
#include "store/Query.h"

#include <optional>

namespace mosaro::organisation {

/// The rules as a query over the items: all of them with `withCondition`, else any. Nothing when no rule
/// comes to anything; that never means all items. Values are only values, whatever characters they hold, but
/// for the wildcards * and ? of Matches. A number that was never written counts as 0, a text or date fulfils
/// nothing.
[[nodiscard]] std::optional<store::Predicate> smartQuery(const QVariantList& rules, bool withCondition);

/// The query of a smart collection.
[[nodiscard]] std::optional<store::Predicate> smartQueryOf(const store::Collections& collection);

} // namespace mosaro::organisation
