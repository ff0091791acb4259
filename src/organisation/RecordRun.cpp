#include "organisation/RecordRun.h"

namespace mosaro::organisation {

namespace {

/// Few enough that a save takes some milliseconds, enough that its fixed cost does not count.
constexpr int kSaveEvery = 32;

class Saver {
public:
    Saver(SlicedRun& run, store::StoreContext& context, RecordRun work)
        : m_run(run), m_context(context), m_work(std::move(work))
    {
    }

    void step(qsizetype position)
    {
        m_pending += m_work.change(position) ? 1 : 0;
        if (++m_unsaved >= kSaveEvery) {
            save(position + 1);
        }
    }

    void save(qsizetype done)
    {
        if (m_unsaved == 0) {
            return;
        }
        m_unsaved = 0;
        if (const auto saved = m_context.save(); !saved) {
            m_context.rollback();
            m_end.failure = saved.reason();
            m_run.stop();
            return;
        }
        m_end.changed += std::exchange(m_pending, 0);
        if (m_work.saved) {
            m_work.saved(done);
        }
    }

    void finish() const
    {
        if (m_work.finished) {
            m_work.finished(m_end);
        }
    }

private:
    SlicedRun& m_run;
    store::StoreContext& m_context;
    RecordRun m_work;
    RecordRun::End m_end;
    int m_unsaved = 0;
    int m_pending = 0;
};

} // namespace

bool startRecordRun(SlicedRun& run, store::StoreContext& context, RecordRun work)
{
    const qsizetype count = work.count;
    const auto saver = std::make_shared<Saver>(run, context, std::move(work));
    return run.start({.count = count,
                      .step = [saver](qsizetype position) { saver->step(position); },
                      .sliceEnded = [saver](qsizetype done) { saver->save(done); },
                      .finished = [saver](qsizetype) { saver->finish(); },
                      .pauses = [&context] { return context.isTidying(); }});
}

} // namespace mosaro::organisation
