#include "organisation/ui/SmartRuleTextViews.h"

#include "base/Text.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QValidator>

namespace mosaro::organisation {

namespace {

/// Lets through what is empty or a whole number, a lone sign included while it is typed.
class ZNNumberOnlyFormatter : public QValidator {
public:
    using QValidator::QValidator;

    [[nodiscard]] State validate(QString& input, int& /*position*/) const override
    {
        bool ok = false;
        (void)input.toLongLong(&ok);
        if (ok || input.isEmpty()) {
            return Acceptable;
        }
        if (input == QLatin1String("-")) {
            return Intermediate;
        }
        QApplication::beep();
        return Invalid;
    }
};

} // namespace

SmartRuleStringView::SmartRuleStringView(QVariantMap& values, QWidget* parent)
    : SmartRuleStringView(SmartRuleFamily::String, values, parent)
{
}

SmartRuleStringView::SmartRuleStringView(SmartRuleFamily family, QVariantMap& values, QWidget* parent)
    : SmartRuleView(family, values, parent), m_condition(addConditions()), m_field(new QLineEdit(this))
{
    m_field->setToolTip(base::text("Tooltip.Smart.Value"));
    m_field->setAccessibleName(m_field->toolTip());
    row().addWidget(m_field, 1);
    setActiveResponder(m_field);
    connect(m_field, &QLineEdit::textChanged, this, &SmartRuleStringView::updateValues);
}

void SmartRuleStringView::readValues()
{
    chooseStored(*m_condition, SMART_KEY_CONDITION);
    m_field->setText(values().value(SMART_KEY_DEFAULT_VALUE).toString());
}

void SmartRuleStringView::writeValues()
{
    values().insert(SMART_KEY_CONDITION, m_condition->currentData());
    values().insert(SMART_KEY_DEFAULT_VALUE, m_field->text());
}

SmartRuleNumberFieldView::SmartRuleNumberFieldView(QVariantMap& values, QWidget* parent)
    : SmartRuleNumberFieldView(SmartRuleFamily::Number, values, parent)
{
}

SmartRuleNumberFieldView::SmartRuleNumberFieldView(SmartRuleFamily family, QVariantMap& values,
                                                   QWidget* parent)
    : SmartRuleStringView(family, values, parent)
{
    field().setValidator(new ZNNumberOnlyFormatter(this));
}

SmartRuleFileSizeFieldView::SmartRuleFileSizeFieldView(QVariantMap& values, QWidget* parent)
    : SmartRuleNumberFieldView(SmartRuleFamily::FileSize, values, parent),
      m_unit(addPopUp("Tooltip.Smart.Unit"))
{
    const QSignalBlocker silent(m_unit);
    for (const SmartRuleUnit& unit : smartRuleUnits()) {
        m_unit->addItem(unit.title, unit.bytes);
    }
}

void SmartRuleFileSizeFieldView::readValues()
{
    SmartRuleNumberFieldView::readValues();
    chooseStored(*m_unit, SMART_KEY_OTHER_VALUE);
}

void SmartRuleFileSizeFieldView::writeValues()
{
    SmartRuleNumberFieldView::writeValues();
    values().insert(SMART_KEY_OTHER_VALUE, m_unit->currentData());
}

} // namespace mosaro::organisation
