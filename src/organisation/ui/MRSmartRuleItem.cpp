#include "organisation/ui/MRSmartRuleItem.h"

#include "base/Text.h"
#include "kit/IconButton.h"
#include "kit/Look.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>

namespace mosaro::organisation {

namespace {

constexpr int kTypeWidth = 150;
constexpr int kRowHeight = 40;

} // namespace

MRSmartRuleItem::MRSmartRuleItem(QVariantMap rule, const SmartRuleEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_representedObject(std::move(rule)), m_environment(environment),
      m_popUpBtn(new QComboBox(this)), m_placeHolderView(new QWidget(this)),
      m_addRuleBtn(new kit::IconButton(QStringLiteral("plus"), base::text("Tooltip.Smart.Add"), this)),
      m_deleteRuleBtn(new kit::IconButton(QStringLiteral("minus"), base::text("Tooltip.Smart.Delete"), this))
{
    setFixedHeight(kRowHeight);
    auto* holder = new QHBoxLayout(m_placeHolderView);
    holder->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kit::metric::gap, 0, kit::metric::gap, 0);
    row->setSpacing(kit::metric::gap);
    row->addWidget(m_popUpBtn);
    row->addWidget(m_placeHolderView, 1);
    row->addWidget(m_deleteRuleBtn);
    row->addWidget(m_addRuleBtn);
    connect(m_addRuleBtn, &QToolButton::clicked, this, &MRSmartRuleItem::addRequested);
    connect(m_deleteRuleBtn, &QToolButton::clicked, this, &MRSmartRuleItem::deleteRequested);

    makePopUp();
    createSmartRuleElementView();
}

/// A record without a type gets the first; one with a type outside the menu keeps it, and the pop-up shows
/// the first all the same.
void MRSmartRuleItem::makePopUp()
{
    m_popUpBtn->setFixedWidth(kTypeWidth);
    keepFromWheel(*m_popUpBtn);
    m_popUpBtn->setMaxVisibleItems(int(smartRuleKinds().size()));
    m_popUpBtn->setToolTip(base::text("Tooltip.Smart.Type"));
    m_popUpBtn->setAccessibleName(m_popUpBtn->toolTip());
    for (const QVariant& entry : smartRuleKeys()) {
        const QVariantMap record = entry.toMap();
        m_popUpBtn->addItem(record.value(SMART_RULE_TITLE).toString(), record.value(SMART_RULE_TYPE).toInt());
    }
    if (!m_representedObject.contains(SMART_KEY_RULE_TYPE)) {
        m_representedObject.insert(SMART_KEY_RULE_TYPE, m_popUpBtn->currentData());
    }
    const int stored = m_popUpBtn->findData(m_representedObject.value(SMART_KEY_RULE_TYPE).toInt());
    if (stored >= 0) {
        m_popUpBtn->setCurrentIndex(stored);
    }
    connect(m_popUpBtn, &QComboBox::activated, this, &MRSmartRuleItem::changeSmartRule);
}

/// Nothing carries over from one type to another.
void MRSmartRuleItem::changeSmartRule()
{
    if (m_representedObject.value(SMART_KEY_RULE_TYPE) == m_popUpBtn->currentData()) {
        return;
    }
    m_representedObject.insert(SMART_KEY_RULE_TYPE, m_popUpBtn->currentData());
    m_representedObject.remove(SMART_KEY_CONDITION);
    m_representedObject.remove(SMART_KEY_DEFAULT_VALUE);
    m_representedObject.remove(SMART_KEY_OTHER_VALUE);
    createSmartRuleElementView();
    Q_EMIT controlsChanged();
    Q_EMIT changed();
}

void MRSmartRuleItem::createSmartRuleElementView()
{
    delete m_valueView;
    m_valueView = makeSmartRuleView(m_representedObject.value(SMART_KEY_RULE_TYPE).toLongLong(),
                                    m_representedObject, m_environment, m_placeHolderView);
    if (m_valueView == nullptr) {
        return;
    }
    m_placeHolderView->layout()->addWidget(m_valueView);
    for (QWidget* control : controls()) {
        keepFromWheel(*control);
    }
    m_valueView->parseValues();
    m_valueView->show();
    connect(m_valueView, &SmartRuleView::changed, this, &MRSmartRuleItem::changed);
}

/// Those of the value, in their order.
QList<QWidget*> MRSmartRuleItem::controls() const
{
    return m_valueView == nullptr
               ? QList<QWidget*>()
               : m_valueView->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

/// The wheel scrolls the list of rules; what passes under it does not change, nor get the keyboard.
void MRSmartRuleItem::keepFromWheel(QWidget& control)
{
    control.installEventFilter(this);
    if (control.focusPolicy() == Qt::WheelFocus) {
        control.setFocusPolicy(Qt::StrongFocus);
    }
}

bool MRSmartRuleItem::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel) {
        return QWidget::eventFilter(watched, event);
    }
    event->ignore();
    return true;
}

QWidget* MRSmartRuleItem::continueTabOrder(QWidget* before)
{
    QWidget* last = m_popUpBtn;
    setTabOrder(before, m_popUpBtn);
    for (QWidget* control : controls()) {
        if (control->focusPolicy() != Qt::NoFocus) {
            setTabOrder(last, control);
            last = control;
        }
    }
    setTabOrder(last, m_deleteRuleBtn);
    setTabOrder(m_deleteRuleBtn, m_addRuleBtn);
    return m_addRuleBtn;
}

void MRSmartRuleItem::focusDeleteButton()
{
    if (m_deleteRuleBtn->isEnabled()) {
        m_deleteRuleBtn->setFocus();
    } else {
        m_popUpBtn->setFocus();
    }
}

void MRSmartRuleItem::setCanAdd(bool can)
{
    m_addRuleBtn->setEnabled(can);
}

void MRSmartRuleItem::setCanDelete(bool can)
{
    m_deleteRuleBtn->setEnabled(can);
}

} // namespace mosaro::organisation
