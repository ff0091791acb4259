#include "organisation/ui/CollectionOutline.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "organisation/ui/CollectionCell.h"
#include "organisation/ui/CollectionTreeModel.h"
#include "organisation/ui/LegalSelectionModel.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace mosaro::organisation {

CollectionOutline::CollectionOutline(CollectionTreeModel& model,
                                     std::function<qint64(const CollectionNode&)> badge, QWidget* parent)
    : QTreeView(parent), m_model(model), m_selection(new LegalSelectionModel(model, this)),
      m_cell(new CollectionCell(std::move(badge), this))
{
    setModel(&model);
    setSelectionModel(m_selection);
    setItemDelegate(m_cell);
    setHeaderHidden(true);
    setAllColumnsShowFocus(true); // The ring is drawn round the whole row, and is to go as a whole.
    setFrameShape(QFrame::NoFrame);
    setIndentation(MRLibraryImageAndTextCell::kIndentation);
    setRootIsDecorated(false); // Groups draw their triangle themselves, in the column of their children's.
    setExpandsOnDoubleClick(false);
    setAnimated(false); // Clicks would be lost while the rows move.
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setAcceptDrops(true);
    setDragEnabled(true);
    setUpDrops();
    setAccessibleName(base::text("Accessible.Collections"));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, kit::color::sidebar);
    setPalette(colors);

    connect(m_selection, &QItemSelectionModel::selectionChanged, this,
            &CollectionOutline::selectionDidChange);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { Q_EMIT nodeExpanded(CollectionTreeModel::node(index)); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { Q_EMIT nodeCollapsed(CollectionTreeModel::node(index)); });
}

CollectionOutline::~CollectionOutline() = default;

NodeList CollectionOutline::selectedNodes() const
{
    return m_selection->selectedNodes();
}

void CollectionOutline::selectNodes(const NodeList& nodes)
{
    QItemSelection selection;
    for (const CollectionNode* node : nodes) {
        const QModelIndex index = m_model.index(*node);
        selection.select(index, index);
    }
    // The current row is scrolled to, which would open what lies around it.
    if (!nodes.empty() && !isNodeHidden(*nodes.front())) {
        m_selection->setCurrentIndex(m_model.index(*nodes.front()), QItemSelectionModel::NoUpdate);
    }
    m_selection->select(selection, QItemSelectionModel::ClearAndSelect);
}

void CollectionOutline::deselectHidden()
{
    NodeList visible = selectedNodes();
    if (std::erase_if(visible, [this](const CollectionNode* node) { return isNodeHidden(*node); }) > 0) {
        selectNodes(visible);
    }
    QModelIndex current = currentIndex();
    while (current.isValid() && isNodeHidden(*CollectionTreeModel::node(current))) {
        current = current.parent();
    }
    m_selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
}

bool CollectionOutline::isNodeHidden(const CollectionNode& node) const
{
    const CollectionNode* step = node.parent;
    while (step && isNodeExpanded(*step)) {
        step = step->parent;
    }
    return step != nullptr;
}

bool CollectionOutline::isNodeExpanded(const CollectionNode& node) const
{
    return isExpanded(m_model.index(node));
}

void CollectionOutline::setNodeExpanded(const CollectionNode& node, bool expanded)
{
    setExpanded(m_model.index(node), expanded);
}

void CollectionOutline::scrollToNode(const CollectionNode& node)
{
    scrollTo(m_model.index(node));
}

void CollectionOutline::editNode(const CollectionNode& node)
{
    const QModelIndex index = m_model.index(node);
    endEditing();
    m_selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
    edit(index);
}

void CollectionOutline::endEditing()
{
    if (QWidget* editor = m_cell->editor(); editor && state() == EditingState) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void CollectionOutline::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint)
{
    // No hint: Tab ends the editing and does not go on to the next title.
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    m_cell->applyCommitted(*this);
}

QModelIndex CollectionOutline::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex before = currentIndex();
    QModelIndex after = QTreeView::moveCursor(action, modifiers);
    // Left goes up to a group's heading, so that it can be collapsed from the keyboard; all other ways pass
    // over headings.
    if (action == MoveLeft || action == MoveRight) {
        return after;
    }
    const bool up = action == MoveUp || action == MovePrevious || action == MoveEnd || action == MovePageDown;
    while (after.isValid() && CollectionTreeModel::node(after)->isGroup) {
        after = up ? indexAbove(after) : indexBelow(after);
    }
    return after.isValid() ? after : before;
}

QItemSelectionModel::SelectionFlags CollectionOutline::selectionCommand(const QModelIndex& index,
                                                                        const QEvent* event) const
{
    const bool isKey = event && event->type() == QEvent::KeyPress;
    if (isKey && index.isValid() && CollectionTreeModel::node(index)->isGroup) {
        return QItemSelectionModel::NoUpdate;
    }
    return QTreeView::selectionCommand(index, event);
}

void CollectionOutline::keyPressEvent(QKeyEvent* event)
{
    const bool renames =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_F2;
    if (renames && state() != EditingState) {
        Q_EMIT renameRequested();
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Delete && state() != EditingState) {
        Q_EMIT deleteRequested();
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
}

bool CollectionOutline::isGroupTriangle(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    return index.isValid() && CollectionTreeModel::node(index)->isGroup &&
           position.x() < MRLibraryImageAndTextCell::kIndentation;
}

void CollectionOutline::mousePressEvent(QMouseEvent* event)
{
    m_isDragRefused = false;
    if (event->button() == Qt::RightButton) {
        event->accept(); // The menu follows, with its own rule of what is selected.
    } else if (event->button() == Qt::LeftButton && isGroupTriangle(event->position().toPoint())) {
        const QModelIndex group = indexAt(event->position().toPoint());
        setExpanded(group, !isExpanded(group));
        event->accept();
    } else {
        QTreeView::mousePressEvent(event);
    }
}

void CollectionOutline::mouseMoveEvent(QMouseEvent* event)
{
    // The base class would go on from a drag that did not begin to a selection of rows.
    if (m_isDragRefused && event->buttons().testFlag(Qt::LeftButton)) {
        event->accept();
        return;
    }
    QTreeView::mouseMoveEvent(event);
}

void CollectionOutline::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (index.isValid() && CollectionTreeModel::node(index)->isGroup) {
        setExpanded(index, !isExpanded(index));
        event->accept();
    } else {
        QTreeView::mouseDoubleClickEvent(event);
    }
}

void CollectionOutline::prepareSelectionForMenu(const QPoint& position)
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || CollectionTreeModel::node(index)->isGroup) {
        selectNodes({});
    } else if (!m_selection->isSelected(index)) {
        selectNodes({CollectionTreeModel::node(index)});
    }
}

void CollectionOutline::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex());
        Q_EMIT menuRequested(viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint(0, 0)));
    } else {
        prepareSelectionForMenu(event->pos());
        Q_EMIT menuRequested(event->globalPos());
    }
    event->accept();
}

} // namespace mosaro::organisation
