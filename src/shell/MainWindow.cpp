#include "shell/MainWindow.h"

#include "shell/WindowFrame.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QWindowStateChangeEvent>

namespace mosaro::shell {

namespace {

constexpr QSize kMinimumSize{720, 480};

/// The usable area of the screen on which most of the frame lies, else of the first screen.
QRect availableFor(const QRect& frame)
{
    const QScreen* screen = QGuiApplication::screenAt(frame.center());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen != nullptr ? screen->availableGeometry() : QRect();
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setWindowTitle(QStringLiteral("Mosaro"));
    setObjectName(QStringLiteral("MainWindow"));
    setMinimumSize(kMinimumSize);
    menuBar()->installEventFilter(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::placeAt(const QString& frameText)
{
    const std::optional<QRect> remembered = frameFromText(frameText);
    if (remembered) {
        setGeometry(frameWithin(*remembered, availableFor(*remembered)));
    } else {
        setGeometry(defaultFrame(availableFor({})));
    }
}

QString MainWindow::frameText() const
{
    const QRect frame = isFullScreen() || isMaximized() ? normalGeometry() : geometry();
    return frameAsText(frame, availableFor(frame));
}

void MainWindow::toggleFullScreen()
{
    if (!isFullScreen()) {
        m_wasMaximized = isMaximized();
        showFullScreen();
    } else if (m_wasMaximized) {
        showMaximized();
    } else {
        showNormal();
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const bool closes = !m_shouldClose || m_shouldClose();
    event->setAccepted(closes);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    Q_EMIT resized();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        Q_EMIT becameKey();
    }
    if (event->type() == QEvent::WindowStateChange) {
        const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
        if (before.testFlag(Qt::WindowFullScreen) != isFullScreen()) {
            Q_EMIT fullScreenChanged(isFullScreen());
        }
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == menuBar() && event->type() == QEvent::MouseButtonDblClick) {
        const auto* click = static_cast<QMouseEvent*>(event);
        if (click->button() == Qt::LeftButton && menuBar()->actionAt(click->pos()) == nullptr) {
            Q_EMIT headDoubleClicked();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace mosaro::shell
