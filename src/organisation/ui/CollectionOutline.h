#pragma once

#include "organisation/CollectionDrag.h"
#include "organisation/TreeWalk.h"

#include <QTimer>
#include <QTreeView>
#include <functional>

namespace mosaro::organisation {

class CollectionTreeModel;
class LegalSelectionModel;
class MRLibraryImageAndTextCell;

/// The tree view of the collections, in terms of nodes. Blocking its signals is how code changes the
/// selection or the expansion without anyone being told.
class CollectionOutline : public QTreeView {
    Q_OBJECT

public:
    CollectionOutline(CollectionTreeModel& model, std::function<qint64(const CollectionNode&)> badge,
                      QWidget* parent = nullptr);
    ~CollectionOutline() override;

    /// What a drop would do on a node; null stands for the space outside of all rows. The rule adds the
    /// collections that are dragged.
    using DropRule = std::function<DragOperation(DragContent content, const CollectionNode* target)>;
    void setDropRule(DropRule rule) { m_dropRule = std::move(rule); }
    /// IDs of the collections that are being dragged out of this tree; empty at all other times.
    [[nodiscard]] const QStringList& dragItems() const { return m_dragItems; }

    [[nodiscard]] NodeList selectedNodes() const;
    void selectNodes(const NodeList& nodes);
    /// What cannot be seen is neither selected nor current.
    void deselectHidden();

    [[nodiscard]] bool isNodeExpanded(const CollectionNode& node) const;
    void setNodeExpanded(const CollectionNode& node, bool expanded);
    void scrollToNode(const CollectionNode& node);

    void editNode(const CollectionNode& node);
    /// Takes an edited title over and closes the editor.
    void endEditing();

Q_SIGNALS:
    void selectionDidChange();
    void nodeExpanded(const mosaro::organisation::CollectionNode* node);
    void nodeCollapsed(const mosaro::organisation::CollectionNode* node);
    void renameRequested();
    void deleteRequested();
    void menuRequested(const QPoint& globalPosition);
    /// The data are gone after this.
    void dropped(const QMimeData& data, const mosaro::organisation::CollectionNode* node);

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Below a collapsed row.
    [[nodiscard]] bool isNodeHidden(const CollectionNode& node) const;
    void prepareSelectionForMenu(const QPoint& position);
    [[nodiscard]] bool isGroupTriangle(const QPoint& position) const;
    void setDropTarget(const QModelIndex& index, bool onEmptyArea);
    void considerDrop(QDropEvent& event, const QPoint& position);
    void setUpDrops();
    void followDrag(const QPoint& position);
    void endDragOver();

    CollectionTreeModel& m_model;
    LegalSelectionModel* m_selection;
    MRLibraryImageAndTextCell* m_cell;
    DropRule m_dropRule;
    QStringList m_dragItems;
    bool m_isDragRefused = false; ///< Until the next press.
    DragContent m_dragged;        ///< Without its collections, while a drag is over the tree.
    QPersistentModelIndex m_dropTarget;
    bool m_dropOnEmptyArea = false;
    QPersistentModelIndex m_hovered; ///< The closed row that a drag rests on.
    QTimer m_springLoad;             ///< Opens it.
    QTimer m_edgeScroll;             ///< Scrolls while a drag is near an edge.
    int m_edgeSpeed = 0;
};

} // namespace mosaro::organisation
