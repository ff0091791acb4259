#include "kit/DragPicture.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace mosaro::kit {

namespace {

constexpr int kRowWidth = 200;
constexpr int kIcon = 18;
constexpr int kStack = 96; ///< Longest edge of a picture.
constexpr int kOffset = 6; ///< From one picture of a stack to the next.
constexpr size_t kMostPictures = 3;
constexpr int kPlateHeight = metric::rowHeight + 2;
constexpr int kCountAir = 4;
constexpr double kTextSize = 13;
constexpr double kCountSize = 11;
constexpr int kCountHeight = 18;

QPixmap canvas(const QSize& size, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

qreal countWidth(int count)
{
    const QFontMetrics metrics(kit::font(kCountSize, QFont::DemiBold));
    return std::max(kCountHeight, metrics.horizontalAdvance(QString::number(count)) + 10);
}

/// A pill just inside the upper right corner; nothing for one.
void paintCount(QPainter& painter, const QRectF& inside, int count)
{
    if (count < 2) {
        return;
    }
    const QString text = QString::number(count);
    const QFont font = kit::font(kCountSize, QFont::DemiBold);
    const qreal width = countWidth(count);
    const QRectF pill(inside.right() - width - kCountAir, inside.top() + kCountAir, width, kCountHeight);
    paint::panel(painter, pill, color::coral, {}, kCountHeight / 2.0);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(pill, Qt::AlignCenter, text);
}

} // namespace

QPixmap rowDragPicture(const QIcon& icon, const QString& title, int count, qreal ratio)
{
    const QFont font = kit::font(kTextSize);
    const QFontMetrics metrics(font);
    const int left = kIcon + 2 * metric::gap;
    const QString shown = metrics.elidedText(title, Qt::ElideRight, kRowWidth);
    const int pill = count < 2 ? 0 : int(countWidth(count)) + metric::gap;
    const QRect plate(0, 0, left + metrics.horizontalAdvance(shown) + metric::gap + pill, kPlateHeight);
    QPixmap pixmap = canvas(plate.size(), ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    paint::panel(painter, plate, color::raisedStrong, color::amber, metric::radius);
    icon.paint(&painter, metric::gap, (plate.height() - kIcon) / 2, kIcon, kIcon);
    painter.setFont(font);
    painter.setPen(color::text);
    painter.drawText(plate.adjusted(left, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, shown);
    paintCount(painter, plate, count);
    return pixmap;
}

QPixmap stackDragPicture(const std::vector<QImage>& pictures, int count, qreal ratio)
{
    std::vector<QRect> frames;
    QRect all(0, 0, kPlateHeight, kPlateHeight);
    for (size_t i = 0; i < std::min(pictures.size(), kMostPictures); ++i) {
        const QSize size = pictures[i].size().scaled(kStack, kStack, Qt::KeepAspectRatio);
        frames.emplace_back(QPoint(int(i) * kOffset, int(i) * kOffset), size.expandedTo({1, 1}));
        all |= frames.back();
    }
    QPixmap pixmap = canvas(all.size(), ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (frames.empty()) {
        painter.fillRect(all, color::raisedStrong);
    }
    for (size_t i = frames.size(); i-- > 0;) {
        painter.fillRect(frames[i], color::raised);
        painter.drawImage(frames[i], pictures[i]);
        painter.setPen(color::text3);
        painter.drawRect(frames[i].adjusted(0, 0, -1, -1));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    paintCount(painter, frames.empty() ? all : frames.front(), count);
    return pixmap;
}

QPoint dragHotSpot()
{
    return {-12, -6};
}

} // namespace mosaro::kit
