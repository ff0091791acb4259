#include "import/ui/PreviewWell.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace mosaro::importing {

namespace {

constexpr int kSwatchWidth = 28;
constexpr int kSwatchHeight = 18;
constexpr int kSwatchGap = 4;
/// A preview is 460 by 360 at most; what says otherwise is not one of ours.
constexpr int kLargestSide = 4096;

/// Decodes no larger than needed, which makes a JPEG several times cheaper.
QImage decoded(const QByteArray& bytes, QSize room)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (size.width() > kLargestSide || size.height() > kLargestSide) {
        return {};
    }
    if (size.isValid() && (size.width() > room.width() || size.height() > room.height())) {
        reader.setScaledSize(size.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

} // namespace

PreviewWell::PreviewWell(QWidget* parent) : QWidget(parent)
{
    setFixedSize(PreviewWell::sizeHint());
}

void PreviewWell::setPreview(const QByteArray& bytes)
{
    m_picture = bytes.isEmpty() ? QImage() : decoded(bytes, size() * devicePixelRatio());
    update();
}

void PreviewWell::clear()
{
    m_picture = {};
    update();
}

void PreviewWell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    kit::paint::panel(painter, rect(), kit::color::field, kit::color::fieldBorder, kit::metric::radius);
    if (m_picture.isNull()) {
        return;
    }
    const QRectF room = QRectF(rect()).adjusted(6, 6, -6, -6);
    const QSizeF natural = QSizeF(m_picture.size()) / devicePixelRatioF();
    const bool fits = natural.width() <= room.width() && natural.height() <= room.height();
    const QSizeF shown = fits ? natural : natural.scaled(room.size(), Qt::KeepAspectRatio);
    const QRectF place(room.center() - QPointF(shown.width() / 2, shown.height() / 2), shown);
    if (m_picture.hasAlphaChannel()) {
        kit::paint::checker(painter, place);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_picture);
}

SwatchRow::SwatchRow(QWidget* parent) : QWidget(parent)
{
    setFixedSize(SwatchRow::sizeHint());
}

QSize SwatchRow::sizeHint() const
{
    return {kCount * kSwatchWidth + (kCount - 1) * kSwatchGap, kSwatchHeight};
}

void SwatchRow::setColors(std::vector<QColor> colors)
{
    m_colors = std::move(colors);
    m_colors.resize(kCount);
    update();
}

void SwatchRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int i = 0; i < kCount; ++i) {
        const QColor color = size_t(i) < m_colors.size() ? m_colors[size_t(i)] : QColor();
        kit::paint::swatch(painter, QRectF(i * (kSwatchWidth + kSwatchGap), 0, kSwatchWidth, kSwatchHeight),
                           color);
    }
}

} // namespace mosaro::importing
