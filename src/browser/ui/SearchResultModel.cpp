#include "browser/ui/SearchResultModel.h"

#include "base/Text.h"
#include "import/MRBrowserItem.h"

namespace mosaro::browser {

SearchResultModel::SearchResultModel(store::ZNDBManager& library, QObject* parent)
    : QAbstractListModel(parent), m_items(library)
{
}

void SearchResultModel::setRows(std::vector<store::RowId> rows)
{
    beginResetModel();
    m_items.setIds(std::move(rows));
    endResetModel();
}

SearchHit SearchResultModel::hit(int row) const
{
    const auto item = m_items.itemAt(row);
    if (item == nullptr) {
        return {};
    }
    SearchHit hit;
    hit.mediaID = item->mediaID();
    hit.collectionID = item->collectionID();
    hit.title = item->title();
    hit.collectionPath = base::text("Basic.Collection.Path", item->collectionTitle());
    hit.otherInfo = item->isThirdPartyFormat()
                        ? item->fileSizeAsString()
                        : QStringLiteral("%1, (%2)").arg(item->imageSize(), item->fileSizeAsString());
    hit.badge = item->docSymbolBadge();
    hit.previewPath = item->thumbPath();
    hit.imageVersion = item->imageVersion();
    return hit;
}

int SearchResultModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_items.count();
}

QVariant SearchResultModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::AccessibleTextRole) {
        return {};
    }
    const SearchHit row = hit(index.row());
    return QStringList{row.title, row.collectionPath, row.otherInfo}.join(QStringLiteral(", "));
}

} // namespace mosaro::browser
