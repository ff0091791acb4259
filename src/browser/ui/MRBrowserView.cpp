#include "browser/ui/MRBrowserView.h"

#include "browser/ui/MRBrowserViewPrivate.h"

namespace mosaro::browser {

namespace {

constexpr int kFirstSortTag = 23;
constexpr int kLastSortTag = 31;
constexpr int kDescendingTag = 34;

QStringList selectionKeys(const SelectedCollections& selected)
{
    QStringList keys;
    for (const store::SelectionElement& element : selected) {
        keys.append(element.selectionKey());
    }
    return keys;
}

QString joinedTitles(const SelectedCollections& selected)
{
    QStringList titles;
    for (const store::SelectionElement& element : selected) {
        titles.append(element.title);
    }
    return titles.join(QStringLiteral(", "));
}

} // namespace

MRBrowserView::MRBrowserView(BrowserEnvironment environment, QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(*this, std::move(environment)))
{
    setFocusProxy(d->grid);
}

/// The grid refers to the item list, so it goes first.
MRBrowserView::~MRBrowserView()
{
    delete d->grid;
}

void MRBrowserView::setSelectedCollections(std::vector<store::SelectionElement> collections)
{
    const bool isOther = selectionKeys(collections) != selectionKeys(d->selectedCollections);
    d->selectedCollections = std::move(collections);
    d->head->setTitle(d->selectedCollections.size() == 1 ? selectedCollectionName()
                                                         : joinedTitles(d->selectedCollections));
    if (isOther) {
        d->grid->scrollToTop();
    }
}

void MRBrowserView::setMedia(store::MediaSet media)
{
    d->totalFileSize = media.totalFileSize;
    d->replaceList(std::move(media.ids));
}

void MRBrowserView::setTotalFileSize(qint64 bytes)
{
    d->totalFileSize = bytes;
    d->updateSelectedMediaCount();
}

void MRBrowserView::sort()
{
    d->sort();
}

void MRBrowserView::sizeToFit()
{
    if (d->isOpen() && !d->selectedCollections.empty()) {
        d->zoomAction(d->memory.zoom(d->selectedCollections));
    }
}

void MRBrowserView::reload()
{
    if (!d->items.isEmpty()) {
        d->grid->reloadItems();
    }
}

void MRBrowserView::keepSelection()
{
    d->grid->scrollIndexToVisible(d->grid->selectionIndexes().first());
    d->grid->setFocus();
    d->updateSelectedMediaCount();
}

void MRBrowserView::activeFocus()
{
    d->grid->scrollIndexToVisible(d->grid->selectionIndexes().first());
    d->updateSelectedMediaCount();
}

void MRBrowserView::findMedia()
{
    d->search.findMedia();
}

void MRBrowserView::findMediaItem(const QString& mediaID)
{
    d->grid->setFocus();
    d->selectMediaID(mediaID);
}

QString MRBrowserView::currentCollectionID() const
{
    return browser::currentCollectionID(d->selectedCollections, d->environment.library);
}

bool MRBrowserView::isUserCollection() const
{
    return browser::isUserCollection(d->selectedCollections);
}

QString MRBrowserView::selectedCollectionName() const
{
    return browser::selectedCollectionName(d->selectedCollections, d->environment.library);
}

void MRBrowserView::setPath(const QStringList& folders)
{
    d->head->setPath(folders);
}

void MRBrowserView::sortMedia(int tag)
{
    if (tag >= kFirstSortTag && tag <= kLastSortTag) {
        d->applyChange(d->memory.chooseKey(d->selectedCollections, tag - kFirstSortTag));
    }
}

void MRBrowserView::ascendOrDescendMedia(int tag)
{
    d->applyChange(d->memory.chooseDirection(d->selectedCollections, tag != kDescendingTag));
}

void MRBrowserView::ratingImages(int tag)
{
    d->rate(tag);
}

void MRBrowserView::zoomBy(double factor)
{
    d->zoomAction(d->grid->zoomValue() * factor);
}

void MRBrowserView::paste(const QMimeData& pasted)
{
    d->arrivals.paste(pasted, d->selectedCollections);
}

void MRBrowserView::selectAll()
{
    d->grid->selectAll();
}

void MRBrowserView::selectNone()
{
    d->grid->selectNone();
}

int MRBrowserView::currentSortKey() const
{
    return d->current.key;
}

bool MRBrowserView::currentAscending() const
{
    return d->current.ascending;
}

int MRBrowserView::itemCount() const
{
    return d->items.count();
}

int MRBrowserView::selectedCount() const
{
    return d->grid->selectionIndexes().count();
}

std::vector<store::RowId> MRBrowserView::selectedRows() const
{
    return d->grid->selectedRows();
}

void MRBrowserView::selectRows(const std::vector<store::RowId>& rows)
{
    const QSet<store::RowId> wanted(rows.begin(), rows.end());
    kit::GridSelection selection;
    for (int index = 0; index < d->items.count(); ++index) {
        if (wanted.contains(d->items.ids()[size_t(index)])) {
            selection.add({index, index});
        }
    }
    d->grid->setSelectionIndexes(selection);
}

void MRBrowserView::adjustViewsInFullscreen(bool fullscreen)
{
    d->head->setVisible(!fullscreen);
    d->zoomAction(d->grid->zoomValue());
}

} // namespace mosaro::browser
