#pragma once

#include <QLatin1String>
#include <QVariant>
#include <vector>

namespace mosaro::base {

struct DefaultPreference {
    QLatin1String key;
    QVariant value;
};

/// What a new store starts with, in order. Keys without a default are not in it.
[[nodiscard]] std::vector<DefaultPreference> defaultPreferences();

} // namespace mosaro::base
