// The commands on the collection tree: what menus, keys and drops ask for.
#include "base/Text.h"
#include "import/MediaDrag.h"
#include "kit/ZNFlatUIKitLabelView.h"
#include "organisation/CollectionNames.h"
#include "organisation/DatabaseError.h"
#include "organisation/LabelNames.h"
#include "organisation/ui/CollectionMenu.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/MRLibraryCollectionSource.h"
#include "store/RecordReference.h"

#include <QMimeData>

namespace mosaro::organisation {

NodeList MRLibraryCollectionSource::siblingsBelow(const CollectionNode* parent) const
{
    const CollectionNode* container = parent ? parent : m_tree.userGroup();
    return container ? childList(*container) : NodeList();
}

void MRLibraryCollectionSource::addCollectionItem(int tag)
{
    m_outline->endEditing();
    const auto kind = newItemKind(tag);
    const auto place = placeForNewItem(selectedNodes());
    if (kind && kind->type == store::kTypeSmartCollection) {
        addSmartCollection(kind->name);
        return;
    }
    if (!kind || !place) {
        return;
    }
    NewCollection item;
    item.type = kind->type;
    item.title = availableCollectionName(kind->name, siblingsBelow(place->parent));
    (void)addItem(item, place->parent, true);
}

void MRLibraryCollectionSource::addSmartCollection(const QString& name)
{
    const CollectionNode* container = containerForSmartName(selectedNodes(), m_tree);
    const NodeList siblings = container ? childList(*container) : NodeList();
    showSmartCollectionSheet(availableCollectionName(name, siblings), false, {}, false);
}

void MRLibraryCollectionSource::showSmartCollectionSheet(const QString& title, bool conditions,
                                                         const QVariantList& rules, bool isEdit)
{
    if (m_smartSheet) {
        m_smartSheet({title, conditions, rules, isEdit}, [this, isEdit](const QVariantMap& result) {
            m_changes.smartCollectionEnded(result, isEdit);
        });
    }
}

const CollectionNode* MRLibraryCollectionSource::addCollectionWithName(const QString& name, bool onRoot)
{
    m_outline->endEditing();
    const NodeList selected = selectedNodes();
    const CollectionNode* parent = onRoot || selected.empty() ? nullptr : selected.front();
    if (parent && parent->type != store::kTypeFolder) {
        return nullptr;
    }
    NewCollection item;
    item.title = availableCollectionName(name, siblingsBelow(parent));
    if (!addItem(item, parent, false)) {
        return nullptr;
    }
    const NodeList now = selectedNodes();
    return now.empty() ? nullptr : now.front();
}

bool MRLibraryCollectionSource::addItem(const NewCollection& item, const CollectionNode* parent,
                                        bool changeEditMode)
{
    if (!m_environment.library.isOpenedDatabase()) {
        return false;
    }
    const QString parentID = parent ? parent->id : QString::fromLatin1(kYourCollectionsGroupID);
    const auto made = CollectionCommands(*m_environment.library.context()).addItem(item, parent);
    if (!made) {
        showDatabaseError(made.reason());
        return false;
    }
    rebuildAround(made.value());
    m_navigator.findCollectionNode(made.value(), parentID);
    if (changeEditMode) {
        editCollection();
    }
    return true;
}

void MRLibraryCollectionSource::editCollection()
{
    const NodeList selected = selectedNodes();
    if (selected.empty() || !selected.front()->isUserNode()) {
        return;
    }
    const CollectionNode& node = *selected.front();
    if (node.type != store::kTypeSmartCollection || !m_smartSheet) {
        m_outline->editNode(node);
        return;
    }
    store::StoreContext* context = m_environment.library.context();
    if (const auto record =
            context ? store::unarchivedReference<store::Collections>(*context, node.object) : nullptr) {
        showSmartCollectionSheet(record->title(), record->filterCondition(), record->filters(), true);
    }
}

void MRLibraryCollectionSource::rename(const QString& id, const QString& title)
{
    const CollectionNode* node = m_tree.node(id);
    if (!node || !m_environment.library.isOpenedDatabase()) {
        return;
    }
    if (const auto renamed = CollectionCommands(*m_environment.library.context()).rename(*node, title);
        !renamed) {
        showDatabaseError(renamed.reason());
        return;
    }
    rebuildAround(id);
}

void MRLibraryCollectionSource::importMedia()
{
    m_ways.importMedia();
}

bool MRLibraryCollectionSource::addMediaItem(std::vector<importing::ImportItem> items,
                                             const CollectionNode& withItem, bool fromInternalSource)
{
    store::StoreContext* context = m_environment.library.context();
    const auto collection =
        context ? store::unarchivedReference<store::Collections>(*context, withItem.object) : nullptr;
    return m_session.addMediaItem(std::move(items), collection, fromInternalSource);
}

bool MRLibraryCollectionSource::isOperable() const
{
    const bool busy = isBusy() || (m_environment.isWindowBusy && m_environment.isWindowBusy());
    const QWidget* focus = m_outline->window()->focusWidget();
    const bool hasKeyboard = focus && (focus == m_outline || m_outline->isAncestorOf(focus));
    return !busy && m_environment.library.isOpenedDatabase() && hasKeyboard && m_outline->isVisible();
}

bool MRLibraryCollectionSource::validate(SidebarCommand command) const
{
    return isOperable() && exists(command) && validateMenuItem(command, selectedNodes()).isOn;
}

/// Whether there is someone to carry a command out.
bool MRLibraryCollectionSource::exists(SidebarCommand command) const
{
    return command != SidebarCommand::Export &&
           (command != SidebarCommand::NewSmartCollection || hasSmartCollectionSheet());
}

kit::ZNFlatUIKitLabelView* MRLibraryCollectionSource::makeLabelView()
{
    auto* row = new kit::ZNFlatUIKitLabelView(base::text("Label.Label"));
    addLabelRow(*row);
    return row;
}

void MRLibraryCollectionSource::addLabelRow(kit::ZNFlatUIKitLabelView& row)
{
    row.setEnabled(false);
    m_labelRows.emplace_back(&row);
    connect(&row, &kit::ZNFlatUIKitLabelView::didChangeLabelValue, this,
            &MRLibraryCollectionSource::didChangeLabelValue);
}

void MRLibraryCollectionSource::menuWillOpen()
{
    if (m_outline->isVisible()) {
        m_outline->setFocus();
    }
    const NodeList selected = selectedNodes();
    const bool on = isOperable() && areLabelRowsOn(selected);
    for (const auto& row : m_labelRows) {
        if (row) {
            row->setEnabled(on);
            row->setNames(labelNames(m_environment.defaults));
            row->activeSelection(on ? labelsOf(selected) : QStringList());
        }
    }
}

void MRLibraryCollectionSource::menuDidClose()
{
    for (const auto& row : m_labelRows) {
        if (row) {
            row->activeSelection({});
        }
    }
}

DragOperation MRLibraryCollectionSource::dropOperation(DragContent content,
                                                       const CollectionNode* target) const
{
    const bool busy = isBusy() || (m_environment.isWindowBusy && m_environment.isWindowBusy());
    if (busy || !m_environment.library.isOpenedDatabase()) {
        return DragOperation::None;
    }
    for (const QString& id : m_outline->dragItems()) {
        if (const CollectionNode* node = m_tree.node(id)) {
            content.collections.push_back(node);
        }
    }
    return validateDrop(content, {target, -1}, selectedNodes());
}

void MRLibraryCollectionSource::acceptDrop(const QMimeData& data, const CollectionNode* target)
{
    if (!m_outline->dragItems().isEmpty()) {
        if (target) {
            (void)m_changes.reparent(m_outline->dragItems(), *target);
        }
    } else if (const auto drag = importing::mediaDragOf(data); drag && target) {
        m_changes.moveMediaItem(drag->dragItems, drag->oldCollections, *target);
    } else {
        m_pasteboard.accept(data, target);
    }
}

void MRLibraryCollectionSource::run(SidebarCommand command)
{
    switch (command) {
    case SidebarCommand::NewCollection:
    case SidebarCommand::NewSmartCollection:
    case SidebarCommand::NewFolder:
        addCollectionItem(int(command));
        break;
    case SidebarCommand::Import:
        importMedia();
        break;
    case SidebarCommand::Edit:
        editCollection();
        break;
    case SidebarCommand::Delete:
        deleteCollection();
        break;
    case SidebarCommand::Export:
        break;
    }
}

} // namespace mosaro::organisation
