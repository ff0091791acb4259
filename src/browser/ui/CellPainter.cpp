#include "browser/ui/CellPainter.h"

#include "browser/ui/CellBadges.h"
#include "kit/Look.h"

#include <QPainter>
#include <QPainterPath>

namespace mosaro::browser {

namespace {

const QColor kFrameColor{0x3A, 0x3A, 0x3C};
const QColor kInactiveSelection{0x77, 0x78, 0x7C};
const QColor kTitleColor = QColor::fromRgbF(0.722F, 0.722F, 0.722F);
const QColor kSubtitleColor = QColor::fromRgbF(0.4F, 0.4F, 0.4F);
const QColor kModifiedColor = QColor::fromRgbF(0.922F, 0.349F, 0.286F, 0.35F);
const QColor kMissingColor = QColor::fromRgbF(0.986F, 0.0F, 0.027F, 0.35F);
constexpr qreal kRadius = 4;

/// A border of so many points that lies inside the rectangle.
void strokeInside(QPainter& painter, const QRectF& rect, const QColor& color, qreal width)
{
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const qreal half = width / 2;
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), kRadius - half / 2, kRadius - half / 2);
}

void fill(QPainter& painter, const QRectF& rect, const QColor& color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, kRadius, kRadius);
}

} // namespace

struct CellPainter::Cell {
    const CellContent& content;
    const PreviewLoader::Picture* picture; ///< Null: not there yet.
    std::optional<FileState> file;
    CellGeometry geometry;

    /// Layers are drawn for a cell whose picture and file are known.
    [[nodiscard]] bool isReady() const { return picture != nullptr && file.has_value(); }
    [[nodiscard]] bool isBroken() const { return picture != nullptr && picture->image.isNull(); }
};

PreviewRequest CellPainter::requestFor(const CellContent& content) const
{
    return {content.previewPath, content.imageVersion, imageBoxSize(m_zoom), m_ratio, content.file, true};
}

void CellPainter::addRequest(std::vector<PreviewRequest>& requests, int index)
{
    if (index < 0 || index >= m_items.count()) {
        return;
    }
    PreviewRequest request = requestFor(m_items.contentAt(index));
    if (request.path.isEmpty()) {
        return;
    }
    const auto* present = m_zoomMoves ? m_previews.anyPicture(request) : m_previews.picture(request);
    request.wantsImage = present == nullptr;
    if (request.wantsImage || !m_previews.isFileStateFresh(request.path)) {
        requests.push_back(std::move(request));
    }
}

QImage CellPainter::picture(int index)
{
    const PreviewLoader::Picture* picture = m_previews.anyPicture(requestFor(m_items.contentAt(index)));
    return picture != nullptr ? picture->image : QImage();
}

/// Visible cells first, then those that scrolling will show next.
void CellPainter::prepare(int first, int last)
{
    m_items.prepare(first, last);
    std::vector<PreviewRequest> requests;
    for (int index = first; index <= last; ++index) {
        addRequest(requests, index);
    }
    const int around = (last - first + 1) / 2;
    for (int step = 1; step <= around && m_items.isRead(last + step); ++step) {
        addRequest(requests, last + step);
    }
    for (int step = 1; step <= around && m_items.isRead(first - step); ++step) {
        addRequest(requests, first - step);
    }
    m_previews.want(std::move(requests));
}

void CellPainter::paint(QPainter& painter, const QRect& rect, int index, const kit::GridCellState& state)
{
    const CellContent& content = m_items.contentAt(index);
    const PreviewLoader::Picture* picture = m_previews.anyPicture(requestFor(content));
    const QSize box = imageBoxSize(m_zoom);
    QSize original = picture != nullptr ? picture->originalSize : QSize(content.width, content.height);
    if (original.isEmpty()) {
        original = box;
    }
    const Cell cell{content, picture, m_previews.fileState(content.previewPath),
                    CellGeometry(rect, m_zoom, fittedSize(original, box))};
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (content.background) {
        fill(painter, cell.geometry.backgroundFrame(), content.background->toColor());
    }
    paintPicture(painter, cell);
    paintForeground(painter, cell);
    paintSelection(painter, cell, state);
    if (m_options.titles) {
        paintTitles(painter, cell);
    }
    painter.restore();
}

