#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

/// The small marks on a picture.
namespace mosaro::browser::badge {

void rating(QPainter& painter, const QRectF& rect, const QString& stars);
[[nodiscard]] qreal ratingWidth(const QString& stars);
void tag(QPainter& painter, const QRectF& rect);
void alias(QPainter& painter, const QRectF& rect);
/// `name` is a badge name of the items: "PNG", or for outside formats the name of their icon.
void documentType(QPainter& painter, const QRectF& rect, const QString& name);
/// An icon of the kit in one colour.
void symbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color);

/// `color`, made lighter where it must be to have a contrast of 3 to 1 with a dark background.
[[nodiscard]] QColor readable(const QColor& color, const QColor& background);

} // namespace mosaro::browser::badge
