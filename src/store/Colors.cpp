#include "store/Colors.h"

#include "store/ColorList.h"
#include "store/StoreContext.h"

namespace mosaro::store {

const EntityInfo& Colors::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("colorID"), ValueType::Text},    {QLatin1String("colorType"), ValueType::Integer},
        {QLatin1String("isLike"), ValueType::Bool},     {QLatin1String("isAscending"), ValueType::Bool},
        {QLatin1String("sortKey"), ValueType::Integer}, {QLatin1String("zoomValue"), ValueType::Real},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("Colors"), kAttributes};
    return kInfo;
}

std::vector<std::shared_ptr<ColorList>> Colors::colorList() const
{
    return StoreContext::toMany<ColorList>(*this, ColorList::k_colors);
}

} // namespace mosaro::store
