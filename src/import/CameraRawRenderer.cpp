#include "import/RenderedDocument.h"

#include "base/Text.h"
#include "import/BitmapDecoder.h"
#include "import/ChildProcess.h"
#include "import/DecoderProgram.h"
#include "import/DocumentSupport.h"
#include "import/ImageOperations.h"
#include "import/Orientation.h"

#include <QFileInfo>

namespace mosaro::importing {

namespace {

/// What the decoder answers.
struct RawPicture {
    ImageMetadata metadata;
    int flip = 0;
    bool isJpeg = false;
    QSize size;
    QByteArray pixels;
};

/// Takes the first line off.
QByteArray takeLine(QByteArray& bytes)
{
    const qsizetype end = bytes.indexOf('\n');
    const QByteArray line = bytes.left(end);
    bytes.remove(0, end + 1);
    return end < 0 ? QByteArray() : line;
}

/// No product of numbers that the decoder says: it may have been taken over by what it decodes.
bool fillsPicture(const QByteArray& pixels, QSize size)
{
    const qint64 row = qint64(size.width()) * 3;
    return pixels.size() % row == 0 && pixels.size() / row == size.height();
}

std::optional<RawPicture> readAnswer(QByteArray answer)
{
    const QList<QByteArray> fields = takeLine(answer).split(' ');
    if (fields.size() != 7)
        return std::nullopt;
    RawPicture picture;
    picture.metadata.width = fields[0].toInt();
    picture.metadata.height = fields[1].toInt();
    picture.metadata.depth = fields[2].toInt();
    picture.metadata.colorModel = QStringLiteral("RGB");
    picture.flip = fields[3].toInt();
    picture.isJpeg = fields[4] == "jpeg";
    picture.size = {fields[5].toInt(), fields[6].toInt()};
    picture.metadata.software = QString::fromUtf8(takeLine(answer)).trimmed();
    picture.pixels = std::move(answer);
    if (picture.size.isEmpty() || (!picture.isJpeg && !fillsPicture(picture.pixels, picture.size)))
        return std::nullopt;
    return picture;
}

QImage imageOfJpeg(const QByteArray& bytes)
{
    ensureImageLibrary();
    const VipsPtr image = vipsMake([&](VipsImage** out) {
        return vips_jpegload_buffer(const_cast<char*>(bytes.constData()),
                                    static_cast<std::size_t>(bytes.size()), out, nullptr);
    });
    if (!image || qint64(image->Xsize) * image->Ysize > analysisLimits().maxPixelsWithoutStreaming)
        return {};
    const VipsPtr srgb = vipsToSrgb(image.get());
    return srgb ? vipsToQImage(srgb.get(), false) : QImage();
}

QImage imageOf(const RawPicture& picture)
{
    if (picture.isJpeg)
        return imageOfJpeg(picture.pixels);
    return QImage(reinterpret_cast<const uchar*>(picture.pixels.constData()), picture.size.width(),
                  picture.size.height(), qsizetype(picture.size.width()) * 3, QImage::Format_RGB888)
        .copy();
}

/// The decoder's number for a turn as EXIF's.
int orientationOf(int flip)
{
    switch (flip) {
    case 3:
        return 3;
    case 5:
        return 8;
    case 6:
        return 6;
    default:
        return 1;
    }
}

/// Some cameras turn their preview, some leave it as the sensor lies.
QImage upright(const QImage& image, const RawPicture& picture)
{
    const int orientation = orientationOf(picture.flip);
    const bool liesAcross = picture.metadata.width >= picture.metadata.height;
    const bool isTurned = orientation >= 5 && liesAcross != (image.width() >= image.height());
    return isTurned ? image : turnedUpright(image, orientation);
}

} // namespace

base::Result<RenderedDocument> renderCameraRaw(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable())
        return base::Failure{base::text("Failure.Image.Unreadable")};
    if (file.size() == 0)
        return base::Failure{base::text("Failure.Image.Empty")};
    const PlainName name(path);
    if (!name.isValid())
        return base::Failure{base::text("Failure.Image.Unreadable")};
    const AnalysisLimits& limits = analysisLimits();
    const QSemaphoreReleaser memory = decodingMemory().take(limits.memoryForDecoding / 2);
    const base::Result<QByteArray> answer =
        runChild(decoderProgram(QStringLiteral("mosaro-raw")),
                 {name.path(), QString::number(kPreviewBox.width()), QString::number(kPreviewBox.height())},
                 decoderLimits(limits.maxRawMemory, limits.maxRawOutput));
    if (!answer)
        return answer.failure();
    const std::optional<RawPicture> picture = readAnswer(answer.value());
    const QImage image = picture ? upright(imageOf(*picture), *picture) : QImage();
    if (image.isNull())
        return damagedPicture();
    RenderedDocument document;
    document.preview = previewOfDrawing(image);
    document.fullSize = image;
    document.metadata = picture->metadata;
    return document;
}

} // namespace mosaro::importing
