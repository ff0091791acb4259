#include "kit/GridView.h"

#include "base/Text.h"
#include "kit/GridViewAccessible.h"
#include "kit/Look.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QVariantAnimation>
#include <algorithm>

namespace mosaro::kit {

GridView::GridView(QWidget* parent) : QAbstractScrollArea(parent)
{
    installGridViewAccessibility();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAcceptDrops(true);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

GridView::~GridView() = default;

void GridView::setSource(const GridModel* model, GridCellPainter* painter)
{
    m_model = model;
    m_painter = painter;
    resetData();
}

/// The first selected cell in sight, else the one in the middle.
int GridView::indexToKeep() const
{
    int selected = -1;
    m_layout.indexesBetween(offset(), offset() + viewport()->height() - 1).forEach([&](int index) {
        if (selected < 0 && m_selection.contains(index)) {
            selected = index;
        }
    });
    return selected >= 0 ? selected
                         : m_layout.indexesBetween(offset(), offset() + viewport()->height() / 2).last();
}

void GridView::setMetrics(const GridMetrics& metrics)
{
    const int kept = indexToKeep();
    m_metrics = metrics;
    relayout();
    if (m_selection.contains(kept)) {
        scrollIndexToVisible(kept);
    } else if (kept >= 0 && offset() > 0) {
        const QRect rect = m_layout.cellRect(std::min(kept, std::max(0, m_layout.count() - 1)));
        verticalScrollBar()->setValue(rect.center().y() - viewport()->height() / 2);
    }
}

void GridView::relayout()
{
    m_layout = makeLayout();
    QScrollBar* bar = verticalScrollBar();
    bar->setPageStep(viewport()->height());
    bar->setSingleStep(std::max(1, m_layout.rowPitch() / 3));
    bar->setRange(0, std::max(0, m_layout.contentHeight() - viewport()->height()));
    viewport()->update();
}

int GridView::offset() const
{
    return verticalScrollBar()->value();
}

void GridView::reloadData()
{
    endBand();
    m_sections = m_model == nullptr ? std::vector<GridSection>() : m_model->sections();
    relayout();
    m_selection.clip(m_layout.count());
    m_selection = m_layout.withoutHidden(m_selection);
    m_current = std::min(m_current, m_layout.count() - 1);
    m_anchor = std::min(m_anchor, m_layout.count() - 1);
}

void GridView::resetData()
{
    m_selection.clear();
    m_current = m_anchor = m_selectAloneOnRelease = -1;
    reloadData();
}

void GridView::setSelectionIndexes(const GridSelection& indexes, bool byExtendingSelection)
{
    GridSelection next = byExtendingSelection ? m_selection : GridSelection();
    next.add(indexes);
    next.clip(m_layout.count());
    openSectionsOf(next);
    if (!indexes.isEmpty()) {
        setCurrent(std::min(indexes.first(), m_layout.count() - 1));
        m_anchor = m_current;
    }
    changeSelection(next);
}

void GridView::selectAll()
{
    changeSelection(GridSelection({0, m_layout.count() - 1}));
}

void GridView::selectNone()
{
    changeSelection({});
}

void GridView::changeSelection(const GridSelection& wanted)
{
    const GridSelection selection = m_layout.withoutHidden(wanted);
    if (selection == m_selection) {
        return;
    }
    m_selection = selection;
    viewport()->update();
    Q_EMIT selectionChanged();
}

void GridView::setCurrent(int index)
{
    if (index == m_current) {
        return;
    }
    m_current = index;
    viewport()->update();
    announceCurrent();
}

void GridView::scrollIndexToVisible(int index)
{
    if (index < 0 || index >= m_layout.count()) {
        return;
    }
    if (m_scrolling) {
        m_scrolling->stop();
    }
    const QRect cell = m_layout.cellRect(index);
    const int air = m_metrics.margin;
    const int highest = cell.top() - air - (m_sections.empty() ? 0 : m_metrics.headerHeight);
    const int lowest = cell.bottom() + air - viewport()->height();
    if (offset() > highest) {
        verticalScrollBar()->setValue(highest);
    } else if (offset() < lowest) {
        verticalScrollBar()->setValue(std::min(lowest, highest));
    }
}

void GridView::scrollToTop()
{
    if (m_scrolling) {
        m_scrolling->stop();
    }
    verticalScrollBar()->setValue(0);
}

GridInterval GridView::visibleItemIndexes() const
{
    const GridSelection visible = m_layout.indexesBetween(offset(), offset() + viewport()->height() - 1);
    return visible.isEmpty() ? GridInterval() : GridInterval{visible.first(), visible.last()};
}

QRect GridView::itemFrameAtIndex(int index) const
{
    return m_layout.cellRect(index).translated(0, -offset());
}

int GridView::indexAt(const QPoint& position) const
{
    return headerAt(position) >= 0 ? -1 : m_layout.indexAt(position + QPoint(0, offset()));
}

void GridView::updateItem(int index)
{
    const int around = std::max(m_metrics.spacing.width(), m_metrics.spacing.height()) / 2;
    viewport()->update(itemFrameAtIndex(index).adjusted(-around, -around, around, around));
}

void GridView::setDropFilter(std::function<bool(const QMimeData&, const QObject*)> filter)
{
    m_dropFilter = std::move(filter);
}

GridCellState GridView::cellState(int index) const
{
    // The window's own focus: an open menu takes hasFocus() away.
    const bool active = isActiveWindow() && window()->focusWidget() == this;
    return {m_selection.contains(index), index == m_current, active,
            active && m_keyboardFocus && index == m_current};
}

void GridView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), color::window);
    const GridInterval visible = visibleItemIndexes();
    if (m_painter != nullptr && !visible.isEmpty()) {
        m_painter->prepare(visible.first, visible.last);
        m_layout.indexesBetween(offset(), offset() + viewport()->height() - 1).forEach([&](int index) {
            const QRect cell = itemFrameAtIndex(index);
            if (event->rect().intersects(cell.adjusted(-8, -8, 8, 8))) {
                m_painter->paint(painter, cell, index, cellState(index));
            }
        });
    }
    paintHeaders(painter);
    paintOverlays(painter);
}

