#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>
#include <utility>

namespace mosaro::organisation {

namespace {

constexpr int kImageSize = 18;
constexpr int kImageGap = 6;
constexpr int kRightMargin = 14;
constexpr int kGroupGap = 8; ///< Above a group's heading.
constexpr int kDotSize = 8;
constexpr int kBadgeMinimum = 20;
constexpr double kTitleSize = 13;
constexpr double kHeadingSize = 11;
constexpr double kBadgeSize = 11;

QRect imageRect(const QRect& row)
{
    return {row.left(), row.top() + (row.height() - kImageSize) / 2, kImageSize, kImageSize};
}

QRect titleRect(const QRect& row)
{
    return row.adjusted(kImageSize + kImageGap, 0, -kRightMargin, 0);
}

/// Draws the badge at the right end and gives the width that it took.
int paintBadge(QPainter& painter, const QRect& rect, qint64 count, bool selected)
{
    if (count <= 0) {
        return 0;
    }
    const QFont font = kit::font(kBadgeSize, QFont::Light);
    const QString text = QString::number(count);
    const int width = qMax(kBadgeMinimum, QFontMetrics(font).horizontalAdvance(text));
    painter.setFont(font);
    painter.setPen(selected ? kit::color::text : kit::color::text2);
    painter.drawText(QRect(rect.right() - width + 1, rect.top(), width, rect.height()),
                     Qt::AlignRight | Qt::AlignVCenter, text);
    return width + kit::metric::gap;
}

} // namespace

MRLibraryImageAndTextCell::MRLibraryImageAndTextCell(QString editorName, QObject* parent)
    : QStyledItemDelegate(parent), m_editorName(std::move(editorName))
{
}

void MRLibraryImageAndTextCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    painter->save();
    if (isGroup(index)) {
        paintGroup(*painter, option.rect, index.data().toString());
    } else {
        paintRow(*painter, option.rect.adjusted(m_leftMargin, 0, 0, 0), content(index),
                 option.state.testFlag(QStyle::State_Selected));
    }
    painter->restore();
}

void MRLibraryImageAndTextCell::paintGroup(QPainter& painter, const QRect& rect, const QString& title)
{
    QFont font = kit::font(kHeadingSize, QFont::Bold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.6);
    const QRect line = rect.adjusted(kIndentation, kGroupGap, -kRightMargin, 0);
    painter.setFont(font);
    painter.setPen(kit::color::text3);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(title, Qt::ElideRight, line.width()));
}

void MRLibraryImageAndTextCell::paintRow(QPainter& painter, const QRect& rect, const SidebarCellContent& row,
                                         bool selected)
{
    row.image.paint(&painter, imageRect(rect));

    QRect line = titleRect(rect);
    line.setRight(line.right() - paintBadge(painter, line, row.count, selected));
    const bool hasLabel = kit::labelColor(row.label).isValid();
    const bool hasDot = hasLabel || row.tagColor.isValid();
    const int dotSpace = hasDot ? kDotSize + kit::metric::gap : 0;

    const QFont font = kit::font(kTitleSize);
    const QFontMetrics metrics(font);
    const QString title = metrics.elidedText(row.title, Qt::ElideRight, line.width() - dotSpace);
    painter.setFont(font);
    painter.setPen(selected ? QColor(Qt::white) : kit::color::text);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    if (hasDot) {
        const QRectF dot(line.left() + metrics.horizontalAdvance(title) + kit::metric::gap,
                         rect.top() + (rect.height() - kDotSize) / 2.0, kDotSize, kDotSize);
        kit::paint::dot(painter, dot, hasLabel ? kit::labelColor(row.label) : row.tagColor);
    }
}

QSize MRLibraryImageAndTextCell::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const int gap = isGroup(index) ? kGroupGap : 0;
    return {kit::metric::tabRowHeight, kit::metric::rowHeight + kRowSpacing + gap};
}

QWidget* MRLibraryImageAndTextCell::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                                 const QModelIndex& index) const
{
    auto* field = new QLineEdit(parent);
    field->setFont(kit::font(kTitleSize));
    field->setAccessibleName(m_editorName);
    field->setText(index.data(Qt::EditRole).toString());
    m_editor = field;
    return field;
}

void MRLibraryImageAndTextCell::setModelData(QWidget* editor, QAbstractItemModel*,
                                             const QModelIndex& index) const
{
    if (const auto* field = qobject_cast<const QLineEdit*>(editor)) {
        m_edited = index;
        m_title = field->text();
    }
}

void MRLibraryImageAndTextCell::applyCommitted(QAbstractItemView& list)
{
    const QPointer<QWidget> focus = list.window()->focusWidget();
    const QModelIndex edited = std::exchange(m_edited, {});
    if (edited.isValid()) {
        list.model()->setData(edited, m_title, Qt::EditRole);
    }
    if (focus && focus != &list) {
        focus->setFocus();
    }
}

void MRLibraryImageAndTextCell::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                     const QModelIndex&) const
{
    // The field's own margin lies left of the title, so that the text does not jump.
    editor->setGeometry(titleRect(option.rect).adjusted(m_leftMargin - kImageGap, 0, kit::metric::gap, 0));
}

} // namespace mosaro::organisation
