#pragma once

#include "kit/GridLayout.h"
#include "kit/GridModel.h"
#include "organisation/ColorGroups.h"

namespace mosaro::organisation {

/// What the cells of the colour grid tell beside the colour.
struct SwatchCellOptions {
    bool titles = true;
    bool counts = true;
};

/// Draws the swatches: colour, count, like mark, title.
class MRColorTagBrowserCell : public kit::GridCellPainter {
public:
    explicit MRColorTagBrowserCell(const ColorGroups& groups) : m_groups(groups) {}

    void setOptions(const SwatchCellOptions& options) { m_options = options; }
    [[nodiscard]] kit::GridMetrics metrics() const;

    void prepare(int, int) override {}
    void paint(QPainter& painter, const QRect& cell, int index, const kit::GridCellState& state) override;

private:
    const ColorGroups& m_groups;
    SwatchCellOptions m_options;
};

} // namespace mosaro::organisation
