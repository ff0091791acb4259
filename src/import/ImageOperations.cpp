#include "import/ImageOperations.h"

#include "import/VipsSupport.h"

#include <QPainter>
#include <QTransform>
#include <cmath>

namespace mosaro::importing {

namespace {

QImage transparentCanvas(QSize size)
{
    QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    return canvas;
}

QImage centredOnCanvas(const QImage& image, QSize size)
{
    QImage canvas = transparentCanvas(size);
    QPainter painter(&canvas);
    painter.drawImage((size.width() - image.width()) / 2, (size.height() - image.height()) / 2, image);
    return canvas;
}

void drawFrame(QImage& image, const QColor& color, int width)
{
    QPainter painter(&image);
    painter.fillRect(0, 0, image.width(), width, color);
    painter.fillRect(0, image.height() - width, image.width(), width, color);
    painter.fillRect(0, 0, width, image.height(), color);
    painter.fillRect(image.width() - width, 0, width, image.height(), color);
}

QImage enlarged(const QImage& image, QSize size)
{
    ensureImageLibrary();
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const VipsPtr source(vips_image_new_from_memory(pixels.constBits(),
                                                    static_cast<std::size_t>(pixels.sizeInBytes()),
                                                    pixels.width(), pixels.height(), 4, VIPS_FORMAT_UCHAR));
    const VipsPtr result = source ? vipsResizeTo(source.get(), size) : nullptr;
    const QImage scaled = result ? vipsToQImage(result.get(), true) : QImage();
    return scaled.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                          : QImage::Format_RGB32);
}

// Averaging is best for making pictures smaller, a wide filter for making them larger.
QImage resized(const QImage& image, QSize size)
{
    if (image.size() == size)
        return image;
    const bool enlarges = size.width() > image.width() || size.height() > image.height();
    return enlarges ? enlarged(image, size) : shrunk(image, size);
}

} // namespace

QImage CGImage(const QImage& image)
{
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage shrunk(const QImage& image, QSize size)
{
    return image
        .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// In whole numbers throughout: the exact rectangle is widened to whole pixels without rounding errors.
QRect fillSourceRect(QSize source, QSize target)
{
    const qint64 sw = source.width();
    const qint64 sh = source.height();
    const qint64 tw = target.width();
    const qint64 th = target.height();
    if (sw <= 0 || sh <= 0 || tw <= 0 || th <= 0)
        return {};
    // One edge stays; the other is `cut / unit` long, and twice that unit counts the halves of the centring.
    const bool keepsWidth = sw * th <= sh * tw;
    const qint64 unit = keepsWidth ? tw : th;
    const qint64 cut = keepsWidth ? sw * th : sh * tw;
    const qint64 whole = (keepsWidth ? sh : sw) * unit;
    const qint64 begin = (whole - cut) / (2 * unit);
    const qint64 end = (whole + cut + 2 * unit - 1) / (2 * unit);
    const int from = static_cast<int>(begin);
    const int length = static_cast<int>(end - begin);
    return keepsWidth ? QRect(0, from, source.width(), length) : QRect(from, 0, length, source.height());
}

QImage scaleImage(const QImage& image, QSize fillSize)
{
    if (image.isNull() || fillSize.isEmpty())
        return {};
    return resized(image.copy(fillSourceRect(image.size(), fillSize)), fillSize);
}

QSize proportionalSize(QSize source, QSize box)
{
    if (source.isEmpty() || box.isEmpty())
        return {};
    if (source.width() <= box.width() && source.height() <= box.height())
        return source;
    const double factor = std::min(static_cast<double>(box.width()) / source.width(),
                                   static_cast<double>(box.height()) / source.height());
    return {std::clamp(qRound(source.width() * factor), 1, box.width()),
            std::clamp(qRound(source.height() * factor), 1, box.height())};
}

QImage imageByScalingProportionallyToSize(const QImage& image, QSize size,
                                          const std::optional<QColor>& withBorderColor, bool sizeToFit)
{
    if (image.isNull() || size.isEmpty())
        return {};
    QImage result = resized(image, proportionalSize(image.size(), size));
    if (sizeToFit)
        result = centredOnCanvas(result, size);
    if (withBorderColor)
        drawFrame(result, *withBorderColor, 1);
    return result;
}

QImage imageOnSmallCanvas(const QImage& image)
{
    return centredOnCanvas(image, {kSmallCanvas, kSmallCanvas});
}

QImage imageWithColor(const QColor& color, QSize size, const std::optional<QColor>& borderColor,
                      int borderWidth)
{
    if (size.isEmpty())
        return {};
    QImage swatch = transparentCanvas(size);
    swatch.fill(color);
    if (borderColor)
        drawFrame(swatch, *borderColor, borderWidth);
    return swatch;
}

// Counter-clockwise for positive degrees.
QImage imageRotated(const QImage& image, double degrees)
{
    const double angle = std::fmod(degrees, 360);
    if (image.isNull() || angle == 0)
        return image;
    const double size = std::abs(angle);
    QSize canvasSize(std::max(image.width(), image.height()) + 20,
                     std::max(image.width(), image.height()) + 20);
    if (size == 180)
        canvasSize = image.size();
    else if (size == 90 || size == 270)
        canvasSize = image.size().transposed();

    QImage canvas = transparentCanvas(canvasSize);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, canvasSize.width() == canvasSize.height());
    painter.translate(canvasSize.width() / 2.0, canvasSize.height() / 2.0);
    painter.rotate(-angle);
    painter.drawImage(QPointF(-image.width() / 2.0, -image.height() / 2.0), image);
    return canvas;
}

QString contentTypeForImageData(const QByteArray& data)
{
    if (data.isEmpty())
        return {};
    switch (static_cast<uchar>(data.front())) {
    case 60:
        return QStringLiteral("svg");
    case 66:
        return QStringLiteral("bmp");
    case 71:
        return QStringLiteral("gif");
    case 73:
    case 77:
        return QStringLiteral("tif");
    case 137:
        return QStringLiteral("png");
    case 255:
        return QStringLiteral("jpg");
    default:
        return {};
    }
}

// Half-transparent pictures come out darker than they look: the alpha is multiplied in twice. Known and kept.
QColor averageColor(const QImage& image)
{
    const QImage cell = sampledToGrid(image, 1);
    if (cell.isNull())
        return {};
    const uchar* byte = cell.constBits();
    const double alpha = byte[3] / 255.0;
    const double factor = byte[3] > 0 ? alpha / 255.0 : 1 / 255.0;
    return QColor::fromRgbF(static_cast<float>(byte[0] * factor), static_cast<float>(byte[1] * factor),
                            static_cast<float>(byte[2] * factor), static_cast<float>(alpha));
}

} // namespace mosaro::importing
