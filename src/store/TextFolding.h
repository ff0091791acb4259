#pragma once

#include "store/Query.h"

#include <string>
#include <string_view>

namespace mosaro::store {

/// The text as comparisons of that fold see it. UTF-8 in and out; broken sequences become replacement
/// characters.
[[nodiscard]] std::string foldedText(std::string_view text, Fold fold);

/// The same for one text after another: a view of the text itself where nothing is to be done, else of a
/// buffer of the thread's own that lasts until the next call. Quick when asked for the same text again.
[[nodiscard]] std::string_view foldedView(std::string_view text, Fold fold);

/// The text with its case folded so that each character stays one: where ? stands for a sharp s, its usual
/// fold "ss" would be two.
[[nodiscard]] std::string foldedByCharacter(std::string_view text);

} // namespace mosaro::store
