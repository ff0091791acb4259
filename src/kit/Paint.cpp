#include "kit/Paint.h"

#include "kit/Look.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace mosaro::kit::paint {

namespace {

QPen hairline(const QColor& color)
{
    QPen pen(color, 0);
    pen.setCosmetic(true);
    return pen;
}

QPen stroke(const QColor& color, qreal width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Half a device pixel, in points: what puts a hairline onto the pixel grid.
qreal halfPixel(const QPainter& painter)
{
    const qreal ratio = painter.device() != nullptr ? painter.device()->devicePixelRatioF() : 1.0;
    return 0.5 / ratio;
}

} // namespace

QColor mixed(const QColor& under, const QColor& over, qreal strength)
{
    const auto blend = [strength](int a, int b) { return qRound(a + (b - a) * strength); };
    return {blend(under.red(), over.red()), blend(under.green(), over.green()),
            blend(under.blue(), over.blue())};
}

void panel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& border, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    if (border.isValid()) {
        const qreal inset = halfPixel(painter);
        painter.setPen(hairline(border));
        painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    } else {
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(rect, radius, radius);
    }
    painter.restore();
}

void focusRing(QPainter& painter, const QRectF& rect, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color::blue, metric::focusRing));
    const qreal inset = metric::focusRing / 2.0;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset / 2,
                            radius - inset / 2);
    painter.restore();
}

void chevron(QPainter& painter, const QRectF& rect, Direction direction, const QColor& tint, qreal extent)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center());
    switch (direction) {
    case Direction::Down:
        break;
    case Direction::Up:
        painter.rotate(180);
        break;
    case Direction::Left:
        painter.rotate(90);
        break;
    case Direction::Right:
        painter.rotate(-90);
        break;
    }
    const qreal half = extent / 2;
    painter.setPen(stroke(tint, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{-half, -half / 2}, {0, half / 2}, {half, -half / 2}}));
    painter.restore();
}

void checkMark(QPainter& painter, const QRectF& rect, const QColor& tint)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(stroke(tint, qMax(1.5, rect.width() / 8)));
    painter.setBrush(Qt::NoBrush);
    const auto at = [&rect](qreal x, qreal y) {
        return QPointF(rect.x() + rect.width() * x, rect.y() + rect.height() * y);
    };
    painter.drawPolyline(QPolygonF({at(0.22, 0.54), at(0.42, 0.74), at(0.78, 0.28)}));
    painter.restore();
}

void horizontalHairline(QPainter& painter, qreal left, qreal right, qreal y, const QColor& tint)
{
    const qreal half = halfPixel(painter);
    painter.fillRect(QRectF(left, y, right - left, 2 * half), tint);
}

void verticalHairline(QPainter& painter, qreal top, qreal bottom, qreal x, const QColor& tint)
{
    const qreal half = halfPixel(painter);
    painter.fillRect(QRectF(x, top, 2 * half, bottom - top), tint);
}

void labelDot(QPainter& painter, const QRectF& rect, int label)
{
    if (const QColor tint = labelColor(label); tint.isValid()) {
        dot(painter, rect, tint);
    }
}

void dot(QPainter& painter, const QRectF& rect, const QColor& color)
{
    constexpr int kLost = 64;
    const bool isLost = color.lightness() < kLost || color.alpha() < kLost;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(isLost ? QPen(color::text3, 1) : QPen(Qt::NoPen));
    painter.setBrush(color);
    painter.drawEllipse(isLost ? rect.adjusted(0.5, 0.5, -0.5, -0.5) : rect);
    painter.restore();
}

void checker(QPainter& painter, const QRectF& rect, qreal square)
{
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.fillRect(rect, QColor(0x26, 0x26, 0x28));
    const int rows = qCeil(rect.height() / square);
    const int columns = qCeil(rect.width() / square);
    for (int row = 0; row < rows; ++row) {
        for (int column = row % 2; column < columns; column += 2) {
            painter.fillRect(QRectF(rect.left() + column * square, rect.top() + row * square, square, square),
                             QColor(0x33, 0x33, 0x36));
        }
    }
    painter.restore();
}

void swatch(QPainter& painter, const QRectF& rect, const QColor& tint)
{
    painter.save();
    if (tint.isValid() && tint.alpha() < 255) {
        QPainterPath shape;
        shape.addRoundedRect(rect, 3, 3);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipPath(shape, Qt::IntersectClip);
        checker(painter, rect, 4);
    }
    painter.restore();
    panel(painter, rect, tint.isValid() ? tint : color::field, QColor(0x4A, 0x4B, 0x4F), 3);
}

} // namespace mosaro::kit::paint
