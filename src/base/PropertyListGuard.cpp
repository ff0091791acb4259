#include "base/PropertyListGuard.h"

#include "base/Text.h"

#include <QXmlStreamReader>
#include <QtEndian>
#include <algorithm>
#include <optional>
#include <vector>

namespace mosaro::base {

namespace {

constexpr quint64 kMaximumNodes = 4'000'000;
constexpr quint64 kMaximumUnfoldedBytes = 256ULL * 1024 * 1024;

/// What an object costs with all that it holds.
struct Measure {
    int height = 0; ///< Levels of containers from here down.
    quint64 nodes = 0;
    quint64 bytes = 0;
};

enum class Verdict { Fine, Damaged, Oversized };

/// Walks the object graph of a binary list. Objects are measured once, however often they are named.
class BinaryWalk {
public:
    explicit BinaryWalk(const QByteArray& data)
        : m_bytes(reinterpret_cast<const uchar*>(data.constData())), m_size(quint64(data.size()))
    {
    }

    Verdict run()
    {
        if (!readTrailer())
            return Verdict::Damaged;
        m_states.resize(size_t(m_objectCount), State::New);
        m_measures.resize(size_t(m_objectCount));
        return visit(m_topObject, 0);
    }

private:
    enum class State : uchar { New, Open, Done };
    struct Object {
        int kind = 0;
        quint64 count = 0;
        quint64 payload = 0; ///< Offset of what follows the marker and the count.
    };

    bool readTrailer()
    {
        constexpr quint64 kTrailer = 32;
        constexpr quint64 kHeader = 8;
        if (m_size < kHeader + kTrailer)
            return false;
        const uchar* trailer = m_bytes + m_size - kTrailer;
        m_offsetSize = trailer[6];
        m_referenceSize = trailer[7];
        m_objectCount = qFromBigEndian<quint64>(trailer + 8);
        m_topObject = qFromBigEndian<quint64>(trailer + 16);
        m_table = qFromBigEndian<quint64>(trailer + 24);
        if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
            return false;
        return m_table >= kHeader && m_table <= m_size - kTrailer && m_objectCount > 0 &&
               m_objectCount <= (m_size - kTrailer - m_table) / m_offsetSize && m_topObject < m_objectCount;
    }

    [[nodiscard]] quint64 number(quint64 at, quint64 size) const
    {
        quint64 value = 0;
        for (quint64 i = 0; i < size; ++i)
            value = (value << 8) | m_bytes[at + i];
        return value;
    }

    [[nodiscard]] std::optional<Object> object(quint64 index) const
    {
        const quint64 at = number(m_table + index * m_offsetSize, m_offsetSize);
        if (at >= m_table)
            return std::nullopt;
        Object found{m_bytes[at] >> 4, m_bytes[at] & 0x0FU, at + 1};
        const bool counted = found.kind >= 0x4 && found.kind != 0x8;
        if (!counted || found.count != 0x0F)
            return found;
        // Fifteen means that the count follows as an integer of its own.
        if (at + 1 >= m_table || m_bytes[at + 1] >> 4 != 0x1 || (m_bytes[at + 1] & 0x0FU) > 3)
            return std::nullopt;
        const quint64 width = 1ULL << (m_bytes[at + 1] & 0x0FU);
        if (at + 2 + width > m_table)
            return std::nullopt;
        return Object{found.kind, number(at + 2, width), at + 2 + width};
    }

    [[nodiscard]] quint64 payloadSize(const Object& found) const
    {
        switch (found.kind) {
        case 0x4:
        case 0x5:
            return found.count;
        case 0x6:
            return found.count * 2;
        case 0xA:
        case 0xC:
            return found.count * m_referenceSize;
        case 0xD:
            return found.count * m_referenceSize * 2;
        default:
            return 0;
        }
    }

