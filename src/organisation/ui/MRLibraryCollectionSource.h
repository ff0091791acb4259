#pragma once

#include "organisation/CollectionCommands.h"
#include "organisation/ExpansionMemory.h"
#include "organisation/ImportSession.h"
#include "organisation/NodeCounts.h"
#include "organisation/SelectionPipeline.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/ImportWays.h"
#include "organisation/ui/MRLibraryView.h"
#include "organisation/ui/OutlineNavigator.h"
#include "organisation/ui/PasteboardWays.h"
#include "organisation/ui/SidebarSource.h"

namespace mosaro::organisation {

class CollectionMenu;
class CollectionOutline;

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
    [[nodiscard]] const store::MediaSet& selectedObjects() const override { return m_selectedMedia; }
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
    /// An import runs.
    [[nodiscard]] bool isBusy() const { return m_session.isImporting(); }

    void addCollectionItem(int tag);
    /// The new collection, selected; null when none was made. On the root, or in the first selected node,
    /// which must be a folder then. Without a selection the root is meant.
    const CollectionNode* addCollectionWithName(const QString& name, bool onRoot);
    /// Opens the title of the first selected node for editing.
    void editCollection();
    void importMedia();
    void pasteItemsToOutlineView(const QMimeData& data) { m_pasteboard.pasteItemsToOutlineView(data); }
    void requestStopMediaImport() { m_session.requestStop(); }
    /// The only door into the library.
    bool addMediaItem(std::vector<importing::ImportItem> items, const CollectionNode& withItem,
                      bool fromInternalSource);
    /// Whether a command of a menu is possible now.
    [[nodiscard]] bool validate(SidebarCommand command) const;

Q_SIGNALS:
    void importFailed(const std::vector<mosaro::importing::FailedPath>& paths);

private:
    void connectTree();
    void observeBus();
    void outlineViewSelectionDidChange();
    void itemWillCollapse(const CollectionNode& node);
    void selectNothing();
    void makeUserCollections();
    void rebuildAround(const QString& id);
    [[nodiscard]] bool addItem(const NewCollection& item, const CollectionNode* parent, bool changeEditMode);
    void rename(const QString& id, const QString& title);
    void run(SidebarCommand command);
    void updateNotificationToRecent(const QVariant& days);
    void scrollToTop();
    [[nodiscard]] qint64 badge(const CollectionNode& node);
    [[nodiscard]] QString renamableTitle() const;
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
    CollectionMenu* m_menu; ///< Child of the sidebar.
    store::MediaSet m_selectedMedia;
};

} // namespace mosaro::organisation
