#pragma once

#include <QRectF>
#include <QSize>

namespace mosaro::browser {

/// The picture's box at a zoom of 0.4 to 0.7.
[[nodiscard]] QSize imageBoxSize(double zoom);
/// The whole cell: the box, and below it two lines of text when titles are on.
[[nodiscard]] QSize cellSize(double zoom, bool titled);

/// The places of a cell's layers, in the coordinates of the cell's rectangle. Distances are told from the
/// selection frame; "far" is right and bottom, or top for the marks of the upper edge.
class CellGeometry {
public:
    /// `picture`: size at which the picture is shown.
    CellGeometry(const QRect& cell, double zoom, const QSize& picture);

    [[nodiscard]] const QRectF& picture() const { return m_picture; }
    /// The picture's frame; larger than a tiny picture, so that the marks have room.
    [[nodiscard]] const QRectF& imageFrame() const { return m_image; }
    [[nodiscard]] QRectF selectionFrame() const { return m_image.adjusted(-4, -4, 4, 4); }
    /// The selection frame less 4 in each dimension.
    [[nodiscard]] QRectF frame() const { return m_image.adjusted(-2, -2, 2, 2); }
    /// Under a picture that has a background of its own.
    [[nodiscard]] QRectF backgroundFrame() const { return frame().adjusted(0.5, 0.5, -0.5, -0.5); }
    [[nodiscard]] QRectF rating(qreal textWidth) const;
    [[nodiscard]] QRectF tags() const;
    [[nodiscard]] QRectF badge(bool thirdParty) const;
    [[nodiscard]] QRectF alias() const;
    [[nodiscard]] QRectF modifiedCover() const { return frame().adjusted(1, 1, -1, -1); }
    [[nodiscard]] QRectF modifiedSymbol() const;
    [[nodiscard]] QRectF missingSymbol() const;
    [[nodiscard]] bool showsShortRating() const { return selectionFrame().width() <= 80; }

    [[nodiscard]] QRectF title() const;
    [[nodiscard]] QRectF subtitle() const;
    /// The label's dot, its middle 10 points before a title whose text is so wide.
    [[nodiscard]] QRectF label(qreal titleWidth) const;

private:
    QRectF m_cell;
    QRectF m_box;
    QRectF m_picture;
    QRectF m_image;
};

} // namespace mosaro::browser
