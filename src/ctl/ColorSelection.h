#pragma once

#include "base/Result.h"
#include "store/Query.h"

namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::ctl {

/// The items that have a colour in any role, named by six hexadecimal digits or its colorID.
[[nodiscard]] base::Result<store::Predicate> withColor(store::ZNDBManager& library, const QString& color);

} // namespace mosaro::ctl
