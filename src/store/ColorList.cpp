#include "store/ColorList.h"

#include "store/Colors.h"
#include "store/Media.h"
#include "store/StoreContext.h"

namespace mosaro::store {

const EntityInfo& ColorList::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("colorID"), ValueType::Text},    {QLatin1String("colorType"), ValueType::Integer},
        {QLatin1String("mediaID"), ValueType::Text},    {QLatin1String("colors"), ValueType::Reference},
        {QLatin1String("media"), ValueType::Reference},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("ColorList"), kAttributes};
    return kInfo;
}

std::shared_ptr<Colors> ColorList::colors() const
{
    return StoreContext::toOne<Colors>(*this, k_colors);
}

void ColorList::setColors(const std::shared_ptr<Colors>& record)
{
    StoreContext::setToOne(*this, k_colors, record);
}

std::shared_ptr<Media> ColorList::media() const
{
    return StoreContext::toOne<Media>(*this, k_media);
}

void ColorList::setMedia(const std::shared_ptr<Media>& record)
{
    StoreContext::setToOne(*this, k_media, record);
}

} // namespace mosaro::store
