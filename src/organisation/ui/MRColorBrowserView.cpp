#include "organisation/ui/MRColorBrowserView.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QPainter>

namespace mosaro::organisation {

namespace {

constexpr int kGuideSize = 24;
constexpr int kGuideSide = 10;
constexpr int kGuideRise = 5;

QString usesText(const MRColorTagItem& item)
{
    return item.countOfMedia() == 1 ? base::text("Hint.Color.Item", item.countOfMediaAsString())
                                    : base::text("Hint.Color.Items", item.countOfMediaAsString());
}

/// In the middle of the visible part, a little above it, with what to do about it below in small.
void paintGuide(QPainter& painter, const QRect& visible, const QString& guide, const QString& hint)
{
    const QRect room = visible.adjusted(kGuideSide, 0, -kGuideSide, 0);
    const auto place = [&](const QString& text) {
        return painter.boundingRect(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text).height();
    };
    painter.setFont(kit::font(kGuideSize));
    const int height = place(guide);
    const QRect words(room.left(), visible.center().y() - height / 2 - kGuideRise, room.width(), height);
    painter.setPen(Qt::black);
    painter.drawText(words.translated(0, 2), Qt::AlignCenter | Qt::TextWordWrap, guide);
    painter.setPen(Qt::white);
    painter.drawText(words, Qt::AlignCenter | Qt::TextWordWrap, guide);
    painter.setFont(kit::font(12));
    painter.setPen(kit::color::text3);
    const QRect below(room.left(), words.bottom() + kit::metric::gap, room.width(), place(hint));
    painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, hint);
}

} // namespace

MRColorBrowserView::MRColorBrowserView(const ColorGroups& groups, QWidget* parent)
    : kit::GridView(parent), m_groups(groups), m_cell(groups)
{
    setAccessibleName(base::text("Tooltip.Tab.Colors"));
    QPalette colors = palette();
    colors.setColor(QPalette::Window, kit::color::window); // Also behind the scroll bar.
    setPalette(colors);
    setMetrics(m_cell.metrics());
    setSource(this, &m_cell);
}

MRColorBrowserView::~MRColorBrowserView()
{
    setSource(nullptr, nullptr);
}

void MRColorBrowserView::setCellOptions(const SwatchCellOptions& options)
{
    m_cell.setOptions(options);
    setMetrics(m_cell.metrics());
    viewport()->update();
}

void MRColorBrowserView::reloadColors()
{
    m_guideString = m_groups.colors().empty() ? base::text("Message.No.Colors") : QString();
    setAccessibleDescription(m_guideString);
    resetData();
}

void MRColorBrowserView::paintEvent(QPaintEvent* event)
{
    kit::GridView::paintEvent(event);
    if (!m_guideString.isEmpty()) {
        QPainter painter(viewport());
        paintGuide(painter, viewport()->rect(), m_guideString, base::text("Hint.No.Colors"));
    }
}

int MRColorBrowserView::count() const
{
    return int(m_groups.colors().size());
}

std::vector<kit::GridSection> MRColorBrowserView::sections() const
{
    std::vector<kit::GridSection> sections;
    for (const ColorGroup& group : m_groups.group()) {
        sections.push_back({group.colorType, group.headerText(), group.count});
    }
    return sections;
}

QString MRColorBrowserView::title(int index) const
{
    return item(index).colorAsHex();
}

QString MRColorBrowserView::toolTip(int index) const
{
    const MRColorTagItem& shown = item(index);
    return QStringList(
               {shown.colorAsHex(), shown.colorAsRGBString(), shown.colorAsHSBString(), usesText(shown)})
        .join(u'\n');
}

QString MRColorBrowserView::accessibleText(int index) const
{
    QStringList parts{item(index).colorTypeAsString(), usesText(item(index))};
    if (item(index).isLike()) {
        parts.append(base::text("Hint.Color.Liked"));
    }
    return parts.join(QStringLiteral(", "));
}

int MRColorBrowserView::findTitle(const QString& prefix, int from) const
{
    for (int step = 0; step < count(); ++step) {
        const int index = (from + step) % count();
        if (title(index).startsWith(prefix, Qt::CaseInsensitive)) {
            return index;
        }
    }
    return -1;
}

} // namespace mosaro::organisation
