// What is dragged out of the collection tree and onto it.
#include "base/PropertyList.h"
#include "kit/DragPicture.h"
#include "kit/GridView.h"
#include "kit/Look.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/CollectionTreeModel.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>

namespace mosaro::organisation {

namespace {

constexpr int kSpringLoad = 700; ///< Milliseconds until a closed folder opens under a drag.
constexpr int kEdge = 24;        ///< Where a drag scrolls, from the upper and lower edge.
constexpr int kEdgeInterval = 30;

/// What the desktop is told: a move only where the drag offers one.
Qt::DropAction actionOf(DragOperation operation, Qt::DropActions offered)
{
    const bool moves = operation == DragOperation::Move && offered.testFlag(Qt::MoveAction);
    return moves ? Qt::MoveAction : Qt::CopyAction;
}

} // namespace

void CollectionOutline::setUpDrops()
{
    m_springLoad.setSingleShot(true);
    m_springLoad.setInterval(kSpringLoad);
    m_edgeScroll.setInterval(kEdgeInterval);
    connect(&m_springLoad, &QTimer::timeout, this, [this] { expand(m_hovered); });
    connect(&m_edgeScroll, &QTimer::timeout, this,
            [this] { verticalScrollBar()->setValue(verticalScrollBar()->value() + m_edgeSpeed); });
}

void CollectionOutline::startDrag(Qt::DropActions)
{
    const NodeList dragged = draggedCollections(selectedNodes());
    m_isDragRefused = dragged.empty();
    if (m_isDragRefused) {
        return;
    }
    m_dragItems.clear();
    for (const CollectionNode* node : dragged) {
        m_dragItems.append(node->id);
    }
    auto* carried = new QMimeData;
    const auto list =
        base::writePropertyList(QVariant(m_dragItems).toList(), base::PropertyListFormat::Binary);
    carried->setData(QLatin1String(MR_DRAG_AND_DROP_COLLECTION), list ? list.value() : QByteArray("x"));
    auto* drag = new QDrag(this);
    drag->setMimeData(carried);
    const CollectionNode& first = *dragged.front();
    const QPixmap picture = kit::rowDragPicture(kit::icon(sidebarImageName(first.type)), first.title,
                                                int(dragged.size()), devicePixelRatioF());
    drag->setPixmap(picture);
    drag->setHotSpot(kit::dragHotSpot());
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
    m_dragItems.clear();
    endDragOver();
}

void CollectionOutline::setDropTarget(const QModelIndex& index, bool onEmptyArea)
{
    m_dropTarget = index;
    m_dropOnEmptyArea = onEmptyArea;
    viewport()->update();
}

void CollectionOutline::considerDrop(QDropEvent& event, const QPoint& position)
{
    const QModelIndex index = indexAt(position);
    const CollectionNode* node = index.isValid() ? CollectionTreeModel::node(index) : nullptr;
    const DragOperation operation = m_dropRule ? m_dropRule(m_dragged, node) : DragOperation::None;
    if (operation == DragOperation::None) {
        setDropTarget({}, false);
        event.ignore();
    } else {
        setDropTarget(index, !index.isValid());
        event.setDropAction(actionOf(operation, event.possibleActions()));
        event.accept();
    }
}

/// A closed row opens when the drag rests on it, and near an edge the tree scrolls.
void CollectionOutline::followDrag(const QPoint& position)
{
    const QModelIndex index = indexAt(position);
    if (index != m_hovered) {
        m_hovered = index;
        const bool opens =
            index.isValid() && !CollectionTreeModel::node(index)->nodes.empty() && !isExpanded(index);
        opens ? m_springLoad.start() : m_springLoad.stop();
    }
    const int below = position.y() - (viewport()->height() - kEdge);
    m_edgeSpeed = position.y() < kEdge ? position.y() - kEdge : std::max(0, below);
    if (m_edgeSpeed == 0) {
        m_edgeScroll.stop();
    } else if (!m_edgeScroll.isActive()) {
        m_edgeScroll.start();
    }
}

void CollectionOutline::endDragOver()
{
    setDropTarget({}, false);
    m_dragged = {};
    m_hovered = QModelIndex();
    m_springLoad.stop();
    m_edgeScroll.stop();
}

void CollectionOutline::dragEnterEvent(QDragEnterEvent* event)
{
    m_dragged = dragContentOf(*event->mimeData());
    m_dragged.fromBrowser = qobject_cast<const kit::GridView*>(event->source()) != nullptr;
    // Accepted as a whole, so that folders open and the tree scrolls; the move events answer for each place.
    event->accept();
}

void CollectionOutline::dragMoveEvent(QDragMoveEvent* event)
{
    endEditing();
    considerDrop(*event, event->position().toPoint());
    followDrag(event->position().toPoint());
}

void CollectionOutline::dragLeaveEvent(QDragLeaveEvent* event)
{
    endDragOver();
    event->accept();
}

void CollectionOutline::dropEvent(QDropEvent* event)
{
    considerDrop(*event, event->position().toPoint());
    const bool accepted = m_dropTarget.isValid() || m_dropOnEmptyArea;
    const CollectionNode* node = m_dropTarget.isValid() ? CollectionTreeModel::node(m_dropTarget) : nullptr;
    endDragOver();
    if (accepted) {
        Q_EMIT dropped(*event->mimeData(), node);
    }
}

} // namespace mosaro::organisation
