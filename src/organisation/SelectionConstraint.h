#pragma once

#include "organisation/TreeWalk.h"

namespace mosaro::organisation {

/// The legal part of a proposed selection, given in row order: user nodes in any number, or one system node
/// alone; never a group.
[[nodiscard]] NodeList legalSelection(const NodeList& proposed);

} // namespace mosaro::organisation
