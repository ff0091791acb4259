#pragma once

#include "organisation/CollectionNode.h"
#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include <QHash>
#include <functional>

namespace mosaro::organisation {

/// A row of the collection tree.
class CollectionCell : public MRLibraryImageAndTextCell {
    Q_OBJECT

public:
    /// `badge` gives the count to show, or 0 for none.
    explicit CollectionCell(std::function<qint64(const CollectionNode&)> badge, QObject* parent = nullptr);

protected:
    [[nodiscard]] SidebarCellContent content(const QModelIndex& index) const override;
    [[nodiscard]] bool isGroup(const QModelIndex& index) const override;

private:
    [[nodiscard]] const QIcon& image(int type) const;

    std::function<qint64(const CollectionNode&)> m_badge;
    mutable QHash<int, QIcon> m_images;
};

} // namespace mosaro::organisation
