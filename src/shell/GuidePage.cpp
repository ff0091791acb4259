#include "shell/GuidePage.h"

#include "base/Text.h"
#include "kit/Look.h"

#include <QPainter>
#include <QSvgRenderer>
#include <array>

namespace mosaro::shell {

namespace {

constexpr int kTextBlock = 112;
constexpr int kTitleHeight = 34;
constexpr qreal kBalanceStep = 8;

QString titleOf(int index)
{
    static constexpr std::array keys{"Guide.Title1", "Guide.Title2", "Guide.Title3", "Guide.Title4",
                                     "Guide.Title5", "Guide.Title6", "Guide.Title7", "Guide.Title8"};
    return base::text(keys.at(size_t(index) - 1));
}

QString subtitleOf(int index)
{
    static constexpr std::array keys{"Guide.Subtitle1", "Guide.Subtitle2", "Guide.Subtitle3",
                                     "Guide.Subtitle4", "Guide.Subtitle5", "Guide.Subtitle6",
                                     "Guide.Subtitle7"};
    return index == GuidePage::kLast ? QString() : base::text(keys.at(size_t(index) - 1));
}

/// The least width in which the text takes no more lines than in the given one: its lines are of like length
/// then.
qreal balancedWidth(const QFontMetricsF& metrics, const QString& text, qreal width)
{
    const auto needed = [&](qreal inWidth) {
        return metrics.boundingRect(QRectF(0, 0, inWidth, 0), Qt::TextWordWrap, text).size();
    };
    const qreal height = needed(width).height();
    const auto fits = [&](qreal less) {
        const QSizeF size = needed(less);
        return size.height() <= height && size.width() <= less;
    };
    while (fits(width - kBalanceStep)) {
        width -= kBalanceStep;
    }
    return width;
}

} // namespace

GuidePage::GuidePage(int index, QWidget* parent)
    : QWidget(parent), m_title(titleOf(index)), m_subtitle(subtitleOf(index)),
      m_artwork(std::make_unique<QSvgRenderer>(QStringLiteral(":/artwork/guide%1.svg").arg(index)))
{
    m_artwork->setAspectRatioMode(Qt::KeepAspectRatio);
    setAccessibleName(m_title);
    setAccessibleDescription(m_subtitle);
}

GuidePage::~GuidePage() = default;

bool GuidePage::hasArtwork() const
{
    return m_artwork->isValid();
}

void GuidePage::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF picture = QRectF(rect()).adjusted(0, 0, 0, -kTextBlock);
    if (!picture.isEmpty()) {
        m_artwork->render(&painter, picture);
    }
    const QRectF title(0, picture.bottom(), width(), kTitleHeight);
    painter.setFont(kit::font(22, QFont::DemiBold));
    painter.setPen(kit::color::text);
    painter.drawText(title, Qt::AlignCenter, m_title);
    painter.setFont(kit::font(14));
    const qreal across = balancedWidth(QFontMetricsF(painter.font()), m_subtitle, width() * 0.8);
    const QRectF subtitle((width() - across) / 2, title.bottom() + kit::metric::gap, across,
                          kTextBlock - kTitleHeight - kit::metric::gap);
    painter.setPen(kit::color::text2);
    painter.drawText(subtitle, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_subtitle);
}

} // namespace mosaro::shell
