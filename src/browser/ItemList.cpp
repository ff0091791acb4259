#include "browser/ItemList.h"

#include "store/Media.h"
#include "store/MediaTagList.h"
#include "store/ZNDBManager.h"

#include <QVariantList>
#include <algorithm>

namespace mosaro::browser {

namespace {

/// A few screens full; what is beyond is read again.
constexpr int kCachedItems = 2000;
/// Items are read in blocks of this many, so that slow scrolling asks the store seldom.
constexpr int kBlock = 64;

} // namespace

ItemList::ItemList(store::ZNDBManager& library) : m_library(library), m_entries(kCachedItems) {}

ItemList::~ItemList() = default;

void ItemList::setIds(std::vector<store::RowId> ids)
{
    m_ids = std::move(ids);
    setSortKey(int(store::SortKey::DateImported));
}

bool ItemList::order(const BrowserOrder& by)
{
    if (!m_library.isOpenedDatabase()) {
        return false;
    }
    auto ordered = store::orderMedia(*m_library.context(), m_ids, by.key, by.ascending);
    if (!ordered) {
        qWarning("database error: %s", qUtf8Printable(ordered.reason()));
        return false;
    }
    m_ids = std::move(ordered).value();
    return true;
}

void ItemList::setSortKey(int key)
{
    m_sortKey = key;
    refresh();
}

void ItemList::refresh()
{
    m_entries.clear();
}

void ItemList::prepare(int first, int last)
{
    const int begin = std::max(0, first / kBlock * kBlock);
    const int end = std::min(count(), (last / kBlock + 1) * kBlock);
    std::vector<store::RowId> missing;
    for (int index = begin; index < end; ++index) {
        if (!m_entries.contains(m_ids[size_t(index)])) {
            missing.push_back(m_ids[size_t(index)]);
        }
    }
    if (!missing.empty()) {
        read(missing);
    }
}

bool ItemList::isRead(int index) const
{
    return index >= 0 && index < count() && m_entries.contains(m_ids[size_t(index)]);
}

void ItemList::read(const std::vector<store::RowId>& rows)
{
    if (!m_library.isOpenedDatabase()) {
        return;
    }
    const std::vector<store::RowId> tagged = taggedRows(rows);
    for (const auto& media : m_library.context()->objects<store::Media>(rows)) {
        const store::RowId row = media->rowId();
        auto item = std::make_shared<importing::MRBrowserItem>(media, m_library.masterDirPath());
        item->setSortKey(m_sortKey);
        for (int raised = 1; raised < m_imageVersions.value(row, 1); ++raised) {
            item->raiseImageVersion();
        }
        const bool hasTags = std::binary_search(tagged.begin(), tagged.end(), row);
        auto entry = std::make_unique<Entry>();
        entry->content = cellContent(*item, hasTags);
        entry->item = std::move(item);
        m_entries.insert(row, entry.release()); // the cache owns it
    }
}

/// Those of the rows that have a tag, ascending.
std::vector<store::RowId> ItemList::taggedRows(const std::vector<store::RowId>& rows) const
{
    const QVariantList values(rows.begin(), rows.end());
    store::Query query;
    query.predicate = store::Predicate::compare(QLatin1String("media"), store::Comparison::In, values);
    const auto links = m_library.context()->fetch<store::MediaTagList>(query);
    std::vector<store::RowId> tagged;
    if (links) {
        for (const auto& link : links.value()) {
            tagged.push_back(link->attribute(store::MediaTagList::k_media).toLongLong());
        }
    }
    std::sort(tagged.begin(), tagged.end());
    return tagged;
}

ItemList::Entry* ItemList::entryAt(int index)
{
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const store::RowId row = m_ids[size_t(index)];
    if (Entry* entry = m_entries.object(row)) {
        return entry;
    }
    prepare(index, index);
    return m_entries.object(row);
}

std::shared_ptr<importing::MRBrowserItem> ItemList::itemAt(int index)
{
    const Entry* entry = entryAt(index);
    return entry == nullptr ? nullptr : entry->item;
}

const CellContent& ItemList::contentAt(int index)
{
    static const CellContent nothing;
    const Entry* entry = entryAt(index);
    return entry == nullptr ? nothing : entry->content;
}

void ItemList::raiseImageVersion(int index)
{
    if (index < 0 || index >= count()) {
        return;
    }
    const store::RowId row = m_ids[size_t(index)];
    m_imageVersions[row] = m_imageVersions.value(row, 1) + 1;
    m_entries.remove(row);
}

QString ItemList::mediaIDAt(int index)
{
    const auto item = itemAt(index);
    return item == nullptr ? QString() : item->mediaID();
}

int ItemList::indexOfMediaID(const QString& mediaID) const
{
    if (mediaID.isEmpty() || !m_library.isOpenedDatabase()) {
        return -1;
    }
    store::Query query;
    query.predicate = store::Predicate::compare(QLatin1String("mediaID"), store::Comparison::Equal, mediaID);
    const auto rows = m_library.context()->fetchIds(store::Media::info(), query);
    if (!rows) {
        return -1;
    }
    const auto& wanted = rows.value();
    const auto found = std::find_first_of(m_ids.begin(), m_ids.end(), wanted.begin(), wanted.end());
    return found == m_ids.end() ? -1 : int(found - m_ids.begin());
}

int ItemList::indexOfTitle(const QString& prefix, int from) const
{
    if (prefix.isEmpty() || isEmpty() || !m_library.isOpenedDatabase()) {
        return -1;
    }
    store::Query query;
    query.predicate = store::Predicate::compare(QLatin1String("mediaTitle"), store::Comparison::BeginsWith,
                                                prefix, store::Fold::CaseAndDiacritics);
    auto rows = m_library.context()->fetchIds(store::Media::info(), query);
    if (!rows) {
        return -1;
    }
    std::vector<store::RowId>& wanted = rows.value();
    std::sort(wanted.begin(), wanted.end());
    for (int step = 0; step < count(); ++step) {
        const int index = (std::max(0, from) + step) % count();
        if (std::binary_search(wanted.begin(), wanted.end(), m_ids[size_t(index)])) {
            return index;
        }
    }
    return -1;
}

} // namespace mosaro::browser
