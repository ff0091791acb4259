#include "store/TagLinks.h"

#include "store/Media.h"
#include "store/MediaTagList.h"
#include "store/RowSet.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace mosaro::store {

namespace {

const QLatin1String kTags("tags");
const QLatin1String kMedia("media");

/// From so many items on all links are looked through instead of asking for those of each item.
constexpr size_t kManyItems = 20'000;

QVariantList variants(std::span<const RowId> rows)
{
    QVariantList list;
    list.reserve(static_cast<qsizetype>(rows.size()));
    for (const RowId row : rows)
        list.append(row);
    return list;
}

} // namespace

base::Result<QHash<RowId, qint64>> tagCounts(StoreContext& context)
{
    return context.countBy(MediaTagList::info(), kTags, Predicate::all());
}

base::Result<QHash<RowId, qint64>> tagCounts(StoreContext& context, std::span<const RowId> media)
{
    if (media.size() < kManyItems)
        return context.countBy(MediaTagList::info(), kTags,
                               Predicate::compare(kMedia, Comparison::In, variants(media)));
    RowSet wanted;
    for (const RowId row : media)
        wanted.insert(row);
    QHash<RowId, qint64> counts;
    const auto walked =
        context.forEachRow(MediaTagList::info(), "tags, media", {}, [&](SQLite::Statement& row) {
            if (wanted.contains(row.getColumn(1).getInt64()))
                ++counts[row.getColumn(0).getInt64()];
        });
    if (!walked)
        return walked.failure();
    return counts;
}

base::Result<QHash<RowId, RowId>> linksOfTag(StoreContext& context, RowId tag, std::span<const RowId> media)
{
    QHash<RowId, RowId> links;
    const auto isOne = Predicate::allOf({Predicate::compare(kTags, Comparison::Equal, tag),
                                         Predicate::compare(kMedia, Comparison::In, variants(media))});
    const auto read = context.forEachRow(
        MediaTagList::info(), "media, id", {isOne, {}, -1}, [&links](SQLite::Statement& row) {
            links.insert(row.getColumn(0).getInt64(), row.getColumn(1).getInt64());
        });
    if (!read)
        return read.failure();
    return links;
}

base::Result<QHash<RowId, QString>> mediaIDs(StoreContext& context, std::span<const RowId> media)
{
    QHash<RowId, QString> ids;
    const auto read = context.forEachRow(
        Media::info(), "id, mediaID", {Predicate::rows(media), {}, -1}, [&ids](SQLite::Statement& row) {
            ids.insert(row.getColumn(0).getInt64(), QString::fromUtf8(row.getColumn(1).getText("")));
        });
    if (!read)
        return read.failure();
    return ids;
}

Predicate withAnyTag(std::span<const RowId> tags)
{
    const Predicate isOne = tags.size() == 1 ? Predicate::compare(kTags, Comparison::Equal, tags.front())
                                             : Predicate::compare(kTags, Comparison::In, variants(tags));
    return Predicate::linkedBy(MediaTagList::info(), kMedia, isOne);
}

} // namespace mosaro::store
