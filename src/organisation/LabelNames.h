#pragma once

#include <QStringList>

namespace mosaro::base {
class ZNUserDefaults;
}

namespace mosaro::organisation {

/// What the labels 0 to 7 are called: none, and seven colours as the preferences name them.
[[nodiscard]] QStringList labelNames(const base::ZNUserDefaults& defaults);

} // namespace mosaro::organisation
