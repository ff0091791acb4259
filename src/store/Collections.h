#pragma once

#include "store/Record.h"

namespace mosaro::store {

class CollectionTagList;
class Media;

/// A user collection (type 10000), smart collection (10001) or folder (10002).
class Collections final : public Record {
public:
    enum Attribute {
        k_autoImport,
        k_collectionID,
        k_collectionPID,
        k_dateCreated,
        k_dateModified,
        k_filterCondition,
        k_filters,
        k_isAscending,
        k_label,
        k_sortKey,
        k_title,
        k_type,
        k_zoomValue,
        kAttributeCount
    };

    [[nodiscard]] static const EntityInfo& info();

    MOSARO_ATTRIBUTE(k_autoImport, bool, autoImport, setAutoImport)
    MOSARO_ATTRIBUTE(k_collectionID, QString, collectionID, setCollectionID)
    MOSARO_ATTRIBUTE(k_collectionPID, QString, collectionPID, setCollectionPID)
    MOSARO_ATTRIBUTE(k_dateCreated, QDateTime, dateCreated, setDateCreated)
    MOSARO_ATTRIBUTE(k_dateModified, QDateTime, dateModified, setDateModified)
    MOSARO_ATTRIBUTE(k_filterCondition, bool, filterCondition, setFilterCondition)
    MOSARO_ATTRIBUTE(k_filters, QVariantList, filters, setFilters)
    MOSARO_ATTRIBUTE(k_isAscending, bool, isAscending, setIsAscending)
    MOSARO_ATTRIBUTE(k_label, qint64, label, setLabel)
    MOSARO_ATTRIBUTE(k_sortKey, qint64, sortKey, setSortKey)
    MOSARO_ATTRIBUTE(k_title, QString, title, setTitle)
    MOSARO_ATTRIBUTE(k_type, qint64, type, setType)
    MOSARO_ATTRIBUTE(k_zoomValue, double, zoomValue, setZoomValue)

    /// To-many, the inverse of Media::collections: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<Media>> media() const;
    /// To-many, the inverse of CollectionTagList::collections: saved and unsaved records alike, in no order.
    [[nodiscard]] std::vector<std::shared_ptr<CollectionTagList>> collectionTagList() const;
    /// How many items it owns, by a count query.
    [[nodiscard]] qint64 mediaCount() const;

private:
    friend class StoreContext;
    Collections(StoreContext& context, RowId rowId) : Record(info(), context, rowId) {}
};

} // namespace mosaro::store
