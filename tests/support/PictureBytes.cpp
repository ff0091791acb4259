// Picture files put together byte by byte, where no library writes what a test needs.
#include "support/Pictures.h"

#include <QDataStream>
#include <QtEndian>

namespace mosaro::test {

namespace {

/// Numbers in the byte order of TIFF and TGA.
class Bytes {
public:
    Bytes() { m_stream.setByteOrder(QDataStream::LittleEndian); }
    Bytes& put8(unsigned value) { return m_stream << static_cast<quint8>(value), *this; }
    Bytes& put16(unsigned value) { return m_stream << static_cast<quint16>(value), *this; }
    Bytes& put32(unsigned value) { return m_stream << static_cast<quint32>(value), *this; }
    Bytes& put(const QByteArray& bytes)
    {
        m_stream.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
        return *this;
    }
    [[nodiscard]] QByteArray all() const { return m_bytes; }

private:
    QByteArray m_bytes;
    QDataStream m_stream{&m_bytes, QIODevice::WriteOnly};
};

QByteArray big32(unsigned value)
{
    const quint32 big = qToBigEndian<quint32>(value);
    return {reinterpret_cast<const char*>(&big), 4};
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
    return big32(static_cast<unsigned>(data.size())) + name + data + big32(crc32(name + data));
}

struct Tag {
    unsigned tag, type, count, value;
    QByteArray bytes = {}; ///< What does not fit into the value lies behind the directory.
};

/// A TIFF directory that begins at `offset`. The bytes of every tag are even in number.
QByteArray tiffDirectory(const std::vector<Tag>& tags, unsigned offset)
{
    Bytes head;
    QByteArray tail;
    const auto end = offset + static_cast<unsigned>(2 + tags.size() * 12 + 4);
    head.put16(static_cast<unsigned>(tags.size()));
    for (const Tag& tag : tags) {
        head.put16(tag.tag).put16(tag.type).put32(tag.count);
        head.put32(tag.bytes.isEmpty() ? tag.value : end + static_cast<unsigned>(tail.size()));
        tail += tag.bytes;
    }
    return head.put32(0).put(tail).all();
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
    return Bytes()
        .put8((qRed(color) > 127 ? 1 : 0) | (qGreen(color) > 127 ? 2 : 0) | (qBlue(color) > 127 ? 4 : 0))
        .all();
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

QByteArray plainTiff(const QImage& image, const PlainTiffTags& tags)
{
    QByteArray pixels = rgbPixels(image);
    const auto size = static_cast<unsigned>(pixels.size());
    if (size % 2)
        pixels.append('\0');
    const auto width = static_cast<unsigned>(image.width());
    const auto height = static_cast<unsigned>(image.height());
    std::vector<Tag> directory{
        {256, 4, 1, width}, {257, 4, 1, height}, {258, 3, 3, 0, QByteArray("\x08\0\x08\0\x08\0", 6)},
        {259, 3, 1, 1},     {262, 3, 1, 2},      {273, 4, 1, 8},
        {277, 3, 1, 3},     {278, 4, 1, height}, {279, 4, 1, size}};
    if (tags.resolution) {
        for (const unsigned tag : {282, 283})
            directory.push_back({tag, 5, 1, 0, Bytes().put32(tags.resolution).put32(1).all()});
    }
    if (tags.unit)
        directory.push_back({296, 3, 1, tags.unit});
    const auto length = static_cast<unsigned>(tags.software.size()) + 1; // With its closing zero.
    if (length > 1)
        directory.push_back({305, 2, length, 0, tags.software + QByteArray(length % 2 ? 2 : 1, '\0')});
    const auto offset = static_cast<unsigned>(8 + pixels.size());
    return Bytes().put("II*").put8(0).put32(offset).put(pixels).put(tiffDirectory(directory, offset)).all();
}

bool writeTga(const QString& path, const QImage& image, TgaKind kind)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const bool palette = kind == TgaKind::Palette;
    Bytes bytes;
    bytes.put8(0).put8(palette ? 1 : 0).put8(kind == TgaKind::RunLength ? 10 : palette ? 1 : 2);
    bytes.put16(0).put16(palette ? 8 : 0).put8(palette ? 24 : 0).put32(0);
    bytes.put16(static_cast<unsigned>(image.width())).put16(static_cast<unsigned>(image.height()));
    bytes.put8(palette ? 8 : 32).put8(!palette && image.hasAlphaChannel() ? 8 : 0);
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
                bytes.put8(run > 1 ? 127U + static_cast<unsigned>(run) : 0);
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
