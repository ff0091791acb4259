#pragma once

#include "base/Result.h"

#include <QVariantList>

namespace mosaro::store {
class StoreContext;
}

namespace mosaro::ctl {

/// Rule records from the text of "--rules". What is not of the form is a failure that names the rule.
[[nodiscard]] base::Result<QVariantList> smartRulesFromJson(const QString& json);

/// Puts tagIDs where the records name tags by title; a tag that does not exist is a failure.
[[nodiscard]] base::Result<void> resolveTags(store::StoreContext& context, QVariantList& rules);

/// The form of "--rules", for the help.
[[nodiscard]] QString smartRulesHelp();

} // namespace mosaro::ctl
