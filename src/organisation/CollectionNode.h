#pragma once

#include "store/SelectionElement.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

namespace mosaro::organisation {

/// One node of the collection tree: a projection of the store, rebuilt on every structural change.
struct CollectionNode {
    QString id; ///< Decimal number, or collectionID.
    QString title;
    int type = 0; ///< System number or 10000 and above; 0 for groups.
    bool isGroup = false;
    bool hasNodes = false; ///< Groups and user nodes, also with no children.
    QByteArray object;     ///< Archived reference to the Collections record; user nodes only.
    QString pid;           ///< Parent's collectionID, or empty.
    int label = 0;         ///< Colour label of the record, 0 for system nodes.
    int row = 0;           ///< Position among its siblings.
    CollectionNode* parent = nullptr;
    std::vector<std::unique_ptr<CollectionNode>> nodes;

    [[nodiscard]] bool isUserNode() const { return type >= store::kTypeCollection; }
};

} // namespace mosaro::organisation
