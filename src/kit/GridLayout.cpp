#include "kit/GridLayout.h"

#include <algorithm>

namespace mosaro::kit {

GridLayout::GridLayout(const GridMetrics& metrics, int width, int count)
    : m_metrics(metrics), m_width(width), m_count(count)
{
    const int gap = metrics.spacing.width();
    m_columns = std::max(1, (width - 2 * metrics.margin + gap) / (metrics.cell.width() + gap));
}

int GridLayout::contentHeight() const
{
    return m_count == 0 ? 0 : rows() * rowPitch() - m_metrics.spacing.height() + 2 * m_metrics.margin;
}

/// What is left over of the width goes around the cells in equal parts, so that the columns stay evenly
/// spaced.
int GridLayout::columnLeft(int column) const
{
    const int side = m_metrics.margin - m_metrics.spacing.width() / 2;
    const int slots = m_width - 2 * side;
    const int slotLeft = side + column * slots / m_columns;
    const int slotRight = side + (column + 1) * slots / m_columns;
    return std::max(0, slotLeft + (slotRight - slotLeft - m_metrics.cell.width()) / 2);
}

QRect GridLayout::cellRect(int index) const
{
    const int row = index / m_columns;
    return {QPoint(columnLeft(index % m_columns), m_metrics.margin + row * rowPitch()), m_metrics.cell};
}

int GridLayout::rowAt(int y) const
{
    return y < m_metrics.margin ? -1 : (y - m_metrics.margin) / rowPitch();
}

int GridLayout::indexAt(const QPoint& point) const
{
    const int row = rowAt(point.y());
    const GridInterval hit = columnsBetween(point.x(), point.x());
    if (row < 0 || hit.isEmpty()) {
        return -1;
    }
    const int index = row * m_columns + hit.first;
    return index < m_count && cellRect(index).contains(point) ? index : -1;
}

GridInterval GridLayout::indexesBetween(int top, int bottom) const
{
    const int firstRow = std::max(0, rowAt(top));
    const int lastRow = rowAt(bottom);
    if (m_count == 0 || lastRow < 0 || firstRow >= rows()) {
        return {};
    }
    return {firstRow * m_columns, std::min(m_count, (lastRow + 1) * m_columns) - 1};
}

GridInterval GridLayout::columnsBetween(int left, int right) const
{
    GridInterval hit;
    for (int column = 0; column < m_columns; ++column) {
        const int x = columnLeft(column);
        if (x <= right && x + m_metrics.cell.width() > left) {
            hit = hit.isEmpty() ? GridInterval{column, column} : GridInterval{hit.first, column};
        }
    }
    return hit;
}

GridSelection GridLayout::indexesIn(const QRect& rect) const
{
    const GridInterval band = columnsBetween(rect.left(), rect.right());
    const int lastRow = std::min(rows() - 1, rowAt(rect.bottom()));
    int firstRow = std::max(0, rowAt(rect.top()));
    // The gap below a row belongs to no cell.
    if (rect.top() >= m_metrics.margin + firstRow * rowPitch() + m_metrics.cell.height()) {
        ++firstRow;
    }
    if (band.isEmpty() || lastRow < firstRow) {
        return {};
    }
    GridSelection result;
    if (band.count() == m_columns) {
        result.add({firstRow * m_columns, (lastRow + 1) * m_columns - 1});
    } else {
        for (int row = firstRow; row <= lastRow; ++row) {
            result.add({row * m_columns + band.first, row * m_columns + band.last});
        }
    }
    result.clip(m_count);
    return result;
}

int GridLayout::moved(int current, GridMove move, int viewHeight) const
{
    const int last = m_count - 1;
    if (last < 0 || move == GridMove::End) {
        return last;
    }
    if (move == GridMove::Home) {
        return 0;
    }
    if (current < 0) {
        return move == GridMove::Left || move == GridMove::Up ? last : 0;
    }
    const int page = std::max(1, viewHeight / rowPitch()) * m_columns;
    switch (move) {
    case GridMove::Left:
        return std::max(0, current - 1);
    case GridMove::Right:
        return std::min(last, current + 1);
    case GridMove::Up:
        return current < m_columns ? current : current - m_columns;
    case GridMove::PageUp:
        return current < page ? current % m_columns : current - page;
    default:
        break;
    }
    // Downwards: the last row may end before this column; its last cell is then meant.
    const int step = move == GridMove::Down ? m_columns : page;
    const bool inLastRow = current / m_columns == last / m_columns;
    return inLastRow ? current : std::min(last, current + step);
}

} // namespace mosaro::kit
