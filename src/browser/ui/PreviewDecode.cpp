#include "browser/ui/PreviewDecode.h"

#include <QImageReader>

namespace mosaro::browser {

namespace {

/// A preview is small; a file that claims to be larger than this is not one.
constexpr qint64 kMaximumPixels = 64LL * 1024 * 1024;

QSize pixelsFor(const QSize& original, const PreviewRequest& request)
{
    const QSizeF fitted = fittedSize(original, request.box);
    return (fitted * request.ratio).toSize().boundedTo(original).expandedTo({1, 1});
}

bool isBelievable(const QSize& size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= kMaximumPixels;
}

QImage readScaled(QImageReader& reader, const PreviewRequest& request, QSize& originalSize)
{
    const QSize stored = reader.size();
    if (!isBelievable(stored)) {
        return {};
    }
    const bool rotated = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    originalSize = rotated ? stored.transposed() : stored;
    const QSize wanted = pixelsFor(originalSize, request);
    // JPEG shrinks while it decodes; twice the size is left for the good filter below.
    const QSize rough = (rotated ? wanted.transposed() : wanted) * 2;
    if (reader.format() == "jpeg" && rough.width() < stored.width()) {
        reader.setScaledSize(rough);
    }
    QImage image = reader.read();
    if (!image.isNull() && image.size() != wanted) {
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return image;
}

} // namespace

QSize fittedSize(const QSize& original, const QSize& box)
{
    if (original.isEmpty() || (original.width() <= box.width() && original.height() <= box.height())) {
        return original;
    }
    return original.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

PreviewResult loadPreview(const PreviewRequest& request)
{
    PreviewResult result;
    result.file = fileState(request.file);
    if (request.wantsImage) {
        QImageReader reader(request.path);
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
        const QImage image = readScaled(reader, request, result.originalSize);
        const auto format =
            image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
        result.image = image.isNull() ? image : image.convertToFormat(format);
    }
    return result;
}

} // namespace mosaro::browser
