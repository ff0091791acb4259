#pragma once

#include <QString>

namespace mosaro::base {

/// The text of a message key; the key itself when the string resource has none. Keys are written as literals
/// at the place of use, so that a test can find those without a text.
[[nodiscard]] QString text(const char* key);

/// The same with %1, %2 … replaced in one pass (an argument that holds "%1" stays as it is).
template <class... Args>
[[nodiscard]] QString text(const char* key, const Args&... args)
{
    return text(key).arg(args...);
}

/// Loads the English texts into the running application; once per process, before the first text().
void installTexts();

} // namespace mosaro::base
