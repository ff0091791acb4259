#include "import/PostScriptDocument.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cmath>

namespace mosaro::importing {

namespace {

constexpr QRectF kSheet(0, 0, 612, 792);
constexpr qsizetype kCommentBytes = qsizetype(64) * 1024; // At either end.
constexpr double kFarthest = 1e6;                         // Of a coordinate.
constexpr QByteArrayView kBinaryMark("\xc5\xd0\xd3\xc6", 4);
constexpr qsizetype kBinaryHeaderBytes = 28;

/// The part of a file with a preview that is PostScript. Nothing when it does not lie in the file.
QByteArray programOf(const QByteArray& bytes)
{
    if (!bytes.startsWith(kBinaryMark))
        return bytes;
    if (bytes.size() < kBinaryHeaderBytes)
        return {};
    const qint64 start = qFromLittleEndian<quint32>(bytes.constData() + 4);
    const qint64 length = qFromLittleEndian<quint32>(bytes.constData() + 8);
    return start >= kBinaryHeaderBytes && start < bytes.size() ? bytes.mid(start, length) : QByteArray();
}

/// Printers' job control and blanks may stand before it.
bool beginsAsPostScript(const QByteArray& program)
{
    const qsizetype mark = program.left(1024).indexOf("%!");
    const QByteArray before = program.left(std::max<qsizetype>(mark, 0));
    return mark == 0 || (mark > 0 && (before.startsWith("\x1b%-12345X") || before.startsWith('\x04') ||
                                      before.startsWith("\xef\xbb\xbf") || before.trimmed().isEmpty()));
}

/// Four numbers that make a rectangle.
std::optional<QRectF> rectangle(const QByteArray& text)
{
    const QList<QByteArray> words = text.simplified().split(' ');
    if (words.size() < 4)
        return {};
    std::array<double, 4> edge{};
    for (std::size_t i = 0; i < edge.size(); ++i) {
        bool ok = false;
        edge[i] = words[qsizetype(i)].toDouble(&ok);
        if (!ok || !(std::abs(edge[i]) <= kFarthest))
            return {};
    }
    const QRectF result(edge[0], edge[1], edge[2] - edge[0], edge[3] - edge[1]);
    return result.width() > 0 && result.height() > 0 ? std::optional(result) : std::nullopt;
}

QList<QByteArray> linesOf(QByteArray text)
{
    text.replace('\r', '\n');
    return text.split('\n');
}

/// The first such comment that holds a rectangle. A header ends where the comments end; what a document holds
/// of others comes after that.
std::optional<QRectF> boxIn(const QList<QByteArray>& lines, const QByteArray& label, bool isHeader)
{
    for (const QByteArray& line : lines) {
        if (isHeader && (line.startsWith("%%EndComments") || (!line.isEmpty() && !line.startsWith('%'))))
            break;
        const std::optional<QRectF> box =
            line.startsWith(label) ? rectangle(line.mid(label.size())) : std::nullopt;
        if (box)
            return box;
    }
    return {};
}

/// Comments that are put off to the end stand after the last "%%Trailer".
QByteArray trailerOf(const QByteArray& program)
{
    const QByteArray end = program.right(kCommentBytes);
    const qsizetype start = end.lastIndexOf("%%Trailer");
    return start < 0 ? QByteArray() : end.mid(start);
}

std::optional<QRectF> boundingBoxOf(const QByteArray& program)
{
    const QList<QByteArray> header = linesOf(program.mid(program.indexOf("%!")).left(kCommentBytes));
    const QList<QByteArray> trailer = linesOf(trailerOf(program));
    for (const QByteArray& label : {QByteArray("%%HiResBoundingBox:"), QByteArray("%%BoundingBox:")}) {
        std::optional<QRectF> box = boxIn(header, label, true);
        if (!box)
            box = boxIn(trailer, label, false);
        if (box)
            return box;
    }
    return {};
}

} // namespace

std::optional<PostScriptDocument> postScriptDocument(const QByteArray& bytes)
{
    const QByteArray program = programOf(bytes);
    if (!beginsAsPostScript(program))
        return {};
    const std::optional<QRectF> box = boundingBoxOf(program);
    return PostScriptDocument{program, box.value_or(kSheet), box.has_value()};
}

bool holdsPostScript(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(1024);
    return head.startsWith(kBinaryMark) || (!head.contains("%PDF-") && beginsAsPostScript(head));
}

} // namespace mosaro::importing
