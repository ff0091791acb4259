#pragma once

#include <QWidget>
#include <array>

class QToolButton;

namespace mosaro::organisation {

/// The tabs of the sidebar by their stored numbers.
inline constexpr int kCollectionsTab = 0;
inline constexpr int kTagsTab = 1;
inline constexpr int kColorsTab = 2;
inline constexpr int kSidebarTabs = 3;

/// The row of tab buttons at the head of the sidebar.
class SidebarTabs : public QWidget {
    Q_OBJECT

public:
    explicit SidebarTabs(QWidget* parent = nullptr);

    [[nodiscard]] int current() const;
    /// Marks a tab without announcing it.
    void setCurrent(int tab);

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

Q_SIGNALS:
    void chosen(int tab);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int widthWithTitles() const;

    std::array<QToolButton*, kSidebarTabs> m_buttons{};
};

} // namespace mosaro::organisation
