#include "import/FileHeaders.h"
#include "import/VipsSupport.h"

#include <QIODevice>
#include <QtEndian>
#include <climits>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr int kMostBoxes = 1000;
constexpr int kDeepestBox = 2;
constexpr qint64 kMostProfileBytes = 4 << 20;
constexpr qint64 kMostChannelBytes = 64 << 10;
constexpr qsizetype kSizeMarkerBytes = 45; ///< At the codestream's start, down to the first component.

/// How the colours of the components are told.
enum ColourMethod { Enumerated = 1, RestrictedProfile = 2, AnyProfile = 3 };
enum ColourSpace { Cmyk = 12, Lab = 14, Gray = 17 };

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

quint32 dividedUp(quint32 number, quint32 by)
{
    return by == 0 ? 0 : number / by + (number % by == 0 ? 0 : 1);
}

/// The size is that of the first component, as decoders see it.
void readCodestream(const QByteArray& bytes, BitmapHeader& header)
{
    if (bytes.size() < kSizeMarkerBytes || !bytes.startsWith("\xff\x4f\xff\x51"))
        return;
    const quint32 across = static_cast<uchar>(bytes.at(43));
    const quint32 down = static_cast<uchar>(bytes.at(44));
    const qint64 width =
        qint64(dividedUp(big<quint32>(bytes, 8), across)) - dividedUp(big<quint32>(bytes, 16), across);
    const qint64 height =
        qint64(dividedUp(big<quint32>(bytes, 12), down)) - dividedUp(big<quint32>(bytes, 20), down);
    if (width <= 0 || height <= 0 || std::max(width, height) > INT_MAX)
        return;
    header.size = {static_cast<int>(width), static_cast<int>(height)};
    header.depth = depthOf(bytes.at(42));
    const int components = big<quint16>(bytes, 40);
    header.isGray = components < 3;
    header.hasAlpha = components == 2 || components == 4;
}

class BoxReader {
public:
    explicit BoxReader(QIODevice& file) : m_file(file) {}

    [[nodiscard]] BitmapHeader result() const
    {
        BitmapHeader header = m_coded;
        header.depth = m_depth.value_or(0) > 0 ? *m_depth : header.depth; // 0: of several depths.
        header.dpi = m_header.dpi;
        header.profileName = m_header.profileName;
        header.colorModel = m_header.colorModel;
        header.isGray = m_isGray.value_or(header.isGray);
        header.hasAlpha = m_alpha.value_or(header.hasAlpha && !m_hasPalette && header.colorModel != u"CMYK");
        return header;
    }

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

private:
    void take(const QByteArray& type, qint64 at, qint64 end, int level)
    {
        if ((type == "jp2h" || type == "res ") && level < kDeepestBox)
            return read(at, end, level + 1);
        if (type == "jp2c" && m_coded.size.isEmpty()) {
            readCodestream(contents(at, end, kSizeMarkerBytes), m_coded);
        } else if (type == "ihdr" && end - at >= 11) {
            m_depth = depthOf(contents(at, end, 11).back());
        } else if (type == "colr") {
            takeColours(contents(at, end, kMostProfileBytes));
        } else if (type == "cdef") {
            takeChannels(contents(at, end, kMostChannelBytes));
        } else if (type == "pclr") {
            m_hasPalette = true;
        } else if ((type == "resd" || type == "resc") && end - at >= 10) {
            // How it is to be shown goes before how it was taken.
            if (type == "resd" || m_header.dpi <= 0)
                m_header.dpi = dpiFromMetre(resolutionAcross(contents(at, end, 10)));
        }
    }

    QByteArray contents(qint64 at, qint64 end, qint64 atMost)
    {
        const qint64 length = std::min(end - at, atMost);
        QByteArray data = m_file.seek(at) ? m_file.read(length) : QByteArray();
        return data.leftJustified(length, '\0');
    }

    /// The first description is the one that counts.
    void takeColours(const QByteArray& data)
    {
        if (data.size() < 7 || m_isGray)
            return;
        if (data.at(0) == Enumerated) {
            const quint32 space = big<quint32>(data, 3);
            m_isGray = space == Gray;
            m_header.colorModel = space == Cmyk  ? QStringLiteral("CMYK")
                                  : space == Lab ? QStringLiteral("Lab")
                                                 : QString();
        } else if (data.at(0) == RestrictedProfile || data.at(0) == AnyProfile) {
            m_header.profileName = profileName(data.mid(3));
            m_isGray = data.mid(3 + 16, 4) == "GRAY";
        }
    }

    /// Number, meaning and relation of each: the meanings 1 and 2 are opacities.
    void takeChannels(const QByteArray& data)
    {
        m_alpha = false;
        for (qsizetype at = 2; at + 6 <= data.size(); at += 6) {
            const int meaning = big<quint16>(data, at + 2);
            m_alpha = *m_alpha || meaning == 1 || meaning == 2;
        }
    }

    QIODevice& m_file;
    int m_boxes = 0;
    BitmapHeader m_header; ///< Resolution and colours only.
    BitmapHeader m_coded;
    std::optional<int> m_depth;
    std::optional<bool> m_isGray;
    std::optional<bool> m_alpha;
    bool m_hasPalette = false;
};

} // namespace

std::optional<BitmapHeader> readJpeg2000Header(QIODevice& file)
{
    if (!file.seek(0))
        return std::nullopt;
    BitmapHeader header;
    if (const QByteArray head = file.peek(2); head == "\xff\x4f") {
        readCodestream(file.read(kSizeMarkerBytes), header);
    } else {
        BoxReader reader(file);
        reader.read(0, file.size());
        header = reader.result();
    }
    if (header.size.isEmpty())
        return std::nullopt;
    return header;
}

} // namespace mosaro::importing
