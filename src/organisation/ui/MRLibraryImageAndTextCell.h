#pragma once

#include <QColor>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

namespace mosaro::organisation {

/// What a row of the sidebar shows.
struct SidebarCellContent {
    QString title;
    QIcon image;
    int label = 0;
    QColor tagColor;  ///< Shown when there is no label; invalid for none.
    qint64 count = 0; ///< Shown above 0.
};

/// A row of the sidebar: image, title, a dot for a label or a colour, count; or the heading of a group.
class MRLibraryImageAndTextCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `editorName` is what assistive programs call the field that a title is edited in.
    explicit MRLibraryImageAndTextCell(QString editorName, QObject* parent = nullptr);

    /// Width left of a top row, where its disclosure triangle is; also the step of each level.
    static constexpr int kIndentation = 18;
    static constexpr int kRowSpacing = 2;

    /// What a list keeps free left of the images, where it has no triangles.
    void setLeftMargin(int margin) { m_leftMargin = margin; }
    /// The open title editor, or null.
    [[nodiscard]] QWidget* editor() const { return m_editor; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// A title that is cut off is told in full.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Only notes the title: setting it makes the list anew, which no open editor may live to see.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    /// Sets the noted title, if there is one; to be called when the editor is closed. A new title makes the
    /// list anew, and with it the focus comes to it; when a click elsewhere ended the editing, the keyboard
    /// stays where it went.
    void applyCommitted(QAbstractItemView& list);

protected:
    [[nodiscard]] virtual SidebarCellContent content(const QModelIndex& index) const = 0;
    [[nodiscard]] virtual bool isGroup(const QModelIndex& /*index*/) const { return false; }

private:
    static void paintGroup(QPainter& painter, const QRect& rect, const QString& title);
    static void paintRow(QPainter& painter, const QRect& rect, const SidebarCellContent& row, bool selected);

    QString m_editorName;
    int m_leftMargin = 0;
    mutable QPointer<QWidget> m_editor;
    mutable QPersistentModelIndex m_edited; ///< Valid while a title is noted.
    mutable QString m_title;
};

} // namespace mosaro::organisation
