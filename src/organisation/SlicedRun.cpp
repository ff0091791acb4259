#include "organisation/SlicedRun.h"

#include <QElapsedTimer>
#include <utility>

namespace mosaro::organisation {

namespace {

constexpr qint64 kSlice = 12; ///< Milliseconds: less than a frame of the screen.
constexpr int kPause = 5;

} // namespace

SlicedRun::SlicedRun(QObject* parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SlicedRun::slice);
}

bool SlicedRun::start(SlicedWork work)
{
    if (m_isRunning) {
        return false;
    }
    m_work = std::move(work);
    m_done = 0;
    m_isRunning = true;
    m_isStopped = false;
    m_timer.start(0);
    return true;
}

void SlicedRun::stop()
{
    m_isStopped = true;
}

void SlicedRun::slice()
{
    // A step may ask the user something, and the timer fires in that event loop.
    if (m_isInSlice) {
        return;
    }
    if (!m_isStopped && m_work.pauses && m_work.pauses()) {
        m_timer.start(kPause);
        return;
    }
    m_isInSlice = true;
    const qsizetype before = m_done;
    runSteps();
    if (m_work.sliceEnded && m_done > before) {
        m_work.sliceEnded(m_done);
    }
    m_isInSlice = false;
    if (!m_isStopped && m_done < m_work.count) {
        m_timer.start(0);
        return;
    }
    const SlicedWork work = std::exchange(m_work, {});
    m_isRunning = false;
    if (work.finished) {
        work.finished(m_done);
    }
}

void SlicedRun::runSteps()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_isStopped && m_done < m_work.count && clock.elapsed() < kSlice) {
        m_work.step(m_done);
        ++m_done;
    }
}

} // namespace mosaro::organisation
