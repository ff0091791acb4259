#pragma once

#include "browser/ItemDrag.h"
#include "browser/ui/CellPainter.h"
#include "kit/GridView.h"

#include <QTimer>
#include <functional>

namespace mosaro::browser {

/// The grid of items: cells, zoom, and what assistive programs are told.
class MRMediaBrowserView : public kit::GridView, private kit::GridModel {
    Q_OBJECT

public:
    explicit MRMediaBrowserView(ItemList& items, QWidget* parent = nullptr);
    ~MRMediaBrowserView() override;

    [[nodiscard]] double zoomValue() const { return m_zoom; }
    void setZoomValue(double zoom);
    void setCellOptions(const CellOptions& options);
    /// The items are read anew; the files behind them are looked at again.
    void reloadItems();

    /// What is handed out when the selected items are dragged; the grid refuses the drag when that is
    /// nothing.
    void setDragSource(std::function<ItemDrag()> source) { m_dragSource = std::move(source); }
    /// Rows of the selected items, in display order.
    [[nodiscard]] std::vector<store::RowId> selectedRows() const;

Q_SIGNALS:
    /// The user asks for another zoom by a gesture; it is in force already.
    void zoomValueChanged(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;
    void startDrag(int index) override;

private:
    [[nodiscard]] QPixmap dragPicture(int index, int count);

    // What kit::GridView asks.
    [[nodiscard]] int count() const override;
    [[nodiscard]] QString title(int index) const override;
    [[nodiscard]] QString toolTip(int index) const override;
    [[nodiscard]] QString accessibleText(int index) const override;
    [[nodiscard]] int findTitle(const QString& prefix, int from) const override;

    void updateMetrics();
    void magnify(double magnification);

    ItemList& m_items;
    std::function<ItemDrag()> m_dragSource;
    PreviewLoader m_previews;
    CellPainter m_painter;
    QTimer m_repaint; ///< At most one repaint of a frame, however many pictures arrive.
    QTimer m_zoomSettles;
    double m_zoom = kSmallestZoom;
};

} // namespace mosaro::browser
