#include "organisation/ui/MRLibraryCollectionSource.h"

#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "kit/ZNFlatUIKitLabelView.h"
#include "organisation/DatabaseError.h"
#include "organisation/ui/CollectionMenu.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/ImportPanel.h"
#include "store/RecordReference.h"

namespace mosaro::organisation {

namespace {

ImportSessionEnvironment sessionEnvironment(const SidebarEnvironment& environment)
{
    return {.library = environment.library,
            .defaults = environment.defaults,
            .utilities = environment.utilities,
            .prompts = environment.prompts,
            .platform = environment.platform,
            .classification = environment.classification,
            .isCopyImageToLib = environment.isCopyImageToLib,
            .activateApplication = environment.activateApplication,
            .analyse = environment.analyse};
}

} // namespace

MRLibraryCollectionSource::MRLibraryCollectionSource(const SidebarEnvironment& environment, QWidget& sidebar,
                                                     std::function<void()> selectLibrary)
    : m_environment(environment), m_selectLibrary(std::move(selectLibrary)), m_counts(environment.library),
      m_memory(environment.library.state()), m_model(m_tree),
      m_outline(new CollectionOutline(
          m_model, [this](const CollectionNode& node) { return badge(node); }, &sidebar)),
      m_navigator(*m_outline, m_tree, m_memory, [this] { selectNothing(); }),
      m_session(sessionEnvironment(environment)), m_ways(*this, m_environment),
      m_pasteboard(*this, m_ways, m_environment, sidebar), m_changes(*this, m_environment),
      m_menu(new CollectionMenu({[this](SidebarCommand command) { return exists(command); },
                                 [this](SidebarCommand command) { return validate(command); },
                                 [this] { return editTitle(selectedNodes()); }},
                                &sidebar))
{
    addLabelRow(m_menu->labelRow());
    new ImportPanel(m_session, sidebar, environment.utilities, environment.platform.revealer.get());
    connect(&m_session, &ImportSession::failed, this, &MRLibraryCollectionSource::importFailed);
    connectTree();
    observeBus();
}

MRLibraryCollectionSource::~MRLibraryCollectionSource()
{
    // The tree view is the sidebar's child and may outlive the model by a moment.
    m_outline->disconnect(this);
    delete m_outline;
}

void MRLibraryCollectionSource::connectTree()
{
    connect(m_outline, &CollectionOutline::selectionDidChange, this,
            &MRLibraryCollectionSource::outlineViewSelectionDidChange);
    connect(m_outline, &CollectionOutline::nodeExpanded, this,
            [this](const CollectionNode* node) { m_memory.willExpand(*node); });
    connect(m_outline, &CollectionOutline::nodeCollapsed, this,
            [this](const CollectionNode* node) { itemWillCollapse(*node); });
    connect(m_outline, &CollectionOutline::renameRequested, this, [this] {
        if (validate(SidebarCommand::Edit)) {
            editCollection();
        }
    });
    connect(m_outline, &CollectionOutline::menuRequested, m_menu,
            [this](const QPoint& position) { m_menu->popup(position); });
    connect(m_outline, &CollectionOutline::deleteRequested, this, [this] {
        if (validate(SidebarCommand::Delete)) {
            deleteCollection();
        }
    });
    connect(m_outline, &CollectionOutline::dropped, this, &MRLibraryCollectionSource::acceptDrop);
    connect(&m_model, &CollectionTreeModel::titleEdited, this, &MRLibraryCollectionSource::rename);
    connect(m_menu, &CollectionMenu::willOpen, this, &MRLibraryCollectionSource::menuWillOpen);
    connect(m_menu, &CollectionMenu::didClose, this, &MRLibraryCollectionSource::menuDidClose);
    connect(m_menu, &CollectionMenu::chosen, this, &MRLibraryCollectionSource::run);
    m_outline->setDropRule([this](DragContent content, const CollectionNode* target) {
        return dropOperation(std::move(content), target);
    });
}

void MRLibraryCollectionSource::observeBus()
{
    base::NotificationBus& bus = m_environment.utilities.bus();
    bus.observe(base::MOSARO_NOTI_SHOW_PROCESS_BADGE_ON_DOCK, this,
                [this](const QVariant&) { m_session.updateBadgeSetting(); });
    bus.observe(base::MOSARO_NOTI_RECENT_DAYS_CHANGED, this,
                [this](const QVariant& days) { updateNotificationToRecent(days); });
    bus.observe(base::MOSARO_NOTI_REQUEST_STOP_IMPORT, this,
                [this](const QVariant&) { requestStopMediaImport(); });
    bus.observe(base::MOSARO_NOTI_REQUEST_IMPORT_DRAGGED_FILE, this,
                [this](const QVariant& paths) { m_ways.requestDraggedFileToImport(paths); });
    bus.observe(base::MOSARO_NOTI_REQUEST_IMORT_URL_IMAGE, this,
                [this](const QVariant& records) { m_ways.requestURLImageToImport(records); });
    bus.observe(base::MOSARO_NOTI_CAPTURED_MEDIA_ITEM, this,
                [this](const QVariant& record) { m_ways.didCapturedMedia(record); });
    bus.observe(base::MOSARO_NOTI_COLLECTION_SOURCE_CREATED, this,
                [this](const QVariant& record) { m_ways.collectionSourceCreated(record); });
    bus.observe(base::MOSARO_NOTI_REQUEST_SHOW_IMPORT_BOX, this, [this](const QVariant&) { importMedia(); });
    bus.observe(base::MOSARO_NOTI_RELOAD_CURRENT_SELECTION, this, [this](const QVariant&) {
        if (!selectedNodes().empty()) {
            updateSelection();
        }
    });
    bus.observe(base::MOSARO_NOTI_COMPLETED_MEDIA_DELETED, this,
                [this](const QVariant&) { m_changes.deleteMediaNotification(); });
    bus.observe(base::MOSARO_NOTI_SCROLL_TO_TOP, this, [this](const QVariant&) { scrollToTop(); });
}

void MRLibraryCollectionSource::reload()
{
    m_counts.clear();
    store::StoreContext* context = m_environment.library.context();
    if (m_tree.isEmpty() && context) {
        m_model.rebuild([this, context] {
            if (const auto made = m_tree.makeLibrary(*context); !made) {
                showDatabaseError(made.reason());
            }
        });
        m_environment.utilities.postNotification(base::MOSARO_NOTI_COLLECTION_SOURCE_CHANGED);
        m_navigator.restoreOutlineViewStatus();
    }
    m_outline->viewport()->update();
}

void MRLibraryCollectionSource::updateSelection()
{
    m_navigator.updateSelection();
}

std::vector<store::SelectionElement> MRLibraryCollectionSource::selectedCollection() const
{
    store::StoreContext* context = m_environment.library.context();
    std::vector<store::SelectionElement> elements;
    for (const CollectionNode* node : selectedNodes()) {
        store::SelectionElement element;
        element.id = node->id;
        element.type = node->type;
        element.title = node->title;
        if (node->isUserNode()) {
            element.shape = store::SelectionElement::Shape::CollectionNode;
            element.record = context
                                 ? store::referencedRow(*context, store::Collections::info(), node->object)
                                 : store::kUnsavedRow;
        }
        elements.push_back(std::move(element));
    }
    return elements;
}

QMenu& MRLibraryCollectionSource::contextualMenu()
{
    return *m_menu;
}

QWidget& MRLibraryCollectionSource::contentView()
{
    return *m_outline;
}

NodeList MRLibraryCollectionSource::selectedNodes() const
{
    return m_outline->selectedNodes();
}

void MRLibraryCollectionSource::selectNode(const CollectionNode& node)
{
    m_outline->selectNodes({&node});
}

NodeList MRLibraryCollectionSource::selectedCollectionPath() const
{
    const NodeList selected = selectedNodes();
    return selected.size() == 1 ? pathBelowGroup(*selected.front()) : NodeList();
}

void MRLibraryCollectionSource::findCollectionItem(const QString& id)
{
    m_navigator.findCollectionItem(id);
}

bool MRLibraryCollectionSource::showCollectionAlone(const QString& id)
{
    const CollectionNode* wanted = node(id);
    if (!wanted || !wanted->isUserNode()) {
        return false;
    }
    m_navigator.findCollectionItemAlone(id);
    return true;
}

void MRLibraryCollectionSource::updateLibrary()
{
    m_navigator.selectAllItems();
}

void MRLibraryCollectionSource::outlineViewSelectionDidChange()
{
    store::StoreContext* context = m_environment.library.context();
    if (!context) {
        return;
    }
    const NodeList selected = selectedNodes();
    m_memory.rememberSelection(selected);
    m_selectedMedia = SelectionPipeline(*context, m_environment.defaults)
                          .selectedMedia(selected, QDateTime::currentDateTime());
    m_selectLibrary();
}

void MRLibraryCollectionSource::itemWillCollapse(const CollectionNode& node)
{
    if (const CollectionNode* heir = selectionAfterCollapse(selectedNodes())) {
        selectNode(*heir);
    }
    m_memory.willCollapse(node);
    m_outline->deselectHidden();
}

void MRLibraryCollectionSource::selectNothing()
{
    m_selectedMedia = {};
    m_selectLibrary();
}

void MRLibraryCollectionSource::makeUserCollections()
{
    m_counts.clear();
    bool isMade = false;
    m_model.rebuild([this, &isMade] {
        const auto made = m_tree.makeUserCollections(*m_environment.library.context());
        isMade = made.ok();
        if (!isMade) {
            showDatabaseError(made.reason());
        }
    });
    if (isMade) {
        m_environment.utilities.postNotification(base::MOSARO_NOTI_COLLECTION_SOURCE_CHANGED);
    }
}

void MRLibraryCollectionSource::rebuild()
{
    makeUserCollections();
    m_navigator.restoreOutlineViewStatus();
}

void MRLibraryCollectionSource::rebuildAround(const QString& id)
{
    m_memory.addSelected(id);
    rebuild();
}

void MRLibraryCollectionSource::countsChanged()
{
    m_counts.clear();
    m_outline->viewport()->update();
}

void MRLibraryCollectionSource::updateNotificationToRecent(const QVariant& days)
{
    const NodeList selected = selectedNodes();
    const int kind = days.typeId();
    const bool isNumber = kind == QMetaType::Int || kind == QMetaType::LongLong || kind == QMetaType::Double;
    if (isNumber && m_environment.library.isOpenedDatabase() && selected.size() == 1 &&
        selected.front()->type == kTypeRecent) {
        updateSelection();
    }
}

void MRLibraryCollectionSource::scrollToTop()
{
    const bool busy = m_environment.isWindowBusy && m_environment.isWindowBusy();
    if (!busy && m_outline->hasFocus()) {
        m_outline->scrollToTop();
    }
}

qint64 MRLibraryCollectionSource::badge(const CollectionNode& node)
{
    return m_environment.defaults.boolean(base::PREFS_GENERAL_SHOW_ITEM_COUNTS) ? m_counts.count(node) : 0;
}

} // namespace mosaro::organisation