void GridView::paintOverlays(QPainter& painter) const
{
    if (m_band) {
        QColor fill = color::text;
        fill.setAlphaF(0.10F);
        painter.setPen(QPen(color::text3, 1));
        painter.setBrush(fill);
        painter.drawRect(m_band->rect().translated(0, -offset()));
    }
    // With no cell to carry it, the ring of the keyboard goes around the whole.
    const bool showsFocus = m_layout.count() == 0 && m_keyboardFocus && hasFocus();
    if (m_dropHighlight || showsFocus) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(color::blue, metric::focusRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(3, 3, -3, -3), metric::radius,
                                metric::radius);
    }
}

void GridView::resizeEvent(QResizeEvent*)
{
    setMetrics(m_metrics);
}

void GridView::scrollContentsBy(int, int)
{
    if (m_band) {
        moveBand(viewport()->mapFromGlobal(QCursor::pos()));
    }
    viewport()->update();
}

bool GridView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && m_model != nullptr) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = indexAt(help->pos());
        const int header = headerAt(help->pos());
        if (header >= 0) {
            QToolTip::showText(help->globalPos(),
                               isSectionClosed(header) ? base::text("Tooltip.Open.Group")
                                                       : base::text("Tooltip.Close.Group"),
                               viewport(), headerFrame(header));
        } else if (index < 0) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), m_model->toolTip(index), viewport(),
                               itemFrameAtIndex(index));
        }
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void GridView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange) {
        viewport()->update();
    }
    QAbstractScrollArea::changeEvent(event);
}

void GridView::scrollBy(int points)
{
    QScrollBar* bar = verticalScrollBar();
    const int from = bar->value();
    const int goal = m_scrolling ? m_scrolling->endValue().toInt() : from;
    const int to = std::clamp(goal + points, bar->minimum(), bar->maximum());
    if (m_scrolling) {
        m_scrolling->stop();
    }
    if (motion(150) == 0) {
        bar->setValue(to);
        return;
    }
    m_scrolling = new QVariantAnimation(this);
    m_scrolling->setDuration(motion(150));
    m_scrolling->setEasingCurve(QEasingCurve::OutCubic);
    m_scrolling->setStartValue(from);
    m_scrolling->setEndValue(to);
    connect(m_scrolling, &QVariantAnimation::valueChanged, bar,
            [bar](const QVariant& value) { bar->setValue(value.toInt()); });
    m_scrolling->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace mosaro::kit
