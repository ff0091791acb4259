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
constexpr quint32 kPaletteBytes = 3 * 256;

enum ColorMode { Bitmap = 0, Grayscale = 1, Indexed = 2, Cmyk = 4, Multichannel = 7, Duotone = 8, Lab = 9 };
enum Resource { Resolution = 1005, Profile = 1039, Clear = 1047, Version = 1057, Exif = 1058, Xmp = 1060 };

template <class Number>
Number big(const QByteArray& bytes, qsizetype offset = 0)
{
    return qFromBigEndian<Number>(bytes.constData() + offset);
}

struct ColorModel {
    QString name;
    PhotoshopPixels::Model model = PhotoshopPixels::Rgb;
};

/// Channels of any inks are shown as those of printing, or as the colours of light that those leave.
ColorModel colorModelOf(int mode, int channels)
{
    switch (mode) {
    case Bitmap:
    case Grayscale:
    case Duotone:
        return {QStringLiteral("Gray"), PhotoshopPixels::Gray};
    case Cmyk:
        return {QStringLiteral("CMYK"), PhotoshopPixels::Cmyk};
    case Multichannel:
        if (channels > 3)
            return {QStringLiteral("CMYK"), PhotoshopPixels::Cmyk};
        return {QStringLiteral("RGB"), channels == 3 ? PhotoshopPixels::Rgb : PhotoshopPixels::Gray};
    case Lab:
        return {QStringLiteral("Lab"), PhotoshopPixels::Lab};
    default:
        return {QStringLiteral("RGB"), PhotoshopPixels::Rgb};
    }
}

/// Photoshop's companions put resources of their own beside.
bool isResource(const QByteArray& head)
{
    return head.startsWith("8BIM") || head.startsWith("AgHg") || head.startsWith("DCSR") ||
           head.startsWith("PHUT") || head.startsWith("MeSa");
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
        m_mode = big<quint16>(head, 24);
        m_pixels.channels = big<quint16>(head, 12);
        m_pixels.isLarge = version == 2;
        m_pixels.depth = m_metadata.depth = big<quint16>(head, 22);
        m_metadata.height = big<qint32>(head, 14);
        m_metadata.width = big<qint32>(head, 18);
        m_pixels.size = {m_metadata.width, m_metadata.height};
        const ColorModel model = colorModelOf(m_mode, m_pixels.channels);
        m_metadata.colorModel = model.name;
        m_pixels.model = model.model;
        if (m_pixels.size.isEmpty() || m_pixels.channels == 0)
            return std::nullopt;
        const std::optional<qint64> resources = sectionEnd(kHeadBytes, 4);
        const std::optional<qint64> layers = resources ? sectionEnd(*resources, 4) : std::nullopt;
        if (!layers)
            return std::nullopt;
        readResources(*resources + 4, *layers);
        if (m_metadata.software.isEmpty())
            m_metadata.software = m_creatorTool;
        m_pixels.at = sectionEnd(*layers, lengthBytes()).value_or(0);
        if (m_mode == Indexed)
            readPalette();
        else if (m_pixels.channels > m_pixels.colors())
            m_pixels.hasAlpha = firstAlphaIsTransparency(*layers);
        m_metadata.hasAlpha = m_pixels.hasAlpha;
        return m_metadata;
    }

    [[nodiscard]] std::optional<PhotoshopPixels> pixels() const
    {
        const bool isIndexed = m_mode == Indexed;
        const bool isKnown = m_pixels.depth == 8 || (m_pixels.depth == 1 && m_mode == Bitmap) ||
                             (m_pixels.depth == 16 && !isIndexed);
        const bool isWhole =
            isIndexed ? m_pixels.palette.size() == kPaletteBytes : m_pixels.channels >= m_pixels.colors();
        return m_pixels.at > 0 && isKnown && isWhole ? std::optional(m_pixels) : std::nullopt;
    }

