#include "store/MediaTagList.h"

#include "store/Media.h"
#include "store/StoreContext.h"
#include "store/Tags.h"

namespace mosaro::store {

const EntityInfo& MediaTagList::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("mediaID"), ValueType::Text},
        {QLatin1String("tagID"), ValueType::Text},
        {QLatin1String("media"), ValueType::Reference},
        {QLatin1String("tags"), ValueType::Reference},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("MediaTagList"), kAttributes};
    return kInfo;
}

std::shared_ptr<Media> MediaTagList::media() const
{
    return StoreContext::toOne<Media>(*this, k_media);
}

void MediaTagList::setMedia(const std::shared_ptr<Media>& record)
{
    StoreContext::setToOne(*this, k_media, record);
}

std::shared_ptr<Tags> MediaTagList::tags() const
{
    return StoreContext::toOne<Tags>(*this, k_tags);
}

void MediaTagList::setTags(const std::shared_ptr<Tags>& record)
{
    StoreContext::setToOne(*this, k_tags, record);
}

} // namespace mosaro::store
