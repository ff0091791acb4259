#pragma once

#include "organisation/ui/SmartRuleView.h"

class QLineEdit;

namespace mosaro::organisation {

/// A condition and a text, which is kept as it stands.
class SmartRuleStringView : public SmartRuleView {
public:
    SmartRuleStringView(QVariantMap& values, QWidget* parent);

protected:
    SmartRuleStringView(SmartRuleFamily family, QVariantMap& values, QWidget* parent);

    void readValues() override;
    void writeValues() override;
    [[nodiscard]] QLineEdit& field() const { return *m_field; }

private:
    QComboBox* m_condition;
    QLineEdit* m_field;
};

/// The same with a text that is empty or a whole number; other input is refused with a beep.
class SmartRuleNumberFieldView : public SmartRuleStringView {
public:
    SmartRuleNumberFieldView(QVariantMap& values, QWidget* parent);

protected:
    SmartRuleNumberFieldView(SmartRuleFamily family, QVariantMap& values, QWidget* parent);
};

/// The same with a unit of size.
class SmartRuleFileSizeFieldView : public SmartRuleNumberFieldView {
public:
    SmartRuleFileSizeFieldView(QVariantMap& values, QWidget* parent);

protected:
    void readValues() override;
    void writeValues() override;

private:
    QComboBox* m_unit;
};

} // namespace mosaro::organisation
