#include "import/Orientation.h"

#include <QTransform>

namespace mosaro::importing {

QRect storedRect(const QRect& upright, QSize stored, int orientation)
{
    const int fromRight =
        stored.width() - (orientation >= 5 ? upright.y() + upright.height() : upright.x() + upright.width());
    const int fromBottom =
        stored.height() - (orientation >= 5 ? upright.x() + upright.width() : upright.y() + upright.height());
    const int left = orientation >= 5 ? upright.y() : upright.x();
    const int top = orientation >= 5 ? upright.x() : upright.y();
    const bool mirroredAcross = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
    const bool mirroredDown = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    const QSize size = orientation >= 5 ? upright.size().transposed() : upright.size();
    return {QPoint(mirroredAcross ? fromRight : left, mirroredDown ? fromBottom : top), size};
}

QImage turnedUpright(const QImage& image, int orientation)
{
    const QTransform quarter = QTransform().rotate(90);
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.mirrored(true, true);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.transformed(quarter).mirrored(true, false);
    case 6:
        return image.transformed(quarter);
    case 7:
        return image.transformed(quarter).mirrored(false, true);
    case 8:
        return image.transformed(quarter).mirrored(true, true);
    default:
        return image;
    }
}

} // namespace mosaro::importing
