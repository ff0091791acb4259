#include "browser/ui/CellGeometry.h"

#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr qreal kTitleGap = 9;
constexpr qreal kTitleHeight = 17;
constexpr qreal kSubtitleHeight = 16;
constexpr qreal kInset = 3.3;
/// Room for the short rating beside the badge.
constexpr QSizeF kSmallestFrame{72, 52};

QRectF centred(const QSizeF& size, const QRectF& in)
{
    // On whole points, so that pictures and hairlines stay crisp.
    const qreal x = int(in.x() + (in.width() - size.width()) / 2);
    const qreal y = int(in.y() + (in.height() - size.height()) / 2);
    return {QPointF(x, y), size};
}

} // namespace

QSize imageBoxSize(double zoom)
{
    return {qRound(460 * zoom), qRound(360 * zoom)};
}

QSize cellSize(double zoom, bool titled)
{
    const int text = titled ? int(kTitleGap + kTitleHeight + kSubtitleHeight) : 0;
    return imageBoxSize(zoom) + QSize(0, text);
}

CellGeometry::CellGeometry(const QRect& cell, double zoom, const QSize& picture)
    : m_cell(cell), m_box(cell.topLeft(), imageBoxSize(zoom)), m_picture(centred(picture, m_box)),
      m_image(centred(QSizeF(picture).expandedTo(kSmallestFrame).boundedTo(m_box.size()), m_box))
{
}

QRectF CellGeometry::rating(qreal textWidth) const
{
    const QRectF s = selectionFrame();
    return {s.left() + kInset, s.bottom() - kInset - 14, textWidth + 10, 14};
}

QRectF CellGeometry::tags() const
{
    const QRectF s = selectionFrame();
    return {s.left() + kInset, s.top() + 19 - 16, 16, 16};
}

QRectF CellGeometry::badge(bool thirdParty) const
{
    const QRectF s = selectionFrame();
    const QSizeF size(24, thirdParty ? 24 : 14);
    const qreal inset = thirdParty ? 10 : 8;
    return {s.right() - inset - size.width(), s.bottom() - inset - size.height(), size.width(),
            size.height()};
}

QRectF CellGeometry::alias() const
{
    const QRectF s = selectionFrame();
    return {s.right() - 29, s.top() + 5, 24, 24};
}

QRectF CellGeometry::modifiedSymbol() const
{
    const QRectF cover = modifiedCover();
    const qreal side = std::min({58.0, cover.width() - 8, cover.height() - 8});
    return {cover.center() - QPointF(side, side) / 2, QSizeF(side, side)};
}

QRectF CellGeometry::missingSymbol() const
{
    const QRectF s = selectionFrame();
    return {s.right() - 23, s.top() + 7, 16, 16};
}

QRectF CellGeometry::title() const
{
    return {m_cell.left(), m_box.bottom() + kTitleGap, m_cell.width(), kTitleHeight};
}

QRectF CellGeometry::subtitle() const
{
    return title().translated(0, kTitleHeight).adjusted(0, 0, 0, kSubtitleHeight - kTitleHeight);
}

QRectF CellGeometry::label(qreal titleWidth) const
{
    const QRectF line = title();
    const qreal textLeft = line.center().x() - titleWidth / 2;
    return {textLeft - 10 - 4, line.center().y() - 4, 8, 8};
}

} // namespace mosaro::browser
