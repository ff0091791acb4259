#pragma once

#include <QString>
#include <QThreadPool>
#include <atomic>

struct sqlite3;

namespace mosaro::store {

/// Moves the write-ahead log of a store into the store on a worker, over a connection of its own, since that
/// waits for the disk. Whoever writes much pauses while it runs; otherwise the log cannot begin anew.
class Checkpointer {
public:
    /// `connection` must outlive this and commits on the main thread only.
    Checkpointer(sqlite3* connection, QString path);
    Checkpointer(const Checkpointer&) = delete;
    Checkpointer& operator=(const Checkpointer&) = delete;
    /// Waits for the worker.
    ~Checkpointer();

    [[nodiscard]] bool isRunning() const { return m_isRunning.load(); }

private:
    static int afterCommit(void* self, sqlite3* connection, const char* database, int pages);
    void start();

    sqlite3* m_connection;
    QString m_path;
    std::atomic<bool> m_isRunning = false;
    QThreadPool m_pool;
};

} // namespace mosaro::store
