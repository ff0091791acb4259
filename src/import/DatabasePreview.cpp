#include "import/CarriedPreview.h"

#include "import/Analysis.h"
#include "import/EmbeddedPictures.h"

#include <QDeadlineTimer>
#include <QUrl>
#include <sqlite3.h>

namespace mosaro::importing {

namespace {

constexpr int kStepsBetweenChecks = 10'000;

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    void operator()(sqlite3_blob* blob) const { sqlite3_blob_close(blob); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

int isTooLate(void* deadline)
{
    return static_cast<QDeadlineTimer*>(deadline)->hasExpired() ? 1 : 0;
}

/// A stranger's database: read only, without a journal beside it, and nothing in its schema is trusted.
Database openDatabase(const QString& path, QDeadlineTimer& deadline)
{
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded() + "?immutable=1";
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(address.constData(), &opened,
                                       SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(opened);
    if (result != SQLITE_OK)
        return nullptr;
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_exec(opened, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr);
    sqlite3_progress_handler(opened, kStepsBetweenChecks, isTooLate, &deadline);
    return database;
}

Statement prepared(sqlite3* database, const QByteArray& query)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, query.constData(), int(query.size()), &statement, nullptr);
    return Statement(statement);
}

bool next(const Statement& statement)
{
    return statement && sqlite3_step(statement.get()) == SQLITE_ROW;
}

struct Column {
    QByteArray table;
    QByteArray name;
};

QByteArray textOf(const Statement& statement, int column)
{
    return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
}

/// Stored columns of plain tables.
std::vector<Column> columnsOf(sqlite3* database)
{
    std::vector<Column> columns;
    const Statement statement =
        prepared(database, "SELECT s.name, c.name FROM sqlite_schema s, pragma_table_xinfo(s.name) c "
                           "WHERE s.type = 'table' AND s.rootpage > 0 AND c.hidden = 0 LIMIT 2000");
    while (next(statement))
        columns.push_back({textOf(statement, 0), textOf(statement, 1)});
    return columns;
}

QByteArray quoted(QByteArray name)
{
    return '"' + name.replace('"', "\"\"") + '"';
}

QByteArray blobAt(sqlite3* database, const Column& column, sqlite3_int64 row)
{
    sqlite3_blob* opened = nullptr;
    if (sqlite3_blob_open(database, "main", column.table.constData(), column.name.constData(), row, 0,
                          &opened) != SQLITE_OK)
        return {};
    const std::unique_ptr<sqlite3_blob, Close> blob(opened);
    QByteArray bytes(sqlite3_blob_bytes(opened), Qt::Uninitialized);
    return sqlite3_blob_read(opened, bytes.data(), int(bytes.size()), 0) == SQLITE_OK ? bytes : QByteArray();
}

void offerBlobs(sqlite3* database, const Column& column, const QDeadlineTimer& deadline,
                LargestPicture& largest)
{
    const QByteArray name = quoted(column.name);
    // The length is asked of the row's head: a blob is read only when it may be one.
    const Statement rows =
        prepared(database, "SELECT rowid FROM " + quoted(column.table) + " WHERE typeof(" + name +
                               ") = 'blob' AND length(" + name + ") BETWEEN 32 AND " +
                               QByteArray::number(analysisLimits().maxCarriedBytes));
    while (!deadline.hasExpired() && next(rows))
        largest.offer(blobAt(database, column, sqlite3_column_int64(rows.get(), 0)));
}

} // namespace

QByteArray previewInDatabase(const QString& path)
{
    QDeadlineTimer deadline(analysisLimits().maxSeconds * qint64(1000));
    const Database database = openDatabase(path, deadline);
    if (!database)
        return {};
    LargestPicture named;
    LargestPicture others;
    for (const Column& column : columnsOf(database.get())) {
        const bool isNamed = isPreviewName(QString::fromUtf8(column.table + ' ' + column.name));
        offerBlobs(database.get(), column, deadline, isNamed ? named : others);
    }
    return named.bytes().isEmpty() ? others.bytes() : named.bytes();
}

} // namespace mosaro::importing
