#include "shell/WindowFrame.h"

#include <QStringList>

namespace mosaro::shell {

namespace {
constexpr QSize kDefaultSize{1280, 800};
constexpr int kLeastSide = 100;
constexpr int kMostSide = 100'000;
} // namespace

QString frameAsText(const QRect& frame, const QRect& available)
{
    QStringList parts;
    for (const QRect& rect : {frame, available}) {
        for (const int value : {rect.x(), rect.y(), rect.width(), rect.height()}) {
            parts.append(QString::number(value));
        }
    }
    return parts.join(u' ');
}

std::optional<QRect> frameFromText(const QString& text)
{
    const QStringList parts = text.split(u' ', Qt::SkipEmptyParts);
    if (parts.size() < 4) {
        return std::nullopt;
    }
    int values[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        values[i] = parts.at(i).toInt(&isNumber);
        if (!isNumber || qAbs(qint64(values[i])) > kMostSide) {
            return std::nullopt;
        }
    }
    if (values[2] < kLeastSide || values[3] < kLeastSide) {
        return std::nullopt;
    }
    return QRect(values[0], values[1], values[2], values[3]);
}

QRect frameWithin(const QRect& frame, const QRect& available)
{
    if (!available.isValid()) {
        return frame;
    }
    const QSize size = frame.size().boundedTo(available.size());
    const int x = qBound(available.left(), frame.left(), available.right() + 1 - size.width());
    const int y = qBound(available.top(), frame.top(), available.bottom() + 1 - size.height());
    return {QPoint(x, y), size};
}

QRect defaultFrame(const QRect& available)
{
    QRect frame({}, kDefaultSize);
    if (!available.isValid()) {
        return frame;
    }
    frame.setSize(kDefaultSize.boundedTo(available.size()));
    frame.moveCenter(available.center());
    return frame;
}

} // namespace mosaro::shell
