#include "organisation/ui/MRLibraryTableView.h"

#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/MRLibraryImageAndTextCell.h"
#include "organisation/ui/SidebarRow.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPainter>
#include <utility>

namespace mosaro::organisation {

namespace {

constexpr int kLeftMargin = 18; ///< Where the images of a tree's top rows stand, too.
constexpr int kTopMargin = 8;

} // namespace

MRLibraryTableView::MRLibraryTableView(QAbstractItemModel& model, MRLibraryImageAndTextCell* cell,
                                       QWidget* parent)
    : QListView(parent), m_cell(cell)
{
    cell->setParent(this);
    cell->setLeftMargin(kLeftMargin);
    setViewportMargins(0, kTopMargin, 0, 0);
    setModel(&model);
    setItemDelegate(cell);
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setAcceptDrops(true);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, kit::color::sidebar);
    setPalette(colors);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MRLibraryTableView::selectionDidChange);
}

MRLibraryTableView::~MRLibraryTableView() = default;

void MRLibraryTableView::setGuideText(const QString& text)
{
    m_guideText = text;
    viewport()->update();
}

QList<int> MRLibraryTableView::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected) {
        rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void MRLibraryTableView::selectRows(const QList<int>& rows)
{
    QItemSelection selection;
    for (qsizetype first = 0, next = 0; first < rows.size(); first = next) {
        while (next < rows.size() && rows.at(next) - rows.at(first) == next - first) {
            ++next; // Rows in a row are one range: a selection is slow with thousands of them.
        }
        selection.select(model()->index(rows.at(first), 0), model()->index(rows.at(next - 1), 0));
    }
    if (!rows.isEmpty()) {
        selectionModel()->setCurrentIndex(model()->index(rows.first(), 0), QItemSelectionModel::NoUpdate);
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void MRLibraryTableView::scrollToRow(int row)
{
    scrollTo(model()->index(row, 0));
}

void MRLibraryTableView::editRow(int row)
{
    endEditing();
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
    edit(index);
}

void MRLibraryTableView::editRow(int row, const QString& text)
{
    editRow(row);
    if (auto* field = qobject_cast<QLineEdit*>(m_cell->editor())) {
        field->setText(text);
        field->selectAll();
    }
}

void MRLibraryTableView::endEditing()
{
    if (QWidget* editor = m_cell->editor(); editor && state() == EditingState) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    m_pressedTitle.clear(); // A pressed mouse drags here.
}

void MRLibraryTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint)
{
    // No hint: Tab ends the editing and does not go on to the next title.
    QListView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    m_pressedTitle = pressedTitle();
    m_cell->applyCommitted(*this);
}

/// The title under a pressed mouse; empty when there is none.
QString MRLibraryTableView::pressedTitle() const
{
    const QPoint position = viewport()->mapFromGlobal(QCursor::pos());
    const bool isPressed = QGuiApplication::mouseButtons() == Qt::LeftButton;
    return isPressed && viewport()->rect().contains(position) ? indexAt(position).data().toString()
                                                              : QString();
}

int MRLibraryTableView::rowOfTitle(const QString& title) const
{
    int row = title.isEmpty() ? -1 : model()->rowCount() - 1;
    while (row >= 0 && model()->index(row, 0).data().toString() != title) {
        --row;
    }
    return row;
}

void MRLibraryTableView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    if (model()->rowCount() == 0) {
        paintGuide(painter, *this, m_guideText);
    } else {
        paintRows(painter, event->rect());
    }
}

/// Not the toolkit's own painting, which would lay its selection over that of the sidebar.
void MRLibraryTableView::paintRows(QPainter& painter, const QRect& area) const
{
    const QModelIndex first = indexAt({0, std::max(0, area.top())});
    for (int row = first.isValid() ? first.row() : 0; row < model()->rowCount(); ++row) {
        const QModelIndex index = model()->index(row, 0);
        const QRect place = visualRect(index);
        if (place.top() > area.bottom()) {
            break;
        }
        const bool selected = selectionModel()->isSelected(index);
        paintRowGround(painter, place, *this,
                       {.isSelected = selected,
                        .isCurrent = index == currentIndex(),
                        .isDropTarget = row == m_dropRow,
                        .isEditing = state() == EditingState});
        QStyleOptionViewItem option;
        option.rect = place;
        option.state.setFlag(QStyle::State_Selected, selected);
        m_cell->paint(&painter, option, index);
    }
}

void MRLibraryTableView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool withCommand = event->modifiers().testFlag(Qt::ControlModifier);
    if (state() == EditingState) { // What the open editor has no use for.
        QListView::keyPressEvent(event);
        return;
    }
    if (key == Qt::Key_Backspace || key == Qt::Key_Delete) {
        // Backspace alone does nothing, so that a slip of the finger deletes no tag.
        if (withCommand || key == Qt::Key_Delete) {
            Q_EMIT deleteRequested();
        }
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) {
        Q_EMIT renameRequested();
    } else {
        QListView::keyPressEvent(event);
        return;
    }
    event->accept();
}

void MRLibraryTableView::mousePressEvent(QMouseEvent* event)
{
    const bool isOnRow = indexAt(event->position().toPoint()).isValid();
    // A new title has sorted the list anew before the press came: what was pressed lies elsewhere now.
    const int pressed = rowOfTitle(std::exchange(m_pressedTitle, {}));
    if (pressed >= 0) {
        event->accept();
        selectRows({pressed});
    } else if (event->button() == Qt::RightButton) {
        event->accept(); // The menu follows, with its own rule of what is selected.
    } else if (event->button() == Qt::LeftButton && !isOnRow) {
        endEditing();
        clearSelection();
        event->accept();
    } else {
        QListView::mousePressEvent(event);
    }
}

void MRLibraryTableView::prepareSelectionForMenu(const QModelIndex& index)
{
    if (!index.isValid()) {
        clearSelection();
    } else if (!selectionModel()->isSelected(index)) {
        selectRows({index.row()});
    }
}

void MRLibraryTableView::contextMenuEvent(QContextMenuEvent* event)
{
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex());
        position = viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint());
    } else {
        prepareSelectionForMenu(indexAt(event->pos()));
    }
    event->accept();
    Q_EMIT menuRequested(position);
}

void MRLibraryTableView::setDropRow(int row)
{
    m_dropRow = row;
    viewport()->update();
}

void MRLibraryTableView::considerDrop(QDropEvent& event)
{
    const QModelIndex index = indexAt(event.position().toPoint());
    const int row = index.isValid() ? index.row() : -1;
    const bool accepted = m_acceptsDrop && m_acceptsDrop(*event.mimeData(), row);
    setDropRow(accepted ? row : -1);
    event.setDropAction(accepted ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(accepted);
}

void MRLibraryTableView::dragEnterEvent(QDragEnterEvent* event)
{
    endEditing();
    // Accepted as a whole; the move events answer for each place.
    event->accept();
}

void MRLibraryTableView::dragMoveEvent(QDragMoveEvent* event)
{
    considerDrop(*event);
    const int y = event->position().toPoint().y();
    if (y < autoScrollMargin() || y > viewport()->height() - autoScrollMargin()) {
        startAutoScroll();
    }
}

void MRLibraryTableView::dragLeaveEvent(QDragLeaveEvent* event)
{
    stopAutoScroll();
    setDropRow(-1);
    event->accept();
}

void MRLibraryTableView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    considerDrop(*event);
    const int row = m_dropRow;
    setDropRow(-1);
    if (event->isAccepted()) {
        Q_EMIT mediaDropped(*event->mimeData(), row);
    }
}

} // namespace mosaro::organisation
