#include "import/ImportRun.h"

#include "base/Threads.h"
#include "import/ImportStaging.h"
#include "import/ItemCommitter.h"
#include "import/RunWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <optional>

namespace mosaro::importing {

namespace {

constexpr qint64 kFrame = 16;      ///< Milliseconds between two reports of progress.
constexpr qint64 kCommitSlice = 8; ///< Milliseconds of commits in one turn of the event loop.
constexpr int kTidyPause = 5;      ///< Milliseconds until the store is asked again whether it is ready.
constexpr size_t kSwatches = 4;

int threadCount(int wanted)
{
    return wanted > 0 ? wanted : std::max(1, QThread::idealThreadCount());
}

} // namespace

/// The phases of a run: Filtering (one worker), Walking (workers stage, the main thread commits), Closing (a
/// stop or the end of the list was reached, workers still finish what they hold), Over.
class ImportRun::Private {
public:
    Private(ImportRun& run, ImportEnvironment environment, std::shared_ptr<store::Collections> collection,
            bool copyMode);
    ~Private();

    void start(std::vector<ImportItem> items);
    void requestStop();
    [[nodiscard]] bool isRunning() const { return m_phase != Phase::Idle && m_phase != Phase::Over; }

private:
    enum class Phase { Idle, Filtering, Walking, Closing, Over };

    void filter(std::vector<ImportItem> items);
    void walk(FilteredItems&& filtered);
    void renewCollection();
    void startWorkers();
    void stage(int index);
    void take(int index, std::shared_ptr<StagedItem> staged);
    void drain();
    [[nodiscard]] bool canCommit() const;
    void commitNext();
    void commitItem(StagedItem& staged, int number);
    void stopAtNext();
    void report(ImportProgress progress);
    void flushProgress();
    void close();
    void finishWhenIdle();
    void finish();

    ImportRun& q;
    ImportEnvironment m_environment;
    std::shared_ptr<store::Collections> m_collection;
    bool m_copyMode;
    std::shared_ptr<const StagingSettings> m_settings; ///< Shared with the workers.

    QThreadPool m_pool;
    std::shared_ptr<std::atomic<bool>> m_cancelled = std::make_shared<std::atomic<bool>>(false);
    Phase m_phase = Phase::Idle;
    bool m_stopRequested = false;
    bool m_draining = false;
    std::vector<ImportItem> m_items;
    RunWindow m_window;
    std::unique_ptr<ItemCommitter> m_committer;
    ImportReport m_report;

