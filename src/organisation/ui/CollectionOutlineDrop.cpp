// Files and pictures dropped onto the collection tree.
#include "import/Pasteboard.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/CollectionTreeModel.h"

#include <QDragEnterEvent>
#include <QMimeData>

namespace mosaro::organisation {

namespace {

/// From outside of the program, and files or an address.
bool carriesMedia(const QDropEvent& event)
{
    return !event.source() && (!importing::filesOf(*event.mimeData()).isEmpty() ||
                               importing::addressOf(*event.mimeData()).isValid());
}

} // namespace

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
    if (carriesMedia(event) && m_acceptsFiles && m_acceptsFiles(node)) {
        setDropTarget(index, !index.isValid());
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else {
        setDropTarget({}, false);
        event.ignore();
    }
}

void CollectionOutline::dragEnterEvent(QDragEnterEvent* event)
{
    // Accepted as a whole; the move events answer for each place.
    event->setAccepted(carriesMedia(*event));
}

void CollectionOutline::dragMoveEvent(QDragMoveEvent* event)
{
    endEditing();
    considerDrop(*event, event->position().toPoint());
}

void CollectionOutline::dragLeaveEvent(QDragLeaveEvent* event)
{
    setDropTarget({}, false);
    event->accept();
}

void CollectionOutline::dropEvent(QDropEvent* event)
{
    considerDrop(*event, event->position().toPoint());
    const bool accepted = m_dropTarget.isValid() || m_dropOnEmptyArea;
    const CollectionNode* node = m_dropTarget.isValid() ? CollectionTreeModel::node(m_dropTarget) : nullptr;
    setDropTarget({}, false);
    if (accepted) {
        Q_EMIT mediaDropped(*event->mimeData(), node);
    }
}

} // namespace mosaro::organisation
