#pragma once

#include "kit/GridSelection.h"

#include <QRect>
#include <QSize>

namespace mosaro::kit {

/// What the places of a grid follow from; points.
struct GridMetrics {
    QSize cell{184, 144};
    QSize spacing{20, 20};
    int margin = 18; ///< At least this around the whole.
};

/// A step of the keyboard.
enum class GridMove { Left, Right, Up, Down, PageUp, PageDown, Home, End };

/// The places of equal cells in rows from the top, spread over the width. In content coordinates: the scroll
/// offset is the view's matter.
class GridLayout {
public:
    GridLayout() = default;
    GridLayout(const GridMetrics& metrics, int width, int count);

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] int rows() const { return (m_count + m_columns - 1) / m_columns; }
    [[nodiscard]] int contentHeight() const;
    [[nodiscard]] int rowPitch() const { return m_metrics.cell.height() + m_metrics.spacing.height(); }

    [[nodiscard]] QRect cellRect(int index) const;
    /// The cell under a point, or -1 between cells.
    [[nodiscard]] int indexAt(const QPoint& point) const;
    /// The cells of all rows that reach into the band.
    [[nodiscard]] GridInterval indexesBetween(int top, int bottom) const;
    /// The cells that a rectangle touches.
    [[nodiscard]] GridSelection indexesIn(const QRect& rect) const;
    /// Where a key leads from `current` (-1: none yet); -1 when there are no cells.
    [[nodiscard]] int moved(int current, GridMove move, int viewHeight) const;

private:
    [[nodiscard]] int rowAt(int y) const;
    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] GridInterval columnsBetween(int left, int right) const;

    GridMetrics m_metrics;
    int m_width = 0;
    int m_count = 0;
    int m_columns = 1;
};

} // namespace mosaro::kit
