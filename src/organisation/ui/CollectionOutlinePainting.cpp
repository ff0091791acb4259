// How the rows of the collection tree look around their cells.
#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/LegalSelectionModel.h"
#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include <QPainter>
#include <array>

namespace mosaro::organisation {

namespace {

constexpr int kGroundMargin = 6; ///< Between the sidebar's edges and the plate of a selected row.
constexpr int kTriangleSize = 12;
constexpr qreal kFocusedTint = 0.24;
constexpr qreal kQuietTint = 0.15;

const QIcon& disclosureIcon(bool expanded, bool highlighted)
{
    static const std::array<QIcon, 4> icons{
        kit::icon(QStringLiteral("disclosure-closed-inv"), kit::color::text3),
        kit::icon(QStringLiteral("disclosure-closed"), kit::color::text),
        kit::icon(QStringLiteral("disclosure-open-inv"), kit::color::text3),
        kit::icon(QStringLiteral("disclosure-open"), kit::color::text),
    };
    return icons[(expanded ? 2U : 0U) + (highlighted ? 1U : 0U)];
}

} // namespace

void CollectionOutline::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_dropOnEmptyArea) {
        QPainter painter(viewport());
        kit::paint::focusRing(painter, viewport()->rect(), kit::metric::radius);
    }
}

void CollectionOutline::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    paintRowGround(*painter, option.rect, index);
    QStyleOptionViewItem cell = option;
    cell.rect = visualRect(index);
    cell.state.setFlag(QStyle::State_Selected, m_selection->isSelected(index));
    QRect branch = option.rect;
    branch.setRight(cell.rect.left() - 1);
    drawBranches(painter, branch, index);
    m_cell->paint(painter, cell, index);
}

void CollectionOutline::paintRowGround(QPainter& painter, const QRect& row, const QModelIndex& index) const
{
    const QRectF plate = QRectF(row).adjusted(kGroundMargin, MRLibraryImageAndTextCell::kRowSpacing / 2.0,
                                              -kGroundMargin, -MRLibraryImageAndTextCell::kRowSpacing / 2.0);
    if (m_selection->isSelected(index)) {
        // The window's own focus: an open menu takes hasFocus() away.
        const bool isFirst = isActiveWindow() && window()->focusWidget() == this;
        const qreal tint = isFirst || state() == EditingState ? kFocusedTint : kQuietTint;
        kit::paint::panel(painter, plate, kit::paint::mixed(kit::color::sidebar, kit::color::amber, tint), {},
                          kit::metric::radius);
    }
    // The selected row's plate tells by its strength that the keyboard is here; the ring tells the rest: a
    // row that is current but not selected, and everything to those who move by keyboard.
    const bool byKeyboard = window()->testAttribute(Qt::WA_KeyboardFocusChange);
    const bool isFocus = hasFocus() && index == currentIndex();
    if (index == m_dropTarget || (isFocus && (byKeyboard || !m_selection->isSelected(index)))) {
        kit::paint::focusRing(painter, plate, kit::metric::radius);
    }
}

void CollectionOutline::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    const CollectionNode& node = *CollectionTreeModel::node(index);
    if (node.nodes.empty()) {
        return;
    }
    const int column = MRLibraryImageAndTextCell::kIndentation;
    const QRect cell = visualRect(index);
    const int right = node.isGroup ? column : rect.right() + 1;
    // A heading stands at the bottom of its taller row.
    const int middle =
        cell.bottom() + 1 - (kit::metric::rowHeight + MRLibraryImageAndTextCell::kRowSpacing) / 2;
    const QRect triangle(right - (column + kTriangleSize) / 2, middle - kTriangleSize / 2, kTriangleSize,
                         kTriangleSize);
    disclosureIcon(isExpanded(index), m_selection->isSelected(index)).paint(painter, triangle);
}

} // namespace mosaro::organisation
