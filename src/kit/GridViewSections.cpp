// Headers and closed sections of kit::GridView.
#include "kit/GridView.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

namespace mosaro::kit {

namespace {

const QColor kHeaderText = QColor::fromRgbF(0.686F, 0.686F, 0.686F);
constexpr float kHeaderOpacity = 0.85F;
constexpr double kHeaderKerning = -0.7;

QFont headerFont()
{
    QFont font = kit::font(12, QFont::Bold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, kHeaderKerning);
    return font;
}

void paintHeader(QPainter& painter, const QRect& rect, const QString& title, bool closed, bool showsFocus)
{
    QColor ground = color::window;
    ground.setAlphaF(kHeaderOpacity);
    painter.fillRect(rect, ground);
    paint::horizontalHairline(painter, rect.left(), rect.right() + 1, rect.top(), Qt::black);
    paint::horizontalHairline(painter, rect.left(), rect.right() + 1, rect.bottom(), Qt::black);
    const QRectF mark(rect.left() + metric::gap - 2, rect.top(), 10, rect.height());
    paint::chevron(painter, mark, closed ? paint::Direction::Right : paint::Direction::Down, color::text3, 6);
    static const QFont font = headerFont();
    painter.setFont(font);
    painter.setPen(kHeaderText);
    const QRect words = rect.adjusted(metric::gap, 0, -metric::gap, 0);
    painter.drawText(words, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title, Qt::ElideRight, words.width()));
    if (showsFocus) {
        paint::focusRing(painter, rect, metric::radius);
    }
}

} // namespace

GridLayout GridView::makeLayout() const
{
    if (m_sections.empty()) {
        return {m_metrics, viewport()->width(), m_model == nullptr ? 0 : m_model->count()};
    }
    std::vector<GridSectionSize> sizes;
    for (const GridSection& section : m_sections) {
        sizes.push_back({section.count, m_closedSections.contains(section.id)});
    }
    return {m_metrics, viewport()->width(), sizes};
}

void GridView::setSectionClosed(int section, bool closed)
{
    if (isSectionClosed(section) == closed) {
        return;
    }
    const int headerTop = m_layout.headerRect(section).top();
    const GridInterval cells = m_layout.sectionIndexes(section);
    const int id = m_sections[size_t(section)].id;
    if (closed) {
        m_closedSections.insert(id);
    } else {
        m_closedSections.remove(id);
    }
    relayout();
    if (closed) {
        // What lay below the header follows up to it.
        verticalScrollBar()->setValue(std::min(offset(), headerTop));
        const auto goesWith = [&](int index) { return index >= cells.first && index <= cells.last; };
        m_anchor = goesWith(m_anchor) ? -1 : m_anchor;
        setCurrent(goesWith(m_current) ? cells.first : m_current);
        changeSelection(m_selection);
    }
}

bool GridView::isSectionClosed(int section) const
{
    return m_closedSections.contains(m_sections[size_t(section)].id);
}

QRect GridView::headerFrame(int section) const
{
    return m_layout.headerRect(section, offset()).translated(0, -offset());
}

const GridSection* GridView::closedSectionOf(int index) const
{
    return m_layout.isHidden(index) && !m_sections.empty() ? &m_sections[size_t(m_layout.sectionOf(index))]
                                                           : nullptr;
}

int GridView::headerAt(const QPoint& viewportPosition) const
{
    for (int section = 0; section < m_layout.sectionCount(); ++section) {
        if (headerFrame(section).contains(viewportPosition)) {
            return section;
        }
    }
    return -1;
}

void GridView::openSectionsOf(const GridSelection& indexes)
{
    for (int section = 0; section < m_layout.sectionCount(); ++section) {
        GridSelection outside = indexes;
        outside.remove(m_layout.sectionIndexes(section));
        if (!(outside == indexes)) {
            setSectionClosed(section, false);
        }
    }
}

/// "-" closes the section of the current cell; "+", Space and Return open the one whose closed header is
/// current.
bool GridView::isDisclosureKey(const QKeyEvent& event)
{
    const int section = m_layout.sectionOf(m_current);
    if (section < 0 || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) {
        return false;
    }
    const bool closed = isSectionClosed(section);
    switch (event.key()) {
    case Qt::Key_Minus:
        setSectionClosed(section, true);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (closed) {
            setSectionClosed(section, false);
            scrollIndexToVisible(m_current);
        }
        return closed || event.key() == Qt::Key_Plus;
    default:
        return false;
    }
}

void GridView::paintHeaders(QPainter& painter) const
{
    const QRect view = viewport()->rect();
    for (int section = 0; section < m_layout.sectionCount(); ++section) {
        const QRect rect = headerFrame(section);
        const bool closed = isSectionClosed(section);
        if (rect.intersects(view)) {
            const bool isCurrent = closed && m_layout.sectionOf(m_current) == section;
            paintHeader(painter, rect, m_sections[size_t(section)].title, closed,
                        isCurrent && cellState(m_current).showsFocus);
        }
    }
}

} // namespace mosaro::kit
