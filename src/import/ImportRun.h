#pragma once

#include "import/Analysis.h"
#include "import/ImportItem.h"
#include "store/AccessList.h"
#include "store/Collections.h"
#include "store/LibraryPackage.h"
#include "store/StoreContext.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

namespace mosaro::importing {

/// What a run works with. All references outlive the run.
struct ImportEnvironment {
    store::StoreContext& context;
    store::LibraryPackage package;
    const MediaClassification& classification;
    const platform::AliasResolver& aliases;
    const platform::FileIndex& fileIndex;
    const platform::Bookmarks& bookmarks;
    /// Asks for a folder to grant access to, starting there; empty when cancelled. Called on the main thread.
    /// Null: as if always cancelled.
    std::function<QString(const QString& folder)> askForFolder;
    /// Files analysed at once; 0: one for each core.
    int parallel = 0;
    /// analyse() unless a test puts in another.
    std::function<AnalysisResult(const AnalysisRequest&)> analyse;
};

struct FailedPath {
    QString path;
    QString reason;
};

struct ImportReport {
    QStringList imported; ///< mediaIDs in list order.
    std::vector<FailedPath> failed;
    std::vector<SkippedPath> skipped;
    int tried = 0; ///< Number of the last item that was begun; what the final message counts.
    bool stopped = false;
    bool accessListWritten = false;
};

/// After each item, for the sheet. `preview` holds the preview's bytes; empty for a failed item.
struct ImportProgress {
    QString file;
    int index = 0; ///< 1-based.
    int total = 0;
    QByteArray preview;
    std::vector<base::ColorValue> colors;

    [[nodiscard]] int percent() const { return total > 0 ? index * 100 / total : 0; }
};

/// One run: filters the list, analyses several files at once on workers, commits the results in list order on
/// the main thread. A worker puts an item's whole folder together beside its place; the commit renames it
/// into place and saves the record, so that at any moment every record has its files.
class ImportRun : public QObject {
    Q_OBJECT

public:
    ImportRun(ImportEnvironment environment, std::shared_ptr<store::Collections> collection, bool copyMode,
              QObject* parent = nullptr);
    /// Waits for workers and throws away what they had staged.
    ~ImportRun() override;

    /// Returns at once. finished() follows, also for an empty list.
    void start(std::vector<ImportItem> items);
    /// Honoured at the item that is committed next: that item is discarded and the run ends.
    void requestStop();
    [[nodiscard]] bool isRunning() const;

Q_SIGNALS:
    /// The list is filtered; the walk begins.
    void walkStarted(int total);
    /// At most once per frame, always for the last item.
    void progressed(const mosaro::importing::ImportProgress& progress);
    void finished(const mosaro::importing::ImportReport& report);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace mosaro::importing
