#include "organisation/TagColors.h"

#include "import/LabelColors.h"
#include "import/MediaClassification.h"

namespace mosaro::organisation {

std::optional<base::ColorValue> labelColorAtIndex(int index)
{
    return importing::fileLabelColor(importing::fileLabelFromMediaLabel(index));
}

int tagColorChoice(const QString& tagColor)
{
    if (tagColor.isEmpty()) {
        return kNoTagColor;
    }
    for (int index = 1; index <= kLastLabelColor; ++index) {
        if (const auto color = labelColorAtIndex(index); color && base::colorAsString(*color) == tagColor) {
            return index;
        }
    }
    return kCustomTagColor;
}

std::set<int> tagColorChoices(const std::vector<TagRecord>& tags)
{
    std::set<int> choices;
    for (const TagRecord& tag : tags) {
        choices.insert(tagColorChoice(tag.tagColor));
    }
    return choices;
}

} // namespace mosaro::organisation
