#include "import/LabelColors.h"

#include "import/MediaClassification.h"

#include <array>

namespace mosaro::importing {

std::optional<base::ColorValue> fileLabelColor(int fileLabelNumber)
{
    // Red, orange, yellow, green, blue, purple, gray: in the order of the items' labels.
    static const std::array<QColor, 7> colors{
        QColor(252, 99, 89),  QColor(246, 170, 62),  QColor(235, 219, 65), QColor(174, 216, 65),
        QColor(92, 160, 255), QColor(194, 138, 217), QColor(168, 168, 168)};
    const int label = mediaLabelFromFileLabel(fileLabelNumber);
    if (label < 1 || label > int(colors.size())) {
        return std::nullopt;
    }
    return base::ColorValue::fromColor(colors.at(size_t(label) - 1));
}

} // namespace mosaro::importing
