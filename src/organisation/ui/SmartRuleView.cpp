#include "organisation/ui/SmartRuleView.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "organisation/ui/SmartRuleChoiceViews.h"
#include "organisation/ui/SmartRuleDateFieldView.h"
#include "organisation/ui/SmartRuleTextViews.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

namespace mosaro::organisation {

namespace {

constexpr int kFewestLetters = 6; ///< To which a pop-up shrinks where its row is full.

/// Knows whether an item is chosen from the open menu, or stepped to with the keys.
class ConditionPopUp : public QComboBox {
public:
    using QComboBox::QComboBox;

    [[nodiscard]] bool isFromMenu() const { return m_isFromMenu; }
    void showPopup() override
    {
        m_isFromMenu = true;
        QComboBox::showPopup();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        m_isFromMenu = false;
        QComboBox::keyPressEvent(event);
    }

private:
    bool m_isFromMenu = false;
};

} // namespace

SmartRuleView::SmartRuleView(SmartRuleFamily family, QVariantMap& values, QWidget* parent)
    : QWidget(parent), m_family(family), m_values(values), m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(kit::metric::gap);
}

void SmartRuleView::parseValues()
{
    {
        // A control that is filled must not write the others, which are not filled yet.
        const QSignalBlocker silent(this);
        readValues();
    }
    updateValues();
}

void SmartRuleView::updateValues()
{
    if (!signalsBlocked()) {
        writeValues();
        Q_EMIT changed();
    }
}

QComboBox* SmartRuleView::addPopUp(const char* toolTipKey)
{
    return addPopUp(new QComboBox(this), toolTipKey);
}

QComboBox* SmartRuleView::addPopUp(QComboBox* popUp, const char* toolTipKey)
{
    popUp->setToolTip(base::text(toolTipKey));
    popUp->setAccessibleName(popUp->toolTip());
    popUp->setMinimumContentsLength(kFewestLetters);
    m_row->addWidget(popUp);
    connect(popUp, &QComboBox::currentIndexChanged, this, &SmartRuleView::updateValues);
    return popUp;
}

QComboBox* SmartRuleView::addConditions()
{
    auto* popUp = new ConditionPopUp(this);
    addPopUp(popUp, "Tooltip.Smart.Condition");
    const QSignalBlocker silent(popUp);
    for (const SmartRuleCondition& condition : smartRuleConditions(m_family)) {
        popUp->addItem(base::text(condition.titleKey), condition.number);
    }
    connect(popUp, &QComboBox::activated, this, [this, popUp] {
        if (m_activeResponder != nullptr && popUp->isFromMenu()) {
            m_activeResponder->setFocus();
        }
    });
    return popUp;
}

void SmartRuleView::chooseStored(QComboBox& popUp, QLatin1String key) const
{
    const int stored = m_values.contains(key) ? popUp.findData(m_values.value(key).toInt()) : 0;
    popUp.setCurrentIndex(std::max(0, stored));
}

SmartRuleView* makeSmartRuleView(qint64 type, QVariantMap& values, const SmartRuleEnvironment& environment,
                                 QWidget* parent)
{
    switch (smartRuleRowFamily(type)) {
    case SmartRuleFamily::String:
        return new SmartRuleStringView(values, parent);
    case SmartRuleFamily::FileType:
        return new SmartRuleFileTypeView(values, parent);
    case SmartRuleFamily::FileSize:
        return new SmartRuleFileSizeFieldView(values, parent);
    case SmartRuleFamily::Number:
        return new SmartRuleNumberFieldView(values, parent);
    case SmartRuleFamily::Rating:
        return new SmartRuleRatingView(values, parent);
    case SmartRuleFamily::Label:
        return new SmartRuleColorLabelView(values, environment.defaults, parent);
    case SmartRuleFamily::Boolean:
        return new SmartRuleBoolView(values, parent);
    case SmartRuleFamily::Tag:
        return new SmartRuleTokenFieldView(values, environment.library, parent);
    case SmartRuleFamily::Date:
        return new SmartRuleDateFieldView(values, parent);
    case SmartRuleFamily::Color:
        return new SmartRuleColorView(values, parent);
    case SmartRuleFamily::None:
        break;
    }
    return nullptr;
}

} // namespace mosaro::organisation
