#pragma once

class QCalendarWidget;

namespace mosaro::kit {

/// Gives the toolkit's calendar the look of the kit: a calm bar, our own arrows, all days alike.
void dressCalendar(QCalendarWidget& calendar);

} // namespace mosaro::kit
