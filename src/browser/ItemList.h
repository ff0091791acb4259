#pragma once

#include "browser/CellContent.h"
#include "browser/SortMemory.h"
#include "import/MRBrowserItem.h"
#include "store/MediaSet.h"

#include <QCache>
#include <QHash>
#include <memory>
#include <vector>

namespace mosaro::browser {

/// The items that the grid shows, in display order: row ids, and records only of what is looked at. Main
/// thread only.
class ItemList {
public:
    explicit ItemList(store::ZNDBManager& library);
    ~ItemList();

    /// Replaces the list; no order is applied, and the second lines show the date of the import.
    void setIds(std::vector<store::RowId> ids);
    [[nodiscard]] const std::vector<store::RowId>& ids() const { return m_ids; }
    [[nodiscard]] int count() const { return int(m_ids.size()); }
    [[nodiscard]] bool isEmpty() const { return m_ids.empty(); }

    /// Puts the items in order; a key that names none leaves them as they are. False on a failed query, which
    /// is logged.
    bool order(const BrowserOrder& by);
    /// The value that the second line of each item shows from now on.
    void setSortKey(int key);
    /// Reads items anew when they are next asked for.
    void refresh();

    /// Reads the items of a range in few queries.
    void prepare(int first, int last);
    /// Whether asking for the item needs no query now.
    [[nodiscard]] bool isRead(int index) const;
    /// Null when the row is gone.
    [[nodiscard]] std::shared_ptr<importing::MRBrowserItem> itemAt(int index);
    [[nodiscard]] const CellContent& contentAt(int index);
    /// Tells the grid that the picture of an item is another one now.
    void raiseImageVersion(int index);

    [[nodiscard]] QString mediaIDAt(int index);
    /// -1 when the item is not in the list.
    [[nodiscard]] int indexOfMediaID(const QString& mediaID) const;
    /// The next item at or after `from`, going round, whose title begins so; -1 for none.
    [[nodiscard]] int indexOfTitle(const QString& prefix, int from) const;

private:
    struct Entry {
        std::shared_ptr<importing::MRBrowserItem> item;
        CellContent content;
    };

    [[nodiscard]] Entry* entryAt(int index);
    void read(const std::vector<store::RowId>& rows);
    [[nodiscard]] std::vector<store::RowId> taggedRows(const std::vector<store::RowId>& rows) const;

    store::ZNDBManager& m_library;
    std::vector<store::RowId> m_ids;
    QCache<store::RowId, Entry> m_entries;
    QHash<store::RowId, int> m_imageVersions; ///< Of items whose picture changed; outlives their entries.
    int m_sortKey = int(store::SortKey::DateImported);
};

} // namespace mosaro::browser
