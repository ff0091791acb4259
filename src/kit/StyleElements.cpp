// Menus, labels, headers, progress, tabs.
#include "kit/MosaroStyle.h"
#include "kit/StyleColors.h"

#include <QPainter>
#include <QPainterPath>

namespace mosaro::kit {

namespace {

constexpr qreal kBarThickness = 5;

void drawMenuBarGround(const QRect& rect, QPainter& painter)
{
    painter.fillRect(rect, color::menu);
    paint::horizontalHairline(painter, rect.left(), rect.right() + 1, rect.bottom(), color::line);
}

void drawMenuBarItem(const QStyleOptionMenuItem& item, QPainter& painter, const QStyle& style)
{
    drawMenuBarGround(item.rect, painter);
    const bool open = item.state.testFlag(QStyle::State_Selected);
    if (open) {
        paint::panel(painter, QRectF(item.rect).adjusted(1, 3, -1, -3), color::raisedStrong, {},
                     metric::radius);
    }
    QPalette palette = item.palette;
    palette.setColor(QPalette::ButtonText, open ? color::text : color::text2);
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
    if (style.styleHint(QStyle::SH_UnderlineShortcut, &item) == 0) {
        flags |= Qt::TextHideMnemonic;
    }
    painter.setFont(item.font);
    style.drawItemText(&painter, item.rect, flags, palette, item.state.testFlag(QStyle::State_Enabled),
                       item.text, QPalette::ButtonText);
}

QRectF progressTrack(const QStyleOptionProgressBar& bar)
{
    const QRectF rect(bar.rect);
    return {rect.x(), rect.center().y() - kBarThickness / 2, rect.width(), kBarThickness};
}

void drawProgress(const QStyleOptionProgressBar& bar, QPainter& painter)
{
    const QRectF track = progressTrack(bar);
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    paint::panel(painter, track, look::groove, {}, kBarThickness / 2);
    if (range <= 0) {
        paint::panel(painter, track, paint::mixed(look::groove, color::amber, 0.45), {}, kBarThickness / 2);
        return;
    }
    const qreal share = qBound(0.0, double(qint64(bar.progress) - bar.minimum) / double(range), 1.0);
    if (share > 0) {
        const qreal width = qMax(kBarThickness, track.width() * share);
        const bool fromRight = (bar.direction == Qt::RightToLeft) != bar.invertedAppearance;
        const QRectF filled(fromRight ? track.right() - width : track.left(), track.top(), width,
                            kBarThickness);
        paint::panel(painter, filled, color::amber, {}, kBarThickness / 2);
    }
}

void drawHeader(const QStyleOption& option, QPainter& painter)
{
    painter.save();
    painter.setOpacity(1); // Its words fade; the ground would let through what lies below.
    painter.fillRect(option.rect, color::sidebar);
    painter.restore();
    paint::horizontalHairline(painter, option.rect.left(), option.rect.right() + 1,
                              option.rect.bottom() + 0.0, color::line);
}

void drawTab(const QStyleOption& option, QPainter& painter)
{
    const QRectF rect = QRectF(option.rect).adjusted(2, 3, -2, -3);
    if (option.state.testFlag(QStyle::State_Selected)) {
        paint::panel(painter, rect, QColor(0x36, 0x37, 0x3B), {}, metric::radius);
    } else if (look::isHovered(option)) {
        paint::panel(painter, rect, look::hover, {}, metric::radius);
    }
    if (look::showsKeyboardFocus(option) && option.state.testFlag(QStyle::State_Selected)) {
        paint::focusRing(painter, rect);
    }
}

void drawSplitter(const QStyleOption& option, QPainter& painter)
{
    const QRectF rect(option.rect);
    if (option.state.testFlag(QStyle::State_Horizontal)) {
        paint::verticalHairline(painter, rect.top(), rect.bottom(), rect.left() + (rect.width() - 1) / 2,
                                color::line);
    } else {
        paint::horizontalHairline(painter, rect.left(), rect.right(), rect.top() + (rect.height() - 1) / 2,
                                  color::line);
    }
}

} // namespace

void MosaroStyle::drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter,
                               const QWidget* widget) const
{
    const QRectF rect(item.rect);
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        paint::horizontalHairline(painter, rect.left() + 6, rect.right() - 6, rect.center().y(),
                                  look::outline);
        return;
    }
    const bool enabled = item.state.testFlag(State_Enabled);
    if (enabled && item.state.testFlag(State_Selected)) {
        paint::panel(painter, rect, look::selectionFocused, {}, metric::radius);
    }
    const QRect column = visualRect(item.direction, item.rect,
                                    QRect(item.rect.left() + 3, item.rect.top(), 16, item.rect.height()));
    if (item.checked) {
        const QPointF middle = QRectF(column).center();
        if (item.checkType == QStyleOptionMenuItem::Exclusive) {
            paint::panel(painter, QRectF(middle.x() - 3, middle.y() - 3, 6, 6), color::amber, {}, 3);
        } else if (item.state.testFlag(State_NoChange)) {
            paint::panel(painter, QRectF(middle.x() - 5, middle.y() - 1, 10, 2), color::amber, {}, 1);
        } else {
            paint::checkMark(painter, QRectF(middle.x() - 7, middle.y() - 7, 14, 14), color::amber);
        }
    }
    const int indent = look::kMenuCheckColumn + (look::hasIconBesideMark(item) ? look::kMenuCheckColumn : 0);
    if (!item.icon.isNull() && (!item.checked || look::hasIconBesideMark(item))) {
        const QRect place = item.rect.adjusted(indent - look::kMenuCheckColumn + 3, 0, 0, 0);
        item.icon.paint(&painter, visualRect(item.direction, item.rect,
                                             QRect(place.left(), place.center().y() - 7, 16, 16)));
    }
    const bool isSubMenu = item.menuItemType == QStyleOptionMenuItem::SubMenu;
    const QRect words = item.rect.adjusted(indent, 0, -(look::kMenuMargin + (isSubMenu ? 14 : 4)), 0);
    QPalette palette = item.palette;
    palette.setColor(QPalette::ButtonText, color::text);
    int flags = Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (styleHint(SH_UnderlineShortcut, &item, widget, nullptr) == 0) {
        flags |= Qt::TextHideMnemonic;
    }
    painter.setFont(item.font);
    const QRect place = visualRect(item.direction, item.rect, words);
    drawItemText(&painter, place, flags | Qt::AlignLeading, palette, enabled, item.text.section(u'\t', 0, 0),
                 QPalette::ButtonText);
    const bool lit = enabled && item.state.testFlag(State_Selected);
    palette.setColor(QPalette::ButtonText, lit ? color::text : color::text3);
    drawItemText(&painter, place, flags | Qt::AlignTrailing, palette, enabled, item.text.section(u'\t', 1),
                 QPalette::ButtonText);
    if (isSubMenu) {
        const QRect arrow =
            visualRect(item.direction, item.rect,
                       QRect(item.rect.right() - 14, item.rect.top(), 10, item.rect.height()));
        paint::chevron(painter, arrow,
                       item.direction == Qt::RightToLeft ? paint::Direction::Left : paint::Direction::Right,
                       color::text2, 6);
    }
}

