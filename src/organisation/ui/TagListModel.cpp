#include "organisation/ui/TagListModel.h"

namespace mosaro::organisation {

TagListModel::TagListModel(const TagList& list, QObject* parent) : QAbstractListModel(parent), m_list(list) {}

void TagListModel::rebuild(const std::function<void()>& change)
{
    beginResetModel();
    change();
    endResetModel();
}

int TagListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_list.count();
}

QVariant TagListModel::data(const QModelIndex& index, int role) const
{
    const bool isTitle = role == Qt::DisplayRole || role == Qt::EditRole;
    return index.isValid() && isTitle ? QVariant(m_list.at(index.row()).title) : QVariant();
}

bool TagListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::EditRole) {
        return false;
    }
    const QString tagID = m_list.at(index.row()).tagID; // The list is read anew by who hears of it.
    Q_EMIT titleEdited(tagID, value.toString());
    return true;
}

Qt::ItemFlags TagListModel::flags(const QModelIndex& index) const
{
    return index.isValid()
               ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren
               : Qt::NoItemFlags;
}

} // namespace mosaro::organisation
