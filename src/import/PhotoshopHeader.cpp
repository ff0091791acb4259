#include "import/PhotoshopHeader.h"

#include "import/VipsSupport.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QtEndian>

namespace mosaro::importing {

namespace {

constexpr qsizetype kHeadBytes = 26;
constexpr qint64 kMostResourceBytes = qint64(16) << 20;
constexpr int kMostResources = 2000;
constexpr quint16 kSoftwareTag = 305;

enum ColorMode { Bitmap = 0, Grayscale = 1, Indexed = 2, Cmyk = 4, Multichannel = 7, Duotone = 8, Lab = 9 };
enum Resource { Resolution = 1005, Profile = 1039, Exif = 1058, Xmp = 1060 };

template <class Number>
Number big(const QByteArray& bytes, qsizetype offset = 0)
{
    return qFromBigEndian<Number>(bytes.constData() + offset);
}

struct ColorModel {
    QString name;
    int channels;
};

ColorModel colorModelOf(int mode, int channels)
{
    switch (mode) {
    case Bitmap:
    case Grayscale:
    case Duotone:
        return {QStringLiteral("Gray"), 1};
    case Indexed:
        return {QStringLiteral("RGB"), 1};
    case Cmyk:
        return {QStringLiteral("CMYK"), 4};
    case Multichannel:
        return {channels > 3 ? QStringLiteral("CMYK") : QStringLiteral("RGB"), channels};
    case Lab:
        return {QStringLiteral("Lab"), 3};
    default:
        return {QStringLiteral("RGB"), 3};
    }
}

/// A text in the first directory of a block of the TIFF form; empty when there is none.
QString tiffText(const QByteArray& block, quint16 wanted)
{
    const bool little = block.startsWith("II");
    const auto number16 = [&](qint64 at) {
        const char* bytes = block.constData() + at;
        return little ? qFromLittleEndian<quint16>(bytes) : qFromBigEndian<quint16>(bytes);
    };
    const auto number32 = [&](qint64 at) {
        const char* bytes = block.constData() + at;
        return little ? qFromLittleEndian<quint32>(bytes) : qFromBigEndian<quint32>(bytes);
    };
    const qint64 directory = block.size() >= 8 ? number32(4) : block.size();
    if (directory > block.size() - 2)
        return {};
    constexpr int kEntryBytes = 12;
    for (int entry = 0; entry < number16(directory); ++entry) {
        const qint64 at = directory + 2 + qint64(entry) * kEntryBytes;
        if (at > block.size() - kEntryBytes)
            return {};
        if (number16(at) != wanted)
            continue;
        const qint64 length = number32(at + 4);
        const qint64 from = length > 4 ? number32(at + 8) : at + 8;
        if (from > block.size() || length > block.size() - from)
            return {};
        const QByteArray text = block.mid(from, length);
        return QString::fromUtf8(text.constData()).trimmed();
    }
    return {};
}

QString creatorTool(const QByteArray& xmp)
{
    static const QRegularExpression pattern(QStringLiteral("xmp:CreatorTool(?:=\"|>)([^\"<]{1,400})"));
    return pattern.match(QString::fromUtf8(xmp)).captured(1).trimmed();
}

class PhotoshopReader {
public:
    explicit PhotoshopReader(QIODevice& file) : m_file(file) {}

    std::optional<ImageMetadata> read()
    {
        const QByteArray head = m_file.seek(0) ? m_file.read(kHeadBytes) : QByteArray();
        const int version = head.size() == kHeadBytes ? big<quint16>(head, 4) : 0;
        if (!head.startsWith("8BPS") || version < 1 || version > 2)
            return std::nullopt;
        const int channels = big<quint16>(head, 12);
        const ColorModel model = colorModelOf(big<quint16>(head, 24), channels);
        m_metadata.height = big<qint32>(head, 14);
        m_metadata.width = big<qint32>(head, 18);
        m_metadata.depth = big<quint16>(head, 22);
        m_metadata.colorModel = model.name;
        if (m_metadata.width <= 0 || m_metadata.height <= 0 || channels == 0)
            return std::nullopt;
        const std::optional<qint64> resources = sectionEnd(kHeadBytes, 4);
        const std::optional<qint64> layers = resources ? sectionEnd(*resources, 4) : std::nullopt;
        if (!layers)
            return std::nullopt;
        readResources(*resources + 4, *layers);
        if (m_metadata.software.isEmpty())
            m_metadata.software = m_creatorTool;
        m_metadata.hasAlpha = channels > model.channels && firstAlphaIsTransparency(*layers, version);
        return m_metadata;
    }

private:
    QByteArray readAt(qint64 at, qint64 length)
    {
        return m_file.seek(at) ? m_file.read(length) : QByteArray();
    }

    /// Where the section ends whose length stands at `at`; nothing when it is longer than the file.
    std::optional<qint64> sectionEnd(qint64 at, qint64 lengthBytes)
    {
        const QByteArray length = readAt(at, lengthBytes);
        if (length.size() < lengthBytes)
            return std::nullopt;
        const qint64 end = at + lengthBytes + big<quint32>(length);
        return end <= m_file.size() ? std::optional(end) : std::nullopt;
    }

    void readResources(qint64 at, qint64 end)
    {
        for (int count = 0; count < kMostResources && end - at >= 12; ++count) {
            const QByteArray head = readAt(at, 7);
            if (head.size() < 7 || !head.startsWith("8BIM"))
                return;
            // A name with its length in front and an even number of bytes in all.
            const qint64 nameBytes = (static_cast<uchar>(head.at(6)) + 2) & ~1;
            const QByteArray length = readAt(at + 6 + nameBytes, 4);
            if (length.size() < 4)
                return;
            const qint64 bytes = big<quint32>(length);
            at += 6 + nameBytes + 4;
            if (bytes > end - at)
                return;
            take(big<quint16>(head, 4), at, bytes);
            at += bytes + (bytes & 1);
        }
    }

    void take(int resource, qint64 at, qint64 length)
    {
        if (resource != Resolution && resource != Profile && resource != Exif && resource != Xmp)
            return;
        const QByteArray data = readAt(at, std::min(length, kMostResourceBytes));
        if (resource == Profile)
            m_metadata.profileName = profileName(data);
        if (resource == Exif)
            m_metadata.software = tiffText(data, kSoftwareTag);
        if (resource == Xmp)
            m_creatorTool = creatorTool(data);
        if (resource == Resolution && data.size() >= 4 && big<quint32>(data) > 0)
            m_metadata.dpi = big<quint32>(data) / 65536.0;
    }

    /// A negative number of layers says so.
    bool firstAlphaIsTransparency(qint64 layers, int version)
    {
        const qint64 lengthBytes = version == 2 ? 8 : 4;
        const QByteArray number = readAt(layers + 2 * lengthBytes, 2);
        const QByteArray length = readAt(layers, lengthBytes);
        const bool isEmpty = length.count('\0') == length.size();
        return number.size() == 2 && !isEmpty && big<qint16>(number) < 0;
    }

    QIODevice& m_file;
    ImageMetadata m_metadata;
    QString m_creatorTool;
};

} // namespace

std::optional<ImageMetadata> readPhotoshopHeader(QIODevice& file)
{
    return PhotoshopReader(file).read();
}

} // namespace mosaro::importing
