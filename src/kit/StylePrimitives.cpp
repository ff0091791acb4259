// Buttons' plates, frames, indicators and rows.
#include "kit/MosaroStyle.h"
#include "kit/StyleColors.h"

#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QTextEdit>

namespace mosaro::kit {

namespace {

void drawCheckPlate(const QStyleOption& option, QPainter& painter, qreal radius)
{
    const bool filled = look::isOn(option) || option.state.testFlag(QStyle::State_NoChange);
    const QColor fill = filled ? color::amber : look::buttonFill(option, color::field);
    paint::panel(painter, option.rect, fill, filled ? color::amber.darker(115) : QColor(0x5A, 0x5B, 0x60),
                 radius);
}

void drawCheckBox(const QStyleOption& option, QPainter& painter)
{
    drawCheckPlate(option, painter, 3);
    const QRectF rect(option.rect);
    if (look::isOn(option)) {
        paint::checkMark(painter, rect, color::window);
    } else if (option.state.testFlag(QStyle::State_NoChange)) {
        const QPointF middle = rect.center();
        paint::panel(painter, QRectF(middle.x() - 4, middle.y() - 1, 8, 2), color::window, {}, 1);
    }
}

void drawRadioButton(const QStyleOption& option, QPainter& painter)
{
    drawCheckPlate(option, painter, option.rect.width() / 2.0);
    if (look::isOn(option)) {
        const QPointF middle = QRectF(option.rect).center();
        paint::panel(painter, QRectF(middle.x() - 2.5, middle.y() - 2.5, 5, 5), color::window, {}, 2.5);
    }
}

void drawPushButton(const QStyleOption& option, QPainter& painter)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const QRectF rect(option.rect);
    const bool focused = look::showsKeyboardFocus(option);
    if (button != nullptr && button->features.testFlag(QStyleOptionButton::Flat)) {
        if (look::isHovered(option) || look::isPressed(option)) {
            paint::panel(painter, rect, look::hover, {}, metric::radius);
        }
    } else if (button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton)) {
        // Blue on amber could not be told apart: a gap lies between the ring and the plate.
        const qreal gap = focused ? metric::focusRing + 1 : 0;
        paint::panel(painter, rect.adjusted(gap, gap, -gap, -gap), look::buttonFill(option, color::amber), {},
                     metric::radius - gap / 2);
    } else {
        const QColor base = look::isOn(option) ? color::raisedStrong.lighter(125) : color::raisedStrong;
        paint::panel(painter, rect, look::buttonFill(option, base), look::outline, metric::radius);
    }
    if (focused) {
        paint::focusRing(painter, rect);
    }
}

void drawToolButton(const QStyleOption& option, QPainter& painter)
{
    if (look::isOn(option)) {
        paint::panel(painter, option.rect, QColor(0x36, 0x37, 0x3B), {}, metric::radius);
    } else if (look::isPressed(option)) {
        paint::panel(painter, option.rect, QColor(0, 0, 0, 60), {}, metric::radius);
    } else if (look::isHovered(option)) {
        paint::panel(painter, option.rect, look::hover, {}, metric::radius);
    }
    if (look::showsKeyboardFocus(option)) {
        paint::focusRing(painter, option.rect);
    }
}

void drawField(const QStyleOption& option, QPainter& painter)
{
    paint::panel(painter, option.rect, color::field, color::fieldBorder, metric::radius);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        paint::focusRing(painter, option.rect);
    }
}

void drawBranch(const QStyleOption& option, QPainter& painter)
{
    if (!option.state.testFlag(QStyle::State_Children)) {
        return;
    }
    const bool open = option.state.testFlag(QStyle::State_Open);
    const auto closedWay =
        option.direction == Qt::RightToLeft ? paint::Direction::Left : paint::Direction::Right;
    const QColor tint = look::isHovered(option) ? color::text : color::text3;
    paint::chevron(painter, option.rect, open ? paint::Direction::Down : closedWay, tint);
}

/// A row that is selected is one plate, however many columns it has.
void drawRowPlate(const QStyleOption& option, QPainter& painter, const QColor& fill)
{
    QRectF plate(option.rect);
    if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option)) {
        const bool mirrored = option.direction == Qt::RightToLeft;
        const auto position = item->viewItemPosition;
        const bool opensOn =
            position == QStyleOptionViewItem::Beginning || position == QStyleOptionViewItem::Middle;
        const bool opensBack =
            position == QStyleOptionViewItem::End || position == QStyleOptionViewItem::Middle;
        plate.adjust((mirrored ? opensOn : opensBack) ? -metric::radius : 0, 0,
                     (mirrored ? opensBack : opensOn) ? metric::radius : 0, 0);
    }
    painter.save();
    painter.setClipRect(option.rect, Qt::IntersectClip);
    paint::panel(painter, plate, fill, {}, metric::radius);
    painter.restore();
}

