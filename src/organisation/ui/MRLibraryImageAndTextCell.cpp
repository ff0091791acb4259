#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/SidebarRow.h"

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

QFont badgeFont()
{
    return kit::font(kBadgeSize, QFont::Light);
}

/// With the gap left of it.
int badgeWidth(qint64 count)
{
    const int digits = QFontMetrics(badgeFont()).horizontalAdvance(QString::number(count));
    return count > 0 ? std::max(kBadgeMinimum, digits) + kit::metric::gap : 0;
}

bool hasDot(const SidebarCellContent& row)
{
    return kit::labelColor(row.label).isValid() || row.tagColor.isValid();
}

/// What is left for the title between the image and the dot or the badge.
int titleWidth(const QRect& rect, const SidebarCellContent& row)
{
    const int dot = hasDot(row) ? kDotSize + kit::metric::gap : 0;
    return titleRect(rect).width() - badgeWidth(row.count) - dot;
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

    const QRect line = titleRect(rect);
    if (row.count > 0) {
        painter.setFont(badgeFont());
        painter.setPen(selected ? kit::color::text : kit::color::text2);
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, QString::number(row.count));
    }
    const QFont font = kit::font(kTitleSize);
    const QFontMetrics metrics(font);
    const QString title = metrics.elidedText(row.title, Qt::ElideRight, titleWidth(rect, row));
    painter.setFont(font);
    painter.setPen(selected ? QColor(Qt::white) : kit::color::text);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    if (hasDot(row)) {
        const bool hasLabel = kit::labelColor(row.label).isValid();
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

bool MRLibraryImageAndTextCell::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                          const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (index.isValid() && !isGroup(index)) {
        const SidebarCellContent row = content(index);
        const int width = titleWidth(option.rect.adjusted(m_leftMargin, 0, 0, 0), row);
        if (showCutTitle(*event, *view, option.rect, row.title, width)) {
            return true;
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
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
