#include "store/StoreFile.h"

#include "base/Text.h"
#include "store/Migrations.h"
#include "store/TextFunctions.h"

#include <QFileInfo>
#include <QStorageInfo>
#include <sqlite3.h>
#include <unicode/uversion.h>

namespace mosaro::store {

namespace {

constexpr int kBusyTimeout = 3000;
/// More idle statements than the program has kinds of; reached only when many combinations of attributes
/// change.
constexpr int kPoolLimit = 200;
/// Below this an opened store has no room for its companion files.
constexpr qint64 kLeastRoom = qint64(256) * 1024;
const QString kCollationVersion = QStringLiteral("collationVersion");

bool isEmptyOrSqlite(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly))
        return true; // The reason comes from the attempt to open it.
    const QByteArray start = file.read(16);
    return start.isEmpty() || start == QByteArray("SQLite format 3\0", 16);
}

/// What lies behind an error that SQLite tells only vaguely: a companion file that finds no room, or that may
/// not be made.
int plainerCode(int code, const QString& path)
{
    const QFileInfo folder(QFileInfo(path).path());
    if (code == SQLITE_IOERR && QStorageInfo(folder.filePath()).bytesAvailable() < kLeastRoom)
        return SQLITE_FULL;
    if (code == SQLITE_CANTOPEN && folder.isDir() && !folder.isWritable())
        return SQLITE_READONLY;
    return code;
}

QString icuVersion()
{
    UVersionInfo version;
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_getVersion(version);
    u_versionToString(version, text);
    return QString::fromLatin1(text);
}

} // namespace

LentStatement::~LentStatement()
{
    m_file.giveBack(m_sql, std::move(m_statement));
}

StoreFile::StoreFile(const QString& path, int flags)
    : m_path(path), m_database(path.toStdString(), flags, kBusyTimeout)
{
}

base::Result<std::unique_ptr<StoreFile>> StoreFile::open(const QString& path)
{
    if (!isEmptyOrSqlite(path))
        return base::Failure{base::text("Failure.Store.NotAStore", path)};
    try {
        std::unique_ptr<StoreFile> file(new StoreFile(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE));
        registerTextFunctions(file->m_database);
        if (const auto known = checkSchema(file->m_database, path); !known)
            return known.failure();
        file->setUp();
        if (const auto migrated = migrate(file->m_database, path, currentMigrations()); !migrated)
            return migrated.failure();
        file->refreshCollation();
        file->m_checkpointer = std::make_unique<Checkpointer>(file->m_database.getHandle(), path);
        return file;
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path);
    }
}

void StoreFile::setUp()
{
    m_database.exec(
        "PRAGMA page_size = 4096;" // Taken by a new file only; small, since a save touches many indexes.
        "PRAGMA journal_mode = WAL;"
        "PRAGMA synchronous = NORMAL;"
        "PRAGMA foreign_keys = ON;"
        "PRAGMA temp_store = MEMORY;"
        "PRAGMA cache_size = -32768;"
        "PRAGMA journal_size_limit = 16777216;");
}

void StoreFile::refreshCollation()
{
    // Another release of ICU may order names otherwise; indexes in the old order would lead astray.
    if (information(kCollationVersion) == icuVersion())
        return;
    WriteTransaction transaction(*this);
    execute("REINDEX FINDER");
    setInformation(kCollationVersion, icuVersion());
    transaction.commit();
}

LentStatement StoreFile::statement(const QByteArray& sql)
{
    auto& unused = m_unused[sql];
    if (unused.empty())
        return {*this, sql, std::make_shared<SQLite::Statement>(m_database, sql.constData())};
    auto statement = std::move(unused.back());
    unused.pop_back();
    --m_pooled;
    return {*this, sql, std::move(statement)};
}

void StoreFile::giveBack(const QByteArray& sql, std::shared_ptr<SQLite::Statement> statement)
{
    if (statement == nullptr || statement->tryReset() == SQLITE_MISUSE)
        return;
    statement->clearBindings();
    if (m_pooled >= kPoolLimit) {
        m_unused.clear();
        m_pooled = 0;
    }
    m_unused[sql].push_back(std::move(statement));
    ++m_pooled;
}

void StoreFile::execute(const QByteArray& sql)
{
    statement(sql)->exec();
}

qint64 StoreFile::number(const QByteArray& sql)
{
    auto query = statement(sql);
    return query->executeStep() ? query->getColumn(0).getInt64() : 0;
}

QString StoreFile::information(const QString& key)
{
    auto query = statement("SELECT value FROM StoreInformation WHERE key = ?");
    query->bind(1, key.toStdString());
    return query->executeStep() ? QString::fromStdString(query->getColumn(0).getString()) : QString();
}

void StoreFile::setInformation(const QString& key, const QString& value)
{
    auto change = statement("INSERT OR REPLACE INTO StoreInformation (key, value) VALUES (?, ?)");
    change->bind(1, key.toStdString());
    change->bind(2, value.toStdString());
    change->exec();
}

WriteTransaction::WriteTransaction(StoreFile& file) : m_file(file)
{
    m_file.execute("BEGIN IMMEDIATE");
}

WriteTransaction::~WriteTransaction()
{
    // SQLite has rolled back by itself after some errors, a full disk among them.
    if (m_open && sqlite3_get_autocommit(m_file.database().getHandle()) == 0)
        m_file.database().tryExec("ROLLBACK");
}

void WriteTransaction::commit()
{
    m_file.execute("COMMIT");
    m_open = false;
}

base::Failure storeFailure(const SQLite::Exception& error, const QString& path)
{
    const QString detail = QString::fromUtf8(error.what());
    switch (plainerCode(error.getErrorCode(), path)) {
    case SQLITE_CORRUPT:
        return {base::text("Failure.Store.Damaged", path, detail)};
    case SQLITE_NOTADB:
        return {base::text("Failure.Store.NotAStore", path)};
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return {base::text("Failure.Store.ReadOnly", path)};
    case SQLITE_FULL:
        return {base::text("Failure.Store.Full", path)};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {base::text("Failure.Store.Busy", path)};
    case SQLITE_CANTOPEN:
        return {base::text("Failure.Store.CannotOpen", path, detail)};
    case SQLITE_IOERR:
        return {base::text("Failure.Store.InputOutput", path, detail)};
    default:
        return {base::text("Failure.Store.Other", path, detail)};
    }
}

} // namespace mosaro::store
