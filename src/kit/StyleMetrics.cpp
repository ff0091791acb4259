// How large things are and how they behave.
#include "kit/MosaroStyle.h"
#include "kit/StyleColors.h"

#include <QTextEdit>

namespace mosaro::kit {

int MosaroStyle::pixelMetric(PixelMetric which, const QStyleOption* option, const QWidget* widget) const
{
    switch (which) {
    case PM_SplitterWidth:
        return 1;
    case PM_ScrollBarExtent:
        return look::kScrollBarExtent;
    case PM_ScrollBarSliderMin:
        return 36;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength:
        return look::kSliderHandle;
    case PM_DefaultFrameWidth:
        return qobject_cast<const QTextEdit*>(widget) != nullptr ? metric::focusRing : 1;
    case PM_ButtonMargin:
        return 8;
    case PM_ButtonDefaultIndicator:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_TabBarTabShiftVertical:
        return 0;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return look::kCheckSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return metric::gap;
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
    case PM_MenuHMargin:
        return 4;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_MenuBarHMargin:
        return 4;
    case PM_ToolTipLabelFrameWidth:
        return 5;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ListViewIconSize:
        return 16;
    case PM_ToolBarIconSize:
    case PM_TreeViewIndentation:
        return 18;
    case PM_HeaderMargin:
        return 6;
    case PM_FocusFrameHMargin:
        return 4;
    default:
        return QProxyStyle::pixelMetric(which, option, widget);
    }
}

int MosaroStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ComboBox_Popup:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    case SH_ItemView_ShowDecorationSelected:
    case SH_ScrollBar_MiddleClickAbsolutePosition:
    case SH_MenuBar_MouseTracking:
    case SH_Menu_MouseTracking:
    case SH_ComboBox_ListMouseTracking:
        return 1;
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_Slider_PageSetButtons:
        return Qt::NoButton;
    case SH_Menu_SubMenuPopupDelay:
        return 150;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_Widget_Animation_Duration:
        return motion(200);
    case SH_UnderlineShortcut:
        return m_showsMnemonics ? 1 : 0;
    case SH_GroupBox_TextLabelColor:
        return int(color::text2.rgba());
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

namespace {

QSize menuItemSize(const QStyleOptionMenuItem& item, const QSize& size)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return {size.width(), 9};
    }
    constexpr int arrow = 16;
    int width = size.width() + look::kMenuCheckColumn + 2 * look::kMenuMargin + arrow;
    if (item.text.contains(u'\t')) {
        width += metric::wideGap;
    }
    if (look::hasIconBesideMark(item)) {
        width += look::kMenuCheckColumn;
    }
    return {width, qMax(look::kMenuItemHeight, size.height() + 6)};
}

} // namespace

QSize MosaroStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool hasText = button != nullptr && !button->text.isEmpty();
        return {qMax(size.width() + 2 * 14, hasText ? 76 : 28), qMax(size.height() + 8, 26)};
    }
    case CT_ComboBox:
        return {size.width() + 34, qMax(size.height() + 6, 24)};
    case CT_LineEdit:
    case CT_SpinBox:
        return {result.width(), qMax(result.height(), 24)};
    case CT_ItemViewItem:
        return {result.width(), qMax(result.height(), metric::rowHeight)};
    case CT_MenuBarItem:
        return {size.width() + 2 * 9, qMax(size.height() + 8, 28)};
    case CT_ToolButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        const bool opensMenu =
            button != nullptr && button->features.testFlag(QStyleOptionToolButton::HasMenu);
        return {result.width() + (opensMenu ? look::kMenuArrow : 0), result.height()};
    }
    case CT_HeaderSection:
        return {result.width(), qMax(result.height(), metric::rowHeight)};
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            return menuItemSize(*item, size);
        }
        return result;
    default:
        return result;
    }
}

QRect MosaroStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    switch (element) {
    case SE_LineEditContents: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        const bool framed = frame != nullptr && frame->lineWidth > 0;
        return framed ? rect.adjusted(look::kFieldPadding, 0, -look::kFieldPadding, 0) : rect;
    }
    case SE_PushButtonFocusRect:
    case SE_ToolButtonLayoutItem:
        return option->rect;
    default:
        return rect;
    }
}

QRect MosaroStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl sub,
                                  const QWidget* widget) const
{
    if (control == CC_ScrollBar) {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (bar != nullptr && (sub == SC_ScrollBarAddLine || sub == SC_ScrollBarSubLine)) {
            return {};
        }
        if (bar != nullptr && sub == SC_ScrollBarGroove) {
            return bar->rect;
        }
        if (bar != nullptr &&
            (sub == SC_ScrollBarSlider || sub == SC_ScrollBarAddPage || sub == SC_ScrollBarSubPage)) {
            const bool upright = bar->orientation == Qt::Vertical;
            const int room = upright ? bar->rect.height() : bar->rect.width();
            const qint64 range = qint64(bar->maximum) - bar->minimum;
            const qint64 share =
                range + bar->pageStep > 0 ? qint64(room) * bar->pageStep / (range + bar->pageStep) : room;
            const int length =
                range == 0 ? room
                           : qMin(room, qMax(int(share),
                                             proxy()->pixelMetric(PM_ScrollBarSliderMin, option, widget)));
            const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                                      room - length, bar->upsideDown);
            const int from = sub == SC_ScrollBarAddPage   ? start + length
                             : sub == SC_ScrollBarSubPage ? 0
                                                          : start;
            const int to = sub == SC_ScrollBarSubPage   ? start
                           : sub == SC_ScrollBarAddPage ? room
                                                        : start + length;
            const QRect part = upright ? QRect(0, from, bar->rect.width(), to - from)
                                       : QRect(from, 0, to - from, bar->rect.height());
            return visualRect(bar->direction, bar->rect, part.translated(bar->rect.topLeft()));
        }
    }
    if (control == CC_ComboBox) {
        const QRect rect = option->rect;
        constexpr int arrow = 22;
        if (sub == SC_ComboBoxArrow) {
            return visualRect(option->direction, rect,
                              QRect(rect.right() - arrow + 1, rect.top(), arrow, rect.height()));
        }
        if (sub == SC_ComboBoxEditField) {
            return visualRect(option->direction, rect, rect.adjusted(7, 1, -arrow, -1));
        }
    }
    return QProxyStyle::subControlRect(control, option, sub, widget);
}

} // namespace mosaro::kit
