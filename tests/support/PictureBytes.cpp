// Picture files put together byte by byte, where no library writes what a test needs.
#include "support/Bytes.h"
#include "support/Pictures.h"

namespace mosaro::test {

namespace {

QByteArray big32(unsigned value)
{
    return Bytes(QDataStream::BigEndian).put32(value).all();
}

/// The checksum of PNG chunks.
unsigned crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffffU;
    for (const char byte : bytes) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? 0xedb88320U ^ (crc >> 1) : crc >> 1;
    }
    return ~crc;
}

QByteArray chunk(const QByteArray& name, const QByteArray& data)
{
    return big32(unsigned(data.size())) + name + data + big32(crc32(name + data));
}

QByteArray rgbPixels(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    QByteArray pixels;
    for (int y = 0; y < rgb.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), rgb.width() * 3);
    return pixels;
}

QByteArray tgaPixel(QRgb color, TgaKind kind)
{
    if (kind != TgaKind::Palette)
        return Bytes().put32(color).all();
    return QByteArray(1, char((qRed(color) > 127) | (qGreen(color) > 127) << 1 | (qBlue(color) > 127) << 2));
}

/// The eight corners of the colour cube.
QByteArray tgaPalette()
{
    Bytes palette;
    for (int entry = 0; entry < 8; ++entry) {
        for (const int channel : {4, 2, 1})
            palette.put8(entry & channel ? 255 : 0);
    }
    return palette.all();
}

} // namespace

QByteArray tiffDirectory(std::vector<TiffTag> tags, qsizetype offset, bool isLast,
                         QDataStream::ByteOrder order)
{
    static constexpr int kUnit[] = {0, 1, 1, 2, 4, 8, 0, 0, 0, 0, 8};
    std::sort(tags.begin(), tags.end(), [](const TiffTag& a, const TiffTag& b) { return a.tag < b.tag; });
    Bytes head(order);
    QByteArray tail;
    const qsizetype end = offset + 2 + qsizetype(tags.size()) * 12 + 4;
    head.put16(tags.size());
    for (const TiffTag& tag : tags) {
        Bytes stored(order);
        for (const qint64 number : tag.numbers)
            tag.type == 3 ? stored.put16(number) : stored.put32(number);
        const QByteArray value = stored.put(tag.bytes).all();
        head.put16(tag.tag, tag.type).put32(value.size() / kUnit[tag.type]);
        if (value.size() <= 4) {
            head.put(value.leftJustified(4, '\0'));
        } else {
            head.put32(end + tail.size());
            tail += value + QByteArray(value.size() % 2, '\0');
        }
    }
    return head.put32(isLast ? 0 : end + tail.size()).put(tail).all();
}

QByteArray plainTiff(const QImage& image, const PlainTiffTags& tags)
{
    const QByteArray pixels = rgbPixels(image);
    const int height = image.height();
    std::vector<TiffTag> directory{{256, 4, {image.width()}},
                                   {257, 4, {height}},
                                   {258, 3, {8, 8, 8}},
                                   {259, 3, {1}},
                                   {262, 3, {2}},
                                   {273, 4, {8}},
                                   {277, 3, {3}},
                                   {278, 4, {height}},
                                   {279, 4, {pixels.size()}}};
    if (tags.resolution) {
        for (const int tag : {282, 283})
            directory.push_back({tag, 5, {tags.resolution, 1}});
    }
    if (tags.unit)
        directory.push_back({296, 3, {tags.unit}});
    if (!tags.software.isEmpty())
        directory.push_back({305, 2, {}, tags.software + '\0'});
    const qsizetype offset = 8 + pixels.size() + pixels.size() % 2;
    return Bytes()
        .put("II*")
        .put8(0)
        .put32(offset)
        .put(pixels.leftJustified(offset - 8, '\0'))
        .put(tiffDirectory(directory, offset))
        .all();
}

bool writeTga(const QString& path, const QImage& image, TgaKind kind)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const bool palette = kind == TgaKind::Palette;
    Bytes bytes;
    bytes.put8(0, palette, kind == TgaKind::RunLength ? 10 : palette ? 1 : 2);
    bytes.put16(0, palette ? 8 : 0).put8(palette ? 24 : 0).put32(0).put16(image.width(), image.height());
    bytes.put8(palette ? 8 : 32, !palette && image.hasAlphaChannel() ? 8 : 0);
    if (palette)
        bytes.put(tgaPalette());
    // From the bottom row up; a run is of one pixel or of as many equal ones as one packet holds.
    for (int y = pixels.height() - 1; y >= 0; --y) {
        for (int x = 0; x < pixels.width();) {
            int run = 1;
            while (kind == TgaKind::RunLength && run < 128 && x + run < pixels.width() &&
                   pixels.pixel(x + run, y) == pixels.pixel(x, y))
                ++run;
            if (kind == TgaKind::RunLength)
                bytes.put8(run > 1 ? 127 + run : 0);
            bytes.put(tgaPixel(pixels.pixel(x, y), kind));
            x += run;
        }
    }
    return writeBytes(path, bytes.all());
}

QByteArray pngThatClaims(unsigned width, unsigned height)
{
    const QByteArray header = big32(width) + big32(height) + QByteArray("\x08\x02\0\0\0", 5);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) +
           chunk("IDAT", qCompress(QByteArray(64, '\0')).mid(4)) + chunk("IEND", {});
}

QByteArray pngWithChunk(const QByteArray& png, const QByteArray& name, const QByteArray& data)
{
    const qsizetype end = 12; // Of the chunk that ends the file.
    return png.chopped(end) + chunk(name, data) + png.right(end);
}

} // namespace mosaro::test
