#pragma once

#include "import/LoosePicture.h"
#include "import/Pasteboard.h"

namespace mosaro::importing {

[[nodiscard]] bool isDataAddress(const QUrl& url);
/// The bytes that a data address carries.
[[nodiscard]] QByteArray dataOfAddress(const QUrl& url);

/// The extension of the last part of the address' path, as it is written there. A name that is nothing but an
/// extension has none.
[[nodiscard]] QString pathExtension(const QUrl& url);

/// What came from an address, as a picture to import. Nothing for a web page, and for the bytes of a data
/// address that are no known picture.
[[nodiscard]] std::optional<LoosePicture> downloadedPicture(const QUrl& url, const QByteArray& data,
                                                            const QDateTime& now);
/// The picture that the drop brought with it. Nothing without one.
[[nodiscard]] std::optional<LoosePicture> droppedPicture(const WebImageRequest& request,
                                                         const QDateTime& now);

} // namespace mosaro::importing