void drawItemFocus(const QStyleOption& option, QPainter& painter)
{
    if (!option.state.testFlag(QStyle::State_Selected)) {
        paint::focusRing(painter, option.rect);
    }
}

} // namespace

bool MosaroStyle::drawButtonPrimitive(PrimitiveElement element, const QStyleOption& option,
                                      QPainter& painter) const
{
    switch (element) {
    case PE_PanelButtonCommand:
    case PE_PanelButtonBevel:
        drawPushButton(option, painter);
        return true;
    case PE_PanelButtonTool:
        drawToolButton(option, painter);
        return true;
    case PE_IndicatorButtonDropDown:
    case PE_FrameDefaultButton:
        return true;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        drawCheckBox(option, painter);
        return true;
    case PE_IndicatorRadioButton:
        drawRadioButton(option, painter);
        return true;
    case PE_IndicatorArrowDown:
        paint::chevron(painter, option.rect, paint::Direction::Down, color::text2, 6);
        return true;
    case PE_IndicatorArrowUp:
        paint::chevron(painter, option.rect, paint::Direction::Up, color::text2, 6);
        return true;
    case PE_IndicatorArrowLeft:
        paint::chevron(painter, option.rect, paint::Direction::Left, color::text2, 6);
        return true;
    case PE_IndicatorArrowRight:
        paint::chevron(painter, option.rect, paint::Direction::Right, color::text2, 6);
        return true;
    default:
        return false;
    }
}

bool MosaroStyle::drawFramePrimitive(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                                     const QWidget* widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        if (option.state.testFlag(State_Item)) {
            drawItemFocus(option, painter);
        } else if (option.state.testFlag(State_KeyboardFocusChange)) {
            paint::focusRing(painter, option.rect);
        }
        return true;
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
        if (frame == nullptr || frame->lineWidth > 0) {
            drawField(option, painter);
        }
        return true;
    }
    case PE_FrameLineEdit:
        return true;
    case PE_Frame:
        paint::panel(painter, option.rect, {}, color::fieldBorder, metric::radius);
        if (qobject_cast<const QTextEdit*>(widget) != nullptr && option.state.testFlag(State_HasFocus)) {
            paint::focusRing(painter, option.rect);
        }
        return true;
    case PE_PanelMenu:
        paint::panel(painter, option.rect, color::raised, look::outline, metric::sheetRadius);
        return true;
    case PE_FrameMenu:
        return true;
    case PE_PanelTipLabel:
        paint::panel(painter, option.rect, color::raisedStrong, look::outline, 0);
        return true;
    case PE_PanelScrollAreaCorner:
    case PE_FrameGroupBox:
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase:
    case PE_FrameTabWidget:
    case PE_FrameDockWidget:
        return true;
    default:
        return false;
    }
}

bool MosaroStyle::drawItemPrimitive(PrimitiveElement element, const QStyleOption& option,
                                    QPainter& painter) const
{
    switch (element) {
    case PE_IndicatorBranch:
        drawBranch(option, painter);
        return true;
    case PE_IndicatorHeaderArrow: {
        const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(&option);
        const bool up = header != nullptr && header->sortIndicator == QStyleOptionHeader::SortUp;
        paint::chevron(painter, option.rect, up ? paint::Direction::Up : paint::Direction::Down, color::text3,
                       6);
        return true;
    }
    case PE_PanelItemViewRow: {
        const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
        if (item != nullptr && item->features.testFlag(QStyleOptionViewItem::Alternate)) {
            painter.fillRect(option.rect, option.palette.alternateBase());
        }
        return true;
    }
    case PE_PanelItemViewItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
        if (item != nullptr && item->backgroundBrush.style() != Qt::NoBrush) {
            painter.fillRect(option.rect, item->backgroundBrush);
        }
        if (option.state.testFlag(State_Selected)) {
            const bool focused = option.state.testFlag(State_HasFocus) || option.state.testFlag(State_Active);
            drawRowPlate(option, painter, focused ? look::selectionFocused : look::selection);
        } else if (look::isHovered(option)) {
            drawRowPlate(option, painter, look::hover);
        }
        return true;
    }
    default:
        return false;
    }
}

} // namespace mosaro::kit
