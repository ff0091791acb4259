#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The strokes that all controls are made of. Coordinates are points; hairlines are always one device pixel.
namespace mosaro::kit::paint {

enum class Direction { Up, Down, Left, Right };

/// A filled rounded rectangle; an invalid border colour leaves the border out.
void panel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& border = {},
           qreal radius = 4);
/// The two-pixel ring that tells where the keyboard is, just inside `rect`.
void focusRing(QPainter& painter, const QRectF& rect, qreal radius = 4);
/// An open arrow head in the middle of `rect`, `extent` wide.
void chevron(QPainter& painter, const QRectF& rect, Direction direction, const QColor& color,
             qreal extent = 7);
/// A check mark that fills `rect`.
void checkMark(QPainter& painter, const QRectF& rect, const QColor& color);
void horizontalHairline(QPainter& painter, qreal left, qreal right, qreal y, const QColor& color);
void verticalHairline(QPainter& painter, qreal top, qreal bottom, qreal x, const QColor& color);

/// The dot of label 1 to 7, filling `rect`; nothing for others.
void labelDot(QPainter& painter, const QRectF& rect, int label);
/// A dot of any colour; one that would be lost on the dark ground has an outline.
void dot(QPainter& painter, const QRectF& rect, const QColor& color);
/// A colour on show. A transparent one lies on a checker, so that it is seen to be transparent.
void swatch(QPainter& painter, const QRectF& rect, const QColor& color);
/// The dark checker behind pictures with transparency.
void checker(QPainter& painter, const QRectF& rect, qreal square = 8);

/// `over` laid on `under` with the given strength, 0 to 1.
[[nodiscard]] QColor mixed(const QColor& under, const QColor& over, qreal strength);

} // namespace mosaro::kit::paint
