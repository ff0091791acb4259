#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QApplication;

namespace mosaro::kit {

/// The one palette.
namespace color {
inline const QColor window{0x1B, 0x1B, 0x1B};
inline const QColor menu{0x16, 0x16, 0x17};
inline const QColor sidebar{0x22, 0x23, 0x25};
inline const QColor raised{0x2A, 0x2B, 0x2E};
inline const QColor raisedStrong{0x33, 0x34, 0x38};
inline const QColor field{0x12, 0x12, 0x13};
inline const QColor fieldBorder{0x30, 0x31, 0x34};
inline const QColor line{0x10, 0x10, 0x11};
inline const QColor text{0xE4, 0xE4, 0xE4};
inline const QColor text2{0xB8, 0xB8, 0xB8};
inline const QColor text3{0x92, 0x93, 0x96};
inline const QColor amber{0xE8, 0xB7, 0x59};
inline const QColor blue{0x64, 0xB7, 0xF0};
inline const QColor coral{0xEB, 0x59, 0x4A};
} // namespace color

/// The one metric table, in points (device-independent pixels).
namespace metric {
inline constexpr int rowHeight = 24;
inline constexpr int tabRowHeight = 40;
inline constexpr int toolRowHeight = 44;
inline constexpr int statusRowHeight = 34;
inline constexpr int gap = 8;
inline constexpr int wideGap = 20;
inline constexpr int radius = 4;
inline constexpr int sheetRadius = 6;
inline constexpr int focusRing = 2;
inline constexpr int sheetTop = 36;
} // namespace metric

/// The dots of labels 1 to 7; invalid for others.
[[nodiscard]] QColor labelColor(int label);

/// Style, palette and font of the whole application. Once, after the QApplication is made.
void installLook(QApplication& application);

/// An icon of the kit, ":/icons/<name>.svg", drawn in `tint` at whatever size and scale is asked.
[[nodiscard]] QIcon icon(const QString& name, const QColor& tint = color::text2);

[[nodiscard]] QFont font(double pointSize, QFont::Weight weight = QFont::Normal);

/// Milliseconds for a motion that is told in milliseconds; 0 when the desktop asks for reduced motion.
[[nodiscard]] int motion(int milliseconds);

} // namespace mosaro::kit
