#pragma once

#include "store/MediaSet.h"
#include "store/SelectionElement.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QMimeData;

namespace mosaro::base {
class NotificationBus;
class ProgressSink;
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
namespace mosaro::kit {
class ZNFlatUIKitLabelView;
}
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
    base::ProgressSink* progress = nullptr; ///< The window's progress panel; null: none is shown.
};

/// The sidebar of the main window: its three tabs, each a source of its own, and its foot with the action
/// menu of the source on show. Selection changes are announced by selectionChanged(); the window then asks
/// selectedObjects().
class MRLibraryView : public QWidget {
    Q_OBJECT

public:
    explicit MRLibraryView(SidebarEnvironment environment, QWidget* parent = nullptr);
    ~MRLibraryView() override;

    void readLibrary();
    [[nodiscard]] int currentSelectedTabIndex() const;
    /// Shows a tab: 0 collections, 1 tags, 2 colours. Others are ignored.
    void changeCollection(int tab);
    [[nodiscard]] std::vector<store::SelectionElement> selectedCollections() const;
    [[nodiscard]] const store::MediaSet& selectedObjects() const;
    void updateLibrary();
    void findCollectionItem(const QString& collectionID);
    /// An import, a deletion or a move of items runs.
    [[nodiscard]] bool isBusy() const;
    /// Titles of the folders around the selected row, outermost first.
    [[nodiscard]] QStringList selectedPath() const;

    // Commands; the menus call these with the tags of the menu vocabulary.
    void addCollectionItem(int tag);
    void addTag();
    [[nodiscard]] bool validateAddTag() const;
    void importMedia();
    /// Files or a picture into the selected collection or folder, or a new collection.
    void paste(const QMimeData& pasted);
    void requestStopMediaImport();
    /// Whether a command is possible now: tags 0 to 2 (new …) and 2000 (import).
    [[nodiscard]] bool validateCommand(int tag) const;
    /// Smart collections can be made and edited.
    [[nodiscard]] bool hasSmartCollectionSheet() const;
    /// A row of labels for the window's File menu, which owns it.
    [[nodiscard]] kit::ZNFlatUIKitLabelView* makeFileLabelView();
    /// Around each time that menu is open.
    void menuWillOpen();
    void menuDidClose();

Q_SIGNALS:
    /// The set of selected items changed, or was read again: the window runs selectLibrary.
    void selectionChanged();
    void tabChanged(int tab);
    /// Last word of an import that left files out.
    void importFailed(const std::vector<mosaro::importing::FailedPath>& paths);

private:
    void observeBus(base::NotificationBus& bus);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace mosaro::organisation
