#pragma once

#include "organisation/SmartRuleTerm.h"

#include <QVariantList>

namespace mosaro::organisation {

/// A rule as a piece of a predicate's text. Values stand in it as they are, with nothing escaped.
[[nodiscard]] QString smartRuleText(const SmartRuleTerm& term);

/// The rules as the text of a predicate, each distinct one once, joined by AND or OR without parentheses.
/// Empty when they come to nothing. For people and for exchange; what is run is smartQuery().
[[nodiscard]] QString smartQueryText(const QVariantList& rules, bool withCondition);

} // namespace mosaro::organisation
