#pragma once

#include <QHash>
#include <QString>

namespace mosaro::platform {

/// The keys of one group of a desktop entry file, untranslated, as written. A file that is missing, no
/// regular file, or longer than 64 KiB has none.
[[nodiscard]] QHash<QString, QString> readDesktopEntry(const QString& path, const QString& group);

} // namespace mosaro::platform
