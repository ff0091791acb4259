#include "base/ColorText.h"

#include "FuzzInput.h"

#include <cmath>

using namespace mosaro;

namespace {

const fuzz::Target target("ColorText", [](const QByteArray& bytes) {
    const std::optional<base::ColorValue> color = base::colorFromString(QString::fromUtf8(bytes));
    if (!color)
        return;
    for (const float part : {color->red, color->green, color->blue, color->alpha})
        fuzz::require(std::isfinite(part), "a part of a colour is a number");
    fuzz::require(color->toColor().isValid(), "a stored colour can be shown");
    const QString text = base::colorAsString(*color);
    const std::optional<base::ColorValue> again = base::colorFromString(text);
    fuzz::require(again && base::colorAsString(*again) == text, "what was written reads as the same colour");
});

} // namespace
