#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace mosaro::shell {

/// The window that asks for a library when there is none in use.
class ChooserWindow : public QWidget {
    Q_OBJECT

public:
    explicit ChooserWindow(QWidget* parent = nullptr);
    ~ChooserWindow() override;

    /// Centres on the screen, shows and comes to the front.
    void present();

Q_SIGNALS:
    void chooseRequested();
    void createRequested();
    /// The button, or the window's own close button.
    void quitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_title;
    QLabel* m_message;
    QPushButton* m_chooseButton;
    QPushButton* m_createButton;
    QPushButton* m_quitButton;
};

} // namespace mosaro::shell
