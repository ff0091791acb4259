#include "browser/ui/CellBadges.h"

#include "kit/Look.h"

#include <QHash>
#include <QPainter>
#include <cmath>

namespace mosaro::browser::badge {

namespace {

const QColor kPlate = QColor::fromRgbF(0.095F, 0.095F, 0.095F, 0.75F);
const QColor kBadgeBorder = QColor::fromRgbF(0.62F, 0.62F, 0.62F);

const QFont& ratingFont()
{
    static const QFont font = kit::font(12, QFont::Bold);
    return font;
}

void plate(QPainter& painter, const QRectF& rect, qreal radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPlate);
    painter.drawRoundedRect(rect, radius, radius);
}

/// Text in capitals, made narrower where it would not fit.
void fitText(QPainter& painter, const QRectF& rect, QFont font, const QString& text)
{
    const qreal width = QFontMetricsF(font).horizontalAdvance(text);
    if (width > rect.width()) {
        font.setStretch(std::max(50, int(rect.width() / width * 100)));
    }
    painter.setFont(font);
    painter.setPen(kit::color::text);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine, text);
}

/// Two letters in place of an icon, for the formats of other programs; empty for common formats.
QString lettersOf(const QString& badgeName)
{
    static const QHash<QString, QString> letters{
        {QStringLiteral("AffinityDesigner_icon"), QStringLiteral("Ad")},
        {QStringLiteral("AffinityPhoto_icon"), QStringLiteral("Ap")},
        {QStringLiteral("iDraw_icon"), QStringLiteral("iD")},
        {QStringLiteral("Pixelmator_icon"), QStringLiteral("Px")},
        {QStringLiteral("Sketch_icon"), QStringLiteral("Sk")},
        {QStringLiteral("Acorn_icon"), QStringLiteral("Ac")},
    };
    return letters.value(badgeName);
}

double luminance(const QColor& color)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

void rating(QPainter& painter, const QRectF& rect, const QString& stars)
{
    plate(painter, rect, 3);
    painter.setFont(ratingFont());
    painter.setPen(Qt::white);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextDontClip | Qt::TextSingleLine, stars);
}

qreal ratingWidth(const QString& stars)
{
    return std::ceil(QFontMetricsF(ratingFont()).horizontalAdvance(stars));
}

void tag(QPainter& painter, const QRectF& rect)
{
    plate(painter, rect, 3);
    symbol(painter, rect.adjusted(1, 1, -1, -1), QStringLiteral("tag_symbol"), Qt::white);
}

void alias(QPainter& painter, const QRectF& rect)
{
    plate(painter, rect.adjusted(3, 3, -3, -3), 3);
    symbol(painter, rect.adjusted(4, 4, -4, -4), QStringLiteral("Alias"), Qt::white);
}

void documentType(QPainter& painter, const QRectF& rect, const QString& name)
{
    const QString letters = lettersOf(name);
    if (!letters.isEmpty()) {
        plate(painter, rect, kit::metric::radius);
        fitText(painter, rect.adjusted(2, 2, -2, -2), kit::font(12, QFont::Bold), letters);
        return;
    }
    plate(painter, rect, 2);
    painter.setPen(QPen(kBadgeBorder, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    fitText(painter, rect.adjusted(2.5, 1, -2.5, -1), kit::font(9, QFont::Bold), name);
}

void symbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color)
{
    kit::icon(name, color).paint(&painter, rect.toAlignedRect());
}

QColor readable(const QColor& color, const QColor& background)
{
    QColor result = color;
    const double ground = luminance(background) + 0.05;
    while ((luminance(result) + 0.05) / ground < 3.0 && result.lightnessF() < 1.0F) {
        result = QColor::fromHslF(result.hslHueF() < 0 ? 0 : result.hslHueF(), result.hslSaturationF(),
                                  std::min(1.0F, result.lightnessF() + 0.01F));
    }
    return result;
}

} // namespace mosaro::browser::badge
