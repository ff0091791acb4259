#include "import/FileHeaders.h"

#include <QIODevice>
#include <QtEndian>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr qint64 kMostChunkBytes = qint64(64) << 20;

quint32 big32(const QByteArray& bytes, qsizetype offset)
{
    return qFromBigEndian<quint32>(bytes.constData() + offset);
}

quint32 little32(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

quint16 little16(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

int byteAt(const QByteArray& bytes, qsizetype offset)
{
    return static_cast<uchar>(bytes.at(offset));
}

QByteArray readAt(QIODevice& file, qint64 offset, qint64 length)
{
    return file.seek(offset) ? file.read(length) : QByteArray();
}

void readPngImageHeader(const QByteArray& data, BitmapHeader& header)
{
    const int colorType = byteAt(data, 9);
    const bool palette = colorType == 3;
    header.size = {static_cast<int>(big32(data, 0) & 0x7fffffff),
                   static_cast<int>(big32(data, 4) & 0x7fffffff)};
    header.depth = palette ? 8 : byteAt(data, 8);
    header.isGray = colorType == 0 || colorType == 4;
    header.hasAlpha = colorType == 4 || colorType == 6;
    header.isInterlaced = byteAt(data, 12) != 0;
}

struct BmpDibFields {
    qint64 width = 0;
    qint64 height = 0;
    int bits = 0;
    quint32 compression = 0;
};

BmpDibFields readDibFields(const QByteArray& head, quint32 dibSize)
{
    if (dibSize == 12)
        return {little16(head, 18), little16(head, 20), little16(head, 24), 0};
    return {static_cast<qint32>(little32(head, 18)), static_cast<qint32>(little32(head, 22)),
            little16(head, 28), dibSize < 40 ? 0 : little32(head, 30)};
}

} // namespace

std::optional<BitmapFormat> bitmapFormatOf(const QByteArray& head, DocumentType named)
{
    if (head.startsWith("\xff\xd8\xff"))
        return BitmapFormat::Jpeg;
    if (head.startsWith("\x89PNG\r\n\x1a\n"))
        return BitmapFormat::Png;
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a"))
        return BitmapFormat::Gif;
    if (head.startsWith(QByteArray("II*\0", 4)) || head.startsWith(QByteArray("MM\0*", 4)) ||
        head.startsWith(QByteArray("II+\0", 4)) || head.startsWith(QByteArray("MM\0+", 4)))
        return BitmapFormat::Tiff;
    if (head.startsWith(QByteArray("\0\0\0\x0cjP  ", 8)) || head.startsWith("\xff\x4f\xff\x51"))
        return BitmapFormat::Jpeg2000;
    const bool hasWeakMark = named == DocumentType::Tga || named == DocumentType::Pict;
    if (head.startsWith("BM") && !hasWeakMark)
        return BitmapFormat::Bmp;
    if (named == DocumentType::Tga)
        return BitmapFormat::Tga;
    if (named == DocumentType::Pict)
        return BitmapFormat::Pict;
    if (named == DocumentType::QuickTimeImage)
        return BitmapFormat::QuickTimeImage;
    return std::nullopt;
}

double dpiFromMetre(double pixelsPerMetre)
{
    const double dpi = pixelsPerMetre * kMetresPerInch;
    const double whole = std::round(dpi);
    return std::abs(dpi - whole) <= kMetresPerInch / 2 ? whole : dpi;
}

// Walks the chunks before the pixels. They must lie in the file and be of a sensible length: the decoder
// fills memory for what one of them claims before it looks for it.
std::optional<BitmapHeader> readPngHeader(QIODevice& file)
{
    BitmapHeader header;
    qint64 offset = 8;
    for (int chunk = 0; chunk < 1000; ++chunk) {
        const QByteArray start = readAt(file, offset, 8);
        if (start.size() < 8)
            break;
        const qint64 length = big32(start, 0);
        const QByteArray name = start.mid(4, 4);
        if (name == "IDAT")
            return header.size.isEmpty() ? std::nullopt : std::optional(header);
        if (length > kMostChunkBytes || length > file.size() - offset)
            break;
        const QByteArray data = file.read(std::min<qint64>(length, 32));
        if (name == "IHDR" && data.size() >= 13)
            readPngImageHeader(data, header);
        else if (name == "tRNS")
            header.hasAlpha = true;
        else if (name == "pHYs" && data.size() >= 9 && data.at(8) == 1)
            header.dpi = dpiFromMetre(big32(data, 0));
        offset += length + 12;
    }
    return std::nullopt;
}

std::optional<BitmapHeader> readBmpHeader(QIODevice& file)
{
    const QByteArray head = readAt(file, 0, 70);
    if (head.size() < 26)
        return std::nullopt;
    const quint32 dibSize = little32(head, 14);
    if (dibSize != 12 && head.size() < 54)
        return std::nullopt;
    const BmpDibFields dib = readDibFields(head, dibSize);
    const qint64 height = std::abs(dib.height);
    if (dib.width <= 0 || height <= 0 || height > 0x7fffffff || dib.bits <= 0 || dib.bits > 32)
        return std::nullopt;

    BitmapHeader header;
    header.size = {static_cast<int>(dib.width), static_cast<int>(height)};
    header.depth = dib.bits == 16 ? 5 : 8;
    if (dibSize >= 40)
        header.dpi = dpiFromMetre(static_cast<qint32>(little32(head, 38)));
    // Only the longer headers have a mask for transparency, and those that say that they have one.
    constexpr quint32 kMasks = 3;
    constexpr quint32 kMasksWithAlpha = 6;
    const bool isPacked = dib.bits == 32 || dib.bits == 16;
    header.hasAlpha = isPacked && (dibSize >= 56 || dib.compression == kMasksWithAlpha) &&
                      head.size() >= 70 && little32(head, 66) != 0;
    const bool isMasked = dib.compression == kMasks || dib.compression == kMasksWithAlpha;
    const bool hasWholeBytes = dib.bits == 1 || dib.bits == 2 || dib.bits == 4 || dib.bits == 8;
    const bool isTooColorful =
        dibSize >= 40 && hasWholeBytes && little32(head, 46) > (quint32(1) << dib.bits);
    header.isRare =
        (isPacked && isMasked) || (dib.compression == 0 && dibSize >= 40 && (dib.bits == 2 || isTooColorful));
    const bool runLength = dib.compression == 1 || dib.compression == 2;
    const qint64 rowBytes = (dib.width * dib.bits + 31) / 32 * 4;
    // So many rows may be claimed that no number can say their bytes.
    if (!runLength)
        header.minimumBytes = little32(head, 10) + rowBytes * std::min(height, (qint64(1) << 62) / rowBytes);
    return header;
}

std::optional<BitmapHeader> readTgaHeader(QIODevice& file)
{
    const QByteArray head = readAt(file, 0, 18);
    if (head.size() < 18)
        return std::nullopt;
    const int kind = byteAt(head, 2) & ~8;
    const int bits = byteAt(head, 16);
    const bool withAlpha = kind == 3 && bits == 16;
    const bool knownBits =
        kind == 2 ? bits == 15 || bits == 16 || bits == 24 || bits == 32 : bits == 8 || withAlpha;
    if (kind < 1 || kind > 3 || !knownBits || byteAt(head, 1) > 1)
        return std::nullopt;
    BitmapHeader header;
    header.size = {little16(head, 12), little16(head, 14)};
    if (header.size.isEmpty())
        return std::nullopt;
    const int paletteBits = byteAt(head, 7);
    const int colorBits = kind == 1 ? paletteBits : bits;
    header.isGray = kind == 3;
    header.depth = !header.isGray && (colorBits == 15 || colorBits == 16) ? 5 : 8;
    header.hasAlpha = (colorBits == 32 || withAlpha) && (kind == 1 || (byteAt(head, 17) & 15) != 0);
    return header;
}

// Behind 512 bytes of anything: two bytes of length, the frame, and the version with its resolution.
std::optional<BitmapHeader> readPictHeader(QIODevice& file)
{
    constexpr qint64 kStart = 512;
    const QByteArray head = readAt(file, kStart, 40);
    if (head.size() < 40)
        return std::nullopt;
    const auto number = [&](qsizetype offset) { return qFromBigEndian<qint16>(head.constData() + offset); };
    const bool isSecond = big32(head, 10) == 0x001102ff;
    if (!isSecond && head.mid(10, 2) != "\x11\x01")
        return std::nullopt;
    BitmapHeader header;
    header.size = {number(8) - number(4), number(6) - number(2)};
    if (header.size.isEmpty())
        return std::nullopt;
    if (isSecond && number(14) == 0x0c00 && number(16) == -2)
        header.dpi = big32(head, 20) / 65536.0;
    header.hasAlpha = true; // When the picture has it.
    return header;
}

} // namespace mosaro::importing
