#pragma once

#include "store/StoreContext.h"

#include <QString>
#include <vector>

namespace mosaro::organisation {

/// What lists show of a tag.
struct TagRecord {
    store::RowId object = store::kUnsavedRow; ///< Row of Tags.
    QString tagID;
    QString title;
    QString tagColor; ///< As colorAsString() makes it; "" for none.
    bool operator==(const TagRecord&) const = default;
};

/// All tags of a library in the natural order of their titles. Read as a whole; there are never so many of
/// them that a list could not hold them.
class TagList {
public:
    /// Empty after a failure.
    base::Result<void> reload(store::StoreContext& context);
    void clear() { m_tags.clear(); }

    [[nodiscard]] const std::vector<TagRecord>& tags() const { return m_tags; }
    [[nodiscard]] int count() const { return int(m_tags.size()); }
    [[nodiscard]] const TagRecord& at(int position) const { return m_tags.at(std::size_t(position)); }
    void setTagColor(int position, const QString& color)
    {
        m_tags.at(std::size_t(position)).tagColor = color;
    }
    /// -1 when there is no such tag.
    [[nodiscard]] int indexOf(const QString& tagID) const;
    [[nodiscard]] int indexOfObject(store::RowId object) const;
    [[nodiscard]] QStringList titles() const;
    /// Titles are one of a kind whatever their case. -1 when there is no such tag.
    [[nodiscard]] int indexOfTitle(const QString& title) const;
    [[nodiscard]] bool isTitleTaken(const QString& title) const { return indexOfTitle(title) >= 0; }

private:
    template <class Match>
    [[nodiscard]] int indexWhere(Match match) const;

    std::vector<TagRecord> m_tags;
};

} // namespace mosaro::organisation
