#include "import/QuickTimeImage.h"

#include "import/Analysis.h"
#include "import/VipsSupport.h"

#include <QBuffer>
#include <QtEndian>
#include <algorithm>

namespace mosaro::importing {

namespace {

constexpr int kMostAtoms = 100;
constexpr qsizetype kDescriptionBytes = 86;
constexpr qint64 kMostDataBytes = qint64(256) << 20;

template <class Number>
Number big(const QByteArray& bytes, qsizetype offset)
{
    return qFromBigEndian<Number>(bytes.constData() + offset);
}

/// The content of the first atom of a type; at most so many bytes of it.
QByteArray atom(QIODevice& file, QByteArrayView type, qint64 most)
{
    constexpr qint64 kHead = 8;
    qint64 at = 0;
    for (int number = 0; number < kMostAtoms && file.seek(at); ++number) {
        const QByteArray head = file.read(kHead);
        if (head.size() < kHead)
            return {};
        const qint64 length = big<quint32>(head, 0) == 0 ? file.size() - at : big<quint32>(head, 0);
        if (length < kHead || length > file.size() - at)
            return {};
        if (head.endsWith(type.toByteArray()))
            return file.read(std::min(length - kHead, most));
        at += length;
    }
    return {};
}

struct Description {
    QByteArray codec;
    QSize size;
    double dpi = 0;
    int bits = 0;
};

std::optional<Description> readDescription(QIODevice& file)
{
    const QByteArray bytes = atom(file, "idsc", kDescriptionBytes);
    if (bytes.size() < kDescriptionBytes)
        return std::nullopt;
    const QSize size(big<quint16>(bytes, 32), big<quint16>(bytes, 34));
    if (size.isEmpty())
        return std::nullopt;
    return Description{bytes.mid(4, 4), size, big<quint32>(bytes, 36) / 65536.0, big<quint16>(bytes, 82)};
}

/// Rows of an even number of bytes; of 32 bits, the first eight are transparency.
QImage readPlainPixels(const QByteArray& data, const Description& description)
{
    const int pixelBytes = description.bits / 8;
    if (description.bits != 24 && description.bits != 32)
        return {};
    const qint64 rowBytes = (qint64(description.size.width()) * pixelBytes + 1) & ~qint64(1);
    if (data.size() < rowBytes * description.size.height())
        return {};
    QImage image(description.size, pixelBytes == 4 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        const auto* from = reinterpret_cast<const uchar*>(data.constData()) + rowBytes * y;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, from += pixelBytes) {
            line[x] =
                pixelBytes == 4 ? qRgba(from[1], from[2], from[3], from[0]) : qRgb(from[0], from[1], from[2]);
        }
    }
    return image;
}

bool isPng(const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    return buffer.open(QIODevice::ReadOnly) && readPngHeader(buffer);
}

QImage readCoded(const QByteArray& data, const Description& description)
{
    ensureImageLibrary();
    void* bytes = const_cast<char*>(data.constData());
    const auto length = static_cast<std::size_t>(data.size());
    const VipsPtr image = vipsMake([&](VipsImage** out) {
        if (description.codec == "jpeg")
            return vips_jpegload_buffer(bytes, length, out, "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
        if (description.codec == "png " && isPng(data))
            return vips_pngload_buffer(bytes, length, out, "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
        if (description.codec == "tiff")
            return vips_tiffload_buffer(bytes, length, out, "fail_on", VIPS_FAIL_ON_TRUNCATED, nullptr);
        return -1;
    });
    if (!image || QSize(image->Xsize, image->Ysize) != description.size)
        return {};
    const VipsPtr srgb = vipsToSrgb(image.get());
    return srgb ? vipsToQImage(srgb.get(), false) : QImage();
}

} // namespace

std::optional<BitmapHeader> readQuickTimeImageHeader(QIODevice& file)
{
    const std::optional<Description> description = readDescription(file);
    if (!description)
        return std::nullopt;
    BitmapHeader header;
    header.size = description->size;
    header.dpi = description->dpi;
    header.hasAlpha = true; // When the picture has it.
    header.isGray = description->bits > 32;
    return header;
}

QImage readQuickTimeImage(QIODevice& file)
{
    const std::optional<Description> description = readDescription(file);
    if (!description)
        return {};
    const QByteArray data = atom(file, "idat", kMostDataBytes);
    return description->codec == "raw " ? readPlainPixels(data, *description) : readCoded(data, *description);
}

} // namespace mosaro::importing
