#include "organisation/ui/SmartRuleChoiceViews.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "kit/RatingIndicator.h"
#include "organisation/LabelNames.h"
#include "organisation/TagList.h"
#include "store/ZNDBManager.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

namespace mosaro::organisation {

SmartRuleChoiceView::SmartRuleChoiceView(SmartRuleFamily family, QVariantMap& values, QWidget* parent)
    : SmartRuleView(family, values, parent), m_choices(addPopUp("Tooltip.Smart.Value"))
{
    row().addStretch(1);
}

void SmartRuleChoiceView::readValues()
{
    const int stored = m_choices->findData(values().value(SMART_KEY_DEFAULT_VALUE));
    m_choices->setCurrentIndex(std::max(0, stored));
}

void SmartRuleChoiceView::writeValues()
{
    values().insert(SMART_KEY_DEFAULT_VALUE, m_choices->currentData());
}

SmartRuleFileTypeView::SmartRuleFileTypeView(QVariantMap& values, QWidget* parent)
    : SmartRuleChoiceView(SmartRuleFamily::FileType, values, parent)
{
    row().insertWidget(0, new QLabel(base::text("Smart.Is"), this));
    const QSignalBlocker silent(choices());
    for (const QVariant& entry : availableMediaInSmartCollection()) {
        const QVariantMap record = entry.toMap();
        choices().addItem(record.value(IMAGE_TITLE).toString(), record.value(IMAGE_EXTENSION));
    }
}

SmartRuleColorLabelView::SmartRuleColorLabelView(QVariantMap& values, const base::ZNUserDefaults& defaults,
                                                 QWidget* parent)
    : SmartRuleChoiceView(SmartRuleFamily::Label, values, parent)
{
    const QSignalBlocker silent(choices());
    int label = 0;
    for (const QString& name : labelNames(defaults)) {
        const QIcon dot = label > 0 ? kit::icon(QStringLiteral("dot"), kit::labelColor(label))
                                    : kit::icon(QStringLiteral("dot_none"));
        choices().addItem(dot, name, label++);
    }
}

SmartRuleBoolView::SmartRuleBoolView(QVariantMap& values, QWidget* parent)
    : SmartRuleChoiceView(SmartRuleFamily::Boolean, values, parent)
{
    const QSignalBlocker silent(choices());
    choices().addItem(base::text("Basic.No"), 0);
    choices().addItem(base::text("Basic.Yes"), 1);
}

SmartRuleTokenFieldView::SmartRuleTokenFieldView(QVariantMap& values, store::ZNDBManager& library,
                                                 QWidget* parent)
    : SmartRuleView(SmartRuleFamily::Tag, values, parent), m_condition(addConditions()),
      m_tags(addPopUp("Tooltip.Smart.Value"))
{
    row().addStretch(1);
    const QSignalBlocker silent(m_tags);
    TagList tags;
    if (library.isOpenedDatabase() && tags.reload(*library.context())) {
        for (const TagRecord& tag : tags.tags()) {
            m_tags->addItem(tag.title, tag.tagID);
        }
    }
    if (m_tags->count() == 0) {
        m_tags->addItem(base::text("Smart.No.Tags"));
        m_tags->setEnabled(false);
    }
}

void SmartRuleTokenFieldView::readValues()
{
    chooseStored(*m_condition, SMART_KEY_CONDITION);
    m_tags->setCurrentIndex(std::max(0, m_tags->findData(values().value(SMART_KEY_DEFAULT_VALUE))));
}

void SmartRuleTokenFieldView::writeValues()
{
    values().insert(SMART_KEY_CONDITION, m_condition->currentData());
    if (m_tags->isEnabled()) {
        values().insert(SMART_KEY_DEFAULT_VALUE, m_tags->currentData());
    }
}

SmartRuleRatingView::SmartRuleRatingView(QVariantMap& values, QWidget* parent)
    : SmartRuleView(SmartRuleFamily::Rating, values, parent), m_condition(addConditions()),
      m_rating(new kit::RatingIndicator(this))
{
    row().addWidget(m_rating);
    row().addStretch(1);
    connect(m_rating, &kit::RatingIndicator::ratingChanged, this, &SmartRuleRatingView::updateValues);
}

void SmartRuleRatingView::readValues()
{
    chooseStored(*m_condition, SMART_KEY_CONDITION);
    m_rating->setRating(values().value(SMART_KEY_DEFAULT_VALUE).toInt());
}

void SmartRuleRatingView::writeValues()
{
    values().insert(SMART_KEY_CONDITION, m_condition->currentData());
    values().insert(SMART_KEY_DEFAULT_VALUE, double(m_rating->rating()));
}

} // namespace mosaro::organisation
