#include "kit/MosaroStyle.h"

#include "kit/StyleColors.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QToolButton>

namespace mosaro::kit {

namespace {

constexpr qreal kDisabledOpacity = 0.4;

/// While it lives, what a disabled control paints comes out faded. Controls that draw others may nest.
class Fading {
public:
    Fading(QPainter& painter, bool enabled) : m_painter(painter), m_before(painter.opacity())
    {
        if (!enabled) {
            m_painter.setOpacity(qMin(m_before, kDisabledOpacity));
        }
    }
    ~Fading() { m_painter.setOpacity(m_before); }
    Q_DISABLE_COPY_MOVE(Fading)

private:
    QPainter& m_painter;
    qreal m_before;
};

bool isEnabled(const QStyleOption* option)
{
    return option->state.testFlag(QStyle::State_Enabled);
}

/// The plates of menus and menu bars come without any state; they are not disabled.
bool isPlate(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_PanelMenu || element == QStyle::PE_PanelMenuBar;
}

} // namespace

MosaroStyle::MosaroStyle() : QProxyStyle(QStringLiteral("Fusion"))
{
    setObjectName(QStringLiteral("mosaro"));
}

void MosaroStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    const Fading fading(*painter, isEnabled(option) || isPlate(element));
    if (!drawButtonPrimitive(element, *option, *painter) &&
        !drawFramePrimitive(element, *option, *painter, widget) &&
        !drawItemPrimitive(element, *option, *painter)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void MosaroStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (element == CE_ItemViewItem) {
        // Its text has a faded colour of its own, and stays light on a selection.
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
            QStyleOptionViewItem lit(*item);
            lit.palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::white);
            lit.palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::white);
            QProxyStyle::drawControl(element, &lit, painter, widget);
            return;
        }
    }
    const Fading fading(*painter, isEnabled(option) || element == CE_MenuBarEmptyArea);
    if (!drawMenuElement(element, *option, *painter, widget) &&
        !drawOtherElement(element, *option, *painter, widget)) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void MosaroStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const
{
    const Fading fading(*painter, isEnabled(option));
    if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
        if (control == CC_Slider) {
            drawSlider(*slider, *painter, widget);
            return;
        }
        if (control == CC_ScrollBar) {
            drawScrollBar(*slider, *painter, widget);
            return;
        }
    }
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        combo && control == CC_ComboBox) {
        drawComboBox(*combo, *painter, widget);
        return;
    }
    if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        spin && control == CC_SpinBox) {
        drawSpinBox(*spin, *painter, widget);
        return;
    }
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (button != nullptr && control == CC_ToolButton &&
        button->features.testFlag(QStyleOptionToolButton::HasMenu) &&
        !button->features.testFlag(QStyleOptionToolButton::MenuButtonPopup)) {
        drawMenuButton(*button, *painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void MosaroStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                               bool enabled, const QString& text, QPalette::ColorRole role) const
{
    // QLabel comes here straight from its paint event, so the fading cannot be left to the control's drawing.
    const Fading fading(*painter, enabled || role == QPalette::Text);
    QProxyStyle::drawItemText(painter, rect, flags, palette, true, text, role);
}

QPixmap MosaroStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                         const QStyleOption* option) const
{
    if (mode != QIcon::Disabled) {
        return pixmap;
    }
    Q_UNUSED(option)
    QPixmap faded(pixmap.size());
    faded.setDevicePixelRatio(pixmap.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(kDisabledOpacity);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
}

void MosaroStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractButton*>(widget) != nullptr || qobject_cast<QComboBox*>(widget) != nullptr ||
        qobject_cast<QScrollBar*>(widget) != nullptr || qobject_cast<QSlider*>(widget) != nullptr ||
        qobject_cast<QAbstractSpinBox*>(widget) != nullptr || qobject_cast<QTabBar*>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_Hover);
    }
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
        view->viewport()->setAttribute(Qt::WA_Hover);
    }
    if (qobject_cast<QMenu*>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
    }
    if (widget->inherits("QComboBoxListView")) {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Base, color::raised);
        widget->setPalette(palette);
    }
}

void MosaroStyle::polish(QApplication* application)
{
    QProxyStyle::polish(application);
    application->installEventFilter(this);
}

bool MosaroStyle::eventFilter(QObject* watched, QEvent* event)
{
    const auto isAlt = [event] { return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt; };
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isAlt()) {
            showMnemonics(true);
        }
        break;
    case QEvent::KeyRelease:
        if (isAlt() && QApplication::activePopupWidget() == nullptr) {
            showMnemonics(false);
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::WindowDeactivate:
        showMnemonics(false);
        break;
    default:
        break;
    }
    return QProxyStyle::eventFilter(watched, event);
}

void MosaroStyle::showMnemonics(bool shown)
{
    if (m_showsMnemonics == shown) {
        return;
    }
    m_showsMnemonics = shown;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        if (widget->isVisible()) {
            widget->update();
        }
    }
}

} // namespace mosaro::kit
