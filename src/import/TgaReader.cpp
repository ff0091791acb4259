#include "import/TgaReader.h"

#include "import/FileHeaders.h"

#include <QIODevice>
#include <QtEndian>
#include <vector>

namespace mosaro::importing {

namespace {

QRgb grayOf(const uchar* bytes, bool alpha)
{
    return qRgba(bytes[0], bytes[0], bytes[0], alpha ? bytes[1] : 255);
}

QRgb colorOf(const uchar* bytes, int bits, bool alpha)
{
    if (bits <= 16) {
        const int value = bytes[0] | bytes[1] << 8;
        const auto wide = [](int five) { return (five << 3) | (five >> 2); };
        return qRgb(wide(value >> 10 & 31), wide(value >> 5 & 31), wide(value & 31));
    }
    return qRgba(bytes[2], bytes[1], bytes[0], bits == 32 && alpha ? bytes[3] : 255);
}

/// Answers one stored pixel after another, unpacking runs. Empty at the end of the data.
class PixelSource {
public:
    PixelSource(QByteArray data, int pixelBytes, bool runLength)
        : m_data(std::move(data)), m_pixelBytes(pixelBytes), m_runLength(runLength)
    {
    }

    const uchar* next()
    {
        if (m_runLength && m_left == 0 && !beginPacket())
            return nullptr;
        if (m_repeated && !m_firstOfPacket) {
            --m_left;
            return m_pixel;
        }
        if (m_data.size() - m_at < m_pixelBytes)
            return nullptr;
        m_pixel = reinterpret_cast<const uchar*>(m_data.constData()) + m_at;
        m_at += m_pixelBytes;
        m_firstOfPacket = false;
        --m_left;
        return m_pixel;
    }

private:
    bool beginPacket()
    {
        if (m_at >= m_data.size())
            return false;
        const int packet = static_cast<uchar>(m_data.at(m_at++));
        m_repeated = packet & 128;
        m_firstOfPacket = true;
        m_left = (packet & 127) + 1;
        return true;
    }

    QByteArray m_data;
    qsizetype m_at = 0;
    int m_pixelBytes;
    bool m_runLength;
    bool m_repeated = false;
    bool m_firstOfPacket = false;
    qint64 m_left = 0;
    const uchar* m_pixel = nullptr;
};

std::vector<QRgb> readPalette(QIODevice& file, const QByteArray& head)
{
    const int first = qFromLittleEndian<quint16>(head.constData() + 3);
    const int count = qFromLittleEndian<quint16>(head.constData() + 5);
    const int bits = static_cast<uchar>(head.at(7));
    const int entryBytes = (bits + 7) / 8;
    const QByteArray data = file.read(qint64(count) * entryBytes);
    std::vector<QRgb> palette(std::size_t(first) + std::size_t(count), qRgb(0, 0, 0));
    if (entryBytes < 2 || entryBytes > 4 || data.size() < qsizetype(count) * entryBytes)
        return {};
    for (int entry = 0; entry < count; ++entry) {
        const auto* bytes = reinterpret_cast<const uchar*>(data.constData()) + qsizetype(entry) * entryBytes;
        palette[std::size_t(first) + std::size_t(entry)] = colorOf(bytes, bits, true);
    }
    return palette;
}

} // namespace

QImage readTga(QIODevice& file)
{
    const std::optional<BitmapHeader> header = readTgaHeader(file);
    if (!header || !file.seek(0))
        return {};
    const QByteArray head = file.read(18);
    const int kind = static_cast<uchar>(head.at(2));
    const int bits = static_cast<uchar>(head.at(16));
    const int descriptor = static_cast<uchar>(head.at(17));
    file.skip(static_cast<uchar>(head.at(0)));
    const std::vector<QRgb> palette = head.at(1) ? readPalette(file, head) : std::vector<QRgb>();

    const bool byPalette = (kind & ~8) == 1;
    const int pixelBytes = (bits + 7) / 8;
    const qint64 atMost = qint64(header->size.width()) * header->size.height() * (pixelBytes + 1);
    PixelSource source(file.read(atMost), pixelBytes, kind & 8);
    QImage image(header->size, header->hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.isNull())
        return {};
    for (int row = 0; row < image.height(); ++row) {
        const bool fromTop = descriptor & 32;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(fromTop ? row : image.height() - 1 - row));
        for (int column = 0; column < image.width(); ++column) {
            const uchar* pixel = source.next();
            if (!pixel || (byPalette && *pixel >= palette.size()))
                return {};
            if (byPalette)
                line[column] = palette[*pixel];
            else
                line[column] =
                    header->isGray ? grayOf(pixel, header->hasAlpha) : colorOf(pixel, bits, header->hasAlpha);
        }
    }
    return descriptor & 16 ? image.mirrored(true, false) : image;
}

} // namespace mosaro::importing
