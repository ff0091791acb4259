#include "organisation/ui/TagCheckList.h"

#include "kit/Look.h"
#include "kit/Paint.h"
#include "organisation/ui/SidebarRow.h"
#include "organisation/ui/TagCell.h"
#include "organisation/ui/TagCheckModel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStyledItemDelegate>

namespace mosaro::organisation {

namespace {

constexpr int kSide = 12;
constexpr int kBoxSize = 14;
constexpr int kDotSize = 8;

/// Where a click acts: the box with some room around it.
constexpr int kBoxColumn = kSide + kBoxSize + kSide / 2;

QRect titleRect(const QRect& row)
{
    return row.adjusted(kBoxColumn + 2, 0, -kSide, 0);
}

int titleWidth(const QRect& row, bool hasDot)
{
    return titleRect(row).width() - (hasDot ? kDotSize + kit::metric::gap : 0);
}

class TagCheckCell : public QStyledItemDelegate {
public:
    TagCheckCell(const TagCheckModel& tags, TagCheckList& list)
        : QStyledItemDelegate(&list), m_tags(tags), m_list(list)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const AssignedTag& row = m_tags.at(index.row());
        paintRowGround(*painter, option.rect, m_list,
                       {.isCurrent = m_list.isByKeyboard() && index == m_list.currentIndex()});
        paintBox(*painter, option.rect, row.use);

        const QColor color = shownTagColor(row.tag.tagColor);
        const QRect line = titleRect(option.rect);
        const QFont font = kit::font(kTitleSize);
        const QFontMetrics metrics(font);
        const QString title =
            metrics.elidedText(row.tag.title, Qt::ElideRight, titleWidth(option.rect, color.isValid()));
        painter->setFont(font);
        painter->setPen(m_tags.isEnabled() ? QColor(Qt::white) : kit::color::text3);
        painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
        if (color.isValid()) {
            kit::paint::dot(*painter,
                            QRectF(line.left() + metrics.horizontalAdvance(title) + kit::metric::gap,
                                   line.top() + (line.height() - kDotSize) / 2.0, kDotSize, kDotSize),
                            color);
        }
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        if (index.isValid()) {
            const TagRecord& tag = m_tags.at(index.row()).tag;
            const int width = titleWidth(option.rect, shownTagColor(tag.tagColor).isValid());
            if (showCutTitle(*event, *view, option.rect, tag.title, width)) {
                return true;
            }
        }
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return {kit::metric::tabRowHeight, kit::metric::rowHeight + 2};
    }

private:
    void paintBox(QPainter& painter, const QRect& row, TagUse use) const
    {
        QStyleOptionButton box;
        box.rect = QRect(row.left() + kSide, row.top() + (row.height() - kBoxSize) / 2, kBoxSize, kBoxSize);
        box.state.setFlag(QStyle::State_Enabled, m_tags.isEnabled());
        box.state.setFlag(QStyle::State_On, use == TagUse::All);
        box.state.setFlag(QStyle::State_NoChange, use == TagUse::Some);
        box.state.setFlag(QStyle::State_Off, use == TagUse::None);
        m_list.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, &m_list);
    }

    const TagCheckModel& m_tags;
    TagCheckList& m_list;
};

} // namespace

TagCheckList::TagCheckList(TagCheckModel& model, const QString& guideText, QWidget* parent)
    : QListView(parent), m_tags(model), m_guideText(guideText)
{
    setModel(&model);
    setItemDelegate(new TagCheckCell(model, *this));
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setSelectionMode(NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, kit::color::sidebar);
    setPalette(colors);
}

void TagCheckList::paintEvent(QPaintEvent* event)
{
    if (m_tags.rowCount() > 0) {
        QListView::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    paintGuide(painter, *this, m_guideText);
}

void TagCheckList::toggle(const QModelIndex& index)
{
    if (index.isValid()) {
        model()->setData(index, {}, Qt::CheckStateRole);
    }
}

void TagCheckList::setByKeyboard(bool byKeyboard)
{
    m_isByKeyboard = byKeyboard;
    viewport()->update();
}

void TagCheckList::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        setByKeyboard(true);
    }
    QListView::focusInEvent(event);
}

void TagCheckList::keyPressEvent(QKeyEvent* event)
{
    setByKeyboard(true);
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        toggle(currentIndex());
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

void TagCheckList::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    event->accept();
    setByKeyboard(false);
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    setCurrentIndex(index);
    if (event->position().x() < kBoxColumn) {
        toggle(index);
    }
}

} // namespace mosaro::organisation
