#include "import/Pasteboard.h"

#include "import/WebImage.h"

#include <QMimeData>
#include <QSysInfo>

namespace mosaro::importing {

namespace {

/// Empty for what is no file. Some programs name this machine in the addresses of its files.
QString localPath(QUrl url)
{
    const QString host = url.host();
    if (host == QLatin1String("localhost") ||
        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0) {
        url.setHost({});
    }
    return url.isLocalFile() ? url.toLocalFile() : QString();
}

} // namespace

QStringList filesOf(const QMimeData& data)
{
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (const QString path = localPath(url); !path.isEmpty()) {
            paths.append(path);
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
