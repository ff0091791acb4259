#pragma once

#include "base/ColorText.h"
#include "organisation/TagList.h"

#include <optional>
#include <set>

namespace mosaro::organisation {

/// The choices of a tag's colour, by the tags of their menu items: none, the label colours 1 to 7, and any
/// other.
inline constexpr int kNoTagColor = 0;
inline constexpr int kLastLabelColor = 7;
inline constexpr int kCustomTagColor = 8;

/// The colour of choice 1 to 7: that which the desktop's file managers give to a file of the label. Nothing
/// for others.
[[nodiscard]] std::optional<base::ColorValue> labelColorAtIndex(int index);

/// The choice that a stored colour stands for. Colours are equal when their texts are.
[[nodiscard]] int tagColorChoice(const QString& tagColor);
/// The choices that occur among tags; more than one is shown as a mixed mark.
[[nodiscard]] std::set<int> tagColorChoices(const std::vector<TagRecord>& tags);

} // namespace mosaro::organisation
