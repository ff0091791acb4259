#include "store/AsynchronousFetch.h"

#include "base/Threads.h"
#include "store/SqlCompiler.h"
#include "store/StoreFile.h"
#include "store/TextFunctions.h"

#include <sqlite3.h>

namespace mosaro::store {

namespace {

constexpr int kBusyTimeout = 3000;
/// Steps of SQLite's machine between two looks at the stop flag; well under a millisecond.
constexpr int kStepsBetweenLooks = 10000;

int isStopped(void* flag)
{
    return static_cast<const std::atomic<bool>*>(flag)->load() ? 1 : 0;
}

base::Result<std::vector<RowId>> idsOnOwnConnection(const QString& path, const CompiledSql& compiled,
                                                    std::atomic<bool>& stop)
{
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READONLY, kBusyTimeout);
        sqlite3_progress_handler(database.getHandle(), kStepsBetweenLooks, isStopped, &stop);
        registerTextFunctions(database);
        SQLite::Statement rows(database, compiled.sql.constData());
        compiled.bindTo(rows);
        std::vector<RowId> ids;
        while (rows.executeStep())
            ids.push_back(rows.getColumn(0).getInt64());
        return ids;
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, path);
    }
}

} // namespace

AsynchronousFetch::~AsynchronousFetch()
{
    m_stop = true;
    m_pool.waitForDone();
}

void AsynchronousFetch::fetchIds(const EntityInfo& entity, const Query& query,
                                 std::function<void(const Ids&)> completion)
{
    const auto compiled = SqlCompiler::select(entity, "id", query);
    base::runOnWorker(m_pool, [this, compiled, path = m_context.path(), completion = std::move(completion)] {
        const Ids ids =
            compiled ? idsOnOwnConnection(path, compiled.value(), m_stop) : Ids(compiled.failure());
        base::postToMain(m_receiver, [ids, completion] { completion(ids); });
    });
}

} // namespace mosaro::store
