#pragma once

#include "organisation/ui/SmartRuleView.h"

class QLabel;

namespace mosaro::kit {
class RatingIndicator;
}

namespace mosaro::organisation {

/// A rule with one pop-up whose chosen item is the value.
class SmartRuleChoiceView : public SmartRuleView {
protected:
    SmartRuleChoiceView(SmartRuleFamily family, QVariantMap& values, QWidget* parent);

    void readValues() override;
    void writeValues() override;
    [[nodiscard]] QComboBox& choices() const { return *m_choices; }

private:
    QComboBox* m_choices;
};

/// "is" and the file types that can be asked for.
class SmartRuleFileTypeView : public SmartRuleChoiceView {
public:
    SmartRuleFileTypeView(QVariantMap& values, QWidget* parent);
};

/// None or one of the seven labels, by the names that the user gave them.
class SmartRuleColorLabelView : public SmartRuleChoiceView {
public:
    SmartRuleColorLabelView(QVariantMap& values, const base::ZNUserDefaults& defaults, QWidget* parent);
};

/// No or yes.
class SmartRuleBoolView : public SmartRuleChoiceView {
public:
    SmartRuleBoolView(QVariantMap& values, QWidget* parent);
};

/// Is or is not, and the tags of the library. Without tags there is nothing to choose and no value.
class SmartRuleTokenFieldView : public SmartRuleView {
public:
    SmartRuleTokenFieldView(QVariantMap& values, store::ZNDBManager& library, QWidget* parent);

protected:
    void readValues() override;
    void writeValues() override;

private:
    QComboBox* m_condition;
    QComboBox* m_tags;
};

/// A condition and a number of stars.
class SmartRuleRatingView : public SmartRuleView {
public:
    SmartRuleRatingView(QVariantMap& values, QWidget* parent);

protected:
    void readValues() override;
    void writeValues() override;

private:
    QComboBox* m_condition;
    kit::RatingIndicator* m_rating;
};

/// Rules on colours have no values of their own.
class SmartRuleColorView : public SmartRuleView {
public:
    SmartRuleColorView(QVariantMap& values, QWidget* parent)
        : SmartRuleView(SmartRuleFamily::Color, values, parent)
    {
    }

protected:
    void readValues() override {}
    void writeValues() override {}
};

} // namespace mosaro::organisation
