#include "organisation/ui/CollectionCell.h"

#include "base/Text.h"
#include "kit/Look.h"
#include "organisation/CollectionTree.h"
#include "organisation/ui/CollectionTreeModel.h"

namespace mosaro::organisation {

namespace {

QColor imageTint(int type)
{
    switch (type) {
    case store::kTypeFolder:
        return kit::color::amber;
    case store::kTypeSmartCollection:
        return kit::color::blue;
    default:
        return kit::color::text2;
    }
}

} // namespace

CollectionCell::CollectionCell(std::function<qint64(const CollectionNode&)> badge, QObject* parent)
    : MRLibraryImageAndTextCell(base::text("Accessible.Collection.Name"), parent), m_badge(std::move(badge))
{
}

SidebarCellContent CollectionCell::content(const QModelIndex& index) const
{
    const CollectionNode& node = *CollectionTreeModel::node(index);
    return {.title = node.title,
            .image = image(node.type),
            .label = node.label,
            .tagColor = {},
            .count = m_badge(node)};
}

bool CollectionCell::isGroup(const QModelIndex& index) const
{
    const CollectionNode* node = CollectionTreeModel::node(index);
    return node && node->isGroup;
}

const QIcon& CollectionCell::image(int type) const
{
    auto known = m_images.find(type);
    if (known == m_images.end()) {
        const QString name = sidebarImageName(type);
        known = m_images.insert(type, name.isEmpty() ? QIcon() : kit::icon(name, imageTint(type)));
    }
    return *known;
}

} // namespace mosaro::organisation
