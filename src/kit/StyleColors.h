#pragma once

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QStyleOption>

/// What the parts of the style agree on.
namespace mosaro::kit::look {

inline constexpr int kScrollBarExtent = 12;
inline constexpr int kCheckSize = 14;
inline constexpr int kMenuItemHeight = 24;
inline constexpr int kMenuMargin = 5;
inline constexpr int kMenuCheckColumn = 22;
inline constexpr int kSliderHandle = 14;
inline constexpr int kMenuArrow = 14;
inline constexpr int kFieldPadding = 4;
inline const QColor outline{0x3E, 0x3F, 0x44};
inline const QColor handle{0xCF, 0xCF, 0xCF};
inline const QColor groove{0x3B, 0x3C, 0x40};
inline const QColor selection{232, 183, 89, 41};
inline const QColor selectionFocused{232, 183, 89, 66};
inline const QColor hover{255, 255, 255, 13};

[[nodiscard]] inline bool isPressed(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_Sunken);
}

[[nodiscard]] inline bool isHovered(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_MouseOver) && option.state.testFlag(QStyle::State_Enabled);
}

[[nodiscard]] inline bool isOn(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_On);
}

/// Focus that came by keyboard: only that is ringed on things that a click leaves as they are.
[[nodiscard]] inline bool showsKeyboardFocus(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

[[nodiscard]] inline QColor buttonFill(const QStyleOption& option, const QColor& base = color::raisedStrong)
{
    if (isPressed(option)) {
        return base.darker(118);
    }
    return isHovered(option) ? base.lighter(116) : base;
}

/// A menu item's icon that has a column of its own beside the mark; else both share one.
[[nodiscard]] inline bool hasIconBesideMark(const QStyleOptionMenuItem& item)
{
    return item.checkType != QStyleOptionMenuItem::NotCheckable && !item.icon.isNull();
}

} // namespace mosaro::kit::look
