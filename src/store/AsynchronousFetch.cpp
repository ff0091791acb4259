#include "store/AsynchronousFetch.h"

#include "base/Threads.h"
#include "store/SqlCompiler.h"
#include "store/StoreFile.h"
#include "store/TextFunctions.h"

namespace mosaro::store {

namespace {

constexpr int kBusyTimeout = 3000;

base::Result<std::vector<RowId>> idsOnOwnConnection(const QString& path, const CompiledSql& compiled)
{
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READONLY, kBusyTimeout);
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

void AsynchronousFetch::fetchIds(const EntityInfo& entity, const Query& query,
                                 std::function<void(const Ids&)> completion)
{
    const auto compiled = SqlCompiler::select(entity, "id", query);
    base::runOnWorker(m_pool, [this, compiled, path = m_context.path(), completion = std::move(completion)] {
        const Ids ids = compiled ? idsOnOwnConnection(path, compiled.value()) : Ids(compiled.failure());
        base::postToMain(m_receiver, [ids, completion] { completion(ids); });
    });
}

} // namespace mosaro::store
