#include "shell/GuideBox.h"

#include "kit/Look.h"
#include "kit/Paint.h"
#include "shell/GuidePage.h"

#include <QPainter>

namespace mosaro::shell {

namespace {
constexpr qreal kDot = 6;
constexpr qreal kPitch = 14;
constexpr qreal kDotsAboveBottom = 32;
constexpr qreal kRadius = 10;
} // namespace

void GuideBox::setCurrentPage(int index)
{
    m_current = index;
    update();
}

void GuideBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    kit::paint::panel(painter, rect(), kit::color::sidebar, QColor(0x3A, 0x3B, 0x3F), kRadius);
    if (m_current > GuidePage::kCount) {
        return;
    }
    const qreal left = (width() - kPitch * (GuidePage::kCount - 1)) / 2 - kDot / 2;
    const qreal top = height() - kDotsAboveBottom - kDot / 2;
    for (int page = 1; page <= GuidePage::kCount; ++page) {
        const QColor tint = page == m_current ? kit::color::amber : QColor(0x4A, 0x4B, 0x4F);
        kit::paint::panel(painter, QRectF(left + (page - 1) * kPitch, top, kDot, kDot), tint, {}, kDot / 2);
    }
}

} // namespace mosaro::shell
