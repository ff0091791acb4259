#include "organisation/TagList.h"

#include "base/FinderStyleCompare.h"
#include "store/Tags.h"

namespace mosaro::organisation {

base::Result<void> TagList::reload(store::StoreContext& context)
{
    m_tags.clear();
    const auto records = context.fetch<store::Tags>({});
    if (!records) {
        return records.failure();
    }
    for (const auto& record : records.value()) {
        m_tags.push_back({record->rowId(), record->tagID(), record->title(), record->tagColor()});
    }
    base::sortedArray(m_tags, [](const TagRecord& tag) { return QStringView(tag.title); });
    return {};
}

template <class Match>
int TagList::indexWhere(Match match) const
{
    const auto found = std::find_if(m_tags.begin(), m_tags.end(), match);
    return found == m_tags.end() ? -1 : int(found - m_tags.begin());
}

int TagList::indexOf(const QString& tagID) const
{
    return indexWhere([&tagID](const TagRecord& tag) { return tag.tagID == tagID; });
}

int TagList::indexOfObject(store::RowId object) const
{
    return indexWhere([object](const TagRecord& tag) { return tag.object == object; });
}

QStringList TagList::titles() const
{
    QStringList titles;
    for (const TagRecord& tag : m_tags) {
        titles.append(tag.title);
    }
    return titles;
}

int TagList::indexOfTitle(const QString& title) const
{
    const QString lowered = title.toLower();
    return indexWhere([&lowered](const TagRecord& tag) { return tag.title.toLower() == lowered; });
}

} // namespace mosaro::organisation
