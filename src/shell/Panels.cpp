#include "shell/Panels.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace mosaro::shell {

void centreOnScreen(QWidget& window)
{
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen != nullptr) {
        QRect frame({}, window.size());
        frame.moveCenter(screen->availableGeometry().center());
        window.move(frame.topLeft());
    }
}

void moveByBackground(QWidget& window, const QMouseEvent& press)
{
    if (press.button() == Qt::LeftButton && window.windowHandle() != nullptr) {
        window.windowHandle()->startSystemMove();
    }
}

void setTextColor(QWidget& widget, const QColor& color)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

} // namespace mosaro::shell
