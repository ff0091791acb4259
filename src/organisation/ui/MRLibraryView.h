#pragma once

#include "store/MediaSet.h"
#include "store/SelectionElement.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QMimeData;

namespace mosaro::base {
class Prompts;
class ZNUserDefaults;
class ZNUtilities;
} // namespace mosaro::base
namespace mosaro::importing {
class MediaClassification;
struct AnalysisRequest;
struct AnalysisResult;
struct FailedPath;
} // namespace mosaro::importing
namespace mosaro::platform {
struct Platform;
}
namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

/// What the sidebar needs from its surroundings; all outlive it.
struct SidebarEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
    base::Prompts& prompts;
    platform::Platform& platform;
    base::ZNUtilities&
        utilities; ///< Its bus carries the requests to import; it sends the user notifications.
    const importing::MediaClassification& classification;
    std::function<bool()> isWindowBusy;     ///< isBusy of the main window's controller.
    std::function<bool()> isCopyImageToLib; ///< The library's copy mode.
    std::function<void()> activateApplication;
    /// Null: the real one.
    std::function<importing::AnalysisResult(const importing::AnalysisRequest&)> analyse = {};
};

/// The sidebar of the main window: holder of its sources (here: the collection tree) and its foot with the
/// action menu. Selection changes are announced by selectionChanged(); the window then asks
/// selectedObjects().
class MRLibraryView : public QWidget {
    Q_OBJECT

public:
    explicit MRLibraryView(SidebarEnvironment environment, QWidget* parent = nullptr);
    ~MRLibraryView() override;

    void readLibrary();
    [[nodiscard]] int currentSelectedTabIndex() const;
    [[nodiscard]] std::vector<store::SelectionElement> selectedCollections() const;
    [[nodiscard]] const store::MediaSet& selectedObjects() const;
    void updateLibrary();
    void findCollectionItem(const QString& collectionID);
    /// An import runs.
    [[nodiscard]] bool isBusy() const;
    /// The one selected row's title, empty otherwise.
    [[nodiscard]] QString selectedTitle() const;
    /// Titles of the folders around the selected row, outermost first.
    [[nodiscard]] QStringList selectedPath() const;

    // Commands; the menus call these with the tags of the menu vocabulary.
    void addCollectionItem(int tag);
    void importMedia();
    /// Files or a picture into the selected collection or folder, or a new collection.
    void paste(const QMimeData& pasted);
    void requestStopMediaImport();
    /// Whether a command is possible now: tags 0, 2 (new …) and 2000 (import).
    [[nodiscard]] bool validateCommand(int tag) const;

Q_SIGNALS:
    /// The set of selected items changed, or was read again: the window runs selectLibrary.
    void selectionChanged();
    /// Last word of an import that left files out.
    void importFailed(const std::vector<mosaro::importing::FailedPath>& paths);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace mosaro::organisation
