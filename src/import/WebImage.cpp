#include "import/WebImage.h"

#include "import/FileCopy.h"
#include "import/ImageOperations.h"

namespace mosaro::importing {

namespace {

/// The last part of the path. An encoded slash in it must not lead into another folder.
QString lastPathComponent(const QUrl& url)
{
    QString name = url.path(QUrl::FullyEncoded).section(QLatin1Char('/'), -1);
    name = QUrl::fromPercentEncoding(name.toUtf8());
    for (QChar& letter : name) {
        if (letter == QLatin1Char('/') || letter.category() == QChar::Other_Control) {
            letter = QLatin1Char('-');
        }
    }
    return name;
}

bool isWebPage(const QByteArray& data)
{
    return data.startsWith("<html") || data.startsWith("<!DOCTYPE");
}

} // namespace

bool isDataAddress(const QUrl& url)
{
    return url.scheme() == QLatin1String("data");
}

QByteArray dataOfAddress(const QUrl& url)
{
    const QByteArray text = url.toEncoded();
    const qsizetype comma = text.indexOf(',');
    if (!isDataAddress(url) || comma < 0) {
        return {};
    }
    const QByteArray body = QByteArray::fromPercentEncoding(text.mid(comma + 1));
    const bool isBase64 = text.left(comma).toLower().endsWith(";base64");
    return isBase64 ? QByteArray::fromBase64(body) : body;
}

QString pathExtension(const QUrl& url)
{
    const QString name = lastPathComponent(url);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.mid(dot + 1) : QString();
}

std::optional<LoosePicture> downloadedPicture(const QUrl& url, const QByteArray& data, const QDateTime& now)
{
    LoosePicture picture;
    picture.bytes = data;
    if (isDataAddress(url)) {
        picture.name = dateAsString(now);
        picture.suffix = contentTypeForImageData(data);
    } else if (!isWebPage(data)) {
        const QString name = storedFileName(lastPathComponent(url));
        picture.suffix = pathExtension(url);
        picture.name = name.left(name.lastIndexOf(QLatin1Char('.')));
    }
    picture.address = QString::fromLatin1(url.toEncoded());
    return data.isEmpty() || picture.suffix.isEmpty() ? std::nullopt : std::optional(picture);
}

std::optional<LoosePicture> droppedPicture(const WebImageRequest& request, const QDateTime& now)
{
    if (request.image.isNull() && request.rawImage.isEmpty()) {
        return std::nullopt;
    }
    LoosePicture picture;
    picture.name = dateAsString(now);
    picture.suffix = request.image.hasAlphaChannel() ? QStringLiteral("png") : QStringLiteral("jpg");
    picture.bytes = request.rawImage;
    picture.image = request.image;
    picture.address = QString::fromLatin1(request.url.toEncoded());
    return picture;
}

} // namespace mosaro::importing
