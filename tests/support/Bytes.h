#pragma once

#include <QByteArray>
#include <QDataStream>
#include <vector>

namespace mosaro::test {

/// A file put together number by number.
class Bytes {
public:
    explicit Bytes(QDataStream::ByteOrder order = QDataStream::LittleEndian) { m_stream.setByteOrder(order); }

    Bytes& put8(auto... numbers) { return ((m_stream << static_cast<quint8>(numbers)), ...), *this; }
    Bytes& put16(auto... numbers) { return ((m_stream << static_cast<quint16>(numbers)), ...), *this; }
    Bytes& put32(auto... numbers) { return ((m_stream << static_cast<quint32>(numbers)), ...), *this; }
    Bytes& put(const QByteArray& bytes)
    {
        m_stream.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
        return *this;
    }
    [[nodiscard]] QByteArray all() const { return m_bytes; }

private:
    QByteArray m_bytes = "";
    QDataStream m_stream{&m_bytes, QIODevice::WriteOnly};
};

/// One entry of a TIFF directory. `type` 1 bytes and 2 text, as they are; 3 shorts, 4 longs, 5 and 10
/// fractions.
struct TiffTag {
    int tag, type;
    std::vector<qint64> numbers;
    QByteArray bytes = {};
};

/// A directory that begins at `offset`, in the order of the tags, with what they point to behind it. Behind
/// that stands another one unless it is the last.
[[nodiscard]] QByteArray tiffDirectory(std::vector<TiffTag> tags, qsizetype offset, bool isLast = true,
                                       QDataStream::ByteOrder order = QDataStream::LittleEndian);

} // namespace mosaro::test
