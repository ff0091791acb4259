#include "browser/ui/MRBrowserViewPrivate.h"

#include "base/NotificationBus.h"
#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"
#include "browser/CountLine.h"
#include "browser/ui/GridMenu.h"
#include "store/ZNDBManager.h"

#include <QMenu>
#include <QVBoxLayout>

namespace mosaro::browser {

namespace {

/// Marking the ratings of a larger selection in the menu would read it all.
constexpr int kMostMarkedItems = 500;

} // namespace

MRBrowserView::Private::Private(MRBrowserView& owner, BrowserEnvironment surroundings)
    : view(owner), environment(std::move(surroundings)), items(environment.library),
      memory(environment.library), commands(environment.library), arrivals(environment, owner),
      head(new HeadLine(&owner)), search(environment, selectedCollections, owner),
      grid(new MRMediaBrowserView(items, &owner)), status(new StatusRow(&owner)),
      places(new EmptyPlaces(*grid->viewport()))
{
    auto* column = new QVBoxLayout(&owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head);
    column->addWidget(grid, 1);
    column->addWidget(status);
    status->setControlsVisible(false);
    head->setTrailing(search.field());
    connect(&search, &BrowserSearch::cancelled, grid, [this] { grid->setFocus(); });
    connect(&search, &BrowserSearch::chosen, &owner, &MRBrowserView::itemFound);

    connect(grid, &kit::GridView::selectionChanged, &owner, [this] { selectionDidChange(); });
    connect(grid, &MRMediaBrowserView::zoomValueChanged, &owner, [this](double zoom) { zoomAction(zoom); });
    connect(status, &StatusRow::zoomChosen, &owner, [this](double zoom) { zoomAction(zoom); });
    connect(grid, &kit::GridView::contextMenuRequested, &owner,
            [this](int, const QPoint& position) { showMenu(position); });
    connect(places, &EmptyPlaces::importRequested, &owner,
            [this] { environment.bus.post(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX); });
    grid->setDropFilter(
        [this](const QMimeData& data, const QObject* source) { return acceptsDrop(data, source); });
    grid->setDragSource([this] {
        return environment.isBusy()
                   ? ItemDrag()
                   : itemDrag(environment.library, grid->selectedRows(), selectedCollections);
    });
    connect(grid, &kit::GridView::dropped, &owner, [this](const QMimeData& data) { arrivals.drop(data); });
    observeNotifications();
    readCellOptions();
}

bool MRBrowserView::Private::isOpen() const
{
    return environment.library.isOpenedDatabase();
}

void MRBrowserView::Private::replaceList(std::vector<store::RowId> ids)
{
    items.setIds(std::move(ids));
    showList();
}

/// The grid tells nothing of this: a new list is no choice of the user's.
void MRBrowserView::Private::showList()
{
    grid->resetData();
    updateSelectedMediaCount();
    places->hideAll();
}

void MRBrowserView::Private::updateSelectedMediaCount()
{
    status->setCountLine(countLine(grid->selectionIndexes().count(), items.count(), totalFileSize));
    status->setControlsVisible(!items.isEmpty());
    Q_EMIT view.selectionChanged();
}

void MRBrowserView::Private::checkBrowserViewStatusWithSelection()
{
    places->show(emptyState(selectedCollections, items.isEmpty(), environment.selectTabIndex()),
                 view.isUserCollection());
}

void MRBrowserView::Private::sort()
{
    const std::optional<BrowserOrder> order = memory.startOrder(selectedCollections);
    if (order && order->key >= 0) {
        orderList(*order);
        updateSortMenuItem(*order);
    }
    checkBrowserViewStatusWithSelection();
    view.sizeToFit();
    search.initializeSearchTemplate();
}

/// False when the key names no order; the list stays as it is then.
bool MRBrowserView::Private::orderList(const BrowserOrder& by)
{
    if (by.key < 0 || by.key > int(store::SortKey::DateLastOpened) || !items.order(by)) {
        return false;
    }
    items.setSortKey(by.key);
    showList();
    return true;
}

void MRBrowserView::Private::applyChange(const OrderChange& change)
{
    if (!change.order) {
        return;
    }
    if (change.resort) {
        const QString mediaID = firstSelectedMediaID();
        orderList(*change.order);
        updateSortMenuItem(*change.order);
        checkBrowserViewStatusWithSelection();
        selectMediaID(mediaID);
    } else {
        updateSortMenuItem(*change.order);
    }
}

void MRBrowserView::Private::updateSortMenuItem(const BrowserOrder& by)
{
    current = by;
    Q_EMIT view.sortChanged();
}

void MRBrowserView::Private::zoomAction(double zoom)
{
    if (!isOpen()) {
        return;
    }
    const double held = qBound(kSmallestZoom, zoom, kLargestZoom);
    status->setZoom(held);
    grid->setZoomValue(held);
    memory.storeZoom(selectedCollections, held);
}

void MRBrowserView::Private::selectMediaID(const QString& mediaID)
{
    const int index = items.indexOfMediaID(mediaID);
    if (index >= 0) {
        grid->setSelectionIndexes(kit::GridSelection({index, index}));
        grid->scrollIndexToVisible(index);
    }
}

QString MRBrowserView::Private::firstSelectedMediaID()
{
    return items.mediaIDAt(grid->selectionIndexes().first());
}

void MRBrowserView::Private::selectionDidChange()
{
    if (!isOpen()) {
        return;
    }
    const kit::GridSelection& selection = grid->selectionIndexes();
    if (selection.count() == 1) {
        grid->scrollIndexToVisible(selection.first());
    }
    updateSelectedMediaCount();
}

void MRBrowserView::Private::rate(int rating)
{
    const QString mediaID = firstSelectedMediaID();
    if (!isOpen() || rating < 0 || mediaID.isEmpty()) {
        return;
    }
    (void)commands.ratingImages(grid->selectedRows(), rating);
    if (current.key == int(store::SortKey::Rating)) {
        sort();
        selectMediaID(mediaID);
        return;
    }
    items.refresh();
    grid->reloadData();
    updateSelectedMediaCount();
}

void MRBrowserView::Private::observeNotifications()
{
    base::NotificationBus& bus = environment.bus;
    const auto redraw = [this](const QVariant&) {
        readCellOptions();
        grid->reloadData();
    };
    bus.observe(base::MOSARO_NOTI_SHOW_IMAGE_TYPE_CHANGED, &view, redraw);
    bus.observe(base::MOSARO_NOTI_SHOW_REFERENCED_MARK_CHANGED, &view, redraw);
    bus.observe(base::MOSARO_NOTI_SHOW_TITLE_OPTIONS_CHANGED, &view,
                [this](const QVariant&) { checkBrowserViewAppearance(); });
    bus.observe(base::MOSARO_NOTI_SCROLL_TO_TOP, &view, [this](const QVariant&) {
        if (!environment.isBusy() && grid->hasFocus()) {
            grid->scrollToTop();
        }
    });
}

void MRBrowserView::Private::checkBrowserViewAppearance()
{
    readCellOptions();
    grid->scrollIndexToVisible(grid->selectionIndexes().first());
}

void MRBrowserView::Private::readCellOptions()
{
    const base::ZNUserDefaults& defaults = environment.defaults;
    CellOptions options;
    options.titles = defaults.boolean(base::PREFS_GENERAL_SHOW_TITLE_IN_BROWSER, true);
    options.imageType = defaults.boolean(base::PREFS_GENERAL_SHOW_IMAGE_TYPE, true);
    options.referencedMark = defaults.boolean(base::PREFS_GENERAL_SHOW_REFERENCED_FILE_TYPE, false);
    grid->setCellOptions(options);
}

QSet<int> MRBrowserView::Private::selectedRatings()
{
    QSet<int> ratings;
    if (grid->selectionIndexes().count() <= kMostMarkedItems) {
        grid->selectionIndexes().forEach([&](int index) { ratings.insert(items.contentAt(index).rating); });
    }
    return ratings;
}

void MRBrowserView::Private::showMenu(const QPoint& position)
{
    if (!isOpen() || selectedCollections.empty()) {
        return;
    }
    const GridMenuState state{memory.storedOrder(selectedCollections),
                              !items.isEmpty(),
                              !grid->selectionIndexes().isEmpty(),
                              view.isUserCollection(),
                              environment.isBusy(),
                              selectedRatings()};
    const GridMenuActions actions{
        [this] { environment.bus.post(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX); },
        [this](int tag) { view.ratingImages(tag); },
        [this](int tag) { view.sortMedia(tag); },
        [this](int tag) { view.ascendOrDescendMedia(tag); },
        [this] { view.selectAll(); },
        [this] { Q_EMIT view.tagViewRequested(); },
    };
    makeGridMenu(&view, state, actions)->popup(position);
}

bool MRBrowserView::Private::acceptsDrop(const QMimeData& data, const QObject* source) const
{
    const bool fromHere = source == grid || source == grid->viewport();
    return isOpen() && !environment.isBusy() && !fromHere && view.isUserCollection() &&
           GridArrivals::carriesMedia(data);
}

} // namespace mosaro::browser
