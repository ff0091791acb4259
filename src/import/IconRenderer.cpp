#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/DocumentSupport.h"
#include "import/IconFile.h"
#include "import/ImageOperations.h"

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
    ensureImageLibrary();
    const VipsPtr image = vipsMake([&](VipsImage** out) {
        return vips_jp2kload_buffer(const_cast<char*>(bytes.constData()),
                                    static_cast<std::size_t>(bytes.size()), out, nullptr);
    });
    const int limit = analysisLimits().maxIconSide;
    if (!image || image->Xsize > limit || image->Ysize > limit)
        return {};
    const VipsPtr srgb = vipsToSrgb(image.get());
    return srgb ? vipsToQImage(srgb.get(), false) : QImage();
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

bool hasMarkOf(DocumentType type, const QByteArray& bytes)
{
    return bytes.startsWith(type == DocumentType::Icns ? QByteArray("icns") : QByteArray("\0\0\1\0", 4));
}

} // namespace

base::Result<RenderedDocument> renderIcon(const QString& path, DocumentType type)
{
    const base::Result<QByteArray> file = readWholeFile(path, analysisLimits().maxIconBytes);
    if (!file)
        return file.failure();
    const QByteArray& bytes = file.value();
    if (!hasMarkOf(type, bytes))
        return base::Failure{base::text("Failure.Image.NotAPicture")};
    if (!hasOnlySmallPngs(bytes))
        return damagedPicture();

    const qint64 side = analysisLimits().maxIconSide;
    const QSemaphoreReleaser memory = decodingMemory().take(bytes.size() + side * side * 4);
    const IconPictures pictures = type == DocumentType::Icns ? readIcns(bytes) : readIco(bytes);
    if (pictures.first.isNull() || pictures.largest.isNull())
        return damagedPicture();
    const bool isTiny = pictures.largest.width() <= kSmallCanvas && pictures.largest.height() <= kSmallCanvas;
    RenderedDocument document;
    document.preview =
        isTiny ? imageOnSmallCanvas(pictures.largest)
               : imageByScalingProportionallyToSize(pictures.largest, kPreviewBox, std::nullopt, true);
    document.metadata = metadataOf(pictures.first);
    document.hasFrames = pictures.count >= 2;
    return document;
}

} // namespace mosaro::importing
