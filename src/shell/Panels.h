#pragma once

#include <QColor>

class QWidget;

namespace mosaro::shell {

/// In the middle of the usable area of the screen that the pointer is on.
void centreOnScreen(QWidget& window);
void setTextColor(QWidget& widget, const QColor& color);

} // namespace mosaro::shell
