// The mouse, the keyboard and drops of kit::GridView.
#include "kit/GridView.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <QVariantAnimation>
#include <QWheelEvent>
#include <algorithm>

namespace mosaro::kit {

namespace {

constexpr int kBandScrollInterval = 16;
constexpr int kTypeAheadPause = 1000;

std::optional<GridMove> moveOfKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return GridMove::Left;
    case Qt::Key_Right:
        return GridMove::Right;
    case Qt::Key_Up:
        return GridMove::Up;
    case Qt::Key_Down:
        return GridMove::Down;
    case Qt::Key_PageUp:
        return GridMove::PageUp;
    case Qt::Key_PageDown:
        return GridMove::PageDown;
    case Qt::Key_Home:
        return GridMove::Home;
    case Qt::Key_End:
        return GridMove::End;
    default:
        return std::nullopt;
    }
}

} // namespace

bool GridView::event(QEvent* event)
{
    if (event->type() == QEvent::NativeGesture) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            Q_EMIT magnified(gesture->value());
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    m_keyboardFocus = false;
    m_selectAloneOnRelease = -1;
    const int header = headerAt(event->position().toPoint());
    if (header >= 0) {
        if (event->button() == Qt::LeftButton) {
            setSectionClosed(header, !isSectionClosed(header));
        }
        return;
    }
    const int index = indexAt(event->position().toPoint());
    m_pressed = -1;
    if (event->button() == Qt::LeftButton && index >= 0) {
        pressItem(index, event->modifiers());
        m_pressed = m_selection.contains(index) ? index : -1;
        m_pressedAt = event->position().toPoint();
    } else if (event->button() == Qt::LeftButton) {
        const bool extends = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
        if (!extends) {
            selectNone();
        }
        const QPoint origin = event->position().toPoint() + QPoint(0, offset());
        m_band = RubberBand{origin, origin, m_selection, (event->modifiers() & Qt::ControlModifier) != 0};
    } else if (event->button() == Qt::RightButton && index >= 0 && !m_selection.contains(index)) {
        setSelectionIndexes(GridSelection({index, index}));
    }
    viewport()->update();
}

void GridView::pressItem(int index, Qt::KeyboardModifiers modifiers)
{
    const GridSelection one({index, index});
    if ((modifiers & Qt::ShiftModifier) != 0 && m_anchor >= 0) {
        GridSelection next = (modifiers & Qt::ControlModifier) != 0 ? m_selection : GridSelection();
        next.add({std::min(m_anchor, index), std::max(m_anchor, index)});
        setCurrent(index);
        changeSelection(next);
        return;
    }
    m_anchor = index;
    setCurrent(index);
    if ((modifiers & Qt::ControlModifier) != 0) {
        GridSelection next = m_selection;
        next.toggle(one);
        changeSelection(next);
    } else if (!m_selection.contains(index)) {
        changeSelection(one);
    } else {
        m_selectAloneOnRelease = index;
    }
}

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) == 0) {
        return;
    }
    const QPoint way = event->position().toPoint() - m_pressedAt;
    if (m_pressed >= 0 && way.manhattanLength() >= QApplication::startDragDistance()) {
        m_selectAloneOnRelease = -1;
        startDrag(std::exchange(m_pressed, -1));
    }
    if (!m_band) {
        return;
    }
    moveBand(event->position().toPoint());
    const bool outside = !viewport()->rect().contains(event->position().toPoint());
    if (outside && m_bandTimer == 0) {
        m_bandTimer = startTimer(kBandScrollInterval);
    } else if (!outside && m_bandTimer != 0) {
        killTimer(m_bandTimer);
        m_bandTimer = 0;
    }
}

void GridView::moveBand(const QPoint& viewportPosition)
{
    const int height = std::max(m_layout.contentHeight(), viewport()->height());
    const QPoint end = viewportPosition + QPoint(0, offset());
    m_band->end = {std::clamp(end.x(), 0, viewport()->width()), std::clamp(end.y(), 0, height)};
    const GridSelection inside = m_layout.indexesIn(m_band->rect());
    GridSelection next = m_band->before;
    if (m_band->toggles) {
        next.toggle(inside);
    } else {
        next.add(inside);
    }
    changeSelection(next);
    viewport()->update();
}

/// While a band is dragged beyond an edge the grid scrolls on, the faster the farther.
void GridView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_bandTimer) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    const int y = viewport()->mapFromGlobal(QCursor::pos()).y();
    const int beyond = y < 0 ? y : std::max(0, y - viewport()->height());
    verticalScrollBar()->setValue(offset() + std::clamp(beyond / 2, -60, 60));
}

