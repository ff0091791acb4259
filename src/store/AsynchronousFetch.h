#pragma once

#include "base/Result.h"
#include "store/RowReader.h"
#include "store/StoreContext.h"

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <functional>

namespace mosaro::store {

/// Fetches for a context without holding up the main thread: the query runs on a worker with a connection of
/// its own, and the main thread gets the records of the context itself. Sees what was saved when it runs.
/// Must not outlive the context; what is not finished when it ends is stopped and never completed.
class AsynchronousFetch {
public:
    template <class T>
    using Completion = std::function<void(base::Result<std::vector<std::shared_ptr<T>>>)>;

    explicit AsynchronousFetch(StoreContext& context) : m_context(context) { m_pool.setMaxThreadCount(1); }
    AsynchronousFetch(const AsynchronousFetch&) = delete;
    AsynchronousFetch& operator=(const AsynchronousFetch&) = delete;
    ~AsynchronousFetch();

    /// Called on the main thread, and calls the completion there. None is fine, too.
    template <class T>
    void executeFetchRequest(const Query& query, Completion<T> completion);

    using Ids = base::Result<std::vector<RowId>>;
    /// The rows alone, under the same terms.
    void fetchIds(const EntityInfo& entity, const Query& query, std::function<void(const Ids&)> completion);

    /// The same for whatever `work` makes of rows on the worker.
    template <class Value>
    void read(std::function<Value(RowReader&)> work, std::function<void(Value)> completion);

private:
    /// `work` gives what is to be done on the main thread.
    void runOnReader(std::function<std::function<void()>(RowReader&)> work);

    StoreContext& m_context;
    QObject m_receiver;
    std::atomic<bool> m_stop = false;
    QThreadPool m_pool;
};

template <class Value>
void AsynchronousFetch::read(std::function<Value(RowReader&)> work, std::function<void(Value)> completion)
{
    runOnReader([work = std::move(work), completion = std::move(completion)](RowReader& reader) {
        const auto value = std::make_shared<Value>(work(reader)); // Never copied, however large.
        return [value, completion] { completion(std::move(*value)); };
    });
}

template <class T>
void AsynchronousFetch::executeFetchRequest(const Query& query, Completion<T> completion)
{
    fetchIds(T::info(), query, [this, completion = std::move(completion)](const Ids& ids) {
        if (!completion)
            return;
        if (ids)
            completion(m_context.objects<T>(ids.value()));
        else
            completion(ids.failure());
    });
}

} // namespace mosaro::store
