#include "organisation/MRColorTagItem.h"

#include "base/Text.h"
#include "store/ZNDBManager.h"

#include <QLocale>
#include <QPainter>
#include <algorithm>

namespace mosaro::organisation {

namespace {

constexpr int kImageSize = 32;

/// Hue, saturation and brightness, 0 to 1; a grey has hue 0.
std::array<float, 3> hsbOf(const base::ColorValue& value)
{
    const auto held = [](float component) { return std::clamp(component, 0.0F, 1.0F); };
    const float red = held(value.red);
    const float green = held(value.green);
    const float blue = held(value.blue);
    const float brightness = std::max({red, green, blue});
    const float spread = brightness - std::min({red, green, blue});
    if (spread <= 0) {
        return {0, 0, brightness};
    }
    float sixths = 0;
    if (brightness == red) {
        sixths = (green - blue) / spread + (green < blue ? 6 : 0);
    } else if (brightness == green) {
        sixths = (blue - red) / spread + 2;
    } else {
        sixths = (red - green) / spread + 4;
    }
    return {sixths / 6, spread / brightness, brightness};
}

} // namespace

QString colorTypeTitle(qint64 colorType)
{
    switch (colorType) {
    case 0:
        return base::text("Lib.Focus.Colors");
    case 1:
        return base::text("Lib.Primary.Colors");
    case 2:
        return base::text("Lib.Secondary.Colors");
    case 3:
        return base::text("Lib.Other.Colors");
    default:
        return {};
    }
}

QString withThousandsSeparator(qint64 number)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    return english.toString(number);
}

MRColorTagItem::MRColorTagItem(store::ZNDBManager& library, const store::ColorRow& row)
    : m_library(&library), m_row(row), m_color(base::colorFromString(row.colorID))
{
    if (m_color) {
        m_hsb = hsbOf(*m_color);
    }
}

std::shared_ptr<store::Colors> MRColorTagItem::colorRecord() const
{
    const bool isOpen = m_library != nullptr && m_library->isOpenedDatabase();
    return isOpen ? m_library->context()->object<store::Colors>(m_row.row) : nullptr;
}

void MRColorTagItem::setIsLike(bool isLike)
{
    if (const auto record = colorRecord()) {
        record->setIsLike(isLike);
        m_row.isLike = isLike;
        (void)m_library->context()->save();
    }
}

QString MRColorTagItem::colorAsHex() const
{
    return m_color ? colorValue().name().mid(1).toUpper() : QString();
}

QString MRColorTagItem::colorAsRGBString() const
{
    const base::ColorValue value = m_color.value_or(base::ColorValue{0, 0, 0, 0});
    return QString::asprintf("R:%0.1f, G:%0.1f, B:%0.1f, A:%0.1f", double(value.red), double(value.green),
                             double(value.blue), double(value.alpha));
}

QString MRColorTagItem::colorAsHSBString() const
{
    const float alpha = m_color ? m_color->alpha : 0;
    return QString::asprintf("HSB (%0.2f, %0.2f, %0.2f, %0.2f)", double(m_hsb[0]), double(m_hsb[1]),
                             double(m_hsb[2]), double(alpha));
}

QString MRColorTagItem::countOfMediaAsString() const
{
    return withThousandsSeparator(m_row.uses);
}

QImage MRColorTagItem::colorAsImage() const
{
    QImage image(kImageSize, kImageSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(m_color ? colorValue() : QColor(Qt::transparent));
    QPainter painter(&image);
    painter.setPen(Qt::black);
    painter.drawRect(0, 0, kImageSize - 1, kImageSize - 1);
    return image;
}

} // namespace mosaro::organisation
