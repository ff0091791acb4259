#include "import/FileHeaders.h"

#include <QIODevice>
#include <QtEndian>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr int kMostBoxes = 1000;
constexpr int kDeepestBox = 2;

template <class Number>
Number big(const QByteArray& bytes, qsizetype offset)
{
    return qFromBigEndian<Number>(bytes.constData() + offset);
}

/// Bits less one; the sign is the highest bit, and 255 stands for components that differ.
int depthOf(char stored)
{
    const int bits = static_cast<uchar>(stored);
    return bits == 255 ? 0 : (bits & 127) + 1;
}

/// Pixels per metre, across: a fraction and an exponent of ten.
double resolutionAcross(const QByteArray& data)
{
    const double below = big<quint16>(data, 6);
    const int stored = static_cast<uchar>(data.at(9));
    const int exponent = stored < 128 ? stored : stored - 256;
    return below > 0 ? big<quint16>(data, 4) / below * std::pow(10.0, exponent) : 0;
}

class BoxReader {
public:
    explicit BoxReader(QIODevice& file) : m_file(file) {}

    /// Reads the boxes from `at` to `end`.
    void read(qint64 at, qint64 end, int level = 0)
    {
        while (end - at >= 8 && ++m_boxes <= kMostBoxes && m_file.seek(at)) {
            const QByteArray head = m_file.read(16);
            if (head.size() < 8)
                return;
            qint64 length = big<quint32>(head, 0);
            qint64 headLength = 8;
            if (length == 0)
                length = end - at;
            if (length == 1 && head.size() == 16) {
                length = static_cast<qint64>(std::min<quint64>(big<quint64>(head, 8), INT64_MAX));
                headLength = 16;
            }
            if (length < headLength || length > end - at)
                return;
            take(head.mid(4, 4), at + headLength, at + length, level);
            at += length;
        }
    }

    BitmapHeader header;

private:
    void take(const QByteArray& type, qint64 at, qint64 end, int level)
    {
        if ((type == "jp2h" || type == "res ") && level < kDeepestBox)
            return read(at, end, level + 1);
        if ((type != "ihdr" && type != "resc" && type != "resd") || !m_file.seek(at))
            return;
        const QByteArray data = m_file.read(std::min<qint64>(end - at, 14));
        if (type == "ihdr" && data.size() >= 11)
            header.depth = depthOf(data.at(10));
        // How it is to be shown goes before how it was taken.
        if (data.size() >= 10 && (type == "resd" || (type == "resc" && header.dpi <= 0)))
            header.dpi = dpiFromMetre(resolutionAcross(data));
    }

    QIODevice& m_file;
    int m_boxes = 0;
};

} // namespace

std::optional<BitmapHeader> readJpeg2000Header(QIODevice& file)
{
    constexpr qsizetype kDepthOfFirstComponent = 42;
    if (!file.seek(0))
        return std::nullopt;
    const QByteArray head = file.read(kDepthOfFirstComponent + 1);
    if (head.size() <= kDepthOfFirstComponent)
        return std::nullopt;
    BoxReader reader(file);
    if (head.startsWith("\xff\x4f"))
        reader.header.depth = depthOf(head.at(kDepthOfFirstComponent));
    else
        reader.read(0, file.size());
    return reader.header;
}

} // namespace mosaro::importing
