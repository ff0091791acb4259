#include "kit/GridLayout.h"

#include <algorithm>

namespace mosaro::kit {

GridLayout::GridLayout(const GridMetrics& metrics, int width, int count) : m_metrics(metrics), m_width(width)
{
    place({{count, false}}, 0);
}

GridLayout::GridLayout(const GridMetrics& metrics, int width, const std::vector<GridSectionSize>& sections)
    : m_metrics(metrics), m_width(width), m_hasHeaders(true)
{
    place(sections, metrics.headerHeight);
}

void GridLayout::place(const std::vector<GridSectionSize>& sections, int headerHeight)
{
    const int gap = m_metrics.spacing.width();
    m_columns = std::max(1, (m_width - 2 * m_metrics.margin + gap) / (m_metrics.cell.width() + gap));
    m_blocks.clear();
    for (const auto& [count, closed] : sections) {
        Block block{m_count, count, closed, m_height};
        block.cellsTop = m_height + headerHeight + m_metrics.margin;
        block.bottom = m_height + headerHeight;
        if (!closed && count > 0) {
            block.bottom =
                block.cellsTop + rowsOf(block) * rowPitch() - m_metrics.spacing.height() + m_metrics.margin;
        }
        m_blocks.push_back(block);
        m_height = block.bottom;
        m_count += count;
    }
    if (m_blocks.empty()) {
        m_blocks.emplace_back();
    }
}

const GridLayout::Block& GridLayout::blockOf(int index) const
{
    const auto after = std::upper_bound(m_blocks.begin() + 1, m_blocks.end(), index,
                                        [](int value, const Block& block) { return value < block.first; });
    return *(after - 1);
}

int GridLayout::sectionOf(int index) const
{
    return m_hasHeaders && index >= 0 && index < m_count ? int(&blockOf(index) - m_blocks.data()) : -1;
}

GridInterval GridLayout::sectionIndexes(int section) const
{
    const Block& block = m_blocks[size_t(section)];
    return {block.first, block.last()};
}

QRect GridLayout::headerRect(int section, int offset) const
{
    const Block& block = m_blocks[size_t(section)];
    const int lowest = block.bottom - m_metrics.headerHeight;
    return {0, std::clamp(offset, block.headerTop, lowest), m_width, m_metrics.headerHeight};
}

GridSelection GridLayout::withoutHidden(GridSelection selection) const
{
    for (const Block& block : m_blocks) {
        if (block.closed) {
            selection.remove({block.first, block.last()});
        }
    }
    return selection;
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
    const Block& block = blockOf(index);
    if (block.closed) {
        return {0, block.headerTop, m_width, m_metrics.headerHeight};
    }
    const int place = index - block.first;
    const int top = block.cellsTop + place / m_columns * rowPitch();
    return {QPoint(columnLeft(place % m_columns), top), m_metrics.cell};
}

int GridLayout::rowAt(const Block& block, int y) const
{
    return y < block.cellsTop ? -1 : (y - block.cellsTop) / rowPitch();
}

int GridLayout::indexAt(const QPoint& point) const
{
    const GridInterval hit = columnsBetween(point.x(), point.x());
    for (const Block& block : m_blocks) {
        const int row = rowAt(block, point.y());
        const int index = block.first + row * m_columns + hit.first;
        if (!block.closed && row >= 0 && !hit.isEmpty() && index <= block.last() &&
            cellRect(index).contains(point)) {
            return index;
        }
    }
    return -1;
}

GridSelection GridLayout::indexesBetween(int top, int bottom) const
{
    GridSelection result;
    for (const Block& block : m_blocks) {
        const int firstRow = std::max(0, rowAt(block, top));
        const int lastRow = rowAt(block, bottom);
        if (!block.closed && lastRow >= 0) {
            result.add({block.first + firstRow * m_columns,
                        std::min(block.last(), block.first + (lastRow + 1) * m_columns - 1)});
        }
    }
    return result;
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
    GridSelection result;
    for (const Block& block : m_blocks) {
        const int lastRow = std::min(rowsOf(block) - 1, rowAt(block, rect.bottom()));
        int firstRow = std::max(0, rowAt(block, rect.top()));
        // The gap below a row belongs to no cell.
        if (rect.top() >= block.cellsTop + firstRow * rowPitch() + m_metrics.cell.height()) {
            ++firstRow;
        }
        const auto add = [&](int from, int to) {
            result.add({block.first + from, std::min(block.last(), block.first + to)});
        };
        if (block.closed || band.isEmpty() || lastRow < firstRow) {
            continue;
        }
        if (band.count() == m_columns) {
            add(firstRow * m_columns, (lastRow + 1) * m_columns - 1);
            continue;
        }
        for (int row = firstRow; row <= lastRow; ++row) {
            add(row * m_columns + band.first, row * m_columns + band.last);
        }
    }
    return result;
}

int GridLayout::rowUp(int index) const
{
    const Block& block = blockOf(index);
    if (!block.closed && index - block.first >= m_columns) {
        return index - m_columns;
    }
    if (block.first == 0) {
        return index;
    }
    const Block& above = blockOf(block.first - 1);
    const int column = block.closed ? 0 : index - block.first;
    const int lastRow = (above.count - 1) / m_columns * m_columns;
    return above.closed ? above.first : std::min(above.last(), above.first + lastRow + column);
}

int GridLayout::rowDown(int index) const
{
    // The last row may end before this column; its last cell is then meant.
    const Block& block = blockOf(index);
    const int place = index - block.first;
    if (!block.closed && place / m_columns < (block.count - 1) / m_columns) {
        return std::min(block.last(), index + m_columns);
    }
    if (block.last() == m_count - 1) {
        return index;
    }
    const Block& below = blockOf(block.last() + 1);
    const int column = block.closed ? 0 : place % m_columns;
    return below.closed ? below.first : std::min(below.last(), below.first + column);
}

int GridLayout::moved(int current, GridMove move, int viewHeight) const
{
    const int last = m_count - 1;
    if (last < 0 || move == GridMove::End) {
        return standIn(last);
    }
    if (move == GridMove::Home) {
        return 0;
    }
    if (current < 0) {
        return move == GridMove::Left || move == GridMove::Up ? standIn(last) : 0;
    }
    const bool isPage = move == GridMove::PageUp || move == GridMove::PageDown;
    int index = standIn(current);
    switch (move) {
    case GridMove::Left:
        return standIn(std::max(0, index - 1));
    case GridMove::Right:
        return standIn(std::min(last, (isHidden(index) ? blockOf(index).last() : index) + 1));
    default:
        break;
    }
    const bool isUp = move == GridMove::Up || move == GridMove::PageUp;
    for (int rows = isPage ? std::max(1, viewHeight / rowPitch()) : 1; rows > 0; --rows) {
        index = isUp ? rowUp(index) : rowDown(index);
    }
    return index;
}

} // namespace mosaro::kit
