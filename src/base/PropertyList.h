#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QVariant>

namespace mosaro::base {

enum class PropertyListFormat { Xml, Binary };

/// Property lists as QVariant: QVariantMap, QVariantList, QString, QByteArray, bool, qint64 (any integral
/// type when writing), double (and float) and QDateTime. Backed by libplist.
///
/// Reading takes both formats, at most 64 MiB and 64 levels deep; anything else is a failure with a reason. A
/// UID entry, which only keyed archives use, is read as a map with the one key "CF$UID" and written back as
/// such a UID.
[[nodiscard]] Result<QVariant> readPropertyList(const QByteArray& data);

[[nodiscard]] Result<QByteArray> writePropertyList(const QVariant& value, PropertyListFormat format);

/// A file's list; the reason names the file.
[[nodiscard]] Result<QVariant> readPropertyListFile(const QString& path);

/// Written beside its place, then renamed into it.
[[nodiscard]] Result<void> writePropertyListFile(const QString& path, const QVariant& value,
                                                 PropertyListFormat format);

} // namespace mosaro::base
