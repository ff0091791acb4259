// How the rows of the collection tree look around their cells.
#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/CollectionCell.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/LegalSelectionModel.h"
#include "organisation/ui/SidebarRow.h"

#include <QPainter>
#include <array>

namespace mosaro::organisation {

namespace {

constexpr int kTriangleSize = 12;

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
    QRect ground = option.rect;
    if (CollectionTreeModel::node(index)->isGroup) { // It stands at the bottom of its taller row.
        ground.setTop(ground.bottom() + 1 - kit::metric::rowHeight - MRLibraryImageAndTextCell::kRowSpacing);
    }
    paintRowGround(*painter, ground, *this,
                   {.isSelected = m_selection->isSelected(index),
                    .isCurrent = index == currentIndex(),
                    .isDropTarget = index == m_dropTarget,
                    .isEditing = state() == EditingState});
    QStyleOptionViewItem cell = option;
    cell.rect = visualRect(index);
    cell.state.setFlag(QStyle::State_Selected, m_selection->isSelected(index));
    QRect branch = option.rect;
    branch.setRight(cell.rect.left() - 1);
    drawBranches(painter, branch, index);
    m_cell->paint(painter, cell, index);
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
