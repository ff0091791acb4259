#include "organisation/ui/MRLibraryView.h"

#include "base/Notifications.h"
#include "base/Text.h"
#include "base/ZNUtilities.h"
#include "kit/Look.h"
#include "organisation/ui/MRLibraryCollectionSource.h"
#include "organisation/ui/SidebarFoot.h"

#include <QVBoxLayout>

namespace mosaro::organisation {

/// The tabs of the sidebar by number. There is one so far, so no row of tabs is shown.
class MRLibraryView::Private {
public:
    Private(const SidebarEnvironment& environment, MRLibraryView& view)
        : collections(environment, view, [this, &view] { announce(collections, view); }),
          installed(&collections)
    {
    }

    /// Only the source on show may reach the browser.
    void announce(const SidebarSource& source, MRLibraryView& view) const
    {
        if (installed == &source) {
            Q_EMIT view.selectionChanged();
        }
    }

    MRLibraryCollectionSource collections;
    SidebarSource* installed;
    bool isFirtLoaded = true;
};

MRLibraryView::MRLibraryView(SidebarEnvironment environment, QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(environment, *this))
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, kit::color::sidebar);
    setPalette(colors);
    setAutoFillBackground(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&d->installed->contentView());
    column->addWidget(new SidebarFoot(d->installed->contextualMenu(), this));
    setFocusProxy(&d->installed->contentView());
    connect(&d->collections, &MRLibraryCollectionSource::importFailed, this, &MRLibraryView::importFailed);

    base::NotificationBus& bus = environment.utilities.bus();
    bus.observe(base::MOSARO_NOTI_COMPLETED_MEDIA_IMPORTED, this, [this](const QVariant&) { readLibrary(); });
    bus.observe(base::MOSARO_NOTI_SHOW_ITEM_COUNTS, this,
                [this](const QVariant&) { d->collections.reload(); });
}

MRLibraryView::~MRLibraryView() = default;

void MRLibraryView::readLibrary()
{
    d->collections.reload();
    d->installed->contentView().setFocus();
    if (!d->isFirtLoaded) {
        d->installed->updateSelection();
    }
    d->isFirtLoaded = false;
}

int MRLibraryView::currentSelectedTabIndex() const
{
    return 0;
}

std::vector<store::SelectionElement> MRLibraryView::selectedCollections() const
{
    return d->installed->selectedCollection();
}

const store::MediaSet& MRLibraryView::selectedObjects() const
{
    return d->installed->selectedObjects();
}

void MRLibraryView::updateLibrary()
{
    d->collections.updateLibrary();
}

void MRLibraryView::findCollectionItem(const QString& collectionID)
{
    d->collections.findCollectionItem(collectionID);
}

bool MRLibraryView::isBusy() const
{
    return d->collections.isBusy();
}

QString MRLibraryView::selectedTitle() const
{
    const NodeList path = d->collections.selectedCollectionPath();
    return path.empty() ? QString() : path.back()->title;
}

QStringList MRLibraryView::selectedPath() const
{
    QStringList titles;
    for (const CollectionNode* node : d->collections.selectedCollectionPath()) {
        titles.append(node->title);
    }
    if (!titles.isEmpty()) {
        titles.removeLast();
    }
    return titles;
}

void MRLibraryView::addCollectionItem(int tag)
{
    d->collections.addCollectionItem(tag);
}

void MRLibraryView::importMedia()
{
    d->collections.importMedia();
}

void MRLibraryView::paste(const QMimeData& pasted)
{
    d->collections.pasteItemsToOutlineView(pasted);
}

void MRLibraryView::requestStopMediaImport()
{
    d->collections.requestStopMediaImport();
}

bool MRLibraryView::validateCommand(int tag) const
{
    return d->collections.validate(SidebarCommand(tag));
}

} // namespace mosaro::organisation
