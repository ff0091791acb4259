#include "shell/InspectorPane.h"

#include "base/Text.h"
#include "browser/ui/MRBrowserView.h"
#include "kit/IconButton.h"
#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/MRTagController.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace mosaro::shell {

namespace {

constexpr int kInspectorWidth = 235;
constexpr int kSettleTime = 30;
constexpr double kTitleSize = 13;

/// The ground of the holder, with a line towards the browser and one below the head.
class Holder : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), kit::color::sidebar);
        kit::paint::verticalHairline(painter, 0, height(), 0, kit::color::line);
        kit::paint::horizontalHairline(painter, 0, width(), kit::metric::toolRowHeight - 1, kit::color::line);
    }
};

} // namespace

InspectorPane::InspectorPane(browser::MRBrowserView* browser,
                             const organisation::TagPanelEnvironment& environment, QWidget* parent)
    : QWidget(parent), m_browser(browser), m_tags(new organisation::MRTagController(environment)),
      m_holder(makeHolder())
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(browser, 1);
    row->addWidget(m_holder);
    m_followsSelection.setSingleShot(true);
    m_followsSelection.setInterval(kSettleTime);
    connect(&m_followsSelection, &QTimer::timeout, this, &InspectorPane::updateItems);
    connect(browser, &browser::MRBrowserView::selectionChanged, this, [this] {
        if (isOpenedInspector()) {
            m_followsSelection.start();
        }
    });
    connect(browser, &browser::MRBrowserView::tagViewRequested, this, &InspectorPane::showTagView);
    connect(m_tags, &organisation::MRTagController::tagDidChanged, this, &InspectorPane::keepSelection);
}

InspectorPane::~InspectorPane() = default;

QWidget* InspectorPane::makeHolder()
{
    auto* holder = new Holder(this);
    holder->setFixedWidth(kInspectorWidth);
    auto* title = new QLabel(base::text("Inspector.Tag.Title"), holder);
    title->setFont(kit::font(kTitleSize, QFont::DemiBold));
    auto* close = new kit::IconButton(QStringLiteral("close"), base::text("Tooltip.Close.Tags"), holder);
    connect(close, &QToolButton::clicked, this, [this] { setInspectorOpen(false); });

    auto* head = new QHBoxLayout;
    head->setContentsMargins(kit::metric::gap + 4, 0, kit::metric::gap, 0);
    head->addWidget(title, 1);
    head->addWidget(close);
    auto* column = new QVBoxLayout(holder);
    column->setContentsMargins(1, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(m_tags, 1);
    title->setFixedHeight(kit::metric::toolRowHeight);
    holder->hide();
    return holder;
}

void InspectorPane::setInspectorOpen(bool open)
{
    if (open == isOpenedInspector()) {
        return;
    }
    const bool hadKeyboard = m_holder->isAncestorOf(window()->focusWidget());
    m_holder->setVisible(open);
    m_followsSelection.stop();
    m_tags->setSelectedItems(open ? m_browser->selectedRows() : std::vector<store::RowId>());
    if (hadKeyboard) {
        m_browser->setFocus();
    }
    Q_EMIT inspectorToggled(open);
}

void InspectorPane::showTagView()
{
    setInspectorOpen(true);
    m_tags->makeFirstResponder();
}

void InspectorPane::updateItems()
{
    if (m_tags->isBusy()) {
        m_followsSelection.start();
    } else if (isOpenedInspector()) {
        m_tags->setSelectedItems(m_browser->selectedRows());
    }
}

/// The tags source reads its selection anew when tags change, and the grid then forgets what was selected.
void InspectorPane::keepSelection()
{
    const auto rows = m_browser->selectedRows();
    QMetaObject::invokeMethod(
        this,
        [this, rows] {
            m_browser->reload();
            if (m_browser->selectedRows() != rows) {
                m_browser->selectRows(rows);
            }
        },
        Qt::QueuedConnection);
}

void InspectorPane::keyPressEvent(QKeyEvent* event)
{
    const QWidget* focus = window()->focusWidget();
    if (event->key() == Qt::Key_Escape && focus && m_holder->isAncestorOf(focus)) {
        m_browser->setFocus();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace mosaro::shell
