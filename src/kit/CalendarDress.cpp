#include "kit/CalendarDress.h"

#include "kit/Look.h"

#include <QCalendarWidget>
#include <QTextCharFormat>
#include <QToolButton>

namespace mosaro::kit {

namespace {

// The names of the calendar's parts, which Qt documents for style sheets.
constexpr QLatin1String kBar("qt_calendar_navigationbar");
constexpr QLatin1String kPrevious("qt_calendar_prevmonth");
constexpr QLatin1String kNext("qt_calendar_nextmonth");

void setArrow(const QCalendarWidget& calendar, QLatin1String button, const QString& iconName)
{
    if (auto* arrow = calendar.findChild<QToolButton*>(button)) {
        arrow->setIcon(icon(iconName));
    }
}

} // namespace

void dressCalendar(QCalendarWidget& calendar)
{
    QTextCharFormat day;
    day.setForeground(color::text);
    for (int weekday = Qt::Monday; weekday <= Qt::Sunday; ++weekday) {
        calendar.setWeekdayTextFormat(Qt::DayOfWeek(weekday), day);
    }
    QTextCharFormat head;
    head.setBackground(color::sidebar);
    calendar.setHeaderTextFormat(head);
    calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);

    if (auto* bar = calendar.findChild<QWidget*>(kBar)) {
        QPalette palette = bar->palette();
        palette.setColor(QPalette::Highlight, color::sidebar);
        palette.setColor(QPalette::HighlightedText, color::text);
        bar->setPalette(palette);
    }
    setArrow(calendar, kPrevious, QStringLiteral("previous"));
    setArrow(calendar, kNext, QStringLiteral("next"));
}

} // namespace mosaro::kit
