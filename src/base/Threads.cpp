#include "base/Threads.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

namespace mosaro::base {

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

void postToMain(QObject& receiver, std::function<void()> work)
{
    Q_ASSERT(!onMainThread());
    QMetaObject::invokeMethod(&receiver, std::move(work), Qt::QueuedConnection);
}

} // namespace mosaro::base
