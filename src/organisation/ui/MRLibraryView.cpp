#include "organisation/ui/MRLibraryView.h"

#include "base/NotificationBus.h"
#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "kit/ColorPanel.h"
#include "kit/Look.h"
#include "organisation/ui/MRLibraryCollectionSource.h"
#include "organisation/ui/MRLibraryColorTagsSource.h"
#include "organisation/ui/MRLibraryTagsSource.h"
#include "organisation/ui/SidebarFoot.h"
#include "organisation/ui/SidebarTabs.h"
#include "organisation/ui/SmartCollectionPanel.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace mosaro::organisation {

namespace {

void dress(QWidget& view)
{
    QPalette colors = view.palette();
    colors.setColor(QPalette::Window, kit::color::sidebar);
    view.setPalette(colors);
    view.setAutoFillBackground(true);
}

} // namespace

class MRLibraryView::Private {
public:
    Private(const SidebarEnvironment& environment, MRLibraryView& view)
        : defaults(environment.defaults), tabs(new SidebarTabs(&view)),
          placeHolderView(new QStackedWidget(&view)), foot(new SidebarFoot(&view)),
          collections(environment, view, [this, &view] { announce(collections, view); }),
          tags(environment, view, [this, &view] { announce(tags, view); }),
          colors(environment, view, [this, &view] { announce(colors, view); }), sources{&collections, &tags,
                                                                                        &colors}
    {
        collections.setSmartCollectionSheet(smartCollectionSheet(environment, view));
        for (SidebarSource* source : sources) {
            placeHolderView->addWidget(&source->contentView());
        }
    }

    /// Only the source on show may reach the browser.
    void announce(const SidebarSource& source, MRLibraryView& view) const
    {
        if (installed == &source) {
            Q_EMIT view.selectionChanged();
        }
    }

    void install(int tab)
    {
        installed = sources.at(std::size_t(tab));
        placeHolderView->setCurrentWidget(&installed->contentView());
        foot->setMenu(installed->contextualMenu());
        defaults.updateUserDefaults(base::PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM, tab);
    }

    /// Reads all sources again.
    void reload() const
    {
        for (SidebarSource* source : sources) {
            source->reload();
        }
    }

    base::ZNUserDefaults& defaults;
    SidebarTabs* tabs;
    QStackedWidget* placeHolderView;
    SidebarFoot* foot;
    MRLibraryCollectionSource collections;
    MRLibraryTagsSource tags;
    MRLibraryColorTagsSource colors;
    std::array<SidebarSource*, kSidebarTabs> sources;
    SidebarSource* installed = nullptr;
    bool isFirtLoaded = true;
};

MRLibraryView::MRLibraryView(SidebarEnvironment environment, QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(environment, *this))
{
    dress(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(d->tabs);
    column->addWidget(d->placeHolderView);
    column->addWidget(d->foot);
    connect(d->tabs, &SidebarTabs::chosen, this, &MRLibraryView::changeCollection);
    connect(&d->collections, &MRLibraryCollectionSource::importFailed, this, &MRLibraryView::importFailed);

    const qint64 stored = environment.defaults.integer(base::PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM);
    changeCollection(stored >= 0 && stored < kSidebarTabs ? int(stored) : kCollectionsTab);
    observeBus(environment.utilities.bus());
}

void MRLibraryView::observeBus(base::NotificationBus& bus)
{
    bus.observe(base::MOSARO_NOTI_COMPLETED_MEDIA_IMPORTED, this, [this](const QVariant&) { readLibrary(); });
    bus.observe(base::MOSARO_NOTI_SHOW_ITEM_COUNTS, this, [this](const QVariant&) { d->reload(); });
    bus.observe(base::MOSARO_NOTI_COMPLETED_COLLECTION_DELETED, this, [this](const QVariant&) {
        for (SidebarSource* source :
             {static_cast<SidebarSource*>(&d->tags), static_cast<SidebarSource*>(&d->colors)}) {
            source->reload();
            source->updateSelection();
        }
    });
    bus.observe(base::MOSARO_NOTI_REQUEST_IMPORT_MODE, this,
                [this](const QVariant&) { changeCollection(kCollectionsTab); });
}

MRLibraryView::~MRLibraryView() = default;

void MRLibraryView::readLibrary()
{
    d->reload();
    d->installed->contentView().setFocus();
    if (!d->isFirtLoaded) {
        d->installed->updateSelection();
    }
    d->isFirtLoaded = false;
}

int MRLibraryView::currentSelectedTabIndex() const
{
    return d->tabs->current();
}

void MRLibraryView::changeCollection(int tab)
{
    if (tab < 0 || tab >= kSidebarTabs) {
        return;
    }
    d->tabs->setCurrent(tab);
    if (d->installed != d->sources.at(std::size_t(tab))) {
        d->install(tab);
        d->installed->updateSelection();
    }
    setFocusProxy(&d->installed->contentView());
    d->installed->contentView().setFocus();
    kit::ColorPanel::closeShared();
    Q_EMIT tabChanged(tab);
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
    changeCollection(kCollectionsTab);
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

QStringList MRLibraryView::selectedPath() const
{
    QStringList titles;
    if (d->installed != &d->collections) {
        return titles;
    }
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

void MRLibraryView::addTag()
{
    d->tags.addTag();
}

bool MRLibraryView::validateAddTag() const
{
    return d->tags.validate(TagCommand::NewTag);
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

bool MRLibraryView::hasSmartCollectionSheet() const
{
    return d->collections.hasSmartCollectionSheet();
}

kit::ZNFlatUIKitLabelView* MRLibraryView::makeFileLabelView()
{
    return d->collections.makeLabelView();
}

void MRLibraryView::menuWillOpen()
{
    d->collections.menuWillOpen();
}

void MRLibraryView::menuDidClose()
{
    d->collections.menuDidClose();
}

bool MRLibraryView::validateCommand(int tag) const
{
    return d->collections.validate(SidebarCommand(tag));
}

} // namespace mosaro::organisation
