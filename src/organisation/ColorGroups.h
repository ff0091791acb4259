#pragma once

#include "organisation/MRColorTagItem.h"
#include "store/MediaSet.h"

namespace mosaro::base {
class ZNUserDefaults;
}

namespace mosaro::organisation {

/// One of the switches below the colour grid.
struct ColorOption {
    QLatin1String preference;
    const char* titleKey;
    const char* toolTipKey;
};
/// One for each group, by its number, and the one for liked colours only.
[[nodiscard]] const std::array<ColorOption, kColorTypes + 1>& colorOptions();

/// What the user wants to see of the colours.
struct ColorViewOptions {
    std::array<bool, kColorTypes> shownTypes{true, true, true, true};
    bool likedOnly = false;

    [[nodiscard]] static ColorViewOptions read(const base::ZNUserDefaults& defaults);
};

/// A role that has swatches, and where they stand in the list.
struct ColorGroup {
    int colorType = 0;
    int first = 0;
    int count = 0;

    /// Title and count, with room for the mark that opens and closes the group.
    [[nodiscard]] QString headerText() const;
};

/// Which colours belong into the groups on show.
[[nodiscard]] store::Predicate colorsOnShow(const ColorViewOptions& options);

/// The colours of a library in display order: up to four groups, each by hue, saturation and brightness. May
/// be made on a worker.
class ColorGroups {
public:
    ColorGroups() = default;
    ColorGroups(store::ZNDBManager& library, const std::vector<store::ColorRow>& rows);

    [[nodiscard]] const std::vector<MRColorTagItem>& colors() const { return m_colors; }
    [[nodiscard]] MRColorTagItem& color(int position) { return m_colors[size_t(position)]; }
    [[nodiscard]] const std::vector<ColorGroup>& group() const { return m_group; }
    /// Colours of the groups on show that no item has any more; they are in no group.
    [[nodiscard]] const std::vector<store::RowId>& orphans() const { return m_orphans; }

private:
    std::vector<MRColorTagItem> m_colors;
    std::vector<ColorGroup> m_group;
    std::vector<store::RowId> m_orphans;
};

/// The colours that a text names: by six hexadecimal digits, with or without "#", or by colorID; in all
/// roles.
[[nodiscard]] std::vector<store::RowId> colorsNamed(store::ZNDBManager& library, const QString& text);

/// Ascending by hue, then saturation, then brightness.
void sortColors(std::vector<MRColorTagItem>& colors);

} // namespace mosaro::organisation
