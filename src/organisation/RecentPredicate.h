#pragma once

#include "store/Query.h"

#include <QDateTime>

namespace mosaro::base {
class ZNUserDefaults;
}

namespace mosaro::organisation {

inline constexpr qint64 kDefaultRecentDays = 7;

/// Where the recent window begins: days of 25 hours before `now`, then the midnight that ends that day by the
/// calendar of now's time zone.
[[nodiscard]] QDateTime recentStart(const QDateTime& now, qint64 days);

/// Items imported within the recent window. A missing preference is written as 7.
[[nodiscard]] store::Predicate recentPredicate(base::ZNUserDefaults& defaults, const QDateTime& now);

} // namespace mosaro::organisation
