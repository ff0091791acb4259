#pragma once

#include "kit/GridSelection.h"

#include <QRect>
#include <QSize>
#include <vector>

namespace mosaro::kit {

/// What the places of a grid follow from; points.
struct GridMetrics {
    QSize cell{184, 144};
    QSize spacing{20, 20};
    int margin = 18; ///< At least this around the whole, and around the cells of each section.
    int headerHeight = 16;
};

/// Consecutive cells below a header, or the header alone.
struct GridSectionSize {
    int count = 0;
    bool closed = false;
};

/// A step of the keyboard.
enum class GridMove { Left, Right, Up, Down, PageUp, PageDown, Home, End };

/// The places of equal cells in rows from the top, spread over the width, perhaps in sections with headers.
/// In content coordinates: the scroll offset is the view's matter. The cells of a closed section have no
/// places of their own; its header stands for them, and for the keyboard its first cell does.
class GridLayout {
public:
    GridLayout() = default;
    GridLayout(const GridMetrics& metrics, int width, int count);
    GridLayout(const GridMetrics& metrics, int width, const std::vector<GridSectionSize>& sections);

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] int contentHeight() const { return m_height; }
    [[nodiscard]] int rowPitch() const { return m_metrics.cell.height() + m_metrics.spacing.height(); }

    [[nodiscard]] QRect cellRect(int index) const;
    /// The cell under a point, or -1 between cells.
    [[nodiscard]] int indexAt(const QPoint& point) const;
    /// The cells of all rows that reach into the band.
    [[nodiscard]] GridSelection indexesBetween(int top, int bottom) const;
    /// The cells that a rectangle touches.
    [[nodiscard]] GridSelection indexesIn(const QRect& rect) const;
    /// Where a key leads from `current` (-1: none yet); -1 when there are no cells.
    [[nodiscard]] int moved(int current, GridMove move, int viewHeight) const;

    /// 0 for a grid without headers.
    [[nodiscard]] int sectionCount() const { return m_hasHeaders ? int(m_blocks.size()) : 0; }
    [[nodiscard]] int sectionOf(int index) const;
    [[nodiscard]] GridInterval sectionIndexes(int section) const;
    /// A header stays in sight at the top of a view that is scrolled by `offset` as long as its section does.
    [[nodiscard]] QRect headerRect(int section, int offset = 0) const;
    [[nodiscard]] bool isHidden(int index) const
    {
        return index >= 0 && index < m_count && blockOf(index).closed;
    }
    /// The cell that stands for this one: itself, or the first one of its closed section.
    [[nodiscard]] int standIn(int index) const { return isHidden(index) ? blockOf(index).first : index; }
    /// What is left of a selection without the cells of closed sections.
    [[nodiscard]] GridSelection withoutHidden(GridSelection selection) const;

private:
    struct Block {
        int first = 0;
        int count = 0;
        bool closed = false;
        int headerTop = 0;
        int cellsTop = 0;
        int bottom = 0;
        [[nodiscard]] int last() const { return first + count - 1; }
    };

    void place(const std::vector<GridSectionSize>& sections, int headerHeight);
    [[nodiscard]] const Block& blockOf(int index) const;
    [[nodiscard]] int rowsOf(const Block& block) const { return (block.count + m_columns - 1) / m_columns; }
    [[nodiscard]] int rowAt(const Block& block, int y) const;
    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] GridInterval columnsBetween(int left, int right) const;
    [[nodiscard]] int rowUp(int index) const;
    [[nodiscard]] int rowDown(int index) const;

    GridMetrics m_metrics;
    int m_width = 0;
    int m_count = 0;
    int m_columns = 1;
    int m_height = 0;
    bool m_hasHeaders = false;
    std::vector<Block> m_blocks{Block()}; ///< Never empty; the only one of a grid without headers.
};

} // namespace mosaro::kit
