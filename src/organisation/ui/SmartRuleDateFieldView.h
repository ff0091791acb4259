#pragma once

#include "organisation/ui/SmartRuleView.h"

class QDateEdit;
class QLabel;

namespace mosaro::organisation {

/// A condition and a day; a range has a second day.
class SmartRuleDateFieldView : public SmartRuleView {
public:
    SmartRuleDateFieldView(QVariantMap& values, QWidget* parent);

protected:
    void readValues() override;
    void writeValues() override;

private:
    [[nodiscard]] QDateEdit* addDay();
    [[nodiscard]] bool isRange() const;

    QComboBox* m_condition;
    QDateEdit* m_startDatePicker;
    QLabel* m_textField;
    QDateEdit* m_endDatePicker;
};

} // namespace mosaro::organisation
