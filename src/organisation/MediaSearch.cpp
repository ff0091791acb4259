#include "organisation/MediaSearch.h"

#include "store/Media.h"
#include "store/ZNDBManager.h"

#include <QtDebug>

namespace mosaro::organisation {

namespace {

QLatin1String attributeOf(int searchTarget)
{
    switch (searchTarget) {
    case kSearchCopyright:
        return QLatin1String("mediaCopyright");
    case kSearchNote:
        return QLatin1String("mediaNotes");
    case kSearchURL:
        return QLatin1String("mediaWeburl");
    default:
        return QLatin1String("mediaTitle");
    }
}

} // namespace

store::Predicate searchPredicate(int searchTarget, const QString& keyword)
{
    return store::Predicate::compare(attributeOf(searchTarget), store::Comparison::Contains, keyword,
                                     store::Fold::CaseAndDiacritics);
}

store::Query searchQuery(const MediaSearchRequest& request)
{
    store::Query query;
    query.order = {{QLatin1String("mediaDateImported"), false, false}};
    query.predicate = searchPredicate(request.searchTarget, request.searchKeyword);
    const bool isKnownTarget = request.searchTarget >= kSearchTitle && request.searchTarget <= kSearchURL;
    if (request.searchType == kSearchCurrentCollection && !request.searchCollectionID.isEmpty() &&
        isKnownTarget) {
        query.predicate = store::Predicate::allOf(
            {store::Predicate::compare(QLatin1String("mediaPID"), store::Comparison::Equal,
                                       request.searchCollectionID),
             query.predicate});
    }
    return query;
}

void MediaSearch::start(const store::Query& query, Completion completion)
{
    cancel();
    if (!m_library.isOpenedDatabase()) {
        return;
    }
    m_fetch = std::make_unique<store::AsynchronousFetch>(*m_library.context());
    m_fetch->fetchIds(
        store::Media::info(), query,
        [completion = std::move(completion)](const base::Result<std::vector<store::RowId>>& ids) {
            if (!ids) {
                qWarning("database error: %s", qUtf8Printable(ids.reason()));
            }
            completion(ids ? ids.value() : std::vector<store::RowId>());
        });
}

/// What has not ended is never completed: its receiver is gone.
void MediaSearch::cancel()
{
    m_fetch.reset();
}

} // namespace mosaro::organisation
