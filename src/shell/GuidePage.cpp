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
    const QRectF subtitle(width() * 0.1, title.bottom() + kit::metric::gap, width() * 0.8,
                          kTextBlock - kTitleHeight - kit::metric::gap);
    painter.setFont(kit::font(14));
    painter.setPen(kit::color::text2);
    painter.drawText(subtitle, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_subtitle);
}

} // namespace mosaro::shell
