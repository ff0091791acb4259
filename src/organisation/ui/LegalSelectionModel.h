#pragma once

#include "organisation/TreeWalk.h"

#include <QItemSelectionModel>

namespace mosaro::organisation {

class CollectionTreeModel;

/// A selection that is legal at every moment: what the mouse, the keyboard or code proposes is reduced to
/// user nodes, or one system node alone.
class LegalSelectionModel : public QItemSelectionModel {
    Q_OBJECT

public:
    explicit LegalSelectionModel(CollectionTreeModel& model, QObject* parent = nullptr);

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection, SelectionFlags command) override;

    /// In row order.
    [[nodiscard]] NodeList selectedNodes() const;

private:
    [[nodiscard]] NodeList inRowOrder(const QModelIndexList& indexes) const;

    CollectionTreeModel& m_model;
};

} // namespace mosaro::organisation
