#pragma once

#include "base/Result.h"
#include "store/Checkpointer.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <memory>
#include <vector>

namespace mosaro::store {

class StoreFile;

/// A prepared statement on loan from its StoreFile; given back, reset, when this ends.
class LentStatement {
public:
    LentStatement(StoreFile& file, QByteArray sql, std::shared_ptr<SQLite::Statement> statement)
        : m_file(file), m_sql(std::move(sql)), m_statement(std::move(statement))
    {
    }
    LentStatement(const LentStatement&) = delete;
    LentStatement& operator=(const LentStatement&) = delete;
    ~LentStatement();

    SQLite::Statement* operator->() { return m_statement.get(); }
    SQLite::Statement& operator*() { return *m_statement; }

private:
    StoreFile& m_file;
    QByteArray m_sql;
    std::shared_ptr<SQLite::Statement> m_statement;
};

/// The connection to one store file, with the functions and the collation that queries use, and a pool of
/// prepared statements. Throws SQLite::Exception; the context turns that into failures.
class StoreFile {
public:
    /// Opens or creates, checks that the file is a store and no newer than this program, and migrates it.
    [[nodiscard]] static base::Result<std::unique_ptr<StoreFile>> open(const QString& path);

    [[nodiscard]] SQLite::Database& database() { return m_database; }
    [[nodiscard]] const QString& path() const { return m_path; }
    /// The log is being moved into the store.
    [[nodiscard]] bool isTidying() const { return m_checkpointer->isRunning(); }
    [[nodiscard]] LentStatement statement(const QByteArray& sql);
    void execute(const QByteArray& sql);
    /// The first column of the first row; 0 for none.
    [[nodiscard]] qint64 number(const QByteArray& sql);
    [[nodiscard]] QString information(const QString& key);
    void setInformation(const QString& key, const QString& value);

private:
    friend class LentStatement;
    StoreFile(const QString& path, int flags);
    void setUp();
    void refreshCollation();
    void giveBack(const QByteArray& sql, std::shared_ptr<SQLite::Statement> statement);

    QString m_path;
    SQLite::Database m_database;
    QHash<QByteArray, std::vector<std::shared_ptr<SQLite::Statement>>> m_unused;
    int m_pooled = 0;
    std::unique_ptr<Checkpointer> m_checkpointer;
};

/// Opens a transaction that can be written in; rolls back unless committed.
class WriteTransaction {
public:
    explicit WriteTransaction(StoreFile& file);
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;
    ~WriteTransaction();
    void commit();

private:
    StoreFile& m_file;
    bool m_open = true;
};

/// What went wrong with the store, in words for the user.
[[nodiscard]] base::Failure storeFailure(const SQLite::Exception& error, const QString& path);

} // namespace mosaro::store
