#pragma once

#include "shell/MenuTable.h"

namespace mosaro::shell {

/// What the enabling of the application's own items depends on.
struct ApplicationSituation {
    bool chooserVisible = false;
    bool windowVisible = false;
    bool busy = false;
};

/// For the items that the application itself owns; others are asked of their owners.
[[nodiscard]] bool validateMenuItem(Command command, const ApplicationSituation& situation);

} // namespace mosaro::shell
