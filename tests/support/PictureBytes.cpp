// Picture files put together byte by byte, where no library writes what a test needs.
#include "support/Pictures.h"

#include <QtEndian>
namespace mosaro::test {

namespace {

void append16(QByteArray& bytes, unsigned value)
{
    bytes.append(static_cast<char>(value & 255)).append(static_cast<char>(value >> 8 & 255));
}

void append32(QByteArray& bytes, unsigned value)
{
    append16(bytes, value & 0xffff);
    append16(bytes, value >> 16);
}

void appendBig32(QByteArray& bytes, unsigned value)
{
    const quint32 big = qToBigEndian<quint32>(value);
    bytes.append(reinterpret_cast<const char*>(&big), 4);
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

void appendChunk(QByteArray& png, const QByteArray& name, const QByteArray& data)
{
    const QByteArray body = name + data;
    appendBig32(png, static_cast<unsigned>(data.size()));
    png += body;
    appendBig32(png, crc32(body));
}

/// Gathers the tags of one TIFF directory; what does not fit into a tag lies behind the directory.
class TiffDirectory {
public:
    void add(unsigned tag, unsigned type, unsigned count, unsigned value)
    {
        m_tags.push_back({tag, type, count, value, {}});
    }
    void addBytes(unsigned tag, unsigned type, unsigned count, const QByteArray& bytes)
    {
        m_tags.push_back({tag, type, count, 0, bytes});
    }

    [[nodiscard]] QByteArray bytes(unsigned offset) const
    {
        QByteArray head;
        QByteArray tail;
        const auto size = static_cast<unsigned>(2 + m_tags.size() * 12 + 4);
        append16(head, static_cast<unsigned>(m_tags.size()));
        for (const Tag& tag : m_tags) {
            append16(head, tag.tag);
            append16(head, tag.type);
            append32(head, tag.count);
            append32(head,
                     tag.bytes.isEmpty() ? tag.value : offset + size + static_cast<unsigned>(tail.size()));
            tail += tag.bytes;
            if (tail.size() % 2)
                tail.append('\0');
        }
        append32(head, 0);
        return head + tail;
    }

private:
    struct Tag {
        unsigned tag, type, count, value;
        QByteArray bytes;
    };
    std::vector<Tag> m_tags;
};

QByteArray rgbPixels(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    QByteArray pixels;
    for (int y = 0; y < rgb.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), rgb.width() * 3);
    return pixels;
}

QByteArray rational(unsigned value)
{
    QByteArray bytes;
    append32(bytes, value);
    append32(bytes, 1);
    return bytes;
}

QByteArray tgaPixel(QRgb color, TgaKind kind)
{
    switch (kind) {
    case TgaKind::Gray:
        return QByteArray(1, static_cast<char>(qGray(color)));
    case TgaKind::Palette:
        return QByteArray(1, static_cast<char>((qRed(color) > 127 ? 1 : 0) | (qGreen(color) > 127 ? 2 : 0) |
                                               (qBlue(color) > 127 ? 4 : 0)));
    default:
        QByteArray pixel;
        append32(pixel, color);
        return pixel;
    }
}

/// The eight corners of the colour cube.
QByteArray tgaPalette()
{
    QByteArray palette;
    for (int entry = 0; entry < 8; ++entry) {
        palette.append(static_cast<char>(entry & 4 ? 255 : 0));
        palette.append(static_cast<char>(entry & 2 ? 255 : 0));
        palette.append(static_cast<char>(entry & 1 ? 255 : 0));
    }
    return palette;
}

} // namespace

QByteArray plainTiff(const QImage& image, const PlainTiffTags& tags)
{
    const QByteArray pixels = rgbPixels(image);
    const auto width = static_cast<unsigned>(image.width());
    const auto height = static_cast<unsigned>(image.height());
    const QByteArray eight("\x08\0\x08\0\x08\0", 6);
    TiffDirectory directory;
    directory.add(256, 4, 1, width);
    directory.add(257, 4, 1, height);
    directory.addBytes(258, 3, 3, eight);
    directory.add(259, 3, 1, 1);
    directory.add(262, 3, 1, 2);
    directory.add(273, 4, 1, 8);
    if (tags.orientation)
        directory.add(274, 3, 1, tags.orientation);
    directory.add(277, 3, 1, 3);
    directory.add(278, 4, 1, height);
    directory.add(279, 4, 1, static_cast<unsigned>(pixels.size()));
    if (tags.resolution) {
        directory.addBytes(282, 5, 1, rational(tags.resolution));
        directory.addBytes(283, 5, 1, rational(tags.resolution));
    }
    if (tags.unit)
        directory.add(296, 3, 1, tags.unit);
    if (!tags.software.isEmpty())
        directory.addBytes(305, 2, static_cast<unsigned>(tags.software.size() + 1), tags.software + '\0');
    const auto offset = static_cast<unsigned>(8 + pixels.size() + pixels.size() % 2);
    QByteArray bytes("II*\0", 4);
    append32(bytes, offset);
    bytes += pixels;
    if (pixels.size() % 2)
        bytes.append('\0');
    return bytes + directory.bytes(offset);
}

bool writeTga(const QString& path, const QImage& image, TgaKind kind)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const bool palette = kind == TgaKind::Palette;
    const bool color = kind == TgaKind::TrueColor || kind == TgaKind::RunLength;
    QByteArray bytes;
    bytes.append('\0').append(palette ? '\1' : '\0');
    bytes.append(static_cast<char>(kind == TgaKind::RunLength ? 10 : color ? 2 : palette ? 1 : 3));
    append16(bytes, 0);
    append16(bytes, palette ? 8 : 0);
    bytes.append(static_cast<char>(palette ? 24 : 0));
    append32(bytes, 0);
    append16(bytes, static_cast<unsigned>(image.width()));
    append16(bytes, static_cast<unsigned>(image.height()));
    bytes.append(static_cast<char>(color ? 32 : 8));
    bytes.append(static_cast<char>(color && image.hasAlphaChannel() ? 8 : 0));
    if (palette)
        bytes += tgaPalette();
    // From the bottom row up; a run is of one pixel or of as many equal ones as one packet holds.
    for (int y = pixels.height() - 1; y >= 0; --y) {
        for (int x = 0; x < pixels.width();) {
            int run = 1;
            while (kind == TgaKind::RunLength && run < 128 && x + run < pixels.width() &&
                   pixels.pixel(x + run, y) == pixels.pixel(x, y))
                ++run;
            if (kind == TgaKind::RunLength)
                bytes.append(static_cast<char>(run > 1 ? 127 + run : 0));
            bytes += tgaPixel(pixels.pixel(x, y), kind);
            x += run;
        }
    }
    return writeBytes(path, bytes);
}

QByteArray pngThatClaims(unsigned width, unsigned height)
{
    QByteArray header;
    appendBig32(header, width);
    appendBig32(header, height);
    header.append("\x08\x02\0\0\0", 5);
    QByteArray png("\x89PNG\r\n\x1a\n");
    appendChunk(png, "IHDR", header);
    appendChunk(png, "IDAT", qCompress(QByteArray(64, '\0')).mid(4));
    appendChunk(png, "IEND", {});
    return png;
}

} // namespace mosaro::test
