#pragma once

#include <QColor>
#include <QString>
#include <optional>

namespace mosaro::base {

/// A colour as stored: red, green, blue and alpha in sRGB. Components may lie above 1 (the colour engine
/// makes such), which QColor cannot hold; hence a type of its own.
struct ColorValue {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    /// For showing: each component held to 0…1.
    [[nodiscard]] QColor toColor() const;
    [[nodiscard]] static ColorValue fromColor(const QColor& color);
    bool operator==(const ColorValue&) const = default;
};

/// "%f+%f+%f+%f": six decimals and a point in every locale.
[[nodiscard]] QString colorAsString(const ColorValue& color);

/// The reverse. Fewer than four parts between the plus signs yield nothing; a part that is no number is 0.
[[nodiscard]] std::optional<ColorValue> colorFromString(const QString& text);

} // namespace mosaro::base
