#include "organisation/ui/MRColorTagBrowserCell.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QFontDatabase>
#include <QLinearGradient>

namespace mosaro::organisation {

namespace {

constexpr QSize kSwatch{38, 30};
constexpr int kSelection = 3; ///< How far the selection reaches beyond the swatch.
constexpr int kTitleHeight = 13;
constexpr int kSpacing = 3;
constexpr int kMargin = 5;
constexpr int kCountHeight = 12;
constexpr int kBadge = 14;

const QColor kPlate = QColor::fromRgbF(0.01F, 0.01F, 0.01F, 0.65F);
const QColor kCountColor = QColor::fromRgbF(0.85F, 0.85F, 0.85F);
const QColor kSwatchEdge{0x3A, 0x3A, 0x3C};

QFont titleFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(9);
    return font;
}

/// The colours of the selection from top to bottom, and its border.
struct SelectionColors {
    QColor top;
    QColor bottom;
    QColor border;
};

SelectionColors gridSelectionColors(bool active)
{
    const QColor base = active ? kit::color::blue : QColor(0x77, 0x78, 0x7C);
    return {kit::paint::mixed(base, Qt::white, 0.12), kit::paint::mixed(base, Qt::black, 0.12),
            kit::paint::mixed(base, Qt::white, 0.35)};
}

void paintSelection(QPainter& painter, const QRectF& frame, bool active)
{
    const SelectionColors colors = gridSelectionColors(active);
    QLinearGradient gradient(frame.topLeft(), frame.bottomLeft());
    gradient.setColorAt(0, colors.top);
    gradient.setColorAt(1, colors.bottom);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.border, 1));
    painter.setBrush(gradient);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), 2.5, 2.5);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// A dark swatch on the dark ground keeps an edge: the thin line around its black border.
void paintColor(QPainter& painter, const QRect& rect, const MRColorTagItem& item, bool selected)
{
    if (!selected) {
        painter.setPen(kSwatchEdge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    }
    const QColor color = item.colorValue();
    if (!color.isValid() || color.alpha() < 255) {
        kit::paint::checker(painter, rect, 4);
    }
    painter.setPen(Qt::black);
    painter.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

void paintCount(QPainter& painter, const QRect& swatch, const QString& count)
{
    static const QFont font = kit::font(9, QFont::Bold);
    const QFontMetrics metrics(font);
    const int room = swatch.width() - 2;
    const int width = std::min(room, metrics.horizontalAdvance(count) + 6);
    const QRect box(swatch.right() - width, swatch.bottom() - kCountHeight, width, kCountHeight);
    painter.fillRect(box, kPlate);
    painter.setFont(font);
    painter.setPen(kCountColor);
    const QRect words = box.adjusted(3, 0, -3, 0);
    painter.drawText(words, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(count, Qt::ElideRight, words.width()));
}

void paintLikeBadge(QPainter& painter, const QRect& swatch)
{
    const QRect plate(swatch.left() + 2, swatch.top() + 2, kBadge, kBadge);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPlate);
    painter.drawEllipse(plate);
    painter.setRenderHint(QPainter::Antialiasing, false);
    kit::icon(QStringLiteral("like_badge"), kit::color::coral.lighter(125))
        .paint(&painter, plate.adjusted(2, 2, -2, -2));
}

} // namespace

kit::GridMetrics MRColorTagBrowserCell::metrics() const
{
    const int title = m_options.titles ? kTitleHeight : 0;
    return {kSwatch + QSize(2 * kSelection, 2 * kSelection + title), {kSpacing, 0}, kMargin};
}

void MRColorTagBrowserCell::paint(QPainter& painter, const QRect& cell, int index,
                                  const kit::GridCellState& state)
{
    const MRColorTagItem& item = m_groups.colors()[size_t(index)];
    const QRect swatch(cell.topLeft() + QPoint(kSelection, kSelection), kSwatch);
    const QRect frame = swatch.adjusted(-kSelection, -kSelection, kSelection, kSelection);
    if (state.selected) {
        paintSelection(painter, frame, state.active);
    }
    paintColor(painter, swatch, item, state.selected);
    if (m_options.counts) {
        paintCount(painter, swatch, item.countOfMediaAsString());
    }
    if (item.isLike()) {
        paintLikeBadge(painter, swatch);
    }
    if (m_options.titles) {
        static const QFont font = titleFont();
        const QRect words(cell.left(), frame.bottom(), cell.width(), kTitleHeight);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(words, Qt::AlignCenter | Qt::TextSingleLine,
                         QFontMetrics(font).elidedText(item.colorAsHex(), Qt::ElideMiddle, words.width()));
    }
    if (state.showsFocus) {
        // White and thin: blue means selected here, and both are to be seen.
        painter.setPen(Qt::white);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame.adjusted(0, 0, -1, -1));
    }
}

} // namespace mosaro::organisation
