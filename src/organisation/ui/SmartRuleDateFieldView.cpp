#include "organisation/ui/SmartRuleDateFieldView.h"

#include "base/Text.h"
#include "kit/CalendarDress.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>

namespace mosaro::organisation {

namespace {

constexpr int kRangeCondition = 3;
/// The arrow of the calendar would cover the year's last digit.
constexpr int kArrowRoom = 10;

QDate storedDay(const QVariantMap& values, QLatin1String key)
{
    const QDateTime stored = values.value(key).toDateTime();
    return stored.isValid() ? stored.toLocalTime().date() : QDate::currentDate();
}

} // namespace

SmartRuleDateFieldView::SmartRuleDateFieldView(QVariantMap& values, QWidget* parent)
    : SmartRuleView(SmartRuleFamily::Date, values, parent), m_condition(addConditions()),
      m_startDatePicker(addDay()), m_textField(new QLabel(base::text("Smart.Range.To"), this)),
      m_endDatePicker(nullptr)
{
    row().addWidget(m_textField);
    m_endDatePicker = addDay();
    row().addStretch(1);
    setActiveResponder(m_startDatePicker);
}

QDateEdit* SmartRuleDateFieldView::addDay()
{
    auto* picker = new QDateEdit(this);
    picker->setCalendarPopup(true);
    kit::dressCalendar(*picker->calendarWidget());
    picker->setMinimumWidth(picker->sizeHint().width() + kArrowRoom);
    picker->setDateRange(firstSmartRuleDay(), lastSmartRuleDay());
    picker->setToolTip(base::text("Tooltip.Smart.Value"));
    picker->setAccessibleName(picker->toolTip());
    row().addWidget(picker);
    connect(picker, &QDateEdit::dateChanged, this, &SmartRuleDateFieldView::updateValues);
    return picker;
}

bool SmartRuleDateFieldView::isRange() const
{
    return m_condition->currentData().toInt() == kRangeCondition;
}

void SmartRuleDateFieldView::readValues()
{
    chooseStored(*m_condition, SMART_KEY_CONDITION);
    m_startDatePicker->setDate(storedDay(values(), SMART_KEY_DEFAULT_VALUE));
    m_endDatePicker->setDate(storedDay(values(), SMART_KEY_OTHER_VALUE));
}

void SmartRuleDateFieldView::writeValues()
{
    m_textField->setVisible(isRange());
    m_endDatePicker->setVisible(isRange());
    values().insert(SMART_KEY_CONDITION, m_condition->currentData());
    values().insert(SMART_KEY_DEFAULT_VALUE, m_startDatePicker->date().startOfDay());
    if (isRange()) {
        values().insert(SMART_KEY_OTHER_VALUE, m_endDatePicker->date().startOfDay());
    } else {
        values().remove(SMART_KEY_OTHER_VALUE);
    }
}

} // namespace mosaro::organisation
