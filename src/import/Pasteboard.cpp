#include "import/Pasteboard.h"

#include "import/WebImage.h"

#include <QMimeData>

namespace mosaro::importing {

QStringList filesOf(const QMimeData& data)
{
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile() && !url.toLocalFile().isEmpty()) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
}

QUrl addressOf(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isValid() && !url.scheme().isEmpty() && !url.isLocalFile()) {
            return url;
        }
    }
    return {};
}

QImage imageOf(const QMimeData& data)
{
    return data.hasImage() ? qvariant_cast<QImage>(data.imageData()) : QImage();
}

WebImageRequest webImageOf(const QMimeData& data, const QStringList& allowedMedia)
{
    WebImageRequest request;
    request.url = addressOf(data);
    request.downloads = isDataAddress(request.url) || allowedMedia.contains(pathExtension(request.url));
    if (!request.downloads) {
        request.image = imageOf(data);
        request.rawImage = request.image.isNull() ? data.data(QStringLiteral("image/tiff")) : QByteArray();
    }
    return request;
}

} // namespace mosaro::importing
