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
class Prompts;
class ZNUserDefaults;
} // namespace mosaro::base
namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::browser {

struct BrowserEnvironment {
    store::ZNDBManager& library;
    base::ZNUserDefaults& defaults;
    base::Prompts& prompts;
    std::function<bool()> isBusy;
    std::function<int()> selectTabIndex;
    base::NotificationBus& bus;
    std::function<QStringList()> allowedMedia = {}; ///< Extensions of files to import; null: none.
};

/// The grid of items with its head line, count line and zoom, and the places that say what to do when it is
/// empty.
class MRBrowserView : public QWidget {
    Q_OBJECT

public:
    explicit MRBrowserView(BrowserEnvironment environment, QWidget* parent = nullptr);
    ~MRBrowserView() override;

    void setSelectedCollections(std::vector<store::SelectionElement> collections);
    void setMedia(store::MediaSet media);
    void setTotalFileSize(qint64 bytes);
    void sort();
    void sizeToFit();
    void reload();
    void keepSelection();
    void activeFocus();
    /// The Find command.
    void findMedia();
    void findMediaItem(const QString& mediaID);
    [[nodiscard]] QString currentCollectionID() const;
    [[nodiscard]] bool isUserCollection() const;
    [[nodiscard]] QString selectedCollectionName() const;
    [[nodiscard]] bool isOpenedImage() const { return false; }
    /// Folder titles before the collection's own, for the head line.
    void setPath(const QStringList& folders);

    // Commands with the tags of the menu vocabulary: 23 to 31 sort keys, 33 and 34 directions.
    void sortMedia(int tag);
    void ascendOrDescendMedia(int tag);
    void ratingImages(int tag);
    /// Multiplies the zoom, within its bounds.
    void zoomBy(double factor);
    /// Files or a picture into the selected collection.
    void paste(const QMimeData& pasted);
    void selectAll();
    void selectNone();
    [[nodiscard]] int currentSortKey() const;
    [[nodiscard]] bool currentAscending() const;
    [[nodiscard]] int itemCount() const;
    [[nodiscard]] int selectedCount() const;
    /// Rows of the selected items, in display order.
    [[nodiscard]] std::vector<store::RowId> selectedRows() const;
    /// Selects those that are in the list.
    void selectRows(const std::vector<store::RowId>& rows);
    /// Hides or shows the head line, as full screen does.
    void adjustViewsInFullscreen(bool fullscreen);

Q_SIGNALS:
    void sortChanged();
    void selectionChanged();
    /// The tags of the selected items are to be shown.
    void tagViewRequested();
    /// A search led to an item.
    void itemFound(const QString& mediaID, const QString& collectionID);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace mosaro::browser
