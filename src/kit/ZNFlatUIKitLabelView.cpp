#include "kit/ZNFlatUIKitLabelView.h"

#include "base/Text.h"
#include "kit/LabelButton.h"
#include "kit/Look.h"
#include "kit/StyleColors.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QWidgetAction>

namespace mosaro::kit {

namespace {

constexpr int kLabels = 8;
constexpr int kAir = 6; ///< Around a dot, within its button.

/// Choosing in a menu ends it, whatever menus it came out of.
void closeMenus()
{
    while (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        menu->close();
    }
}

} // namespace

ZNFlatUIKitLabelView::ZNFlatUIKitLabelView(const QString& title, QWidget* parent)
    : QWidget(parent), m_title(title), m_caption(new QLabel(title))
{
    setAccessibleName(title);
    auto* column = new QVBoxLayout(this);
    // The first dot stands below the title's first letter, and that below those of the menu's items.
    column->setContentsMargins(look::kMenuCheckColumn - kAir, 3, look::kMenuMargin, 3);
    column->setSpacing(1);
    m_caption->setIndent(kAir);
    column->addWidget(m_caption);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    column->addLayout(row);
    for (int label = 0; label < kLabels; ++label) {
        auto* button = new LabelButton(label, this);
        connect(button, &QAbstractButton::clicked, this, [this, label] { choose(label); });
        connect(button, &LabelButton::pointedAt, this,
                [this, label](bool here) { showName(here ? label : -1); });
        connect(button, &LabelButton::leftFor, this, [this, label](int step) {
            m_buttons[size_t((label + step + kLabels) % kLabels)]->setFocus(Qt::OtherFocusReason);
        });
        m_buttons.push_back(button);
        row->addWidget(button);
    }
    row->addStretch();
    setFocusPolicy(Qt::StrongFocus); // What a menu asks before it lets the keyboard in.
    setFocusProxy(m_buttons.front());
}

void ZNFlatUIKitLabelView::setNames(const QStringList& names)
{
    m_names = names;
    for (int label = 0; label < kLabels; ++label) {
        m_buttons[size_t(label)]->setToolTip(names.value(label));
        m_buttons[size_t(label)]->setAccessibleName(names.value(label));
    }
}

void ZNFlatUIKitLabelView::activeSelection(const QStringList& labels)
{
    using Mark = LabelButton::Mark;
    for (int label = 0; label < kLabels; ++label) {
        LabelButton& button = *m_buttons[size_t(label)];
        const bool occurs = labels.contains(QString::number(label));
        button.setMark(!occurs ? Mark::Off : labels.size() == 1 ? Mark::On : Mark::Mixed);
        button.setAccessibleDescription(button.mark() == Mark::Mixed ? base::text("Accessible.Label.Mixed")
                                                                     : QString());
    }
    const int first = labels.isEmpty() ? 0 : labels.first().toInt();
    setFocusProxy(m_buttons[first > 0 && first < kLabels ? size_t(first) : 0]);
}

void ZNFlatUIKitLabelView::choose(int label)
{
    m_labelValue = label;
    closeMenus();
    Q_EMIT didChangeLabelValue(label);
}

void ZNFlatUIKitLabelView::showName(int label)
{
    const QString name = m_names.value(label);
    m_caption->setText(name.isEmpty() ? m_title : base::text("Label.Label.Named", m_title, name));
}

QAction* addLabelRow(QMenu& menu, ZNFlatUIKitLabelView* row)
{
    auto* action = new QWidgetAction(&menu);
    action->setDefaultWidget(row);
    menu.addAction(action);
    return action;
}

} // namespace mosaro::kit