    /// The parser ends the program over a text with a zero in it.
    [[nodiscard]] bool holdsZero(const Object& found) const
    {
        const quint64 step = found.kind == 0x6 ? 2 : 1;
        for (quint64 i = 0; i < found.count; ++i) {
            if (number(found.payload + i * step, step) == 0)
                return true;
        }
        return false;
    }

    Verdict visit(quint64 index, int level)
    {
        if (index >= m_objectCount || m_states[size_t(index)] == State::Open)
            return Verdict::Damaged;
        if (m_states[size_t(index)] == State::Done)
            return level + m_measures[size_t(index)].height > kPropertyListDepth ? Verdict::Oversized
                                                                                 : Verdict::Fine;
        const auto found = object(index);
        if (!found || found->count > m_table || payloadSize(*found) > m_table - found->payload)
            return Verdict::Damaged;
        if ((found->kind == 0x5 || found->kind == 0x6) && holdsZero(*found))
            return Verdict::Damaged;
        m_states[size_t(index)] = State::Open;
        Measure measure{0, 1, payloadSize(*found)};
        if (found->kind >= 0xA) {
            measure.height = 1;
            if (level + 1 > kPropertyListDepth)
                return Verdict::Oversized;
            const Verdict verdict = visitChildren(*found, level + 1, measure);
            if (verdict != Verdict::Fine)
                return verdict;
        }
        m_measures[size_t(index)] = measure;
        m_states[size_t(index)] = State::Done;
        return Verdict::Fine;
    }

    Verdict visitChildren(const Object& container, int level, Measure& measure)
    {
        const quint64 children = container.kind == 0xD ? container.count * 2 : container.count;
        for (quint64 i = 0; i < children; ++i) {
            const quint64 child = number(container.payload + i * m_referenceSize, m_referenceSize);
            const Verdict verdict = visit(child, level);
            if (verdict != Verdict::Fine)
                return verdict;
            const Measure& inner = m_measures[size_t(child)];
            measure.height = std::max(measure.height, inner.height + 1);
            measure.nodes += inner.nodes;
            measure.bytes += inner.bytes;
            if (measure.nodes > kMaximumNodes || measure.bytes > kMaximumUnfoldedBytes)
                return Verdict::Oversized;
        }
        return Verdict::Fine;
    }

    const uchar* m_bytes;
    quint64 m_size;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_objectCount = 0;
    quint64 m_topObject = 0;
    quint64 m_table = 0;
    std::vector<State> m_states;
    std::vector<Measure> m_measures;
};

bool isContainer(QStringView name)
{
    return name == QLatin1String("array") || name == QLatin1String("dict");
}

Verdict walkXml(const QByteArray& data)
{
    QXmlStreamReader reader(data);
    int containers = 0;
    quint64 nodes = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (nodes == 0 && reader.name() != QLatin1String("plist"))
                return Verdict::Damaged;
            containers += isContainer(reader.name()) ? 1 : 0;
            if (containers > kPropertyListDepth || ++nodes > kMaximumNodes)
                return Verdict::Oversized;
        } else if (token == QXmlStreamReader::EndElement) {
            containers -= isContainer(reader.name()) ? 1 : 0;
        }
    }
    return reader.hasError() || nodes < 2 ? Verdict::Damaged : Verdict::Fine;
}

} // namespace

bool isBinaryPropertyList(const QByteArray& data)
{
    return data.startsWith("bplist");
}

Failure damagedPropertyList()
{
    return {text("Failure.PropertyList.Damaged")};
}

Failure oversizedPropertyList()
{
    return {text("Failure.PropertyList.Oversized")};
}

Result<void> checkPropertyList(const QByteArray& data)
{
    if (data.size() > kPropertyListBytes)
        return oversizedPropertyList();
    const Verdict verdict = isBinaryPropertyList(data) ? BinaryWalk(data).run() : walkXml(data);
    switch (verdict) {
    case Verdict::Fine:
        return {};
    case Verdict::Oversized:
        return oversizedPropertyList();
    case Verdict::Damaged:
        break;
    }
    return damagedPropertyList();
}

} // namespace mosaro::base
