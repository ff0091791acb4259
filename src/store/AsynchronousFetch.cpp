#include "store/AsynchronousFetch.h"

#include "base/Threads.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>

namespace mosaro::store {

AsynchronousFetch::~AsynchronousFetch()
{
    m_stop = true;
    m_pool.waitForDone();
}

void AsynchronousFetch::runOnReader(std::function<std::function<void()>(RowReader&)> work)
{
    base::runOnWorker(m_pool, [this, path = m_context.path(), work = std::move(work)] {
        RowReader reader(path, m_stop);
        base::postToMain(m_receiver, work(reader));
    });
}

void AsynchronousFetch::fetchIds(const EntityInfo& entity, const Query& query,
                                 std::function<void(const Ids&)> completion)
{
    read<Ids>(
        [&entity, query](RowReader& reader) -> Ids {
            std::vector<RowId> ids;
            const auto walked = reader.forEachRow(entity, "id", query, [&ids](SQLite::Statement& row) {
                ids.push_back(row.getColumn(0).getInt64());
            });
            if (!walked)
                return walked.failure();
            return ids;
        },
        std::move(completion));
}

} // namespace mosaro::store
