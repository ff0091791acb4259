#include "store/Checkpointer.h"

#include "base/Threads.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace mosaro::store {

namespace {

constexpr int kPages = 2000;       ///< 8 MB of log.
constexpr int kMostPages = 40'000; ///< Someone writes without a pause; from here on he waits for the disk.

void moveLog(const QString& path)
{
    try {
        SQLite::Database connection(path.toStdString(), SQLite::OPEN_READWRITE);
        connection.exec("PRAGMA schema_version"); // Before its first read a connection knows of no log.
        sqlite3_wal_checkpoint_v2(connection.getHandle(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr,
                                  nullptr);
    } catch (const SQLite::Exception&) {
        // The log stays as it is; the next commit comes back to it.
    }
}

} // namespace

Checkpointer::Checkpointer(sqlite3* connection, QString path)
    : m_connection(connection), m_path(std::move(path))
{
    m_pool.setMaxThreadCount(1);
    sqlite3_wal_hook(m_connection, &Checkpointer::afterCommit, this);
}

Checkpointer::~Checkpointer()
{
    sqlite3_wal_hook(m_connection, nullptr, nullptr);
    m_pool.waitForDone();
}

int Checkpointer::afterCommit(void* self, sqlite3* connection, const char* database, int pages)
{
    auto* checkpointer = static_cast<Checkpointer*>(self);
    if (pages < kPages || checkpointer->isRunning())
        return SQLITE_OK;
    if (pages < kMostPages)
        checkpointer->start();
    else
        sqlite3_wal_checkpoint_v2(connection, database, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    return SQLITE_OK;
}

void Checkpointer::start()
{
    m_isRunning = true;
    base::runOnWorker(m_pool, [this] {
        moveLog(m_path);
        m_isRunning = false;
    });
}

} // namespace mosaro::store
