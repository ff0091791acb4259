#pragma once

#include <QRect>
#include <QString>
#include <optional>

namespace mosaro::shell {

/// The main window's place as text: x, y, width and height of the window, then of the screen's usable area.
[[nodiscard]] QString frameAsText(const QRect& frame, const QRect& available);
/// The window's part of such a text; nothing for a text that holds no usable frame.
[[nodiscard]] std::optional<QRect> frameFromText(const QString& text);
/// The frame moved, and where necessary shrunk, into the usable area.
[[nodiscard]] QRect frameWithin(const QRect& frame, const QRect& available);
/// The first frame: centred, as large as the window likes to be or the area allows.
[[nodiscard]] QRect defaultFrame(const QRect& available);

} // namespace mosaro::shell
