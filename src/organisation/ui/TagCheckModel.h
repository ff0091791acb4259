#pragma once

#include "organisation/TagAssignment.h"

#include <QAbstractListModel>

namespace mosaro::organisation {

/// The tags with a check box each, as the panel that assigns tags shows them.
class TagCheckModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setTags(std::vector<AssignedTag> tags);
    [[nodiscard]] const std::vector<AssignedTag>& tags() const { return m_tags; }
    [[nodiscard]] const AssignedTag& at(int row) const { return m_tags.at(std::size_t(row)); }
    /// Off: no box can be clicked.
    void setEnabled(bool enabled);
    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Only announces a click on a box; the boxes follow when the tags are set again.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    /// `on`: what the click makes of the box. A mixed box becomes on.
    void toggled(int row, bool on);

private:
    std::vector<AssignedTag> m_tags;
    bool m_isEnabled = false;
};

} // namespace mosaro::organisation
