#include "organisation/RecentPredicate.h"

#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"

#include <QTimeZone>

namespace mosaro::organisation {

namespace {

// 25 hours: a window that spans a change of the clocks still reaches as far back as its number of days.
constexpr qint64 kSecondsOfDay = 90'000;

QDateTime startOfDay(QDate date, const QDateTime& like)
{
    return like.timeSpec() == Qt::TimeZone ? date.startOfDay(like.timeZone())
                                           : date.startOfDay(like.timeSpec());
}

} // namespace

QDateTime recentStart(const QDateTime& now, qint64 days)
{
    const QDate day = now.addSecs(-days * kSecondsOfDay).date();
    return startOfDay(day.addDays(1), now);
}

store::Predicate recentPredicate(base::ZNUserDefaults& defaults, const QDateTime& now)
{
    using store::Comparison;
    using store::Predicate;

    if (!defaults.contains(base::PREFS_GENERAL_SHOW_RECENT_DAYS)) {
        defaults.updateUserDefaults(base::PREFS_GENERAL_SHOW_RECENT_DAYS, kDefaultRecentDays);
    }
    const qint64 days = defaults.integer(base::PREFS_GENERAL_SHOW_RECENT_DAYS, kDefaultRecentDays);
    const QLatin1String imported("mediaDateImported");
    return Predicate::allOf({
        Predicate::compare(imported, Comparison::GreaterOrEqual, recentStart(now, days)),
        Predicate::compare(imported, Comparison::LessOrEqual, now),
    });
}

} // namespace mosaro::organisation
