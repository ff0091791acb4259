#pragma once

#include <QPainter>
#include <QRect>
#include <QString>
#include <vector>

namespace mosaro::kit {

/// Consecutive cells below a header that opens and closes them.
struct GridSection {
    int id = 0; ///< What is remembered as closed; stays the same when the list changes.
    QString title;
    int count = 0;
};

/// What a grid shows. Asked on the main thread, for visible cells only.
class GridModel {
public:
    virtual ~GridModel() = default;

    [[nodiscard]] virtual int count() const = 0;
    /// In order, their counts adding up to count(); none for a grid without headers.
    [[nodiscard]] virtual std::vector<GridSection> sections() const { return {}; }
    [[nodiscard]] virtual QString title(int index) const = 0;
    [[nodiscard]] virtual QString toolTip(int index) const = 0;
    /// All that the cell tells, in one line for those who cannot see it.
    [[nodiscard]] virtual QString accessibleText(int index) const = 0;
    /// The next index at or after `from`, going round, whose title begins with the text; -1 for none.
    [[nodiscard]] virtual int findTitle(const QString& prefix, int from) const = 0;
};

struct GridCellState {
    bool selected = false;
    bool current = false;
    bool active = false; ///< The grid has the keyboard and its window is in front.
    bool showsFocus = false;
};

/// Draws the cells of a grid.
class GridCellPainter {
public:
    virtual ~GridCellPainter() = default;

    /// Told before each paint: these cells will be drawn, and then perhaps those around them.
    virtual void prepare(int first, int last) = 0;
    virtual void paint(QPainter& painter, const QRect& cell, int index, const GridCellState& state) = 0;
};

} // namespace mosaro::kit
