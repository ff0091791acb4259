#include "browser/ui/HeadLine.h"

#include "kit/Look.h"
#include "kit/Paint.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr int kSide = 18;
constexpr int kBetween = 10;

} // namespace

HeadLine::HeadLine(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(kit::metric::toolRowHeight);
}

void HeadLine::setTrailing(QWidget& control)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kSide, 0, kSide, 0);
    row->addStretch();
    row->addWidget(&control);
    m_trailing = &control;
}

void HeadLine::setTitle(const QString& title)
{
    m_title = title;
    setAccessibleName(title);
    update();
}

void HeadLine::setPath(const QStringList& folders)
{
    m_path = folders.join(QStringLiteral(" / "));
    setAccessibleDescription(m_path);
    update();
}

/// Both texts share a base line; where they do not fit, the path gives way first.
void HeadLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), kit::color::window);
    const QFont titleFont = kit::font(15, QFont::DemiBold);
    const QFont pathFont = kit::font(13);
    const QFontMetrics titleMetrics(titleFont);
    const int baseLine = (height() + titleMetrics.ascent() - titleMetrics.descent()) / 2;
    const int right = m_trailing != nullptr ? m_trailing->x() - kBetween : width() - kSide;
    const int room = std::max(0, right - kSide);

    const QString title = titleMetrics.elidedText(m_title, Qt::ElideMiddle, room);
    painter.setFont(titleFont);
    painter.setPen(kit::color::text);
    painter.drawText(kSide, baseLine, title);

    const int pathLeft = kSide + titleMetrics.horizontalAdvance(title) + (title.isEmpty() ? 0 : kBetween);
    painter.setFont(pathFont);
    painter.setPen(kit::color::text3);
    const int pathRoom = std::max(0, right - pathLeft);
    painter.drawText(pathLeft, baseLine,
                     QFontMetrics(pathFont).elidedText(m_path, Qt::ElideMiddle, pathRoom));
    kit::paint::horizontalHairline(painter, 0, width(), height() - 1, kit::color::line);
}

} // namespace mosaro::browser
