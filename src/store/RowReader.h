#pragma once

#include "base/Result.h"
#include "store/Query.h"

#include <QString>
#include <atomic>
#include <functional>

namespace SQLite {
class Statement;
}

namespace mosaro::store {

/// Reads columns without records on a connection of its own, on a worker. Sees what is saved.
class RowReader {
public:
    /// A reading ends with a failure soon after `stop` is set.
    RowReader(QString path, std::atomic<bool>& stop) : m_path(std::move(path)), m_stop(stop) {}

    /// As that of StoreContext.
    [[nodiscard]] base::Result<void> forEachRow(const EntityInfo& entity, const QByteArray& columns,
                                                const Query& query,
                                                const std::function<void(SQLite::Statement&)>& visit);

private:
    QString m_path;
    std::atomic<bool>& m_stop;
};

} // namespace mosaro::store
