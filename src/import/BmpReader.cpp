#include "import/BmpReader.h"

#include "import/BitmapDecoder.h"

#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <bit>

namespace mosaro::importing {

namespace {

constexpr qsizetype kHeadBytes = 70; ///< Up to the last mask.
constexpr qsizetype kMasks = 54;
constexpr qsizetype kMostColors = 256;

quint32 number(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

/// A number of any width within a pixel.
class Channel {
public:
    explicit Channel(quint32 mask)
        : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)), m_most(mask >> m_shift)
    {
    }

    [[nodiscard]] int of(quint32 pixel, int otherwise) const
    {
        if (m_mask == 0)
            return otherwise;
        const quint64 value = (pixel & m_mask) >> m_shift;
        return static_cast<int>((value * 255 + m_most / 2) / m_most);
    }

private:
    quint32 m_mask;
    int m_shift;
    quint64 m_most;
};

class BmpReader {
public:
    BmpReader(QIODevice& file, QSize size) : m_file(file), m_size(size)
    {
        const QByteArray head = file.seek(0) ? file.read(kHeadBytes) : QByteArray();
        m_head = head.leftJustified(kHeadBytes, '\0'); // A small picture has no place for masks.
    }

    QImage read()
    {
        m_bits = qFromLittleEndian<quint16>(m_head.constData() + 28);
        const qint64 start = number(m_head, 10);
        const QByteArray palette = readPalette(start);
        const bool isTopDown = static_cast<qint32>(number(m_head, 22)) < 0;
        QByteArray row((qint64(m_size.width()) * m_bits + 31) / 32 * 4, Qt::Uninitialized);
        QImage picture(m_size, QImage::Format_ARGB32);
        if (picture.isNull() || !m_file.seek(start))
            return {};
        for (int y = 0; y < m_size.height(); ++y) {
            if (m_file.read(row.data(), row.size()) != row.size())
                return {};
            auto* to = reinterpret_cast<QRgb*>(picture.scanLine(isTopDown ? y : m_size.height() - 1 - y));
            if (m_bits <= 8)
                name(row, palette, to);
            else
                unpack(row, to);
        }
        return m_isSeen || m_bits <= 8 ? picture : picture.convertToFormat(QImage::Format_RGB32);
    }

private:
    /// As many as there is room for, whatever number the header says; black behind them.
    QByteArray readPalette(qint64 start)
    {
        const qint64 from = 14 + qint64(number(m_head, 14));
        const qint64 bytes = std::clamp<qint64>(start - from, 0, kMostColors * 4);
        const QByteArray stored = m_bits <= 8 && m_file.seek(from) ? m_file.read(bytes) : QByteArray();
        return stored.leftJustified(kMostColors * 4, '\0');
    }

    void name(const QByteArray& row, const QByteArray& palette, QRgb* to) const
    {
        const int inByte = 8 / m_bits;
        for (int x = 0; x < m_size.width(); ++x) {
            const int shift = 8 - m_bits * (x % inByte + 1);
            const int color = static_cast<uchar>(row.at(x / inByte)) >> shift & ((1 << m_bits) - 1);
            to[x] = number(palette, color * qsizetype(4)) | 0xff000000U;
        }
    }

    /// Many programs say that there is opacity, and write zeros: a picture with none at all is opaque.
    void unpack(const QByteArray& row, QRgb* to)
    {
        const std::array<Channel, 3> colors = {Channel(number(m_head, kMasks)),
                                               Channel(number(m_head, kMasks + 4)),
                                               Channel(number(m_head, kMasks + 8))};
        const bool isLong = number(m_head, 14) >= 56 || number(m_head, 30) == 6;
        const Channel opacity(isLong ? number(m_head, kMasks + 12) : 0);
        for (int x = 0; x < m_size.width(); ++x) {
            const quint32 pixel = m_bits == 16
                                      ? qFromLittleEndian<quint16>(row.constData() + x * qsizetype(2))
                                      : number(row, x * qsizetype(4));
            to[x] = qRgba(colors[0].of(pixel, 0), colors[1].of(pixel, 0), colors[2].of(pixel, 0),
                          opacity.of(pixel, 255));
            m_isSeen = m_isSeen || qAlpha(to[x]) > 0;
        }
    }

    QIODevice& m_file;
    QSize m_size;
    QByteArray m_head;
    int m_bits = 0;
    bool m_isSeen = false;
};

} // namespace

base::Result<QImage> readRareBmp(QIODevice& file, const BitmapHeader& header)
{
    QImage picture = BmpReader(file, header.size).read();
    if (picture.isNull())
        return damagedPicture();
    return picture;
}

} // namespace mosaro::importing
