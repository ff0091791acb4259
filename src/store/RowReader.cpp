#include "store/RowReader.h"

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

} // namespace

base::Result<void> RowReader::forEachRow(const EntityInfo& entity, const QByteArray& columns,
                                         const Query& query,
                                         const std::function<void(SQLite::Statement&)>& visit)
{
    const auto compiled = SqlCompiler::select(entity, columns, query);
    if (!compiled)
        return compiled.failure();
    try {
        SQLite::Database database(m_path.toStdString(), SQLite::OPEN_READONLY, kBusyTimeout);
        sqlite3_progress_handler(database.getHandle(), kStepsBetweenLooks, isStopped, &m_stop);
        registerTextFunctions(database);
        SQLite::Statement rows(database, compiled.value().sql.constData());
        compiled.value().bindTo(rows);
        while (rows.executeStep())
            visit(rows);
        return {};
    } catch (const SQLite::Exception& error) {
        return storeFailure(error, m_path);
    }
}

} // namespace mosaro::store
