#pragma once

#include <algorithm>

namespace mosaro::shell {

/// Where the divider between sidebar and browser may stand.
inline constexpr int kMinimumSidebarWidth = 200;
inline constexpr int kDefaultSidebarWidth = 232;
inline constexpr int kDividerWidth = 1;

[[nodiscard]] constexpr int maximumSidebarWidth(int totalWidth)
{
    return totalWidth * 2 / 5;
}

/// Where a dragged divider comes to stand. In a window too narrow for both bounds the upper one holds.
[[nodiscard]] constexpr int draggedSidebarWidth(int wanted, int totalWidth)
{
    return std::min(std::max(wanted, kMinimumSidebarWidth), maximumSidebarWidth(totalWidth));
}

/// The sidebar keeps its width when the window changes, as long as it stays within its share.
[[nodiscard]] constexpr int resizedSidebarWidth(int current, int totalWidth)
{
    return std::min(current, maximumSidebarWidth(totalWidth));
}

} // namespace mosaro::shell
