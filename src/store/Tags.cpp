#include "store/Tags.h"

#include "store/CollectionTagList.h"
#include "store/MediaTagList.h"
#include "store/StoreContext.h"

namespace mosaro::store {

const EntityInfo& Tags::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("tagID"), ValueType::Text},      {QLatin1String("title"), ValueType::Text},
        {QLatin1String("tagColor"), ValueType::Text},   {QLatin1String("isAscending"), ValueType::Bool},
        {QLatin1String("sortKey"), ValueType::Integer}, {QLatin1String("zoomValue"), ValueType::Real},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("Tags"), kAttributes};
    return kInfo;
}

std::vector<std::shared_ptr<MediaTagList>> Tags::mediaTagList() const
{
    return StoreContext::toMany<MediaTagList>(*this, MediaTagList::k_tags);
}

std::vector<std::shared_ptr<CollectionTagList>> Tags::collectionTagList() const
{
    return StoreContext::toMany<CollectionTagList>(*this, CollectionTagList::k_tags);
}

} // namespace mosaro::store
