#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QString>

namespace mosaro::importing {

// The picture of itself that a document carries, as PNG or JPEG bytes. The largest wins. All keep to
// analysisLimits(), and answer nothing when there is none.

/// Of a zip: an entry that is named like a preview or a thumbnail.
[[nodiscard]] QByteArray previewInZip(const QString& path);
/// Of an SQLite file: a blob; one in a table or column that is named like a preview before all others.
[[nodiscard]] QByteArray previewInDatabase(const QString& path);
/// Of any other file: a stream somewhere in it.
[[nodiscard]] QByteArray previewInFile(const QString& path);

/// By what the file is; empty when it carries none.
[[nodiscard]] base::Result<QByteArray> carriedPreview(const QString& path);

/// Whether a part of a document is called like the picture of the whole.
[[nodiscard]] bool isPreviewName(const QString& name);

} // namespace mosaro::importing
