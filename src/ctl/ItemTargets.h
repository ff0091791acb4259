#pragma once

#include "ctl/Session.h"

namespace mosaro::ctl {

/// The items that the operands of a command name.
struct ItemTargets {
    std::vector<store::RowId> rows;
    QStringList ids;
    QStringList unknown; ///< IDs that no item has.
};
[[nodiscard]] ItemTargets itemTargets(Session& session, const QStringList& operands);

/// Tells what became of them, as {changed, failed} with "--json"; gives the exit status. `failure` is the
/// reason for which nothing, or not everything, was changed; empty for none.
int reportChange(const Session& session, const ItemTargets& targets, const QString& failure);

} // namespace mosaro::ctl
