#include "organisation/ui/LegalSelectionModel.h"

#include "organisation/SelectionConstraint.h"
#include "organisation/ui/CollectionTreeModel.h"

#include <unordered_set>

namespace mosaro::organisation {

LegalSelectionModel::LegalSelectionModel(CollectionTreeModel& model, QObject* parent)
    : QItemSelectionModel(&model, parent), m_model(model)
{
}

void LegalSelectionModel::select(const QItemSelection& selection, SelectionFlags command)
{
    if (command == NoUpdate) {
        return;
    }
    QItemSelection proposed = command.testFlag(Clear) ? QItemSelection() : this->selection();
    proposed.merge(selection, command);
    QItemSelection legal;
    for (const CollectionNode* node : legalSelection(inRowOrder(proposed.indexes()))) {
        const QModelIndex index = m_model.index(*node);
        legal.select(index, index);
    }
    QItemSelectionModel::select(legal, ClearAndSelect);
}

NodeList LegalSelectionModel::selectedNodes() const
{
    return inRowOrder(selection().indexes());
}

NodeList LegalSelectionModel::inRowOrder(const QModelIndexList& indexes) const
{
    if (indexes.size() == 1) {
        return {CollectionTreeModel::node(indexes.front())};
    }
    std::unordered_set<const CollectionNode*> wanted;
    for (const QModelIndex& index : indexes) {
        wanted.insert(CollectionTreeModel::node(index));
    }
    NodeList ordered;
    if (!wanted.empty()) {
        ordered = allNodes(m_model.tree().library());
        std::erase_if(ordered, [&wanted](const CollectionNode* node) { return !wanted.contains(node); });
    }
    return ordered;
}

} // namespace mosaro::organisation
