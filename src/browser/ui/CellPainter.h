#pragma once

#include "browser/ItemList.h"
#include "browser/ui/CellGeometry.h"
#include "browser/ui/PreviewLoader.h"
#include "kit/GridModel.h"

namespace mosaro::browser {

/// What the preferences say of the cells.
struct CellOptions {
    bool titles = true;
    bool imageType = true;
    bool referencedMark = false;
};

/// Draws the items of a list as cells, and asks the loader for the pictures of those that are seen.
class CellPainter : public kit::GridCellPainter {
public:
    CellPainter(ItemList& items, PreviewLoader& previews) : m_items(items), m_previews(previews) {}

    void setOptions(const CellOptions& options) { m_options = options; }
    [[nodiscard]] const CellOptions& options() const { return m_options; }
    void setZoom(double zoom) { m_zoom = zoom; }
    void setRatio(qreal ratio) { m_ratio = ratio; }
    /// While the zoom moves, pictures of the former size will do.
    void setZoomMoves(bool moves) { m_zoomMoves = moves; }

    /// The picture of an item that is on show; null when it is not there yet.
    [[nodiscard]] QImage picture(int index);

    void prepare(int first, int last) override;
    void paint(QPainter& painter, const QRect& cell, int index, const kit::GridCellState& state) override;

private:
    struct Cell;

    [[nodiscard]] PreviewRequest requestFor(const CellContent& content) const;
    void addRequest(std::vector<PreviewRequest>& requests, int index);
    void paintPicture(QPainter& painter, const Cell& cell) const;
    void paintForeground(QPainter& painter, const Cell& cell) const;
    void paintMarks(QPainter& painter, const Cell& cell) const;
    void paintTitles(QPainter& painter, const Cell& cell) const;
    void paintSelection(QPainter& painter, const Cell& cell, const kit::GridCellState& state) const;

    ItemList& m_items;
    PreviewLoader& m_previews;
    CellOptions m_options;
    double m_zoom = kSmallestZoom;
    qreal m_ratio = 1;
    bool m_zoomMoves = false;
};

} // namespace mosaro::browser
