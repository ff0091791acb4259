#pragma once

#include <QImage>
#include <QStringList>
#include <QUrl>

class QMimeData;

namespace mosaro::importing {

/// What a drop or the clipboard offers to an import. Read while the drop lasts: the data are gone after it.

/// Its local files.
[[nodiscard]] QStringList filesOf(const QMimeData& data);
/// Its first address that is no local file; invalid without one that has a scheme.
[[nodiscard]] QUrl addressOf(const QMimeData& data);
[[nodiscard]] QImage imageOf(const QMimeData& data);

/// A picture of a web page as it was dropped: its address, and the picture itself where the address alone
/// does not lead to one.
struct WebImageRequest {
    QUrl url;
    bool downloads = true; ///< The bytes come from the address, not from below.
    QImage image;
    QByteArray rawImage; ///< Kept as it is when it can not be read.
};
/// `allowedMedia` is compared letter by letter.
[[nodiscard]] WebImageRequest webImageOf(const QMimeData& data, const QStringList& allowedMedia);

} // namespace mosaro::importing
