#pragma once

#include <QMainWindow>
#include <functional>

namespace mosaro::shell {

/// The main window's frame: turns the events of the window system into questions and signals for its
/// controller.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Asked before the window closes; false keeps it.
    void setShouldClose(std::function<bool()> shouldClose) { m_shouldClose = std::move(shouldClose); }
    /// Stands at the remembered frame, or centred.
    void placeAt(const QString& frameText);
    /// The frame to remember; that of the window's normal state while it fills the screen.
    [[nodiscard]] QString frameText() const;
    void toggleFullScreen();

Q_SIGNALS:
    void becameKey();
    void resized();
    void fullScreenChanged(bool fullScreen);
    /// A double click on the empty part of the window's head.
    void headDoubleClicked();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    QMenu* createPopupMenu() override { return nullptr; }

private:
    std::function<bool()> m_shouldClose;
    bool m_wasMaximized = false;
};

} // namespace mosaro::shell
