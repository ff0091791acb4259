#include "import/FileHeaders.h"

#include <QIODevice>
#include <QtEndian>
#include <array>
#include <zlib.h>

namespace mosaro::importing {

namespace {

constexpr int kMostChunks = 1'000'000; // The pixels alone may come in that many.
constexpr qint64 kMostBytes = qint64(64) * 1024;
constexpr QByteArrayView kKeyword("Software\0", 9);

/// No more than a text may have, of what unfolds.
QByteArray inflated(const QByteArray& packed)
{
    QByteArray text(kMostBytes, Qt::Uninitialized);
    z_stream stream{};
    if (inflateInit(&stream) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.constData()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const int status = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    text.truncate(status == Z_STREAM_END ? static_cast<qsizetype>(stream.total_out) : 0);
    return text;
}

/// Behind the keyword: whether it is packed and how, the language, the keyword in it, and the text.
QString internationalText(const QByteArray& data)
{
    const qsizetype language = data.size() >= 2 ? data.indexOf('\0', 2) : -1;
    const qsizetype keyword = language < 0 ? -1 : data.indexOf('\0', language + 1);
    if (keyword < 0)
        return {};
    const QByteArray text = data.mid(keyword + 1);
    return QString::fromUtf8(data.at(0) == 0 ? text : inflated(text));
}

QString textOf(const QByteArray& chunk, QByteArray data)
{
    if (!data.startsWith(kKeyword))
        return {};
    data.remove(0, kKeyword.size());
    if (chunk == "tEXt")
        return QString::fromLatin1(data);
    return chunk == "zTXt" ? QString::fromLatin1(inflated(data.mid(1))) : internationalText(data);
}

} // namespace

QString pngSoftware(QIODevice& file)
{
    qint64 offset = 8;
    for (int number = 0; number < kMostChunks && file.seek(offset); ++number) {
        std::array<char, 8> head{};
        if (file.read(head.data(), head.size()) != qint64(head.size()))
            break;
        const qint64 length = qFromBigEndian<quint32>(head.data());
        const QByteArray name(head.data() + 4, 4);
        if (name == "IEND")
            break;
        const bool isText = name == "tEXt" || name == "zTXt" || name == "iTXt";
        const QString text =
            isText && length <= kMostBytes ? textOf(name, file.read(length)).trimmed() : QString();
        if (!text.isEmpty())
            return text;
        offset += length + 12;
    }
    return {};
}

} // namespace mosaro::importing
