#pragma once

#include <QTimer>
#include <functional>

namespace mosaro::organisation {

/// What a long run does.
struct SlicedWork {
    qsizetype count = 0;
    /// For one item, by its position. It may stop the run; the item still counts as done.
    std::function<void(qsizetype position)> step = {};
    /// After each slice, with how many are done by now: the place for progress and for a save of the slice.
    std::function<void(qsizetype done)> sliceEnded = {};
    /// Once, when all is done or the run was stopped; fewer than `count` are done then. A new run may start
    /// from here.
    std::function<void(qsizetype done)> finished = {};
    /// While true the run waits; for a store that tidies up.
    std::function<bool()> pauses = {};
};

/// A step for each of many items, on the main thread in slices of some milliseconds: between them the event
/// loop turns, so that the window stays live. Needs an event loop. Going away ends a run without a word.
class SlicedRun : public QObject {
public:
    explicit SlicedRun(QObject* parent = nullptr);

    /// The first step comes in a later turn of the event loop, also the end of a run of no items. While a run
    /// goes on this does nothing and gives false.
    bool start(SlicedWork work);
    /// The item that is being worked on is finished, nothing after it is begun; finished() follows.
    void stop();
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

private:
    void slice();
    void runSteps();

    QTimer m_timer;
    SlicedWork m_work;
    qsizetype m_done = 0;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_isInSlice = false;
};

} // namespace mosaro::organisation
