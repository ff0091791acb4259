#pragma once

#include <QWidget>

namespace mosaro::shell {

/// The plate that the guide's pages lie on, with a dot for each page.
class GuideBox : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void setCurrentPage(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_current = 1;
};

} // namespace mosaro::shell
