#pragma once

namespace mosaro::kit {

/// Makes grids known to screen readers: a list whose items tell their accessible text. Any number of times.
void installGridViewAccessibility();

} // namespace mosaro::kit
