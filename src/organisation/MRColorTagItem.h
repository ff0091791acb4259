#pragma once

#include "base/ColorText.h"
#include "store/ColorRows.h"
#include "store/Colors.h"

#include <QImage>
#include <array>

namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

/// The role of a colour in a picture, by its stored number.
inline constexpr int kColorTypes = 4;
/// The title of the group of a role; empty for any other number.
[[nodiscard]] QString colorTypeTitle(qint64 colorType);

/// One swatch of the colour grid: what is shown of a record of Colors. It stands for a row, and fetches the
/// record itself only to change it, so that a library of many colours is listed at once.
class MRColorTagItem {
public:
    /// Stands for no record.
    MRColorTagItem() = default;
    MRColorTagItem(store::ZNDBManager& library, const store::ColorRow& row);

    /// Null without a record, or when it is gone.
    [[nodiscard]] std::shared_ptr<store::Colors> colorRecord() const;
    [[nodiscard]] store::RowId row() const { return m_row.row; }
    [[nodiscard]] const QString& itemID() const { return m_row.colorID; }
    /// Nothing without a record, or when its text is no colour.
    [[nodiscard]] const std::optional<base::ColorValue>& color() const { return m_color; }
    /// For showing; invalid without a colour.
    [[nodiscard]] QColor colorValue() const { return m_color ? m_color->toColor() : QColor(); }

    [[nodiscard]] bool isLike() const { return m_row.isLike; }
    /// Saved at once while the library is open; a save that fails goes unnoticed.
    void setIsLike(bool isLike);

    [[nodiscard]] qint64 colorType() const { return m_row.colorType; }
    [[nodiscard]] QString colorTypeAsString() const { return colorTypeTitle(m_row.colorType); }
    /// Six digits in upper case, empty without a colour.
    [[nodiscard]] QString colorAsHex() const;
    [[nodiscard]] QString colorAsRGBString() const;
    [[nodiscard]] QString colorAsHSBString() const;
    [[nodiscard]] qint64 countOfMedia() const { return m_row.uses; }
    [[nodiscard]] QString countOfMediaAsString() const;
    /// A square of the colour in a thin black border.
    [[nodiscard]] QImage colorAsImage() const;

    /// 0 to 1; all 0 without a colour.
    [[nodiscard]] float hueComponent() const { return m_hsb[0]; }
    [[nodiscard]] float saturationComponent() const { return m_hsb[1]; }
    [[nodiscard]] float brightnessComponent() const { return m_hsb[2]; }

private:
    store::ZNDBManager* m_library = nullptr;
    store::ColorRow m_row;
    std::optional<base::ColorValue> m_color;
    std::array<float, 3> m_hsb{};
};

/// A number with a comma between thousands, wherever the user lives.
[[nodiscard]] QString withThousandsSeparator(qint64 number);

} // namespace mosaro::organisation
