#include "organisation/ui/SidebarRow.h"

#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace mosaro::organisation {

namespace {

constexpr int kGroundMargin = 6; ///< Between the sidebar's edges and the plate of a selected row.
constexpr int kGuideMargin = 16;
constexpr double kGuideSize = 13;
constexpr qreal kFocusedTint = 0.24;
constexpr qreal kQuietTint = 0.15;

} // namespace

void paintRowGround(QPainter& painter, const QRect& row, const QAbstractItemView& list,
                    const SidebarRowState& state)
{
    constexpr qreal kHalfSpacing = MRLibraryImageAndTextCell::kRowSpacing / 2.0;
    const QRectF plate = QRectF(row).adjusted(kGroundMargin, kHalfSpacing, -kGroundMargin, -kHalfSpacing);
    if (state.isSelected) {
        // The window's own focus: an open menu takes hasFocus() away.
        const bool isFirst = list.isActiveWindow() && list.window()->focusWidget() == &list;
        const qreal tint = isFirst || state.isEditing ? kFocusedTint : kQuietTint;
        kit::paint::panel(painter, plate, kit::paint::mixed(kit::color::sidebar, kit::color::amber, tint), {},
                          kit::metric::radius);
    }
    // The selected row's plate tells by its strength that the keyboard is here; the ring tells the rest: a
    // row that is current but not selected, and everything to those who move by keyboard.
    const bool byKeyboard = list.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    const bool isFocus = list.hasFocus() && state.isCurrent;
    if (state.isDropTarget || (isFocus && (byKeyboard || !state.isSelected))) {
        kit::paint::focusRing(painter, plate, kit::metric::radius);
    }
}

void paintGuide(QPainter& painter, const QAbstractItemView& list, const QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    constexpr int kFlags = Qt::AlignCenter | Qt::TextWordWrap;
    const QFont font = kit::font(kGuideSize);
    const QRect ground = list.viewport()->rect();
    const int width = ground.width() - 2 * kit::metric::wideGap;
    const QRect words =
        QFontMetrics(font).boundingRect(QRect(0, 0, width - 2 * kGuideMargin, 0), kFlags, text);
    QRect box(0, 0, width, words.height() + 2 * kGuideMargin);
    box.moveCenter(ground.center());
    kit::paint::panel(painter, box, kit::color::raised, {}, kit::metric::sheetRadius);
    painter.setFont(font);
    painter.setPen(kit::color::text2);
    painter.drawText(box.adjusted(kGuideMargin, 0, -kGuideMargin, 0), kFlags, text);
    if (list.hasFocus() && list.window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        kit::paint::focusRing(painter, box, kit::metric::sheetRadius);
    }
}

bool showCutTitle(const QHelpEvent& event, QAbstractItemView& list, const QRect& row, const QString& title,
                  int width)
{
    if (event.type() != QEvent::ToolTip ||
        QFontMetrics(kit::font(kTitleSize)).horizontalAdvance(title) <= width) {
        return false;
    }
    // As markup of its own: a title is not read as one, and is wrapped.
    QToolTip::showText(event.globalPos(), QStringLiteral("<qt>%1</qt>").arg(title.toHtmlEscaped()),
                       list.viewport(), row);
    return true;
}

} // namespace mosaro::organisation
