#pragma once

#include "organisation/CollectionCommands.h"
#include "organisation/CollectionDrag.h"
#include "organisation/CollectionMenuRules.h"
#include "organisation/ExpansionMemory.h"
#include "organisation/ImportSession.h"
#include "organisation/NodeCounts.h"
#include "organisation/SelectionPipeline.h"
#include "organisation/ui/CollectionChanges.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/ImportWays.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/OutlineNavigator.h"
#include "organisation/ui/PasteboardWays.h"
#include "organisation/ui/SidebarSource.h"

#include <QPointer>

namespace mosaro::kit {
class ZNFlatUIKitLabelView;
}

namespace mosaro::organisation {

class CollectionMenu;
class CollectionOutline;

/// Opens the editor of a smart collection as a sheet. `ended` is called with the editor's result when it is
/// saved, and not at all when it is not.
struct SmartCollectionRequest {
    QString title;
    bool condition = false;
    QVariantList rules;
    bool isEdit = false;
};
using SmartCollectionSheet =
    std::function<void(const SmartCollectionRequest& request, std::function<void(const QVariantMap&)> ended)>;

/// The collections of the sidebar: the tree, its commands, what is selected, and the one door for files into
/// the library. A face; the work is done by its parts.
class MRLibraryCollectionSource : public QObject, public SidebarSource {
    Q_OBJECT

public:
    /// `sidebar` is the widget that the tree lies in and whose window carries the import sheet.
    /// `selectLibrary` is called when the set of selected items changed or was read again.
    MRLibraryCollectionSource(const SidebarEnvironment& environment, QWidget& sidebar,
                              std::function<void()> selectLibrary);
    ~MRLibraryCollectionSource() override;

    // The contract of every source.
    void reload() override;
    void updateSelection() override;
    [[nodiscard]] std::vector<store::SelectionElement> selectedCollection() const override;
    [[nodiscard]] QMenu& contextualMenu() override;
    [[nodiscard]] QWidget& contentView() override;

    [[nodiscard]] NodeList selectedNodes() const;
    void selectNode(const CollectionNode& node);
    /// Exactly one node selected: the way down to it without its group. Otherwise empty.
    [[nodiscard]] NodeList selectedCollectionPath() const;
    void findCollectionItem(const QString& id);
    /// Reveals and selects a collection or folder with all else closed. False when there is none.
    bool showCollectionAlone(const QString& id);
    [[nodiscard]] const CollectionNode* node(const QString& id) const { return m_tree.node(id); }
    void updateLibrary();
    /// An import, a deletion or a move runs.
    [[nodiscard]] bool isBusy() const { return m_session.isImporting() || m_changes.isRunning(); }

    /// Without it there are no commands for smart collections.
    void setSmartCollectionSheet(SmartCollectionSheet sheet) { m_smartSheet = std::move(sheet); }
    [[nodiscard]] bool hasSmartCollectionSheet() const { return bool(m_smartSheet); }

    /// By the tag of a "New …" command. A smart collection is made when its sheet ends.
    void addCollectionItem(int tag);
    /// The new collection, selected; null when none was made. On the root, or in the first selected node,
    /// which must be a folder then. Without a selection the root is meant.
    const CollectionNode* addCollectionWithName(const QString& name, bool onRoot);
    /// The one way by which collections come into the tree. False when it could not be saved.
    [[nodiscard]] bool addItem(const NewCollection& item, const CollectionNode* parent, bool changeEditMode);
    /// Opens the title of the first selected node for editing, or the sheet of a smart collection.
    void editCollection();
    void deleteCollection() { m_changes.deleteCollection(); }
    void didChangeLabelValue(int label) { m_changes.didChangeLabelValue(label); }
    void importMedia();
    void pasteItemsToOutlineView(const QMimeData& data) { m_pasteboard.pasteItemsToOutlineView(data); }
    void requestStopMediaImport() { m_session.requestStop(); }
    /// The only door into the library.
    bool addMediaItem(std::vector<importing::ImportItem> items, const CollectionNode& withItem,
                      bool fromInternalSource);
    /// Whether a command of a menu is possible now.
    [[nodiscard]] bool validate(SidebarCommand command) const;
    /// The row of labels for the window's File menu; the caller owns it and tells when its menu opens.
    [[nodiscard]] kit::ZNFlatUIKitLabelView* makeLabelView();
    void menuWillOpen();
    void menuDidClose();

    // After a change of the store.
    /// The user's collections are read again; what was open and selected is so again.
    void rebuild();
    /// The same with one collection more among the selected.
    void rebuildAround(const QString& id);
    void countsChanged();
    void selectCollections(const QStringList& ids, const QString& withParentID = {})
    {
        m_navigator.selectCollections(ids, withParentID);
    }
    void reopenUserGroup() { m_navigator.reopenUserGroup(); }

Q_SIGNALS:
    void importFailed(const std::vector<mosaro::importing::FailedPath>& paths);

private:
    void connectTree();
    void observeBus();
    void outlineViewSelectionDidChange();
    void itemWillCollapse(const CollectionNode& node);
    void selectNothing();
    void makeUserCollections();
    void addSmartCollection(const QString& name);
    void showSmartCollectionSheet(const QString& title, bool conditions, const QVariantList& rules,
                                  bool isEdit);
    [[nodiscard]] bool isOperable() const;
    [[nodiscard]] bool exists(SidebarCommand command) const;
    void addLabelRow(kit::ZNFlatUIKitLabelView& row);
    [[nodiscard]] DragOperation dropOperation(DragContent content, const CollectionNode* target) const;
    void acceptDrop(const QMimeData& data, const CollectionNode* target);
    void rename(const QString& id, const QString& title);
    void run(SidebarCommand command);
    void updateNotificationToRecent(const QVariant& days);
    void scrollToTop();
    [[nodiscard]] qint64 badge(const CollectionNode& node);
    [[nodiscard]] NodeList siblingsBelow(const CollectionNode* parent) const;

    SidebarEnvironment m_environment;
    std::function<void()> m_selectLibrary;
    CollectionTree m_tree;
    NodeCounts m_counts;
    ExpansionMemory m_memory;
    CollectionTreeModel m_model;
    CollectionOutline* m_outline; ///< Child of the sidebar.
    OutlineNavigator m_navigator;
    ImportSession m_session;
    ImportWays m_ways;
    PasteboardWays m_pasteboard;
    CollectionChanges m_changes;
    SmartCollectionSheet m_smartSheet;
    CollectionMenu* m_menu; ///< Child of the sidebar.
    std::vector<QPointer<kit::ZNFlatUIKitLabelView>> m_labelRows;
};

} // namespace mosaro::organisation
