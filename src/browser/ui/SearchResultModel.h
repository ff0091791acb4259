#pragma once

#include "browser/ItemList.h"

#include <QAbstractListModel>

namespace mosaro::browser {

/// What a row of the search results shows.
struct SearchHit {
    QString mediaID;
    QString collectionID;
    QString title;
    QString collectionPath;
    QString otherInfo; ///< Size in pixels and bytes.
    QString badge;
    QString previewPath;
    int imageVersion = 1;
};

/// The hits of a search. Items are read as they are looked at.
class SearchResultModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit SearchResultModel(store::ZNDBManager& library, QObject* parent = nullptr);

    void setRows(std::vector<store::RowId> rows);
    /// Empty when the item is gone.
    [[nodiscard]] SearchHit hit(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// The texts of a row in one, for screen readers.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    mutable ItemList m_items; ///< Reads on first look.
};

} // namespace mosaro::browser
