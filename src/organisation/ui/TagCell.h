#pragma once

#include "organisation/TagList.h"
#include "organisation/ui/MRLibraryImageAndTextCell.h"

#include <functional>

namespace mosaro::organisation {

/// A row of the list of tags.
class TagCell : public MRLibraryImageAndTextCell {
    Q_OBJECT

public:
    /// `badge` gives the count to show, or 0 for none.
    TagCell(const TagList& list, std::function<qint64(const TagRecord&)> badge, QObject* parent = nullptr);

protected:
    [[nodiscard]] SidebarCellContent content(const QModelIndex& index) const override;

private:
    const TagList& m_list;
    std::function<qint64(const TagRecord&)> m_badge;
    QIcon m_image;
};

/// The colour of a tag on the screen; invalid without one.
[[nodiscard]] QColor shownTagColor(const QString& tagColor);

} // namespace mosaro::organisation
