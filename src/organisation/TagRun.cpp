#include "organisation/TagRun.h"

#include "base/Text.h"

namespace mosaro::organisation {

TagRun::TagRun(base::ProgressSink* progress, QObject* parent) : QObject(parent), m_progress(progress)
{
    m_progress.setStop([this] { m_run.stop(); });
}

TagRun::~TagRun() = default;

bool TagRun::start(store::StoreContext& context, TagLinker linker, const QString& title, Finished finished)
{
    if (m_run.isRunning()) {
        return false;
    }
    m_linker.emplace(std::move(linker));
    m_progress.setTitle(title);
    return m_run.start({.count = m_linker->count(),
                        .step = [this](qsizetype position) { m_linker->step(position); },
                        .sliceEnded = [this](qsizetype done) { report(done); },
                        .finished =
                            [this, finished = std::move(finished)](qsizetype) {
                                m_linker->saveRest();
                                m_progress.end();
                                finished(*m_linker);
                            },
                        .pauses = [&context] { return context.isTidying(); }});
}

void TagRun::report(qsizetype done)
{
    if (done < m_linker->count()) {
        const int percent = percentOf(done, m_linker->count());
        const QString number = QString::number(percent);
        m_progress.report(m_linker->direction() == TagDirection::Add
                              ? base::text("Basic.Add.Tags", number)
                              : base::text("Basic.Remove.Tags.Item", number),
                          percent);
    }
}

} // namespace mosaro::organisation
