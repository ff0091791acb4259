#pragma once

#include "organisation/CollectionNode.h"

#include <QHash>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>
#include <functional>

namespace mosaro::organisation {

/// A row of the collection tree: image, title, label dot, count; or the heading of a group.
class MRLibraryImageAndTextCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `badge` gives the count to show, or 0 for none.
    explicit MRLibraryImageAndTextCell(std::function<qint64(const CollectionNode&)> badge,
                                       QObject* parent = nullptr);

    /// Width left of a top row, where its disclosure triangle is; also the step of each level.
    static constexpr int kIndentation = 18;
    static constexpr int kRowSpacing = 2;

    /// The open title editor, or null.
    [[nodiscard]] QWidget* editor() const { return m_editor; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Only notes the title: setting it makes the tree anew, which no open editor may live to see.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    /// Sets the noted title, if there is one; to be called when the editor is closed.
    void applyCommitted(QAbstractItemModel& model);

private:
    void paintGroup(QPainter& painter, const QRect& rect, const CollectionNode& node) const;
    void paintNode(QPainter& painter, const QRect& rect, const CollectionNode& node, bool selected) const;
    /// Draws the badge at the right end and gives the width that it took.
    int paintBadge(QPainter& painter, const QRect& rect, qint64 count, bool selected) const;
    [[nodiscard]] const QIcon& image(int type) const;

    std::function<qint64(const CollectionNode&)> m_badge;
    mutable QHash<int, QIcon> m_images;
    mutable QPointer<QWidget> m_editor;
    mutable QPersistentModelIndex m_edited; ///< Valid while a title is noted.
    mutable QString m_title;
};

} // namespace mosaro::organisation
