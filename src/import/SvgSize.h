#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>

namespace mosaro::importing {

/// Pixels for one of the unit that the text ends in; 1 for anything else, a percent sign too.
[[nodiscard]] double unitConvert(QStringView text);

/// The size that an SVG document declares, in pixels: by width and height, else by the view box, else the
/// preview box. Lenient: only the root element counts, and XML that is broken is read as far as it goes.
/// Follows no reference to another file. The zero size for an absent path.
[[nodiscard]] QSizeF svgSize(const QString& path);
[[nodiscard]] QSizeF svgSizeOf(const QByteArray& document);

} // namespace mosaro::importing
