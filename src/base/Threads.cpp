#include "base/Threads.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>
#include <sys/resource.h>
#include <unistd.h>

namespace mosaro::base {

namespace {

constexpr int kNiceness = 5; ///< A third of the share of others; enough to come through on a busy machine.

} // namespace

bool onMainThread()
{
    const auto* application = QCoreApplication::instance();
    return application != nullptr && QThread::currentThread() == application->thread();
}

void runOnWorker(QThreadPool& pool, std::function<void()> work)
{
    Q_ASSERT(onMainThread());
    pool.start(std::move(work));
}

void stepBack()
{
    Q_ASSERT(!onMainThread());
    // The priorities of Qt's threads have no effect under the usual scheduler.
    static_cast<void>(::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kNiceness));
}

void postToMain(QObject& receiver, std::function<void()> work)
{
    Q_ASSERT(!onMainThread());
    QMetaObject::invokeMethod(&receiver, std::move(work), Qt::QueuedConnection);
}

} // namespace mosaro::base
