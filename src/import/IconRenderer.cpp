#include "import/RenderedDocument.h"

#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/FileHeaders.h"
#include "import/IconFile.h"
#include "import/ImageOperations.h"
#include "import/MagickDecoder.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>

namespace mosaro::importing {

namespace {

/// The two pictures of an icon that count.
struct IconPictures {
    QImage first;
    QImage largest;
    int count = 0;
    std::optional<ImageMetadata> metadata = {}; ///< Where the file tells more than its pictures.
};

QImage readPicture(const QByteArray& bytes, const char* format, int number)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    return number == 0 || reader.jumpToImage(number) ? inSrgbColors(reader.read()) : QImage();
}

QImage readJpeg2000(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    const std::optional<BitmapHeader> header = readJpeg2000Header(buffer);
    const int limit = analysisLimits().maxIconSide;
    if (!header || header->size.width() > limit || header->size.height() > limit)
        return {};
    const char* format = bytes.startsWith("\xff\x4f") ? "j2k" : "jp2";
    const base::Result<QImage> picture = readByMagick({{}, format, {}, header->hasAlpha, bytes});
    return picture ? picture.value() : QImage();
}

IconPictures readIco(const QByteArray& bytes)
{
    const IcoPictures directory = readIcoDirectory(bytes);
    IconPictures pictures;
    if (directory.count == 0)
        return pictures;
    pictures.count = directory.count;
    pictures.first = readPicture(bytes, "ico", 0);
    pictures.largest = directory.largest == 0 ? pictures.first : readPicture(bytes, "ico", directory.largest);
    return pictures;
}

/// More pixels, or as many in more colours.
bool isBetter(const QImage& picture, const QImage& than)
{
    const qint64 pixels = qint64(picture.width()) * picture.height();
    const qint64 others = qint64(than.width()) * than.height();
    return pixels > others || (pixels == others && picture.depth() > than.depth());
}

/// The plug-in knows which entries are pictures and which are masks, but not those in JPEG 2000, which it
/// answers with nothing.
IconPictures readIcns(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "icns");
    reader.setAutoDetectImageFormat(false);
    const std::vector<QByteArray> streams = jpeg2000sOfIcns(bytes);
    auto stream = streams.begin();
    QElapsedTimer timer;
    timer.start();
    IconPictures pictures;
    pictures.count = reader.imageCount();
    for (int number = 0; number < pictures.count; ++number) {
        if (timer.elapsed() > analysisLimits().maxSeconds * qint64(1000))
            return {};
        QImage picture = reader.jumpToImage(number) ? inSrgbColors(reader.read()) : QImage();
        if (picture.isNull() && stream != streams.end())
            picture = readJpeg2000(*stream++);
        if (pictures.first.isNull())
            pictures.first = picture;
        if (isBetter(picture, pictures.largest))
            pictures.largest = picture;
    }
    return pictures;
}

ImageMetadata metadataOf(const QImage& picture)
{
    ImageMetadata metadata;
    metadata.width = picture.width();
    metadata.height = picture.height();
    metadata.depth = 8;
    metadata.hasAlpha = picture.hasAlphaChannel();
    metadata.colorModel =
        picture.isGrayscale() && picture.depth() <= 8 ? QStringLiteral("Gray") : QStringLiteral("RGB");
    return metadata;
}

IconPictures readIconFile(const QByteArray& bytes, DocumentType type)
{
    const qint64 side = analysisLimits().maxIconSide;
    const QSemaphoreReleaser memory = decodingMemory().take(bytes.size() + side * side * 4);
    if (!hasOnlySmallPngs(bytes))
        return {};
    return type == DocumentType::Icns ? readIcns(bytes) : readIco(bytes);
}

/// A picture of one of the common formats, which many programs take for an icon and name like one.
base::Result<IconPictures> readPlainPicture(const QString& path, DocumentType type)
{
    const base::Result<OpenedBitmap> bitmap = openBitmap(path, type);
    if (!bitmap)
        return bitmap.failure();
    const QSize size = bitmap.value().storedSize();
    if (std::max(size.width(), size.height()) > analysisLimits().maxIconSide)
        return tooLargePicture(size);
    const VipsPtr srgb = vipsToSrgb(bitmap.value().image.get());
    const QImage picture = srgb ? vipsToQImage(srgb.get(), false) : QImage();
    return IconPictures{picture, picture, 1, bitmap.value().metadata};
}

/// By what the file holds, whatever it is called.
base::Result<IconPictures> readPictures(const QString& path, DocumentType named)
{
    const base::Result<QByteArray> file = readWholeFile(path, analysisLimits().maxIconBytes);
    if (!file)
        return file.failure();
    const std::optional<DocumentType> type = markedTypeOf(file.value());
    if (type == DocumentType::Icns || type == DocumentType::Ico)
        return readIconFile(file.value(), *type);
    if (!bitmapFormatOf(file.value(), named))
        return otherContents(file.value(), named);
    return readPlainPicture(path, *type);
}

} // namespace

base::Result<RenderedDocument> renderIcon(const QString& path, DocumentType type)
{
    const base::Result<IconPictures> read = readPictures(path, type);
    if (!read)
        return read.failure();
    const IconPictures& pictures = read.value();
    if (pictures.first.isNull() || pictures.largest.isNull())
        return damagedPicture();
    const bool isTiny = pictures.largest.width() <= kSmallCanvas && pictures.largest.height() <= kSmallCanvas;
    RenderedDocument document;
    document.preview =
        isTiny ? imageOnSmallCanvas(pictures.largest)
               : imageByScalingProportionallyToSize(pictures.largest, kPreviewBox, std::nullopt, true);
    document.metadata = pictures.metadata.value_or(metadataOf(pictures.first));
    document.hasFrames = pictures.count >= 2;
    return document;
}

} // namespace mosaro::importing
