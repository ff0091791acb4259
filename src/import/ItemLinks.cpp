#include "import/ItemLinks.h"

#include "store/ColorList.h"
#include "store/Colors.h"
#include "store/MediaTagList.h"
#include "store/Tags.h"

#include <QUuid>

namespace mosaro::importing {

using store::Comparison;
using store::Predicate;

namespace {

constexpr size_t kColorTypes = 4;
constexpr int kNewSortKey = 7;
constexpr double kNewZoom = 0.4;

std::shared_ptr<store::Colors> findOrMakeColor(store::StoreContext& context, const QString& colorID,
                                               int colorType)
{
    const auto isThis =
        Predicate::allOf({Predicate::compare(QLatin1String("colorID"), Comparison::Equal, colorID),
                          Predicate::compare(QLatin1String("colorType"), Comparison::Equal, colorType)});
    if (auto known = context.first<store::Colors>(isThis)) {
        return known;
    }
    auto color = context.insert<store::Colors>();
    color->setColorID(colorID);
    color->setColorType(colorType);
    color->setIsLike(false);
    color->setIsAscending(false);
    color->setSortKey(kNewSortKey);
    color->setZoomValue(kNewZoom);
    return color;
}

std::shared_ptr<store::Tags> findOrMakeTag(store::StoreContext& context, const QString& title,
                                           const QString& newTagColor)
{
    const auto isThis = Predicate::compare(QLatin1String("title"), Comparison::Equal, title);
    if (auto known = context.first<store::Tags>(isThis)) {
        return known;
    }
    auto tag = context.insert<store::Tags>();
    tag->setTagID(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    tag->setTitle(title);
    tag->setTagColor(newTagColor);
    tag->setIsAscending(false);
    tag->setSortKey(kNewSortKey);
    tag->setZoomValue(kNewZoom);
    return tag;
}

} // namespace

void linkColors(store::StoreContext& context, const std::shared_ptr<store::Media>& media,
                const std::vector<DominantColor>& colors)
{
    const size_t count = std::min(colors.size(), kColorTypes);
    for (size_t place = 0; place < count; ++place) {
        const int colorType = static_cast<int>(place);
        const auto color = findOrMakeColor(context, base::colorAsString(colors[place].color), colorType);
        auto link = context.insert<store::ColorList>();
        link->setColorID(color->colorID());
        link->setMediaID(media->mediaID());
        link->setColorType(colorType);
        link->setMedia(media);
        link->setColors(color);
    }
}

void linkTags(store::StoreContext& context, const std::shared_ptr<store::Media>& media,
              const QStringList& titles, const QString& newTagColor)
{
    QStringList distinct = titles;
    distinct.removeDuplicates();
    distinct.removeAll(QString());
    for (const QString& title : std::as_const(distinct)) {
        const auto tag = findOrMakeTag(context, title, newTagColor);
        auto link = context.insert<store::MediaTagList>();
        link->setMediaID(media->mediaID());
        link->setTagID(tag->tagID());
        link->setMedia(media);
        link->setTags(tag);
    }
}

} // namespace mosaro::importing
