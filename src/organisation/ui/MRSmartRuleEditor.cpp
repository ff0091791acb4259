#include "organisation/ui/MRSmartRuleEditor.h"

#include "base/NotificationBus.h"
#include "base/Notifications.h"
#include "base/Text.h"
#include "kit/Look.h"
#include "organisation/SmartRuleQuery.h"
#include "organisation/ui/MRSmartRuleItem.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>

namespace mosaro::organisation {

namespace {

constexpr QSize kSheetSize(720, 400);
constexpr QSize kSmallestSize(660, 320); ///< In a small window.
constexpr int kFirstRuleDelay = 150;
constexpr int kCountDelay = 120;
const QColor kBackground = QColor::fromRgbF(0.2F, 0.2F, 0.2F);

void fill(QWidget& widget, const QColor& color)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, color);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

QLabel* quietLabel()
{
    auto* label = new QLabel;
    label->setFont(kit::font(11));
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

MRSmartRuleEditor::MRSmartRuleEditor(const SmartRuleEnvironment& environment, base::NotificationBus& bus,
                                     const QString& title, bool ruleCondition, const QVariantList& rules,
                                     bool isEdit, QWidget* parent)
    : QWidget(parent), m_environment(environment), m_bus(bus), m_search(environment.library),
      m_isEditingMode(isEdit)
{
    setMinimumSize(kSmallestSize);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, kit::metric::wideGap, 1, kit::metric::wideGap - 4);
    column->setSpacing(14);
    column->addWidget(makeHead());
    column->addWidget(makeRuleList(), 1);
    column->addWidget(makeFoot());

    m_titleField->setText(title.isEmpty() ? base::text("Basic.Untitled.Smart.Collection") : title);
    m_titleField->selectAll();
    m_conditionPopupBtn->setCurrentIndex(ruleCondition ? 1 : 0);
    m_countDelay.setSingleShot(true);
    m_countDelay.setInterval(kCountDelay);
    connect(&m_countDelay, &QTimer::timeout, this, &MRSmartRuleEditor::countMatches);
    connect(m_conditionPopupBtn, &QComboBox::currentIndexChanged, &m_countDelay, qOverload<>(&QTimer::start));
    connect(m_titleField, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_saveBtn->setEnabled(!text.isEmpty()); });
    for (const QVariant& rule : rules) {
        addRow(rule.toMap());
    }
    rulesChanged();
    setFocusProxy(m_titleField);
}

MRSmartRuleEditor::~MRSmartRuleEditor() = default;

QWidget* MRSmartRuleEditor::makeHead()
{
    auto* head = new QWidget;
    auto* titleLabel = new QLabel(base::text("Label.Smart.Collection.Title"));
    m_titleField = new QLineEdit;
    m_titleField->setAccessibleName(titleLabel->text());
    m_titleField->setToolTip(base::text("Tooltip.Smart.Title"));
    m_conditionPopupBtn = new QComboBox;
    m_conditionPopupBtn->addItem(base::text("Basic.Any"), 0);
    m_conditionPopupBtn->addItem(base::text("Basic.All"), 1);
    m_conditionPopupBtn->setToolTip(base::text("Tooltip.Smart.Match"));
    m_conditionPopupBtn->setAccessibleName(m_conditionPopupBtn->toolTip());
    m_totalLabel = quietLabel();

    auto* grid = new QGridLayout(head);
    grid->setContentsMargins(kit::metric::wideGap, 0, kit::metric::wideGap, 0);
    grid->setVerticalSpacing(10);
    grid->addWidget(titleLabel, 0, 0);
    grid->addWidget(m_titleField, 0, 1, 1, 3);
    grid->addWidget(m_conditionPopupBtn, 1, 0);
    grid->addWidget(new QLabel(base::text("Basic.Of.The.Following.Are.True")), 1, 1);
    grid->addWidget(m_totalLabel, 1, 3, Qt::AlignRight);
    grid->setColumnStretch(2, 1);
    return head;
}

QWidget* MRSmartRuleEditor::makeRuleList()
{
    auto* list = new QWidget;
    fill(*list, kBackground);
    m_ruleColumn = new QVBoxLayout(list);
    m_ruleColumn->setContentsMargins(kit::metric::gap, kit::metric::gap, kit::metric::gap, kit::metric::gap);
    m_ruleColumn->setSpacing(2);
    m_ruleColumn->addStretch();
    m_ruleCollectionView = new QScrollArea;
    m_ruleCollectionView->setWidget(list);
    m_ruleCollectionView->setWidgetResizable(true);
    m_ruleCollectionView->setFrameShape(QFrame::NoFrame);
    m_ruleCollectionView->setFocusPolicy(Qt::NoFocus);
    m_ruleCollectionView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return m_ruleCollectionView;
}

QWidget* MRSmartRuleEditor::makeFoot()
{
    auto* foot = new QWidget;
    m_matchLabel = quietLabel();
    m_matchLabel->setText(QString());
    m_cancelBtn = makeButton("Basic.Cancel", kSmartSheetCancelled);
    m_saveBtn = makeButton("Basic.Save", kSmartSheetSaved);
    m_saveBtn->setDefault(true);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(kit::metric::wideGap, 0, kit::metric::wideGap, 0);
    row->addWidget(m_matchLabel, 1);
    row->addWidget(m_cancelBtn);
    row->addWidget(m_saveBtn);
    return foot;
}

