#pragma once

#include <QListView>
#include <functional>

class QMimeData;

namespace mosaro::organisation {

class MRLibraryImageAndTextCell;

/// A flat list of the sidebar, in rows. Blocking its signals is how code changes the selection without
/// anyone being told.
class MRLibraryTableView : public QListView {
    Q_OBJECT

public:
    /// Takes the cell as a child.
    MRLibraryTableView(QAbstractItemModel& model, MRLibraryImageAndTextCell* cell, QWidget* parent = nullptr);
    ~MRLibraryTableView() override;

    /// What stands in the middle while there are no rows.
    void setGuideText(const QString& text);
    /// Whether items that are dragged may be dropped; row -1 is the space outside of all rows.
    void setDropRule(std::function<bool(const QMimeData& data, int row)> rule)
    {
        m_acceptsDrop = std::move(rule);
    }

    /// Ascending.
    [[nodiscard]] QList<int> selectedRows() const;
    void selectRows(const QList<int>& rows);
    void scrollToRow(int row);

    void editRow(int row);
    /// The same with a text other than the title to begin with.
    void editRow(int row, const QString& text);
    /// Takes an edited title over and closes the editor.
    void endEditing();

Q_SIGNALS:
    void selectionDidChange();
    void renameRequested();
    void deleteRequested();
    void menuRequested(const QPoint& globalPosition);
    /// The data are gone after this.
    void mediaDropped(const QMimeData& data, int row);

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void paintRows(QPainter& painter, const QRect& area) const;
    [[nodiscard]] QString pressedTitle() const;
    [[nodiscard]] int rowOfTitle(const QString& title) const;
    void prepareSelectionForMenu(const QModelIndex& index);
    void considerDrop(QDropEvent& event);
    void setDropRow(int row);

    MRLibraryImageAndTextCell* m_cell;
    QString m_guideText;
    std::function<bool(const QMimeData& data, int row)> m_acceptsDrop;
    int m_dropRow = -1;
    QString m_pressedTitle; ///< Of the row whose press closed an editor.
};

} // namespace mosaro::organisation
