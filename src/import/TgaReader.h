#pragma once

#include <QImage>

class QIODevice;

namespace mosaro::importing {

/// The pixels of a TGA file: palette, true colour or gray, plain or run-length. Null when the file is cut off
/// or damaged. The caller has checked the size that the header names.
[[nodiscard]] QImage readTga(QIODevice& file);

} // namespace mosaro::importing
