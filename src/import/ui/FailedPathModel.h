#pragma once

#include "import/ImportRun.h"

#include <QAbstractListModel>
#include <QMimeDatabase>

namespace mosaro::importing {

/// The files of a run that did not become items, one row each.
class FailedPathModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { PathRole = Qt::UserRole + 1, ReasonRole };

    explicit FailedPathModel(std::vector<FailedPath> failed, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// One line each: path, tab, reason.
    [[nodiscard]] QString asText() const;

private:
    std::vector<FailedPath> m_failed;
    QMimeDatabase m_types;
};

} // namespace mosaro::importing
