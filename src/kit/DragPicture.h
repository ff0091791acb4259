#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <vector>

namespace mosaro::kit {

/// What hangs at the mouse while a row of a list is dragged: its icon and title on a plate, and a count when
/// there are several.
[[nodiscard]] QPixmap rowDragPicture(const QIcon& icon, const QString& title, int count, qreal ratio);

/// The same for pictures: up to three of them as a stack, the first on top.
[[nodiscard]] QPixmap stackDragPicture(const std::vector<QImage>& pictures, int count, qreal ratio);

/// Where the mouse holds it: beside it, so that the place of a drop stays visible.
[[nodiscard]] QPoint dragHotSpot();

} // namespace mosaro::kit
