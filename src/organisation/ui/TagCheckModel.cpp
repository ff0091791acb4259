#include "organisation/ui/TagCheckModel.h"

namespace mosaro::organisation {

void TagCheckModel::setTags(std::vector<AssignedTag> tags)
{
    const auto titleOf = [](const AssignedTag& tag) { return tag.tag; };
    const bool sameRows =
        std::equal(m_tags.begin(), m_tags.end(), tags.begin(), tags.end(),
                   [&titleOf](const auto& a, const auto& b) { return titleOf(a) == titleOf(b); });
    if (sameRows) { // Keeps the place and the row that the keyboard is on.
        m_tags = std::move(tags);
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    m_tags = std::move(tags);
    endResetModel();
}

void TagCheckModel::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int TagCheckModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_tags.size());
}

QVariant TagCheckModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return at(index.row()).tag.title;
    case Qt::CheckStateRole:
        switch (at(index.row()).use) {
        case TagUse::All:
            return Qt::Checked;
        case TagUse::Some:
            return Qt::PartiallyChecked;
        case TagUse::None:
            return Qt::Unchecked;
        }
        break;
    default:
        break;
    }
    return {};
}

bool TagCheckModel::setData(const QModelIndex& index, const QVariant&, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || !m_isEnabled) {
        return false;
    }
    Q_EMIT toggled(index.row(), at(index.row()).use != TagUse::All);
    return true;
}

Qt::ItemFlags TagCheckModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags box = m_isEnabled ? Qt::ItemFlags(Qt::ItemIsUserCheckable) : Qt::ItemFlags();
    return Qt::ItemIsEnabled | Qt::ItemNeverHasChildren | box;
}

} // namespace mosaro::organisation
