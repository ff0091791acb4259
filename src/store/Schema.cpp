#include "store/Schema.h"

#include "store/CollectionTagList.h"
#include "store/Collections.h"
#include "store/ColorList.h"
#include "store/Colors.h"
#include "store/Media.h"
#include "store/MediaTagList.h"
#include "store/Tags.h"

namespace mosaro::store {

int EntityInfo::indexOf(QLatin1String attribute) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [attribute](const AttributeInfo& info) { return info.name == attribute; });
    return found == attributes.end() ? -1 : static_cast<int>(found - attributes.begin());
}

std::span<const EntityInfo* const> allEntities()
{
    static const EntityInfo* const kEntities[] = {
        &Collections::info(),  &Tags::info(),      &Colors::info(),           &Media::info(),
        &MediaTagList::info(), &ColorList::info(), &CollectionTagList::info()};
    return kEntities;
}

const EntityInfo* targetEntity(const AttributeInfo& reference)
{
    // A reference bears the name of its entity: "media" leads to Media.
    const auto entities = allEntities();
    const auto found = std::find_if(entities.begin(), entities.end(), [&reference](const EntityInfo* entity) {
        return reference.type == ValueType::Reference &&
               entity->name.compare(reference.name, Qt::CaseInsensitive) == 0;
    });
    return found == entities.end() ? nullptr : *found;
}

} // namespace mosaro::store
