#pragma once

#include <QColor>

class QMouseEvent;
class QWidget;

namespace mosaro::shell {

/// In the middle of the usable area of the screen that the pointer is on.
void centreOnScreen(QWidget& window);
/// For a press on the background of a window that is its own handle.
void moveByBackground(QWidget& window, const QMouseEvent& press);
void setTextColor(QWidget& widget, const QColor& color);

} // namespace mosaro::shell