    QTimer m_drainTimer;
    QTimer m_progressTimer;
    QElapsedTimer m_lastProgress;
    std::optional<ImportProgress> m_pendingProgress;
};

ImportRun::Private::Private(ImportRun& run, ImportEnvironment environment,
                            std::shared_ptr<store::Collections> collection, bool copyMode)
    : q(run), m_environment(std::move(environment)), m_collection(std::move(collection)),
      m_copyMode(copyMode), m_settings(std::make_shared<const StagingSettings>(
                                StagingSettings{m_environment.classification, m_environment.fileIndex,
                                                m_environment.analyse ? m_environment.analyse : analyse,
                                                m_environment.package.stagingDirPath(), copyMode}))
{
    m_pool.setMaxThreadCount(threadCount(m_environment.parallel));
    // A timer and not a queued call: between two turns of it the event loop looks at the user's input first.
    m_drainTimer.setSingleShot(true);
    QObject::connect(&m_drainTimer, &QTimer::timeout, &q, [this] { drain(); });
    m_progressTimer.setSingleShot(true);
    QObject::connect(&m_progressTimer, &QTimer::timeout, &q, [this] { flushProgress(); });
}

ImportRun::Private::~Private()
{
    m_cancelled->store(true);
    m_pool.clear();
    m_pool.waitForDone();
    m_window.close();
    // Results on their way to the main thread hold folders too.
    QCoreApplication::removePostedEvents(&q, QEvent::MetaCall);
    if (isRunning()) {
        QDir().rmdir(m_settings->stagingDirPath);
    }
}

void ImportRun::Private::start(std::vector<ImportItem> items)
{
    Q_ASSERT(base::onMainThread());
    if (m_phase != Phase::Idle) {
        return;
    }
    m_phase = Phase::Filtering;
    filter(std::move(items));
}

void ImportRun::Private::requestStop()
{
    if (isRunning()) {
        m_stopRequested = true;
        m_drainTimer.start(0);
    }
}

void ImportRun::Private::filter(std::vector<ImportItem> items)
{
    base::runOnWorker(
        m_pool, [this, items = std::move(items), settings = m_settings, &aliases = m_environment.aliases] {
            auto filtered =
                std::make_shared<FilteredItems>(checkDraggedFiles(items, settings->classification, aliases));
            if (!filtered->items.empty()) {
                prepareStaging(settings->stagingDirPath);
            }
            base::postToMain(q, [this, filtered] { walk(std::move(*filtered)); });
        });
}

void ImportRun::Private::walk(FilteredItems&& filtered)
{
    m_items = std::move(filtered.items);
    m_report.skipped = std::move(filtered.skipped);
    m_phase = Phase::Walking;
    m_committer = std::make_unique<ItemCommitter>(m_environment, m_collection, m_copyMode);
    if (m_items.empty() || !m_collection || m_collection->isRemoved()) {
        close();
        return;
    }
    renewCollection();
    const int total = static_cast<int>(m_items.size());
    m_window = RunWindow(total, 2 * m_pool.maxThreadCount() + 2);
    Q_EMIT q.walkStarted(total);
    startWorkers();
}

void ImportRun::Private::renewCollection()
{
    m_collection->setDateModified(QDateTime::currentDateTime());
    if (!m_environment.context.save()) {
        // The items will say what is wrong with the disk.
        m_environment.context.rollback();
    }
}

void ImportRun::Private::startWorkers()
{
    while (const auto index = m_window.takeStart()) {
        stage(*index);
    }
}

void ImportRun::Private::stage(int index)
{
    const ImportItem& item = m_items[static_cast<size_t>(index)];
    base::runOnWorker(m_pool, [this, index, item, settings = m_settings, cancelled = m_cancelled] {
        base::stepBack();
        auto staged = cancelled->load() ? nullptr : stageItem(item, *settings);
        // Moved on all the way: whoever drops the item last takes its folder away.
        base::postToMain(
            q, [this, index, staged = std::move(staged)]() mutable { take(index, std::move(staged)); });
    });
}

void ImportRun::Private::take(int index, std::shared_ptr<StagedItem> staged)
{
    m_window.arrived(index, std::move(staged));
    if (m_phase == Phase::Closing) {
        finishWhenIdle();
    } else {
        m_drainTimer.start(0);
    }
}

bool ImportRun::Private::canCommit() const
{
    return m_phase == Phase::Walking && (m_window.hasNext() || m_stopRequested);
}

void ImportRun::Private::drain()
{
    // A question for a folder runs an event loop of its own, in which more results arrive.
    if (m_draining || m_phase != Phase::Walking) {
        return;
    }
    m_draining = true;
    QElapsedTimer slice;
    slice.start();
    const auto& context = m_environment.context;
    while (canCommit() && !context.isTidying() && slice.elapsed() < kCommitSlice) {
        commitNext();
    }
    m_draining = false;
    if (m_phase != Phase::Walking) {
        return;
    }
    startWorkers();
    if (canCommit()) {
        m_drainTimer.start(context.isTidying() ? kTidyPause : 0);
    }
}

void ImportRun::Private::commitNext()
{
    const bool isNextGone = m_window.hasNext() && m_window.nextIsGone();
    if (m_stopRequested && !isNextGone) {
        stopAtNext();
        return;
    }
    const auto staged = m_window.takeNext();
    if (!staged->isGone) {
        commitItem(*staged, m_window.next());
    }
    if (m_window.isFinished()) {
        close();
    }
}

void ImportRun::Private::commitItem(StagedItem& staged, int number)
{
    m_report.tried = number;
    const auto committed = m_committer->commit(staged);
    ImportProgress progress{QFileInfo(staged.sourcePath).fileName(), number, m_window.total(), {}, {}};
    if (committed) {
        m_report.imported.append(staged.mediaID);
        progress.preview = staged.analysis.preview;
        for (size_t i = 0; i < std::min(kSwatches, staged.analysis.colors.size()); ++i) {
            progress.colors.push_back(staged.analysis.colors[i].color);
        }
    } else {
        m_report.failed.push_back({staged.sourcePath, committed.reason()});
    }
    report(std::move(progress));
}

/// The item that would be committed now is begun and thrown away; it counts as tried, not as failed.
void ImportRun::Private::stopAtNext()
{
    const int index = m_window.next();
    m_report.tried = index + 1;
    m_report.stopped = true;
    const QString file = QFileInfo(m_items[static_cast<size_t>(index)].path).fileName();
    report({file, index + 1, m_window.total(), {}, {}});
    close();
}

void ImportRun::Private::report(ImportProgress progress)
{
    m_pendingProgress = std::move(progress);
    const qint64 sinceLast = m_lastProgress.isValid() ? m_lastProgress.elapsed() : kFrame;
    if (sinceLast >= kFrame) {
        flushProgress();
    } else if (!m_progressTimer.isActive()) {
        m_progressTimer.start(static_cast<int>(kFrame - sinceLast));
    }
}

void ImportRun::Private::flushProgress()
{
    m_progressTimer.stop();
    if (m_pendingProgress) {
        const ImportProgress progress = std::move(*m_pendingProgress);
        m_pendingProgress.reset();
        m_lastProgress.start();
        Q_EMIT q.progressed(progress);
    }
}

void ImportRun::Private::close()
{
    m_phase = Phase::Closing;
    m_cancelled->store(true);
    m_window.close();
    flushProgress();
    finishWhenIdle();
}

void ImportRun::Private::finishWhenIdle()
{
    if (m_window.inFlight() == 0) {
        finish();
    }
}

void ImportRun::Private::finish()
{
    m_phase = Phase::Over;
    QDir().rmdir(m_settings->stagingDirPath);
    if (!m_copyMode) {
        m_report.accessListWritten = m_committer->accessList().write(m_environment.package).ok();
    }
    m_committer.reset();
    Q_EMIT q.finished(m_report);
}

ImportRun::ImportRun(ImportEnvironment environment, std::shared_ptr<store::Collections> collection,
                     bool copyMode, QObject* parent)
    : QObject(parent),
      d(std::make_unique<Private>(*this, std::move(environment), std::move(collection), copyMode))
{
}

ImportRun::~ImportRun() = default;

void ImportRun::start(std::vector<ImportItem> items)
{
    d->start(std::move(items));
}

void ImportRun::requestStop()
{
    d->requestStop();
}

bool ImportRun::isRunning() const
{
    return d->isRunning();
}

} // namespace mosaro::importing