void GridView::startDrag(int)
{
    const bool extends =
        (QGuiApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    const QPoint origin = m_pressedAt + QPoint(0, offset());
    m_band = RubberBand{origin, origin, extends ? m_selection : GridSelection(), false};
}

void GridView::endBand()
{
    if (m_bandTimer != 0) {
        killTimer(m_bandTimer);
        m_bandTimer = 0;
    }
    if (m_band) {
        m_band.reset();
        viewport()->update();
    }
}

void GridView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_pressed = -1;
    const int alone = std::exchange(m_selectAloneOnRelease, -1);
    if (m_band && !m_selection.isEmpty()) {
        m_anchor = m_selection.first();
        setCurrent(m_anchor);
    }
    endBand();
    if (alone >= 0 && alone == indexAt(event->position().toPoint())) {
        changeSelection(GridSelection({alone, alone}));
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = indexAt(event->position().toPoint());
    if (headerAt(event->position().toPoint()) >= 0) {
        mousePressEvent(event); // Quick clicks on a header are clicks.
    } else if (event->button() == Qt::LeftButton && index >= 0) {
        Q_EMIT activated(index);
    }
}

void GridView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        Q_EMIT magnified(event->angleDelta().y() / 120.0 * 0.05);
    } else if (!event->pixelDelta().isNull()) {
        if (m_scrolling) {
            m_scrolling->stop();
        }
        verticalScrollBar()->setValue(offset() - event->pixelDelta().y());
    } else {
        const int lines = QApplication::wheelScrollLines();
        scrollBy(-event->angleDelta().y() * lines * verticalScrollBar()->singleStep() / 360);
    }
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    m_keyboardFocus = true;
    viewport()->update();
    const std::optional<GridMove> move = moveOfKey(event->key());
    if (move) {
        const int index = m_layout.moved(m_current, *move, viewport()->height());
        moveCurrent(index, event->modifiers());
    } else if (!isDisclosureKey(*event) && !isCommandKey(event)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

/// Plain: selects alone. Shift: everything from the anchor. Ctrl: goes there without selecting, as to a
/// closed header.
void GridView::moveCurrent(int wanted, Qt::KeyboardModifiers modifiers)
{
    if (wanted < 0) {
        return;
    }
    const int index = m_layout.standIn(wanted);
    if (m_layout.isHidden(index)) {
        setCurrent(index);
    } else if ((modifiers & Qt::ShiftModifier) != 0) {
        m_anchor = m_anchor < 0 ? std::max(0, m_current) : m_anchor;
        setCurrent(index);
        changeSelection(GridSelection({std::min(m_anchor, index), std::max(m_anchor, index)}));
    } else {
        m_anchor = index;
        setCurrent(index);
        if ((modifiers & Qt::ControlModifier) == 0) {
            changeSelection(GridSelection({index, index}));
        }
    }
    scrollIndexToVisible(index);
}

bool GridView::isCommandKey(QKeyEvent* event)
{
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else if (event->matches(QKeySequence::Deselect)) {
        selectNone();
    } else if (control && event->key() == Qt::Key_Space && m_current >= 0) {
        GridSelection next = m_selection;
        next.toggle(GridSelection({m_current, m_current}));
        m_anchor = m_current;
        changeSelection(next);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_current >= 0) {
        Q_EMIT activated(m_current);
    } else {
        const bool plain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
        return plain && typeAhead(event->text());
    }
    return true;
}

/// Letters typed without a pause lead to the title that begins with them. A blank does not begin a title.
bool GridView::typeAhead(const QString& text)
{
    if (text.isEmpty() || !text.at(0).isPrint() || m_model == nullptr) {
        return false;
    }
    if (!m_typedAt.isValid() || m_typedAt.hasExpired(kTypeAheadPause)) {
        m_typed.clear();
    }
    if (m_typed.isEmpty() && text.at(0).isSpace()) {
        return false;
    }
    const bool first = m_typed.isEmpty();
    m_typed += text;
    m_typedAt.start();
    const int found = m_model->findTitle(m_typed, m_current + (first ? 1 : 0));
    moveCurrent(found, Qt::NoModifier);
    return true;
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = byKey ? m_current : indexAt(event->pos());
    const QPoint position =
        byKey && index >= 0 ? viewport()->mapToGlobal(itemFrameAtIndex(index).center()) : event->globalPos();
    setFocus();
    Q_EMIT contextMenuRequested(index, position);
}

void GridView::focusInEvent(QFocusEvent* event)
{
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey) {
        m_keyboardFocus = true;
        if (m_current < 0 && m_layout.count() > 0) {
            setCurrent(visibleItemIndexes().first);
        }
    }
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent*)
{
    viewport()->update();
}

void GridView::setDropHighlight(bool on)
{
    m_dropHighlight = on;
    viewport()->update();
}

void GridView::dragEnterEvent(QDragEnterEvent* event)
{
    const bool wanted = m_dropFilter && m_dropFilter(*event->mimeData(), event->source());
    setDropHighlight(wanted);
    if (wanted) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void GridView::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(m_dropHighlight);
}

void GridView::dragLeaveEvent(QDragLeaveEvent*)
{
    setDropHighlight(false);
}

void GridView::dropEvent(QDropEvent* event)
{
    setDropHighlight(false);
    if (m_dropFilter && m_dropFilter(*event->mimeData(), event->source())) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        Q_EMIT dropped(*event->mimeData());
    }
}

} // namespace mosaro::kit
