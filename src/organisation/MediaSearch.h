#pragma once

#include "store/AsynchronousFetch.h"
#include "store/Query.h"

#include <functional>
#include <memory>
#include <vector>

namespace mosaro::store {
class ZNDBManager;
}

namespace mosaro::organisation {

/// Where a search looks. The numbers are stored, and are the tags of the menu of choices.
inline constexpr int kSearchAllCollections = 0;
inline constexpr int kSearchCurrentCollection = 1;

/// What a search looks at. The numbers are stored, and are the tags of the menu of choices.
inline constexpr int kSearchTitle = 100;
inline constexpr int kSearchCopyright = 101;
inline constexpr int kSearchNote = 102;
inline constexpr int kSearchURL = 103;

struct MediaSearchRequest {
    int searchType = kSearchAllCollections;
    int searchTarget = kSearchTitle; ///< Any other number searches titles in the whole library.
    QString searchCollectionID;      ///< Empty: the whole library, whatever the type.
    QString searchKeyword;
};

/// Items whose attribute holds the keyword anywhere, case and accents aside.
[[nodiscard]] store::Predicate searchPredicate(int searchTarget, const QString& keyword);

/// The whole search, newest import first.
[[nodiscard]] store::Query searchQuery(const MediaSearchRequest& request);

/// Looks for items without holding up the main thread. A new search takes the place of one that has not
/// ended.
class MediaSearch {
public:
    using Completion = std::function<void(std::vector<store::RowId>)>;

    explicit MediaSearch(store::ZNDBManager& library) : m_library(library) {}

    /// The completion is called on the main thread, once, unless the search is replaced or cancelled. A
    /// failed search finds nothing; without an open library nothing happens.
    void start(const store::Query& query, Completion completion);
    void cancel();

private:
    store::ZNDBManager& m_library;
    std::unique_ptr<store::AsynchronousFetch> m_fetch;
};

} // namespace mosaro::organisation
