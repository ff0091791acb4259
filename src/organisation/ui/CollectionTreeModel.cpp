#include "organisation/ui/CollectionTreeModel.h"

#include "organisation/CollectionCommands.h"

namespace mosaro::organisation {

CollectionTreeModel::CollectionTreeModel(const CollectionTree& tree, QObject* parent)
    : QAbstractItemModel(parent), m_tree(tree)
{
}

void CollectionTreeModel::rebuild(const std::function<void()>& change)
{
    beginResetModel();
    change();
    endResetModel();
}

const CollectionNode* CollectionTreeModel::node(const QModelIndex& index)
{
    return static_cast<const CollectionNode*>(index.constInternalPointer());
}

QModelIndex CollectionTreeModel::index(const CollectionNode& node) const
{
    return createIndex(node.row, 0, &node);
}

QModelIndex CollectionTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const auto& nodes = children(parent);
    if (column != 0 || row < 0 || size_t(row) >= nodes.size()) {
        return {};
    }
    return createIndex(row, 0, nodes[size_t(row)].get());
}

QModelIndex CollectionTreeModel::parent(const QModelIndex& child) const
{
    const CollectionNode* childNode = node(child);
    return childNode && childNode->parent ? index(*childNode->parent) : QModelIndex();
}

int CollectionTreeModel::rowCount(const QModelIndex& parent) const
{
    return int(children(parent).size());
}

int CollectionTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant CollectionTreeModel::data(const QModelIndex& index, int role) const
{
    const bool isTitle = role == Qt::DisplayRole || role == Qt::EditRole;
    return index.isValid() && isTitle ? QVariant(node(index)->title) : QVariant();
}

bool CollectionTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString title = value.toString();
    if (!index.isValid() || role != Qt::EditRole || !CollectionCommands::isAcceptableTitle(title)) {
        return false;
    }
    if (title != node(index)->title) {
        Q_EMIT titleEdited(QString(node(index)->id), title);
    }
    return true;
}

Qt::ItemFlags CollectionTreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const CollectionNode& shown = *node(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    flags.setFlag(Qt::ItemIsSelectable, !shown.isGroup);
    flags.setFlag(Qt::ItemIsEditable, shown.isUserNode());
    flags.setFlag(Qt::ItemIsDragEnabled, shown.isUserNode());
    flags.setFlag(Qt::ItemNeverHasChildren, shown.nodes.empty());
    return flags;
}

const CollectionTree::Nodes& CollectionTreeModel::children(const QModelIndex& parent) const
{
    return parent.isValid() ? node(parent)->nodes : m_tree.library();
}

} // namespace mosaro::organisation
