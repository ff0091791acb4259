#pragma once

#include "organisation/RunProgress.h"
#include "organisation/SlicedRun.h"
#include "organisation/TagLinker.h"

#include <optional>

namespace mosaro::organisation {

/// A TagLinker at work while the window lives, with the window's progress panel, which can stop it. Going
/// away ends a run without a word. What is saved stays in either case.
class TagRun : public QObject {
public:
    /// Null: no progress is shown.
    explicit TagRun(base::ProgressSink* progress, QObject* parent = nullptr);
    ~TagRun() override;

    using Finished = std::function<void(const TagLinker& linker)>;
    /// False while a run goes on. `title` is what the panel opens with; empty: the first percents.
    bool start(store::StoreContext& context, TagLinker linker, const QString& title, Finished finished);
    [[nodiscard]] bool isRunning() const { return m_run.isRunning(); }

private:
    void report(qsizetype done);

    RunProgress m_progress;
    std::optional<TagLinker> m_linker;
    SlicedRun m_run;
};

} // namespace mosaro::organisation
