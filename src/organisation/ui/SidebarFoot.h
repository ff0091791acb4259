#pragma once

#include <QWidget>

class QMenu;

namespace mosaro::organisation {

/// The row below the sidebar with the action button, whose menu is that of the source on show.
class SidebarFoot : public QWidget {
    Q_OBJECT

public:
    explicit SidebarFoot(QMenu& menu, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace mosaro::organisation
