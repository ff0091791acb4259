#include "store/Collections.h"

#include "store/CollectionTagList.h"
#include "store/Media.h"
#include "store/StoreContext.h"

namespace mosaro::store {

const EntityInfo& Collections::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("autoImport"), ValueType::Bool},
        {QLatin1String("collectionID"), ValueType::Text},
        {QLatin1String("collectionPID"), ValueType::Text},
        {QLatin1String("dateCreated"), ValueType::Date},
        {QLatin1String("dateModified"), ValueType::Date},
        {QLatin1String("filterCondition"), ValueType::Bool},
        {QLatin1String("filters"), ValueType::Array},
        {QLatin1String("isAscending"), ValueType::Bool},
        {QLatin1String("label"), ValueType::Integer},
        {QLatin1String("sortKey"), ValueType::Integer},
        {QLatin1String("title"), ValueType::Text},
        {QLatin1String("type"), ValueType::Integer},
        {QLatin1String("zoomValue"), ValueType::Real},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("Collections"), kAttributes};
    return kInfo;
}

std::vector<std::shared_ptr<Media>> Collections::media() const
{
    return StoreContext::toMany<Media>(*this, Media::k_collections);
}

std::vector<std::shared_ptr<CollectionTagList>> Collections::collectionTagList() const
{
    return StoreContext::toMany<CollectionTagList>(*this, CollectionTagList::k_collections);
}

qint64 Collections::mediaCount() const
{
    return StoreContext::countToMany<Media>(*this, Media::k_collections);
}

} // namespace mosaro::store
