#include "shell/Panels.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

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

void setTextColor(QWidget& widget, const QColor& color)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

} // namespace mosaro::shell
