#include "store/MediaSet.h"

#include "store/Media.h"
#include "store/RowSet.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>
#include <limits>

namespace mosaro::store {

namespace {

/// When the ids are more than one in so many of all items, walking the whole index is cheaper than sorting.
constexpr size_t kWalkShare = 16;

QLatin1String attributeOf(SortKey key)
{
    switch (key) {
    case SortKey::Title:
        return QLatin1String("mediaTitle");
    case SortKey::FileSize:
        return QLatin1String("mediaFileSize");
    case SortKey::Rating:
        return QLatin1String("mediaRating");
    case SortKey::Width:
        return QLatin1String("mediaWidth");
    case SortKey::Height:
        return QLatin1String("mediaHeight");
    case SortKey::DateCreated:
        return QLatin1String("mediaDateCreated");
    case SortKey::DateModified:
        return QLatin1String("mediaDateModified");
    case SortKey::DateImported:
        return QLatin1String("mediaDateImported");
    case SortKey::DateLastOpened:
        return QLatin1String("mediaDateLastOpened");
    }
    return {};
}

RowId highestRow(StoreContext& context)
{
    RowId highest = 0;
    const auto read = context.forEachRow(Media::info(), "max(id)", {}, [&highest](SQLite::Statement& row) {
        highest = row.getColumn(0).getInt64();
    });
    return read ? highest : 0;
}

base::Result<std::vector<RowId>> byWalkingIndex(StoreContext& context, const std::vector<RowId>& ids,
                                                const Query& query)
{
    RowSet wanted;
    for (const RowId id : ids)
        wanted.insert(id);
    std::vector<RowId> ordered;
    ordered.reserve(ids.size());
    const auto walked = context.forEachRow(Media::info(), "id", query, [&](SQLite::Statement& row) {
        const RowId id = row.getColumn(0).getInt64();
        if (wanted.contains(id))
            ordered.push_back(id);
    });
    if (!walked)
        return walked.failure();
    return ordered;
}

/// Sizes come from a file that anyone may have written: an absurd sum stays the greatest number.
void addSize(MediaSet& set, qint64 size)
{
    if (__builtin_add_overflow(set.totalFileSize, size, &set.totalFileSize))
        set.totalFileSize = std::numeric_limits<qint64>::max();
}

} // namespace

MediaSet mediaSet(StoreContext& context, const std::vector<Predicate>& anyOf)
{
    MediaSet result;
    RowSet rows;
    for (const Predicate& predicate : anyOf) {
        RowSet before = rows;
        const qint64 sizeBefore = result.totalFileSize;
        const auto read = context.forEachRow(Media::info(), "id, mediaFileSize", {predicate, {}, -1},
                                             [&](SQLite::Statement& row) {
                                                 if (rows.insert(row.getColumn(0).getInt64()))
                                                     addSize(result, row.getColumn(1).getInt64());
                                             });
        if (!read) {
            rows = std::move(before);
            result.totalFileSize = sizeBefore;
        }
    }
    result.ids = rows.ascending();
    return result;
}

MediaSet linkedMediaSet(StoreContext& context, const EntityInfo& linkEntity, const Predicate& condition)
{
    MediaSet result;
    RowSet rows;
    const auto read =
        context.forEachRow(linkEntity, "media", {condition, {}, -1},
                           [&rows](SQLite::Statement& row) { rows.insert(row.getColumn(0).getInt64()); });
    if (!read)
        return result;
    result.ids = rows.ascending();
    Query sizes;
    if (result.ids.size() * kWalkShare < static_cast<size_t>(highestRow(context)))
        sizes.predicate = Predicate::rows(result.ids);
    // A failure costs no more than the sum.
    (void)context.forEachRow(Media::info(), "id, mediaFileSize", sizes, [&](SQLite::Statement& row) {
        if (rows.contains(row.getColumn(0).getInt64()))
            addSize(result, row.getColumn(1).getInt64());
    });
    return result;
}

base::Result<std::vector<RowId>> orderMedia(StoreContext& context, const std::vector<RowId>& ids, int sortKey,
                                            bool ascending)
{
    if (sortKey < 0 || sortKey > static_cast<int>(SortKey::DateLastOpened) || ids.empty())
        return ids;
    const auto key = static_cast<SortKey>(sortKey);
    Query query;
    query.order = {{attributeOf(key), ascending, key == SortKey::Title}};
    if (ids.size() * kWalkShare >= static_cast<size_t>(highestRow(context)))
        return byWalkingIndex(context, ids, query);
    query.predicate = Predicate::rows(ids);
    return context.fetchIds(Media::info(), query);
}

} // namespace mosaro::store
