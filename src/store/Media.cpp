#include "store/Media.h"

#include "store/Collections.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"
#include "store/StoreContext.h"

namespace mosaro::store {

const EntityInfo& Media::info()
{
    static constexpr AttributeInfo kAttributes[] = {
        {QLatin1String("imageColorModel"), ValueType::Text},
        {QLatin1String("imageDepth"), ValueType::Integer},
        {QLatin1String("imageDPI"), ValueType::Real},
        {QLatin1String("imageHasAlpha"), ValueType::Bool},
        {QLatin1String("imageHasFrames"), ValueType::Bool},
        {QLatin1String("imageProfile"), ValueType::Text},
        {QLatin1String("mediaCopyright"), ValueType::Text},
        {QLatin1String("mediaDateCreated"), ValueType::Date},
        {QLatin1String("mediaDateImported"), ValueType::Date},
        {QLatin1String("mediaDateLastOpened"), ValueType::Date},
        {QLatin1String("mediaDateModified"), ValueType::Date},
        {QLatin1String("mediaDocumentType"), ValueType::Integer},
        {QLatin1String("mediaFileSize"), ValueType::Integer},
        {QLatin1String("mediaHeight"), ValueType::Real},
        {QLatin1String("mediaID"), ValueType::Text},
        {QLatin1String("mediaKind"), ValueType::Integer},
        {QLatin1String("mediaLabel"), ValueType::Integer},
        {QLatin1String("mediaNotes"), ValueType::Text},
        {QLatin1String("mediaOriginalPath"), ValueType::Text},
        {QLatin1String("mediaPath"), ValueType::Text},
        {QLatin1String("mediaPID"), ValueType::Text},
        {QLatin1String("mediaRating"), ValueType::Integer},
        {QLatin1String("mediaSoftware"), ValueType::Text},
        {QLatin1String("mediaThumbPath"), ValueType::Text},
        {QLatin1String("mediaTitle"), ValueType::Text},
        {QLatin1String("mediaWeburl"), ValueType::Text},
        {QLatin1String("mediaWidth"), ValueType::Real},
        {QLatin1String("pdfAuthor"), ValueType::Text},
        {QLatin1String("pdfCreator"), ValueType::Text},
        {QLatin1String("pdfProducer"), ValueType::Text},
        {QLatin1String("pdfSubject"), ValueType::Text},
        {QLatin1String("pdfTitle"), ValueType::Text},
        {QLatin1String("pdfDateCreated"), ValueType::Date},
        {QLatin1String("pdfDateModified"), ValueType::Date},
        {QLatin1String("pdfPageCount"), ValueType::Integer},
        {QLatin1String("pdfVersion"), ValueType::Text},
        {QLatin1String("videoDuration"), ValueType::Real},
        {QLatin1String("videoFormat"), ValueType::Text},
        {QLatin1String("mediaOtherInfo"), ValueType::Dictionary},
        {QLatin1String("collections"), ValueType::Reference},
    };
    static_assert(std::size(kAttributes) == kAttributeCount);
    static const EntityInfo kInfo{QLatin1String("Media"), kAttributes};
    return kInfo;
}

std::shared_ptr<Collections> Media::collections() const
{
    return StoreContext::toOne<Collections>(*this, k_collections);
}

void Media::setCollections(const std::shared_ptr<Collections>& record)
{
    StoreContext::setToOne(*this, k_collections, record);
}

std::vector<std::shared_ptr<ColorList>> Media::colorList() const
{
    return StoreContext::toMany<ColorList>(*this, ColorList::k_media);
}

std::vector<std::shared_ptr<MediaTagList>> Media::mediaTagList() const
{
    return StoreContext::toMany<MediaTagList>(*this, MediaTagList::k_media);
}

} // namespace mosaro::store
