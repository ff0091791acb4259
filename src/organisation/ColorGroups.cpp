#include "organisation/ColorGroups.h"

#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"
#include "store/ZNDBManager.h"

#include <algorithm>
#include <tuple>

namespace mosaro::organisation {

using store::Comparison;
using store::Predicate;

const std::array<ColorOption, kColorTypes + 1>& colorOptions()
{
    static const std::array<ColorOption, kColorTypes + 1> kOptions{
        ColorOption{base::PREFS_SHOW_BACKGROUND_COLORS, "Basic.Show.Focus.Colors", "Tooltip.Focus.Colors"},
        ColorOption{base::PREFS_SHOW_PRIMARY_COLORS, "Basic.Show.Primary.Colors", "Tooltip.Primary.Colors"},
        ColorOption{base::PREFS_SHOW_SECONDARY_COLORS, "Basic.Show.Secondary.Colors",
                    "Tooltip.Secondary.Colors"},
        ColorOption{base::PREFS_SHOW_DETAIL_COLORS, "Basic.Show.Other.Colors", "Tooltip.Other.Colors"},
        ColorOption{base::PREFS_SHOW_LIKE_COLORS_ONLY, "Basic.Show.Like.Colors.Only",
                    "Tooltip.Like.Colors.Only"}};
    return kOptions;
}

ColorViewOptions ColorViewOptions::read(const base::ZNUserDefaults& defaults)
{
    ColorViewOptions options;
    for (int type = 0; type < kColorTypes; ++type) {
        options.shownTypes[size_t(type)] = defaults.boolean(colorOptions()[size_t(type)].preference);
    }
    options.likedOnly = defaults.boolean(base::PREFS_SHOW_LIKE_COLORS_ONLY);
    return options;
}

Predicate colorsOnShow(const ColorViewOptions& options)
{
    QVariantList types;
    for (int type = 0; type < kColorTypes; ++type) {
        if (options.shownTypes[size_t(type)]) {
            types.append(type);
        }
    }
    Predicate ofTypes = Predicate::compare(QLatin1String("colorType"), Comparison::In, types);
    if (!options.likedOnly) {
        return ofTypes;
    }
    return Predicate::allOf(
        {std::move(ofTypes), Predicate::compare(QLatin1String("isLike"), Comparison::Equal, true)});
}

QString ColorGroup::headerText() const
{
    return QStringLiteral("   %1 (%2)").arg(colorTypeTitle(colorType), withThousandsSeparator(count));
}

void sortColors(std::vector<MRColorTagItem>& colors)
{
    const auto key = [](const MRColorTagItem& item) {
        return std::tuple(item.hueComponent(), item.saturationComponent(), item.brightnessComponent());
    };
    std::stable_sort(colors.begin(), colors.end(),
                     [&key](const MRColorTagItem& a, const MRColorTagItem& b) { return key(a) < key(b); });
}

std::vector<store::RowId> colorsNamed(store::ZNDBManager& library, const QString& text)
{
    const QString hex = text.startsWith(u'#') ? text.mid(1) : text;
    std::vector<store::RowId> found;
    const auto rows = store::colorRows(*library.context(), Predicate::all());
    for (const store::ColorRow& row : rows ? rows.value() : std::vector<store::ColorRow>()) {
        const MRColorTagItem item(library, row);
        if (item.itemID() == text ||
            (item.color() && item.colorAsHex().compare(hex, Qt::CaseInsensitive) == 0)) {
            found.push_back(row.row);
        }
    }
    return found;
}

ColorGroups::ColorGroups(store::ZNDBManager& library, const std::vector<store::ColorRow>& rows)
{
    std::array<std::vector<MRColorTagItem>, kColorTypes> lists;
    for (const store::ColorRow& row : rows) {
        if (row.uses > 0) {
            lists.at(size_t(row.colorType)).emplace_back(library, row);
        } else {
            m_orphans.push_back(row.row);
        }
    }
    for (int type = 0; type < kColorTypes; ++type) {
        std::vector<MRColorTagItem>& list = lists[size_t(type)];
        if (!list.empty()) {
            m_group.push_back({type, int(m_colors.size()), int(list.size())});
        }
        sortColors(list);
        std::move(list.begin(), list.end(), std::back_inserter(m_colors));
    }
}

} // namespace mosaro::organisation
