#include "import/EmbeddedPictures.h"

#include "import/Analysis.h"

#include <QBuffer>
#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

namespace mosaro::importing {

namespace {

constexpr qint64 kPieceBytes = qint64(1) << 20;
constexpr qint64 kScanPieceBytes = qint64(1) << 14;
constexpr qint64 kReadCost = qint64(1) << 12; ///< What a seek and a read cost, in bytes read on.

constexpr std::array<char, 16> kPngBegin = {'\x89', 'P', 'N', 'G', '\r', '\n', '\x1a', '\n',
                                            0,      0,   0,   13,  'I',  'H',  'D',    'R'};
constexpr std::array<char, 3> kJpegBegin = {'\xff', '\xd8', '\xff'};
constexpr QByteArrayView kPngEnd("\xae\x42\x60\x82", 4);

/// Steps through a stream inside a file. Reads are checked, and paid from a budget that candidates share:
/// else a file full of beginnings without an end would be read once for each of them.
class Cursor {
public:
    Cursor(QIODevice& file, qint64 offset, qint64& budget)
        : m_file(file), m_budget(budget), m_position(offset), m_size(file.size())
    {
    }

    [[nodiscard]] qint64 position() const { return m_position; }
    void skip(qint64 bytes) { m_position += bytes; }

    QByteArray takeUpTo(qint64 bytes)
    {
        m_budget -= bytes + kReadCost;
        if (m_budget < 0 || m_position >= m_size || !m_file.seek(m_position))
            return {};
        const QByteArray read = m_file.read(bytes);
        m_position += read.size();
        return read;
    }
    /// Exactly so many bytes, or none.
    QByteArray take(qint64 bytes)
    {
        const QByteArray read = takeUpTo(bytes);
        return read.size() == bytes ? read : QByteArray();
    }

private:
    QIODevice& m_file;
    qint64& m_budget;
    qint64 m_position;
    qint64 m_size;
};

template <class Number>
Number numberAt(const QByteArray& bytes, qsizetype position)
{
    return qFromBigEndian<Number>(bytes.constData() + position);
}

bool isChunkName(QByteArrayView name)
{
    return std::all_of(name.cbegin(), name.cend(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });
}

/// The picture's size; the cursor has stopped behind the stream's last byte.
std::optional<QSize> walkPng(Cursor& cursor)
{
    const QByteArray head = cursor.take(qsizetype(kPngBegin.size()) + 8);
    if (head.isEmpty() || !head.startsWith(QByteArrayView(kPngBegin)))
        return std::nullopt;
    const auto width = numberAt<quint32>(head, 16);
    const auto height = numberAt<quint32>(head, 20);
    if (width == 0 || height == 0 || width > INT_MAX || height > INT_MAX)
        return std::nullopt;
    cursor.skip(5 + 4); // The header's other fields and its check sum.
    bool hasPixels = false;
    for (QByteArray chunk = cursor.take(8); !chunk.isEmpty(); chunk = cursor.take(8)) {
        const auto length = numberAt<quint32>(chunk, 0);
        const QByteArrayView name = QByteArrayView(chunk).sliced(4);
        if (length > INT_MAX || !isChunkName(name))
            return std::nullopt;
        cursor.skip(length);
        if (name == "IEND") {
            const bool isWhole = hasPixels && length == 0 && cursor.take(4) == kPngEnd;
            return isWhole ? std::optional(QSize(int(width), int(height))) : std::nullopt;
        }
        cursor.skip(4);
        hasPixels = hasPixels || (name == "IDAT" && length > 0);
    }
    return std::nullopt;
}

/// To the next marker that is no part of the compressed pixels.
bool skipJpegScan(Cursor& cursor)
{
    for (;;) {
        const qint64 begin = cursor.position();
        const QByteArray piece = cursor.takeUpTo(kScanPieceBytes);
        for (qsizetype mark = piece.indexOf('\xff'); mark >= 0 && mark + 1 < piece.size();
             mark = piece.indexOf('\xff', mark + 1)) {
            const auto code = static_cast<uchar>(piece.at(mark + 1));
            const bool isPixels = code == 0 || code == 0xff || (code >= 0xd0 && code <= 0xd7);
            if (!isPixels) {
                cursor.skip(begin + mark - cursor.position());
                return true;
            }
        }
        if (piece.size() < kScanPieceBytes)
            return false;
        if (piece.endsWith('\xff'))
            cursor.skip(-1);
    }
}

bool isJpegFrame(uchar marker)
{
    return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}

std::optional<QSize> walkJpeg(Cursor& cursor)
{
    constexpr uchar kEnd = 0xd9;
    constexpr uchar kScan = 0xda;
    cursor.skip(2);
    QSize size;
    bool hasPixels = false;
    for (QByteArray mark = cursor.take(2); !mark.isEmpty(); mark = cursor.take(2)) {
        const auto marker = static_cast<uchar>(mark.at(1));
        if (mark.at(0) != '\xff')
            return std::nullopt;
        if (marker == 0xff) {
            cursor.skip(-1);
            continue;
        }
        if (marker == kEnd)
            return hasPixels && !size.isEmpty() ? std::optional(size) : std::nullopt;
        const qint64 begin = cursor.position();
        const QByteArray head = cursor.take(isJpegFrame(marker) ? 7 : 2);
        if (marker < 0xc0 || (marker >= 0xd0 && marker <= 0xd8) || head.isEmpty())
            return std::nullopt;
        const auto length = numberAt<quint16>(head, 0);
        if (length < head.size())
            return std::nullopt;
        if (isJpegFrame(marker))
            size = QSize(numberAt<quint16>(head, 5), numberAt<quint16>(head, 3));
        cursor.skip(begin + length - cursor.position());
        if (marker == kScan && !skipJpegScan(cursor))
            return std::nullopt;
        hasPixels = hasPixels || marker == kScan;
    }
    return std::nullopt;
}

std::optional<EmbeddedPicture> walk(QIODevice& file, qint64 offset, bool isPng, qint64& budget)
{
    Cursor cursor(file, offset, budget);
    const std::optional<QSize> size = isPng ? walkPng(cursor) : walkJpeg(cursor);
    if (!size)
        return std::nullopt;
    return EmbeddedPicture{offset, cursor.position() - offset, *size};
}

template <std::size_t N>
bool beginsWith(const char* at, const char* end, const std::array<char, N>& mark)
{
    return end - at >= qsizetype(N) && std::memcmp(at, mark.data(), N) == 0;
}

bool isPngBegin(QByteArrayView bytes, qsizetype at)
{
    return beginsWith(bytes.data() + at, bytes.data() + bytes.size(), kPngBegin);
}

/// Where in the piece a stream may begin, from `from` on, or -1.
qsizetype nextBegin(QByteArrayView piece, qsizetype from)
{
    const char* end = piece.data() + piece.size();
    for (const char* at = piece.data() + std::min(from, piece.size()); at < end; ++at) {
        if ((*at == kJpegBegin[0] && beginsWith(at, end, kJpegBegin)) ||
            (*at == kPngBegin[0] && beginsWith(at, end, kPngBegin)))
            return at - piece.data();
    }
    return -1;
}

bool mayBeCarried(const EmbeddedPicture& picture)
{
    const AnalysisLimits& limits = analysisLimits();
    return picture.pixels() <= limits.maxCarriedPixels && picture.length <= limits.maxCarriedBytes;
}

} // namespace

std::optional<EmbeddedPicture> largestEmbeddedPicture(QIODevice& file)
{
    constexpr qsizetype kOverlap = kPngBegin.size() - 1;
    std::optional<EmbeddedPicture> largest;
    qint64 budget = analysisLimits().maxSearchedBytes;
    qint64 position = 0;
    QByteArray piece;
    do {
        if (!file.seek(position))
            break;
        piece = file.read(kPieceBytes);
        qsizetype from = 0;
        for (qsizetype hit = nextBegin(piece, from); hit >= 0 && budget > 0; hit = nextBegin(piece, from)) {
            const auto picture = walk(file, position + hit, isPngBegin(piece, hit), budget);
            if (picture && mayBeCarried(*picture) && (!largest || largest->pixels() < picture->pixels()))
                largest = picture;
            from = picture ? picture->offset + picture->length - position : hit + 1;
        }
        position += std::max(from, piece.size() - kOverlap);
    } while (piece.size() == kPieceBytes && position < analysisLimits().maxSearchedBytes && budget > 0);
    return largest;
}

void LargestPicture::offer(const QByteArray& bytes)
{
    if (nextBegin(QByteArrayView(bytes).first(std::min<qsizetype>(bytes.size(), kPngBegin.size())), 0) != 0)
        return;
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    qint64 budget = analysisLimits().maxSearchedBytes;
    const auto picture = walk(buffer, 0, isPngBegin(bytes, 0), budget);
    if (picture && mayBeCarried(*picture) && picture->pixels() > m_pixels) {
        m_pixels = picture->pixels();
        m_bytes = bytes;
    }
}

} // namespace mosaro::importing
