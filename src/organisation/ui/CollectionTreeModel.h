#pragma once

#include "organisation/CollectionTree.h"

#include <QAbstractItemModel>
#include <functional>

namespace mosaro::organisation {

/// The forest as the tree view wants it: one column, a node behind each index.
class CollectionTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit CollectionTreeModel(const CollectionTree& tree, QObject* parent = nullptr);

    [[nodiscard]] const CollectionTree& tree() const { return m_tree; }
    /// Runs a change of the forest; all indexes are new afterwards, expansion and selection gone.
    void rebuild(const std::function<void()>& change);

    [[nodiscard]] static const CollectionNode* node(const QModelIndex& index);
    [[nodiscard]] QModelIndex index(const CollectionNode& node) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Only announces the title; whoever hears it changes the store and builds the forest anew.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    void titleEdited(const QString& id, const QString& title);

private:
    [[nodiscard]] const CollectionTree::Nodes& children(const QModelIndex& parent) const;

    const CollectionTree& m_tree;
};

} // namespace mosaro::organisation
