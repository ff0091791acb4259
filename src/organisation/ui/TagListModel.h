#pragma once

#include "organisation/TagList.h"

#include <QAbstractListModel>
#include <functional>

namespace mosaro::organisation {

/// The tags as the list view wants them.
class TagListModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit TagListModel(const TagList& list, QObject* parent = nullptr);

    /// Runs a change of the list; all indexes are new afterwards, the selection is gone.
    void rebuild(const std::function<void()>& change);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Only announces the title; whoever hears it changes the store and reads the list anew.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    void titleEdited(const QString& tagID, const QString& title);

private:
    const TagList& m_list;
};

} // namespace mosaro::organisation
