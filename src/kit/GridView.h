#pragma once

#include "kit/GridLayout.h"
#include "kit/GridModel.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QPointer>
#include <QSet>
#include <functional>
#include <optional>

class QMimeData;
class QVariantAnimation;

namespace mosaro::kit {

/// A grid of equal cells that can be chosen with mouse and keyboard. Its cost follows what is visible, not
/// how many cells there are. Model and painter belong to the owner and outlive the view.
class GridView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit GridView(QWidget* parent = nullptr);
    ~GridView() override;

    void setSource(const GridModel* model, GridCellPainter* painter);
    [[nodiscard]] const GridModel* model() const { return m_model; }
    void setMetrics(const GridMetrics& metrics);
    [[nodiscard]] const GridMetrics& metrics() const { return m_metrics; }

    /// Asks the model anew and keeps the selection as far as it exists. Emits nothing.
    void reloadData();
    /// The same for a list that is another one: nothing is selected or current afterwards. Emits nothing.
    void resetData();

    [[nodiscard]] const GridSelection& selectionIndexes() const { return m_selection; }
    void setSelectionIndexes(const GridSelection& indexes, bool byExtendingSelection = false);
    void selectAll();
    void selectNone();
    [[nodiscard]] int currentIndex() const { return m_current; }

    void scrollIndexToVisible(int index);
    void scrollToTop();
    /// From the first to the last one in sight; cells of closed sections may lie between.
    [[nodiscard]] GridInterval visibleItemIndexes() const;
    /// In viewport coordinates.
    [[nodiscard]] QRect itemFrameAtIndex(int index) const;
    /// In viewport coordinates; -1 between cells.
    [[nodiscard]] int indexAt(const QPoint& position) const;
    void updateItem(int index);

    /// Of the model's sections; selecting a cell opens its section, and closing one deselects its cells.
    void setSectionClosed(int section, bool closed);
    [[nodiscard]] bool isSectionClosed(int section) const;
    /// In viewport coordinates.
    [[nodiscard]] QRect headerFrame(int section) const;
    /// The section that a cell lies in with its header closed; null when the cell has a place.
    [[nodiscard]] const GridSection* closedSectionOf(int index) const;

    /// Whether something that is dragged over the grid may be dropped. Without it nothing may.
    void setDropFilter(std::function<bool(const QMimeData& data, const QObject* source)> filter);

Q_SIGNALS:
    void selectionChanged();
    /// Double click or Return.
    void activated(int index);
    /// Pinch, or wheel with Ctrl: the zoom is asked to grow by this (negative: shrink), in parts of its
    /// value.
    void magnified(double magnification);
    /// `index` is -1 for the space between cells.
    void contextMenuRequested(int index, const QPoint& globalPosition);
    void dropped(const QMimeData& data);

protected:
    /// The mouse drags the selected cells, this one under it. Here cells stay where they are: the mouse draws
    /// a rubber band.
    virtual void startDrag(int index);

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct RubberBand {
        QPoint origin; ///< Content coordinates, as `end`.
        QPoint end;
        GridSelection before;
        bool toggles = false;
        [[nodiscard]] QRect rect() const { return QRect(origin, end).normalized(); }
    };

    [[nodiscard]] int indexToKeep() const;
    void relayout();
    [[nodiscard]] int offset() const;
    [[nodiscard]] GridCellState cellState(int index) const;
    void paintHeaders(QPainter& painter) const;
    void paintOverlays(QPainter& painter) const;
    [[nodiscard]] GridLayout makeLayout() const;
    [[nodiscard]] int headerAt(const QPoint& viewportPosition) const;
    void openSectionsOf(const GridSelection& indexes);
    [[nodiscard]] bool isDisclosureKey(const QKeyEvent& event);
    void changeSelection(const GridSelection& wanted);
    void setCurrent(int index);
    void pressItem(int index, Qt::KeyboardModifiers modifiers);
    void moveBand(const QPoint& viewportPosition);
    void endBand();
    void moveCurrent(int wanted, Qt::KeyboardModifiers modifiers);
    [[nodiscard]] bool typeAhead(const QString& text);
    [[nodiscard]] bool isCommandKey(QKeyEvent* event);
    void scrollBy(int points);
    void setDropHighlight(bool on);
    void announceCurrent();

    const GridModel* m_model = nullptr;
    GridCellPainter* m_painter = nullptr;
    GridMetrics m_metrics;
    GridLayout m_layout;
    std::vector<GridSection> m_sections;
    QSet<int> m_closedSections; ///< By id.
    GridSelection m_selection;
    int m_current = -1;
    int m_anchor = -1;
    int m_selectAloneOnRelease = -1;
    int m_pressed = -1; ///< The cell that a drag would begin from.
    QPoint m_pressedAt;
    bool m_keyboardFocus = false; ///< The keyboard was used last: the current cell shows a ring.
    std::optional<RubberBand> m_band;
    int m_bandTimer = 0;
    QString m_typed;
    QElapsedTimer m_typedAt;
    std::function<bool(const QMimeData&, const QObject*)> m_dropFilter;
    bool m_dropHighlight = false;
    QPointer<QVariantAnimation> m_scrolling;
};

} // namespace mosaro::kit
