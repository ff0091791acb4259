#pragma once

#include "browser/ui/PreviewLoader.h"

#include <QStyledItemDelegate>

namespace mosaro::browser {

class SearchResultModel;
struct SearchHit;

/// A row of the search results: preview with the badge of its type, title, collection, size.
class SearchResultCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    SearchResultCell(const SearchResultModel& model, QObject* parent);

    static constexpr int kRowHeight = 64;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// To be called before the rows are painted: what was wanted before is given up.
    void beginPainting() const { m_wanted.clear(); }
    /// To be called after the rows were painted: pictures that are not there yet are read now.
    void endPainting() const;

Q_SIGNALS:
    void pictureLoaded();

private:
    void paintPreview(QPainter& painter, const QRect& place, const SearchHit& hit) const;
    static void paintTexts(QPainter& painter, const QRect& place, const SearchHit& hit);

    const SearchResultModel& m_model;
    mutable PreviewLoader m_loader;
    mutable std::vector<PreviewRequest> m_wanted;
};

} // namespace mosaro::browser
