#include "kit/Sheet.h"

#include "kit/FocusChain.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>
#include <algorithm>

namespace mosaro::kit {

namespace {

const QColor kScrim(0, 0, 0, 128);

} // namespace

Sheet::Sheet(QWidget& window) : QWidget(&window), m_window(window)
{
    hide();
    setFocusPolicy(Qt::StrongFocus);
    window.installEventFilter(this);
}

Sheet::~Sheet() = default;

void Sheet::setContent(QWidget* content)
{
    if (m_content != nullptr && m_content != content) {
        delete m_content.data();
    }
    m_content = content;
    if (content != nullptr) {
        content->setParent(this);
        content->installEventFilter(this);
        content->show();
        place();
    }
}

void Sheet::showSheet()
{
    if (isVisible()) {
        return;
    }
    m_focusBefore = m_window.focusWidget();
    place();
    show();
    raise();
    const QList<QWidget*> chain = m_content != nullptr ? focusChain(*m_content) : QList<QWidget*>();
    QWidget* first = chain.isEmpty() ? this : chain.first();
    if (m_content != nullptr && m_content->focusProxy() != nullptr) {
        first = m_content->focusProxy();
    }
    first->setFocus(Qt::OtherFocusReason);
    qApp->installEventFilter(this);
}

void Sheet::endSheet()
{
    if (isHidden()) {
        return;
    }
    qApp->removeEventFilter(this);
    hide();
    if (m_focusBefore != nullptr) {
        m_focusBefore->setFocus(Qt::OtherFocusReason);
    }
    Q_EMIT ended();
}

bool Sheet::isAttachedTo(const QWidget& window)
{
    const auto sheets = window.findChildren<Sheet*>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(sheets.begin(), sheets.end(), [](const Sheet* sheet) { return !sheet->isHidden(); });
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    const bool isResized = watched == &m_window && event->type() == QEvent::Resize;
    const bool isLaidOut = watched == m_content && event->type() == QEvent::LayoutRequest;
    if (isResized || isLaidOut) {
        place();
    } else if (isVisible() && event->type() == QEvent::Shortcut) {
        // Menu commands of the window below must not run by their keys.
        if (QApplication::activeWindow() == &m_window && !ownsShortcutOf(*watched)) {
            return true;
        }
    } else if (isVisible() && event->type() == QEvent::FocusIn) {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget != this && widget != &m_window && widget->window() == &m_window &&
            !isAncestorOf(widget)) {
            setFocus(Qt::OtherFocusReason);
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool Sheet::ownsShortcutOf(const QObject& receiver) const
{
    const auto isInside = [this](const QObject* object) {
        const auto* widget = qobject_cast<const QWidget*>(object);
        return widget != nullptr && (widget == this || isAncestorOf(widget));
    };
    if (const auto* action = qobject_cast<const QAction*>(&receiver)) {
        const QList<QObject*> places = action->associatedObjects();
        return std::any_of(places.begin(), places.end(), isInside);
    }
    return isInside(&receiver) || isInside(receiver.parent());
}

void Sheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kScrim);
    if (m_content != nullptr) {
        const QRectF plate = m_content->geometry();
        paint::panel(painter, plate.adjusted(-2, 0, 2, 5), QColor(0, 0, 0, 50), {}, metric::sheetRadius + 2);
        paint::panel(painter, plate, color::raised, QColor(0x45, 0x46, 0x4B), metric::sheetRadius);
    }
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    event->accept();
}

bool Sheet::focusNextPrevChild(bool next)
{
    return m_content == nullptr || moveFocusWithin(*m_content, next);
}

void Sheet::place()
{
    setGeometry(m_window.rect());
    if (m_content == nullptr) {
        return;
    }
    m_content->ensurePolished();
    const QSize wanted =
        m_content->sizeHint().expandedTo(m_content->minimumSize()).boundedTo(m_content->maximumSize());
    const QSize room(qMax(0, width() - 2 * metric::wideGap),
                     qMax(0, height() - metric::sheetTop - metric::gap));
    const QSize size = wanted.boundedTo(room);
    m_content->setGeometry((width() - size.width()) / 2, metric::sheetTop, size.width(), size.height());
    update();
}

} // namespace mosaro::kit
