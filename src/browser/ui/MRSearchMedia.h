#pragma once

#include "browser/ui/SearchResultModel.h"
#include "organisation/MediaSearch.h"

#include <QObject>
#include <optional>

class QLabel;
class QListView;

namespace mosaro::browser {

class SearchResultCell;

/// A search and its results: the query, the hits, and the view that shows them.
class MRSearchMedia : public QObject {
    Q_OBJECT

public:
    /// `owner` keeps the view while no popover shows it.
    MRSearchMedia(store::ZNDBManager& library, QWidget& owner);

    /// Searches, unless the text is empty: then the old results stay until cleanUp().
    void setSearchKeyword(const QString& keyword);
    [[nodiscard]] const QString& searchKeyword() const { return m_request.searchKeyword; }
    /// 0 all collections, which forgets the collection; 1 the current one.
    void setSearchType(int type);
    void setSearchTarget(int target) { m_request.searchTarget = target; }
    void setSearchCollectionID(const QString& id) { m_request.searchCollectionID = id; }
    [[nodiscard]] const organisation::MediaSearchRequest& request() const { return m_request; }

    [[nodiscard]] int count() const { return m_result.rowCount(); }
    [[nodiscard]] std::optional<SearchHit> selectedHit() const;
    /// One row up (-1) or down (1), stopping at the ends; without a selection the last or the first.
    void moveSelection(int step);
    void cleanUp();

    [[nodiscard]] QWidget& view() const { return *m_view; }

Q_SIGNALS:
    /// The user chose a hit in the table itself.
    void mediaSelectionDidChange();

private:
    void makeView(QWidget& owner);
    void setSearchResult(std::vector<store::RowId> rows);

    SearchResultModel m_result;
    organisation::MediaSearch m_search;
    organisation::MediaSearchRequest m_request;
    QWidget* m_view = nullptr; ///< Child of the owner, or of the popover.
    QListView* m_table = nullptr;
    QLabel* m_searchResultField = nullptr;
};

} // namespace mosaro::browser