private:
    QByteArray readAt(qint64 at, qint64 length)
    {
        return m_file.seek(at) ? m_file.read(length) : QByteArray();
    }

    [[nodiscard]] qint64 lengthBytes() const { return m_pixels.isLarge ? 8 : 4; }

    /// Where the section ends whose length stands at `at`; nothing when it is longer than the file.
    std::optional<qint64> sectionEnd(qint64 at, qint64 lengthBytes)
    {
        const QByteArray length = readAt(at, lengthBytes);
        if (length.size() < lengthBytes)
            return std::nullopt;
        const quint64 bytes = lengthBytes == 8 ? big<quint64>(length) : big<quint32>(length);
        const qint64 from = at + lengthBytes;
        return bytes <= quint64(m_file.size() - from) ? std::optional(from + qint64(bytes)) : std::nullopt;
    }

    void readPalette()
    {
        const QByteArray length = readAt(kHeadBytes, 4);
        m_pixels.palette = readAt(kHeadBytes + 4, std::min(kPaletteBytes, big<quint32>(length)));
        m_pixels.hasAlpha = m_pixels.transparent >= 0;
    }

    void readResources(qint64 at, qint64 end)
    {
        for (int count = 0; count < kMostResources && end - at >= 12; ++count) {
            const QByteArray head = readAt(at, 7);
            if (head.size() < 7 || !isResource(head))
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
        if (resource != Resolution && resource != Profile && resource != Clear && resource != Version &&
            resource != Exif && resource != Xmp)
            return;
        const QByteArray data = readAt(at, std::min(length, kMostResourceBytes));
        if (resource == Profile) {
            m_metadata.profileName = profileName(data);
            m_pixels.profile = data;
        }
        if (resource == Clear && data.size() >= 2)
            m_pixels.transparent = big<quint16>(data) < 256 ? big<quint16>(data) : -1;
        if (resource == Version && data.size() >= 5)
            m_pixels.isMerged = data.at(4) != 0;
        if (resource == Exif)
            m_metadata.software = tiffText(data, kSoftwareTag);
        if (resource == Xmp)
            m_creatorTool = creatorTool(data);
        if (resource == Resolution && data.size() >= 4 && big<quint32>(data) > 0)
            m_metadata.dpi = big<quint32>(data) / 65536.0;
    }

    /// A negative number of layers says so. Layers of more than 8 bits stand in a block behind the others;
    /// a block without contents says the same for a document that has none.
    bool firstAlphaIsTransparency(qint64 layers)
    {
        if (m_pixels.at - layers <= 2 * lengthBytes())
            return false;
        const qint64 from = layers + lengthBytes();
        const std::optional<qint64> plain = sectionEnd(from, lengthBytes());
        if (plain && *plain > from + lengthBytes())
            return big<qint16>(readAt(from + lengthBytes(), 2).leftJustified(2, '\0')) < 0;
        std::optional<qint64> at = plain ? sectionEnd(*plain, 4) : std::nullopt;
        for (int count = 0; count < kMostResources && at && *at < m_pixels.at; ++count) {
            const QByteArray head = readAt(*at, 18);
            if (!head.startsWith("8BIM") && !head.startsWith("8B64"))
                return false;
            const QByteArray name = head.mid(4, 4);
            if (name == "Mtrn" || name == "Mt16" || name == "Mt32")
                return true;
            const bool hasLayers = name == "Lr16" || name == "Lr32";
            const qint64 ownLength = m_pixels.isLarge && hasLayers ? 8 : 4;
            if (hasLayers && head.size() >= 8 + ownLength + 2)
                return big<qint16>(head, 8 + ownLength) < 0;
            at = sectionEnd(*at + 8, ownLength);
            if (at)
                *at = (*at + 3) & ~qint64(3);
        }
        return false;
    }

    QIODevice& m_file;
    ImageMetadata m_metadata;
    PhotoshopPixels m_pixels;
    int m_mode = -1;
    QString m_creatorTool;
};

} // namespace

std::optional<ImageMetadata> readPhotoshopHeader(QIODevice& file)
{
    return PhotoshopReader(file).read();
}

std::optional<PhotoshopPixels> readPhotoshopLayout(QIODevice& file)
{
    PhotoshopReader reader(file);
    return reader.read() ? reader.pixels() : std::nullopt;
}

} // namespace mosaro::importing
