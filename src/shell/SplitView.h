#pragma once

#include <QWidget>

class QVariantAnimation;

namespace mosaro::shell {

class SplitDivider;

/// Sidebar and browser side by side, with a line between them that can be dragged. The sidebar keeps its
/// width when the window changes, within its bounds, and slides off to the left when it is hidden.
class SplitView : public QWidget {
    Q_OBJECT

public:
    explicit SplitView(QWidget* parent = nullptr);
    ~SplitView() override;

    /// Takes both; once.
    void setPanes(QWidget* sidebar, QWidget* browser);

    [[nodiscard]] bool isSidebarHidden() const { return m_sidebarHidden; }
    void setSidebarHidden(bool hidden, bool animated);
    [[nodiscard]] int sidebarWidth() const { return m_sidebarWidth; }
    /// As when the divider is dragged there.
    void moveDivider(int x);

Q_SIGNALS:
    /// The panes stand in their new places: after a drag and at the end of a slide.
    void panesAdjusted();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placePanes();

    QWidget* m_sidebar = nullptr;
    QWidget* m_browser = nullptr;
    SplitDivider* m_divider;
    QVariantAnimation* m_slideMotion;
    int m_sidebarWidth;
    int m_slide = 0; ///< How far everything has slid to the left.
    bool m_sidebarHidden = false;
};

} // namespace mosaro::shell
