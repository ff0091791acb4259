#pragma once

#include <QStyledItemDelegate>

namespace mosaro::importing {

/// A row of failed file: icon, path cut in the middle, the reason below it, and a button that reveals the
/// file.
class FailedPathDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int kRowHeight = 46;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] static QRect buttonRect(const QRect& row);

Q_SIGNALS:
    void revealClicked(const QString& path);

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

} // namespace mosaro::importing
