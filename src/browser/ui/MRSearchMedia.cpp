#include "browser/ui/MRSearchMedia.h"

#include "base/Text.h"
#include "browser/ui/SearchResultCell.h"
#include "kit/Look.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QPaintEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr int kViewWidth = 360;
constexpr int kMostRowsShown = 6;
constexpr int kAroundRows = 44; ///< The line with the count, and margins.

/// Tells its cell where a paint begins and ends, so that only pictures on show are read.
class ResultTable : public QListView {
public:
    ResultTable(const SearchResultCell& cell, QWidget* parent) : QListView(parent), m_cell(cell) {}

protected:
    void paintEvent(QPaintEvent* event) override
    {
        m_cell.beginPainting();
        QListView::paintEvent(event);
        m_cell.endPainting();
    }

private:
    const SearchResultCell& m_cell;
};

/// As high as its rows, up to some; never without room for one.
class ResultView : public QWidget {
public:
    ResultView(const SearchResultModel& result, QWidget* parent) : QWidget(parent), m_result(result) {}

    [[nodiscard]] QSize sizeHint() const override
    {
        const int rows = std::clamp(m_result.rowCount(), 1, kMostRowsShown);
        return {kViewWidth, kAroundRows + rows * SearchResultCell::kRowHeight};
    }

private:
    const SearchResultModel& m_result;
};

} // namespace

MRSearchMedia::MRSearchMedia(store::ZNDBManager& library, QWidget& owner)
    : QObject(&owner), m_result(library), m_search(library)
{
    makeView(owner);
    setSearchResult({});
}

void MRSearchMedia::makeView(QWidget& owner)
{
    m_view = new ResultView(m_result, &owner);
    m_view->hide();
    auto* cell = new SearchResultCell(m_result, m_view);
    m_table = new ResultTable(*cell, m_view);
    m_table->setModel(&m_result);
    m_table->setItemDelegate(cell);
    m_table->setUniformItemSizes(true);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_table->setAccessibleName(base::text("Label.Search.Results"));
    m_table->viewport()->setAutoFillBackground(false);
    connect(cell, &SearchResultCell::pictureLoaded, m_table->viewport(), qOverload<>(&QWidget::update));
    // A press chooses; keys choose while the table has them, and only move while the field has them.
    connect(m_table, &QListView::clicked, this, &MRSearchMedia::mediaSelectionDidChange);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (m_table->hasFocus() && !(QApplication::mouseButtons() & Qt::LeftButton) && selectedHit()) {
            Q_EMIT mediaSelectionDidChange();
        }
    });

    m_searchResultField = new QLabel(m_view);
    m_searchResultField->setFont(kit::font(11));
    m_searchResultField->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(m_view);
    column->setContentsMargins(0, kit::metric::gap, 0, kit::metric::gap);
    column->addWidget(m_searchResultField);
    column->addWidget(m_table);
}

void MRSearchMedia::setSearchKeyword(const QString& keyword)
{
    m_request.searchKeyword = keyword;
    if (!keyword.isEmpty()) {
        m_search.start(organisation::searchQuery(m_request),
                       [this](std::vector<store::RowId> rows) { setSearchResult(std::move(rows)); });
    }
}

void MRSearchMedia::setSearchType(int type)
{
    m_request.searchType = type;
    if (type == organisation::kSearchAllCollections) {
        m_request.searchCollectionID.clear();
    }
}

void MRSearchMedia::setSearchResult(std::vector<store::RowId> rows)
{
    m_result.setRows(std::move(rows));
    m_table->scrollToTop();
    m_view->updateGeometry();
    m_searchResultField->setText(base::text("Basic.Found.Item", QLocale().toString(count())));
}

std::optional<SearchHit> MRSearchMedia::selectedHit() const
{
    const QModelIndex index = m_table->selectionModel()->selectedRows().value(0);
    return index.isValid() ? std::optional(m_result.hit(index.row())) : std::nullopt;
}

void MRSearchMedia::moveSelection(int step)
{
    const QModelIndex selected = m_table->selectionModel()->selectedRows().value(0);
    const int start = step > 0 ? 0 : count() - 1;
    const int row = selected.isValid() ? std::clamp(selected.row() + step, 0, count() - 1) : start;
    m_table->setCurrentIndex(m_result.index(row));
}

void MRSearchMedia::cleanUp()
{
    m_search.cancel();
    setSearchResult({});
    m_request.searchKeyword.clear();
    m_request.searchCollectionID.clear();
}

} // namespace mosaro::browser
