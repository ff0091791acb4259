#pragma once

#include <QWidget>

namespace mosaro::kit {
class SpinningIndicator;
}

namespace mosaro::shell {

/// The small panel that stands on the screen while a library opens.
class LoadingPanel : public QWidget {
    Q_OBJECT

public:
    explicit LoadingPanel(QWidget* parent = nullptr);
    ~LoadingPanel() override;

    void showLoadingView();
    void closeLoadingView();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    kit::SpinningIndicator* m_spinner;
};

} // namespace mosaro::shell
