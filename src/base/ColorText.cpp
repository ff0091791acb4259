#include "base/ColorText.h"

#include <QStringView>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace mosaro::base {

namespace {

/// Not by toFloat(), which takes eight times as long: a library has tens of thousands of colours.
float componentFromText(QStringView text)
{
    const QByteArray digits = text.trimmed().toLatin1();
    const char* end = digits.constData() + digits.size();
    float value = 0;
    const auto [stop, error] = std::from_chars(digits.constData(), end, value);
    return error == std::errc() && stop == end && std::isfinite(value) ? value : 0.0F;
}

float shown(float component)
{
    return std::isfinite(component) ? std::clamp(component, 0.0F, 1.0F) : 0.0F;
}

} // namespace

QColor ColorValue::toColor() const
{
    return QColor::fromRgbF(shown(red), shown(green), shown(blue), shown(alpha));
}

ColorValue ColorValue::fromColor(const QColor& color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

QString colorAsString(const ColorValue& color)
{
    // asprintf of QString knows no locale, unlike that of the C library.
    return QString::asprintf("%f+%f+%f+%f", double(color.red), double(color.green), double(color.blue),
                             double(color.alpha));
}

std::optional<ColorValue> colorFromString(const QString& text)
{
    const QList<QStringView> parts = QStringView(text).split(u'+');
    if (parts.size() < 4)
        return std::nullopt;
    return ColorValue{componentFromText(parts[0]), componentFromText(parts[1]), componentFromText(parts[2]),
                      componentFromText(parts[3])};
}

} // namespace mosaro::base