bool MosaroStyle::drawMenuElement(ControlElement element, const QStyleOption& option, QPainter& painter,
                                  const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    switch (element) {
    case CE_MenuBarEmptyArea:
        drawMenuBarGround(option.rect, painter);
        return true;
    case CE_MenuEmptyArea:
    case CE_MenuHMargin:
    case CE_MenuVMargin:
        return true;
    case CE_MenuBarItem:
        if (item != nullptr) {
            drawMenuBarItem(*item, painter, *proxy());
        }
        return item != nullptr;
    case CE_MenuItem:
        if (item != nullptr) {
            drawMenuItem(*item, painter, widget);
        }
        return item != nullptr;
    default:
        return false;
    }
}

void MosaroStyle::drawFadedOnce(ControlElement element, QStyleOption& label, QPainter& painter,
                                const QWidget* widget) const
{
    label.state |= State_Enabled;
    QProxyStyle::drawControl(element, &label, &painter, widget);
}

bool MosaroStyle::drawOtherElement(ControlElement element, const QStyleOption& option, QPainter& painter,
                                   const QWidget* widget) const
{
    switch (element) {
    case CE_PushButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option)) {
            QStyleOptionButton label(*button);
            if (label.features.testFlag(QStyleOptionButton::DefaultButton)) {
                label.palette.setColor(QPalette::ButtonText, color::window);
            }
            drawFadedOnce(element, label, painter, widget);
        }
        return true;
    case CE_ToolButtonLabel:
        if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(&option)) {
            QStyleOptionToolButton label(*button);
            drawFadedOnce(element, label, painter, widget);
        }
        return true;
    case CE_TabBarTabLabel:
        if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(&option)) {
            QStyleOptionTab label(*tab);
            const bool active = option.state.testFlag(State_Selected);
            label.state.setFlag(State_HasFocus, false); // The plate has the ring.
            label.palette.setColor(QPalette::WindowText, active ? color::amber : color::text2);
            drawFadedOnce(element, label, painter, widget);
        }
        return true;
    case CE_ComboBoxLabel:
        if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option)) {
            QStyleOptionComboBox label(*combo);
            const int icon = label.currentIcon.isNull() ? 0 : label.iconSize.width() + 4;
            const QRect room = subControlRect(CC_ComboBox, &label, SC_ComboBoxEditField, widget);
            label.currentText =
                label.fontMetrics.elidedText(label.currentText, Qt::ElideRight, room.width() - icon - 2);
            QProxyStyle::drawControl(element, &label, &painter, widget);
        }
        return true;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        drawHeader(option, painter);
        return true;
    case CE_ProgressBarGroove:
        return true;
    case CE_ProgressBarContents:
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(&option)) {
            drawProgress(*bar, painter);
        }
        return true;
    case CE_ProgressBarLabel:
        return true;
    case CE_TabBarTabShape:
        drawTab(option, painter);
        return true;
    case CE_Splitter:
        drawSplitter(option, painter);
        return true;
    case CE_RubberBand:
        paint::panel(painter, option.rect, QColor(255, 255, 255, 26), QColor(255, 255, 255, 110), 0);
        return true;
    default:
        return false;
    }
}

} // namespace mosaro::kit
