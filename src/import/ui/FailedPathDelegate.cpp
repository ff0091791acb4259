#include "import/ui/FailedPathDelegate.h"

#include "base/Text.h"
#include "import/ui/FailedPathModel.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace mosaro::importing {

namespace {
constexpr int kIconSize = 24;
constexpr int kButtonSize = 26;
constexpr int kMargin = 8;
} // namespace

QRect FailedPathDelegate::buttonRect(const QRect& row)
{
    return {row.right() - kMargin - kButtonSize + 1, row.center().y() - kButtonSize / 2, kButtonSize,
            kButtonSize};
}

void FailedPathDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    painter->save();
    const QStyle& style = *option.widget->style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);

    const QRect row = option.rect;
    const QRect picture(row.left() + kMargin, row.center().y() - kIconSize / 2, kIconSize, kIconSize);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);

    const QRect button = buttonRect(row);
    const int left = picture.right() + kMargin + 2;
    const QRect words(left, row.top() + 5, button.left() - kMargin - left, row.height() - 10);
    const QRect upper(words.left(), words.top(), words.width(), words.height() / 2);
    const QRect lower(words.left(), upper.bottom() + 1, words.width(), words.height() - upper.height());
    painter->setFont(kit::font(13));
    painter->setPen(kit::color::text);
    const QString path = index.data(Qt::DisplayRole).toString();
    painter->drawText(upper, Qt::AlignVCenter | Qt::AlignLeft,
                      painter->fontMetrics().elidedText(path, Qt::ElideMiddle, upper.width()));
    painter->setFont(kit::font(11));
    painter->setPen(option.state.testFlag(QStyle::State_Selected) ? kit::color::text : kit::color::text3);
    const QString reason = index.data(FailedPathModel::ReasonRole).toString().simplified();
    painter->drawText(lower, Qt::AlignVCenter | Qt::AlignLeft,
                      painter->fontMetrics().elidedText(reason, Qt::ElideRight, lower.width()));

    const bool lit =
        option.state.testFlag(QStyle::State_MouseOver) || option.state.testFlag(QStyle::State_Selected);
    const QColor tint = lit ? kit::color::text : kit::color::text3;
    kit::icon(QStringLiteral("reveal"), tint).paint(painter, button.adjusted(5, 5, -5, -5));
    painter->restore();
}

QSize FailedPathDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {200, kRowHeight};
}

bool FailedPathDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                     const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton &&
            buttonRect(option.rect).contains(mouse->position().toPoint())) {
            Q_EMIT revealClicked(index.data(FailedPathModel::PathRole).toString());
            return true;
        }
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

bool FailedPathDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.isValid()) {
        const bool overButton = buttonRect(option.rect).contains(event->pos());
        const QString path = index.data(FailedPathModel::PathRole).toString();
        const QString reason = index.data(FailedPathModel::ReasonRole).toString();
        QToolTip::showText(event->globalPos(),
                           overButton ? base::text("Tooltip.Reveal.File") : path + u'\n' + reason, view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace mosaro::importing
