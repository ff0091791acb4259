// The records that MRBrowserItem's item is linked with.
#include "import/MRBrowserItem.h"
#include "store/Collections.h"
#include "store/ColorList.h"
#include "store/Colors.h"
#include "store/MediaTagList.h"
#include "store/Tags.h"

namespace mosaro::importing {

std::vector<std::shared_ptr<store::Colors>> MRBrowserItem::colors() const
{
    std::vector<std::shared_ptr<store::Colors>> records;
    if (m_media) {
        for (const auto& link : m_media->colorList()) {
            if (auto color = link->colors()) {
                records.push_back(std::move(color));
            }
        }
    }
    return records;
}

QString MRBrowserItem::colorAsStringOfType(int colorType) const
{
    if (m_media) {
        for (const auto& link : m_media->colorList()) {
            if (link->colorType() == colorType) {
                return link->colorID();
            }
        }
    }
    return {};
}

QString MRBrowserItem::backgroundColorAsString() const
{
    return colorAsStringOfType(0);
}

QString MRBrowserItem::primaryColorAsString() const
{
    return colorAsStringOfType(1);
}

QString MRBrowserItem::secondaryColorAsString() const
{
    return colorAsStringOfType(2);
}

QString MRBrowserItem::detailColorAsString() const
{
    return colorAsStringOfType(3);
}

std::shared_ptr<store::Collections> MRBrowserItem::collection() const
{
    return m_media ? m_media->collections() : nullptr;
}

QString MRBrowserItem::collectionTitle() const
{
    const auto owner = collection();
    return owner ? owner->title() : QString();
}

QString MRBrowserItem::collectionID() const
{
    const auto owner = collection();
    return owner ? owner->collectionID() : QString();
}

int MRBrowserItem::collectionLabel() const
{
    const auto owner = collection();
    return owner ? static_cast<int>(owner->label()) : 0;
}

qint64 MRBrowserItem::collectionMediaCount() const
{
    const auto owner = collection();
    return owner ? owner->mediaCount() : 0;
}

std::vector<std::shared_ptr<store::Tags>> MRBrowserItem::tags() const
{
    std::vector<std::shared_ptr<store::Tags>> records;
    if (m_media) {
        for (const auto& link : m_media->mediaTagList()) {
            if (auto tag = link->tags()) {
                records.push_back(std::move(tag));
            }
        }
    }
    return records;
}

QStringList MRBrowserItem::tagsWithName() const
{
    QStringList titles;
    for (const auto& tag : tags()) {
        titles.append(tag->title());
    }
    return titles;
}

} // namespace mosaro::importing