QPushButton* MRSmartRuleEditor::makeButton(const char* titleKey, int returnCode)
{
    auto* button = new QPushButton(base::text(titleKey));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, returnCode] { Q_EMIT closeSheet(returnCode); });
    return button;
}

QSize MRSmartRuleEditor::sizeHint() const
{
    return kSheetSize;
}

/// A sheet without rules opens with one, a moment after it is shown.
void MRSmartRuleEditor::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_rows.empty()) {
        QTimer::singleShot(kFirstRuleDelay, this, [this] {
            if (m_rows.empty()) {
                addRule();
            }
        });
    }
}

QVariantMap MRSmartRuleEditor::result() const
{
    QVariantList rules;
    for (const MRSmartRuleItem* row : m_rows) {
        rules.append(row->representedObject());
    }
    return {{SMART_COLLECTION_TITLE, m_titleField->text()},
            {SMART_COLLECTION_MATCH_CONDITION, m_conditionPopupBtn->currentData()},
            {SMART_COLLECTION_RULES, rules}};
}

void MRSmartRuleEditor::addRule()
{
    if (m_rows.size() >= std::size_t(kMostRules)) {
        return;
    }
    MRSmartRuleItem* row = addRow({});
    rulesChanged();
    // The list has its new height only when it has been laid out.
    QTimer::singleShot(0, row, [this, row] { m_ruleCollectionView->ensureWidgetVisible(row); });
}

MRSmartRuleItem* MRSmartRuleEditor::addRow(const QVariantMap& rule)
{
    auto* row = new MRSmartRuleItem(rule, m_environment, m_ruleCollectionView->widget());
    m_bus.observe(base::MOSARO_NOTI_TOGGLE_ADD_SMART_RULE, row,
                  [row](const QVariant& can) { row->setCanAdd(can.toBool()); });
    connect(row, &MRSmartRuleItem::changed, &m_countDelay, qOverload<>(&QTimer::start));
    connect(row, &MRSmartRuleItem::controlsChanged, this, &MRSmartRuleEditor::orderTabs);
    connect(row, &MRSmartRuleItem::addRequested, this, &MRSmartRuleEditor::addRule);
    connect(row, &MRSmartRuleItem::deleteRequested, this, [this, row] { deleteRule(row); });
    m_ruleColumn->insertWidget(int(m_rows.size()), row);
    m_rows.push_back(row);
    fill(*row, kit::color::sidebar);
    row->show();
    return row;
}

void MRSmartRuleEditor::deleteRule(MRSmartRuleItem* row)
{
    const auto found = std::find(m_rows.begin(), m_rows.end(), row);
    if (found == m_rows.end() || m_rows.size() == 1) {
        return;
    }
    const auto next = m_rows.erase(found);
    MRSmartRuleItem* heir = next != m_rows.end() ? *next : m_rows.back();
    const bool hadKeyboard = row->isAncestorOf(focusWidget());
    rulesChanged();
    if (hadKeyboard) {
        heir->focusDeleteButton();
    }
    row->hide();
    row->deleteLater();
}

void MRSmartRuleEditor::rulesChanged()
{
    checkAddRulButtonInItem();
    for (MRSmartRuleItem* row : m_rows) {
        row->setCanDelete(row != m_rows.front() || m_rows.size() > 1);
    }
    orderTabs();
    m_totalLabel->setText(base::text("Basic.Total", QLocale().toString(int(m_rows.size()))));
    m_countDelay.start();
}

/// Rows come and go, so the order of their making is not that of the Tab key.
void MRSmartRuleEditor::orderTabs()
{
    QWidget* last = m_conditionPopupBtn;
    for (MRSmartRuleItem* row : m_rows) {
        last = row->continueTabOrder(last);
    }
    setTabOrder(last, m_cancelBtn);
    setTabOrder(m_cancelBtn, m_saveBtn);
}

void MRSmartRuleEditor::checkAddRulButtonInItem()
{
    m_bus.post(base::MOSARO_NOTI_TOGGLE_ADD_SMART_RULE, m_rows.size() != std::size_t(kMostRules));
}

void MRSmartRuleEditor::countMatches()
{
    const QVariantMap now = result();
    const auto query = smartQuery(now.value(SMART_COLLECTION_RULES).toList(),
                                  now.value(SMART_COLLECTION_MATCH_CONDITION).toBool());
    const auto show = [this](std::size_t count) {
        m_matchLabel->setText(count == 1
                                  ? base::text("Label.Smart.Match")
                                  : base::text("Label.Smart.Matches", QLocale().toString(qint64(count))));
    };
    if (!query) {
        m_search.cancel();
        show(0);
        return;
    }
    m_search.start({*query, {}, -1}, [show](const std::vector<store::RowId>& rows) { show(rows.size()); });
}

/// The list of rules scrolls by itself only while the keyboard goes from one of them to another.
bool MRSmartRuleEditor::focusNextPrevChild(bool next)
{
    const bool moved = QWidget::focusNextPrevChild(next);
    QWidget* now = focusWidget();
    if (now != nullptr && m_ruleCollectionView->isAncestorOf(now)) {
        m_ruleCollectionView->ensureWidgetVisible(now);
    }
    return moved;
}

void MRSmartRuleEditor::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT closeSheet(kSmartSheetCancelled);
    } else if (isReturn && !event->isAutoRepeat()) { // The Return that opened the sheet may be held.
        auto* button = qobject_cast<QAbstractButton*>(focusWidget());
        (button != nullptr ? button : m_saveBtn)->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace mosaro::organisation
