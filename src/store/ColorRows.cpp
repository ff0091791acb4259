#include "store/ColorRows.h"

#include "store/ColorList.h"
#include "store/Colors.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace mosaro::store {

namespace {

/// From a context or a reader.
template <class Source>
base::Result<std::vector<ColorRow>> rowsFrom(Source& source, const Predicate& predicate)
{
    std::vector<ColorRow> rows;
    const auto read = source.forEachRow(
        Colors::info(),
        "id, colorID, colorType, isLike, (SELECT count(*) FROM ColorList WHERE ColorList.colors = Colors.id)",
        {predicate, {}, -1}, [&rows](SQLite::Statement& row) {
            rows.push_back({row.getColumn(0).getInt64(), QString::fromUtf8(row.getColumn(1).getText()),
                            row.getColumn(2).getInt64(), row.getColumn(3).getInt() != 0,
                            row.getColumn(4).getInt64()});
        });
    if (!read)
        return read.failure();
    return rows;
}

} // namespace

base::Result<std::vector<ColorRow>> colorRows(StoreContext& context, const Predicate& predicate)
{
    return rowsFrom(context, predicate);
}

base::Result<std::vector<ColorRow>> colorRows(RowReader& reader, const Predicate& predicate)
{
    return rowsFrom(reader, predicate);
}

MediaSet itemsOfColors(StoreContext& context, std::span<const RowId> colors)
{
    QVariantList rows;
    for (const RowId row : colors)
        rows.append(static_cast<qlonglong>(row));
    return linkedMediaSet(context, ColorList::info(),
                          Predicate::compare(QLatin1String("colors"), Comparison::In, rows));
}

} // namespace mosaro::store
