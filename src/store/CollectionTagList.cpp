#include "store/CollectionTagList.h"

#include "store/Collections.h"
#include "store/StoreContext.h"
#include "store/Tags.h"

namespace mosaro::store {

const EntityInfo& CollectionTagList::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("collectionID"), ValueType::Text},
        {QLatin1String("tagID"), ValueType::Text},
        {QLatin1String("collections"), ValueType::Reference},
        {QLatin1String("tags"), ValueType::Reference},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("CollectionTagList"), kAttributes};
    return kInfo;
}

std::shared_ptr<Collections> CollectionTagList::collections() const
{
    return StoreContext::toOne<Collections>(*this, k_collections);
}

void CollectionTagList::setCollections(const std::shared_ptr<Collections>& record)
{
    StoreContext::setToOne(*this, k_collections, record);
}

std::shared_ptr<Tags> CollectionTagList::tags() const
{
    return StoreContext::toOne<Tags>(*this, k_tags);
}

void CollectionTagList::setTags(const std::shared_ptr<Tags>& record)
{
    StoreContext::setToOne(*this, k_tags, record);
}

} // namespace mosaro::store
