#pragma once

#include <QWidget>

class QMenu;
class QToolButton;

namespace mosaro::organisation {

/// The row below the sidebar with the action button, whose menu is that of the source on show.
class SidebarFoot : public QWidget {
    Q_OBJECT

public:
    explicit SidebarFoot(QWidget* parent = nullptr);

    /// Not owned.
    void setMenu(QMenu& menu);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* m_button;
};

} // namespace mosaro::organisation
