#include "browser/ui/SearchResultCell.h"

#include "browser/ui/CellBadges.h"
#include "browser/ui/SearchResultModel.h"
#include "kit/Look.h"
#include "kit/Paint.h"

#include <QPainter>

namespace mosaro::browser {

namespace {

constexpr int kMargin = 10;
constexpr QSize kPreview(64, 48);
constexpr qreal kRim = 1.5;
constexpr QSize kBadge(26, 13);
constexpr int kLine = 16;
const QColor kSelected{232, 183, 89, 66};

} // namespace

SearchResultCell::SearchResultCell(const SearchResultModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model)
{
    connect(&m_loader, &PreviewLoader::loaded, this, &SearchResultCell::pictureLoaded);
}

QSize SearchResultCell::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const
{
    return {0, kRowHeight};
}

void SearchResultCell::endPainting() const
{
    m_loader.want(m_wanted);
}

void SearchResultCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state.testFlag(QStyle::State_Selected)) {
        kit::paint::panel(*painter, QRectF(option.rect).adjusted(3, 1, -3, -1), kSelected);
    }
    const SearchHit hit = m_model.hit(index.row());
    const QRect preview(option.rect.left() + kMargin,
                        option.rect.top() + (kRowHeight - kPreview.height()) / 2, kPreview.width(),
                        kPreview.height());
    paintPreview(*painter, preview, hit);
    paintTexts(*painter, option.rect.adjusted(kPreview.width() + 2 * kMargin, 0, -kMargin, 0), hit);
    painter->restore();
}

void SearchResultCell::paintPreview(QPainter& painter, const QRect& place, const SearchHit& hit) const
{
    kit::paint::panel(painter, place, kit::color::field, Qt::lightGray, 2);
    PreviewRequest request;
    request.path = hit.previewPath;
    request.version = hit.imageVersion;
    request.box = place.size() - QSize(4, 4);
    request.ratio = painter.device()->devicePixelRatioF();
    const PreviewLoader::Picture* picture = m_loader.picture(request);
    if (picture == nullptr) {
        m_wanted.push_back(request);
    } else if (!picture->image.isNull()) {
        QRectF target(QPointF(), fittedSize(picture->originalSize, request.box));
        target.moveCenter(QRectF(place).center());
        if (picture->isDarkDrawing) {
            painter.fillRect(target, kGroundOfDarkDrawings);
        }
        painter.drawImage(target, picture->image);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::lightGray, kRim));
    painter.drawRoundedRect(place, 2, 2);
    const QRect badgePlace(place.bottomRight() - QPoint(kBadge.width() + 1, kBadge.height() + 1), kBadge);
    badge::documentType(painter, badgePlace, hit.badge);
}

void SearchResultCell::paintTexts(QPainter& painter, const QRect& place, const SearchHit& hit)
{
    const auto line = [&painter, place](int number, const QFont& font, const QColor& color,
                                        const QString& text) {
        const QRect rect(place.left(), place.top() + 8 + number * kLine, place.width(), kLine);
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter,
                         QFontMetrics(font).elidedText(text, Qt::ElideMiddle, rect.width()));
    };
    line(0, kit::font(13, QFont::DemiBold), kit::color::text, hit.title);
    line(1, kit::font(11), kit::color::text2, hit.collectionPath);
    line(2, kit::font(11), kit::color::text3, hit.otherInfo);
}

} // namespace mosaro::browser
