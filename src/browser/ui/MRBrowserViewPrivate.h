#pragma once

#include "browser/BrowserCommands.h"
#include "browser/ui/BrowserSearch.h"
#include "browser/ui/EmptyPlaces.h"
#include "browser/ui/GridArrivals.h"
#include "browser/ui/HeadLine.h"
#include "browser/ui/MRBrowserView.h"
#include "browser/ui/MRMediaBrowserView.h"
#include "browser/ui/StatusRow.h"

class QMimeData;

namespace mosaro::browser {

/// The parts behind the façade, and what one of them needs from another.
class MRBrowserView::Private {
public:
    Private(MRBrowserView& view, BrowserEnvironment environment);

    [[nodiscard]] bool isOpen() const;

    // The list.
    void replaceList(std::vector<store::RowId> ids);
    void showList();
    void updateSelectedMediaCount();
    void checkBrowserViewStatusWithSelection();

    // Order and zoom.
    void sort();
    void applyChange(const OrderChange& change);
    bool orderList(const BrowserOrder& by);
    void updateSortMenuItem(const BrowserOrder& by);
    void zoomAction(double zoom);

    // The selection.
    void selectMediaID(const QString& mediaID);
    [[nodiscard]] QString firstSelectedMediaID();
    void rate(int rating);
    void selectionDidChange();

    // Preferences, menu, drops.
    void observeNotifications();
    void checkBrowserViewAppearance();
    void readCellOptions();
    void showMenu(const QPoint& position);
    [[nodiscard]] QSet<int> selectedRatings();
    [[nodiscard]] bool acceptsDrop(const QMimeData& data, const QObject* source) const;

    MRBrowserView& view;
    BrowserEnvironment environment;
    SelectedCollections selectedCollections;
    ItemList items;
    SortMemory memory;
    BrowserCommands commands;
    GridArrivals arrivals;
    HeadLine* head;
    BrowserSearch search;
    MRMediaBrowserView* grid;
    StatusRow* status;
    EmptyPlaces* places;
    qint64 totalFileSize = 0;
    BrowserOrder current; ///< In force, whichever source it came from.
};

} // namespace mosaro::browser
