#pragma once

#include <functional>

class QObject;
class QThreadPool;

namespace mosaro::base {

/// Whether the caller runs on the thread of the application object.
[[nodiscard]] bool onMainThread();

/// Hands work to a pool. Called on the main thread only. The work owns all that it touches.
void runOnWorker(QThreadPool& pool, std::function<void()> work);

/// Lets the main thread, and whatever else people wait for, go first from now on. For work that takes all
/// cores for minutes; called on a worker, lasts for its thread.
void stepBack();

/// Queues work for the main thread, where it runs only if `receiver` still lives. Called on a worker only.
/// `receiver` lives on the main thread and must not be destroyed while workers that name it still run.
void postToMain(QObject& receiver, std::function<void()> work);

} // namespace mosaro::base
