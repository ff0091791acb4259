#pragma once

#include "ctl/Command.h"

namespace mosaro::ctl {

[[nodiscard]] QString generalHelp();
[[nodiscard]] QString commandHelp(const Command& command);

/// "--library", "--json", "--help" and "--version", which stand before or after the command.
[[nodiscard]] const std::vector<OptionRow>& generalOptions();

} // namespace mosaro::ctl
