#include "organisation/ui/TagCell.h"

#include "base/ColorText.h"
#include "base/Text.h"
#include "kit/Look.h"

namespace mosaro::organisation {

TagCell::TagCell(const TagList& list, std::function<qint64(const TagRecord&)> badge, QObject* parent)
    : MRLibraryImageAndTextCell(base::text("Accessible.Tag.Name"), parent), m_list(list),
      m_badge(std::move(badge)), m_image(kit::icon(QStringLiteral("tag_symbol")))
{
}

SidebarCellContent TagCell::content(const QModelIndex& index) const
{
    const TagRecord& tag = m_list.at(index.row());
    return {
        .title = tag.title, .image = m_image, .tagColor = shownTagColor(tag.tagColor), .count = m_badge(tag)};
}

QColor shownTagColor(const QString& tagColor)
{
    const auto color = tagColor.isEmpty() ? std::nullopt : base::colorFromString(tagColor);
    return color ? color->toColor() : QColor();
}

} // namespace mosaro::organisation