void CellPainter::paintPicture(QPainter& painter, const Cell& cell) const
{
    const QRectF target = cell.geometry.picture();
    const bool tile = target.size() != cell.geometry.imageFrame().size();
    if ((cell.picture == nullptr || cell.isBroken() || tile) && !cell.content.background) {
        fill(painter, cell.geometry.frame(), kit::color::sidebar);
    }
    if (cell.isBroken()) {
        badge::symbol(painter, QRectF(target.center() - QPointF(12, 12), QSizeF(24, 24)),
                      QStringLiteral("file_error"), kit::color::text3);
        return;
    }
    if (cell.picture == nullptr) {
        return;
    }
    const QImage& image = cell.picture->image;
    QBrush brush(image);
    const QTransform place = QTransform::fromTranslate(target.x(), target.y())
                                 .scale(target.width() / image.width(), target.height() / image.height());
    brush.setTransform(place);
    const qreal radius = tile ? 0 : kRadius - 1;
    painter.setPen(Qt::NoPen);
    if (cell.picture->isDarkDrawing && !cell.content.background) {
        painter.setBrush(kGroundOfDarkDrawings);
        painter.drawRoundedRect(target, radius, radius);
    }
    painter.setBrush(brush);
    painter.drawRoundedRect(target, radius, radius);
}

void CellPainter::paintForeground(QPainter& painter, const Cell& cell) const
{
    strokeInside(painter, cell.geometry.frame(), kFrameColor, 1);
    if (!cell.isReady()) {
        return;
    }
    if (cell.file->readable) {
        paintMarks(painter, cell);
        return;
    }
    fill(painter, cell.geometry.frame(), kMissingColor);
    badge::symbol(painter, cell.geometry.missingSymbol(), QStringLiteral("file_error"), Qt::white);
}

void CellPainter::paintMarks(QPainter& painter, const Cell& cell) const
{
    const CellContent& content = cell.content;
    if (content.rating > 0) {
        const QString text = cell.geometry.showsShortRating() ? content.ratingShortText : content.ratingText;
        badge::rating(painter, cell.geometry.rating(badge::ratingWidth(text)), text);
    }
    if (content.hasTags) {
        badge::tag(painter, cell.geometry.tags());
    }
    if (m_options.imageType && !content.badge.isEmpty()) {
        badge::documentType(painter, cell.geometry.badge(content.isThirdPartyFormat), content.badge);
    }
    if (m_options.referencedMark && content.isReferencedMedia) {
        badge::alias(painter, cell.geometry.alias());
    }
    if (cell.file->modified) {
        fill(painter, cell.geometry.modifiedCover(), kModifiedColor);
        strokeInside(painter, cell.geometry.modifiedCover(), kit::color::window, 1);
        badge::symbol(painter, cell.geometry.modifiedSymbol(), QStringLiteral("editing_item"), Qt::white);
    }
}

void CellPainter::paintTitles(QPainter& painter, const Cell& cell) const
{
    static const QFont titleFont = kit::font(12, QFont::Medium);
    static const QFont subtitleFont = kit::font(11, QFont::Medium);
    static const QColor subtitleColor = badge::readable(kSubtitleColor, kit::color::window);
    const QRectF line = cell.geometry.title();
    const bool labelled = cell.content.label > 0;
    const qreal room = line.width() - (labelled ? 32 : 4);
    const QFontMetricsF metrics(titleFont);
    const QString title = metrics.elidedText(cell.content.title, Qt::ElideMiddle, room);
    painter.setFont(titleFont);
    painter.setPen(kTitleColor);
    painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine, title);
    if (labelled) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(kit::labelColor(cell.content.label));
        painter.drawEllipse(cell.geometry.label(metrics.horizontalAdvance(title)));
    }
    painter.setFont(subtitleFont);
    painter.setPen(subtitleColor);
    const QString subtitle =
        QFontMetricsF(subtitleFont).elidedText(cell.content.subtitle, Qt::ElideRight, line.width() - 4);
    painter.drawText(cell.geometry.subtitle(), Qt::AlignCenter | Qt::TextSingleLine, subtitle);
}

void CellPainter::paintSelection(QPainter& painter, const Cell& cell, const kit::GridCellState& state) const
{
    if (state.selected) {
        strokeInside(painter, cell.geometry.selectionFrame(),
                     state.active ? kit::color::amber : kInactiveSelection, 3);
    }
    if (state.showsFocus) {
        const QRectF ring = cell.geometry.selectionFrame().adjusted(-3, -3, 3, 3);
        painter.setPen(QPen(kit::color::blue, kit::metric::focusRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ring, kRadius + 2, kRadius + 2);
    }
}

} // namespace mosaro::browser
