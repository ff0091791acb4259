#pragma once

#include "base/Ports.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "import/ImportRun.h"
#include "platform/Ports.h"
#include "store/ZNDBManager.h"

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace mosaro::organisation {

/// What an import session works with; all outlive it.
struct ImportSessionEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
    base::ZNUtilities& utilities;
    base::Prompts& prompts;
    platform::Platform& platform;
    const importing::MediaClassification& classification;
    std::function<bool()> isCopyImageToLib;    ///< Null: copies.
    std::function<void()> activateApplication; ///< Null: nothing to activate.
    std::function<importing::AnalysisResult(const importing::AnalysisRequest&)>
        analyse; ///< Null: the real one.
};

/// The import half of the sidebar without its windows: one run at a time, its progress on the launcher icon,
/// and the closing steps in their fixed order. Whoever shows a sheet for it closes it on sheetShouldEnd().
class ImportSession : public QObject {
    Q_OBJECT

public:
    explicit ImportSession(ImportSessionEnvironment environment, QObject* parent = nullptr);
    /// Waits for the workers of a run that still goes on.
    ~ImportSession() override;

    /// Starts a run and returns at once. False, with nothing done, without an open library, without items or
    /// a collection, and while a run goes on. `fromInternalSource` is false for a run that shows its progress
    /// by the bus instead of the sheet.
    bool addMediaItem(std::vector<importing::ImportItem> items,
                      const std::shared_ptr<store::Collections>& withItem, bool fromInternalSource);
    [[nodiscard]] bool isImporting() const { return m_run != nullptr; }
    /// The item that is committed next is discarded, and the run ends.
    void requestStop();
    /// Takes the badge off when the preference is off.
    void updateBadgeSetting();

Q_SIGNALS:
    void sheetShouldBegin();
    void walkStarted(int total);
    void progressed(const mosaro::importing::ImportProgress& progress);
    /// The run is over and isImporting() false; what hears this posts MOSARO_NOTI_COMPLETED_MEDIA_IMPORTED
    /// when its sheet is gone.
    void sheetShouldEnd();
    /// After everything else of the run's end.
    void failed(const std::vector<mosaro::importing::FailedPath>& paths);

private:
    [[nodiscard]] importing::ImportEnvironment runEnvironment() const;
    [[nodiscard]] QString askForFolder(const QString& folder) const;
    void begin();
    void showProgress(const importing::ImportProgress& progress);
    void finish(const importing::ImportReport& report);
    void postImportStautsNotification(int count);
    void clearBadge();
    void activate();

    ImportSessionEnvironment m_environment;
    std::unique_ptr<importing::ImportRun> m_run;
    bool m_fromInternalSource = true;
};

} // namespace mosaro::organisation
