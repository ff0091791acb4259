// Sliders, scroll bars, pop-ups and spin boxes.
#include "kit/MosaroStyle.h"
#include "kit/StyleColors.h"

#include <QPainter>

namespace mosaro::kit {

void MosaroStyle::drawSlider(const QStyleOptionSlider& slider, QPainter& painter, const QWidget* widget) const
{
    constexpr qreal thickness = 3;
    const QRectF knob = proxy()->subControlRect(CC_Slider, &slider, SC_SliderHandle, widget);
    const QRectF rect(slider.rect);
    const bool level = slider.orientation == Qt::Horizontal;
    const QRectF groove =
        level ? QRectF(rect.left() + 1, rect.center().y() - thickness / 2, rect.width() - 2, thickness)
              : QRectF(rect.center().x() - thickness / 2, rect.top() + 1, thickness, rect.height() - 2);
    paint::panel(painter, groove, look::groove, {}, thickness / 2);
    const qreal size = look::kSliderHandle - 1;
    const QRectF round(knob.center().x() - size / 2, knob.center().y() - size / 2, size, size);
    const QColor tint = look::isPressed(slider) && slider.activeSubControls.testFlag(SC_SliderHandle)
                            ? color::text2
                            : look::handle;
    paint::panel(painter, round, look::isHovered(slider) ? tint.lighter(112) : tint, color::window, size / 2);
    if (look::showsKeyboardFocus(slider)) {
        paint::focusRing(painter, round, size / 2);
    }
}

void MosaroStyle::drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const
{
    if (bar.maximum <= bar.minimum) {
        return;
    }
    const QRectF part = proxy()->subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
    const bool live = look::isHovered(bar) || look::isPressed(bar);
    const qreal thickness = live ? 7 : 5;
    const QRectF thumb =
        bar.orientation == Qt::Vertical
            ? QRectF(part.center().x() - thickness / 2, part.top() + 2, thickness, part.height() - 4)
            : QRectF(part.left() + 2, part.center().y() - thickness / 2, part.width() - 4, thickness);
    paint::panel(painter, thumb, QColor(255, 255, 255, live ? 105 : 60), {}, thickness / 2);
}

void MosaroStyle::drawComboBox(const QStyleOptionComboBox& combo, QPainter& painter,
                               const QWidget* widget) const
{
    if (combo.editable) {
        paint::panel(painter, combo.rect, color::field, color::fieldBorder, metric::radius);
    } else if (combo.frame) {
        paint::panel(painter, combo.rect, look::buttonFill(combo), {}, metric::radius);
    }
    const QRect arrow = proxy()->subControlRect(CC_ComboBox, &combo, SC_ComboBoxArrow, widget);
    paint::chevron(painter, arrow, paint::Direction::Down, color::text2, 6);
    const bool focused =
        combo.editable ? combo.state.testFlag(State_HasFocus) : look::showsKeyboardFocus(combo);
    if (focused) {
        paint::focusRing(painter, combo.rect);
    }
}

void MosaroStyle::drawMenuButton(const QStyleOptionToolButton& button, QPainter& painter,
                                 const QWidget* widget) const
{
    proxy()->drawPrimitive(PE_PanelButtonTool, &button, &painter, widget);
    QStyleOptionToolButton label(button);
    const QRect words = button.rect.adjusted(3, 2, -look::kMenuArrow, -2);
    label.rect = visualRect(button.direction, button.rect, words);
    label.features.setFlag(QStyleOptionToolButton::HasMenu, false);
    proxy()->drawControl(CE_ToolButtonLabel, &label, &painter, widget);
    const QRect arrow(button.rect.right() - look::kMenuArrow, button.rect.top(), look::kMenuArrow - 2,
                      button.rect.height());
    paint::chevron(painter, visualRect(button.direction, button.rect, arrow), paint::Direction::Down,
                   color::text3, 6);
}

void MosaroStyle::drawSpinBox(const QStyleOptionSpinBox& spin, QPainter& painter, const QWidget* widget) const
{
    if (spin.frame) {
        paint::panel(painter, spin.rect, color::field, color::fieldBorder, metric::radius);
    }
    if (spin.buttonSymbols != QAbstractSpinBox::NoButtons) {
        const QRect up = proxy()->subControlRect(CC_SpinBox, &spin, SC_SpinBoxUp, widget);
        const QRect down = proxy()->subControlRect(CC_SpinBox, &spin, SC_SpinBoxDown, widget);
        paint::chevron(painter, up, paint::Direction::Up, color::text2, 5);
        paint::chevron(painter, down, paint::Direction::Down, color::text2, 5);
    }
    if (spin.state.testFlag(State_HasFocus)) {
        paint::focusRing(painter, spin.rect);
    }
}

} // namespace mosaro::kit
