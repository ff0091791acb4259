#pragma once

#include <QList>

class QWidget;

namespace mosaro::kit {

/// The widgets of `content` that the Tab key reaches, in its order.
[[nodiscard]] QList<QWidget*> focusChain(QWidget& content);

/// Moves the focus round within `content` and never out of it; true when the key is dealt with, which it
/// always is.
bool moveFocusWithin(QWidget& content, bool next);

} // namespace mosaro::kit
