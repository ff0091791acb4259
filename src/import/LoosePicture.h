#pragma once

#include "import/ImportItem.h"

#include <QDateTime>
#include <QImage>
#include <optional>

namespace mosaro::importing {

/// A picture that came without a file, from the web or the clipboard.
struct LoosePicture {
    QString name; ///< Of the file, without extension.
    QString suffix;
    QByteArray bytes; ///< Kept as they are.
    QImage image;     ///< Encoded as the suffix says, "png" or "jpg", when there are no bytes.
    QString address;
    MediaKind kind = MediaKind::Web;
};

/// Writes the picture under a free name of the folder, whole or not at all. For a worker.
[[nodiscard]] std::optional<ImportItem> writePicture(const LoosePicture& picture, const QString& folder);

/// Year to second, as in "20260304050607".
[[nodiscard]] QString dateAsString(const QDateTime& date);
/// The text with date and time of day, as in "Clipboard 2026-03-04 5:06:07 AM". Fit for a file name.
[[nodiscard]] QString screenshotDateAsString(const QString& text, const QDateTime& date);

/// A picture of the clipboard, as what it is imported.
[[nodiscard]] LoosePicture clipboardPicture(const QImage& image, const QDateTime& now);

} // namespace mosaro::importing
