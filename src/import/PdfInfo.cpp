#include "import/PdfInfo.h"

#include <QHash>
#include <QList>
#include <algorithm>
#include <array>
#include <cmath>

namespace mosaro::importing {

namespace {

// Every value begins in this column, behind its label.
constexpr qsizetype kValueColumn = 17;

// The document's own texts come first, in this order; the line after them is always there.
constexpr std::array<const char*, 9> kTextLabels = {
    "Title:",    "Subject:",      "Keywords:", "Author:",         "Creator:",
    "Producer:", "CreationDate:", "ModDate:",  "Custom Metadata:"};

/// A line continues the text before it, unless it begins with a label that comes later in the order.
QHash<QByteArray, QByteArray> textsOf(const QList<QByteArray>& lines)
{
    QHash<QByteArray, QByteArray> texts;
    std::size_t next = 0;
    QByteArray current;
    for (const QByteArray& line : lines) {
        std::size_t found = next;
        while (found < kTextLabels.size() && !line.startsWith(kTextLabels[found]))
            ++found;
        if (found + 1 == kTextLabels.size())
            break;
        if (found < kTextLabels.size()) {
            current = kTextLabels[found];
            texts.insert(current, line.mid(kValueColumn));
            next = found + 1;
        } else if (!current.isEmpty()) {
            texts[current] += '\n' + line;
        }
    }
    return texts;
}

/// Of a line that pdfinfo writes by itself. These come after all of the document's texts.
QByteArray lastValue(const QList<QByteArray>& lines, const char* label)
{
    const auto line = std::find_if(lines.crbegin(), lines.crend(), [label](const QByteArray& candidate) {
        return candidate.startsWith(label);
    });
    return line == lines.crend() ? QByteArray() : line->mid(qstrlen(label)).simplified();
}

QSizeF boxSize(const QByteArray& value)
{
    const QList<QByteArray> edges = value.split(' ');
    if (edges.size() != 4)
        return {};
    return {edges[2].toDouble() - edges[0].toDouble(), edges[3].toDouble() - edges[1].toDouble()};
}

/// From "595.276 x 841.89 pts (A4)".
QSizeF pageSize(const QByteArray& value)
{
    const QList<QByteArray> words = value.split(' ');
    return words.size() < 3 ? QSizeF() : QSizeF(words[0].toDouble(), words[2].toDouble());
}

bool isNearly(QSizeF one, QSizeF other)
{
    return std::abs(one.width() - other.width()) < 0.02 && std::abs(one.height() - other.height()) < 0.02;
}

QDateTime dateFrom(const QByteArray& text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
}

} // namespace

PdfInfo parsedPdfInfo(const QByteArray& output)
{
    const QList<QByteArray> lines = output.split('\n');
    const QHash<QByteArray, QByteArray> texts = textsOf(lines);
    // Some writers end a text with a zero.
    const auto text = [&texts](const char* label) {
        return QString::fromUtf8(texts.value(label)).remove(QChar(u'\0'));
    };
    PdfInfo info;
    info.metadata.title = text("Title:");
    info.metadata.author = text("Author:");
    info.metadata.subject = text("Subject:");
    info.metadata.creator = text("Creator:");
    info.metadata.producer = text("Producer:");
    info.metadata.created = dateFrom(texts.value("CreationDate:"));
    info.metadata.modified = dateFrom(texts.value("ModDate:"));
    info.metadata.pageCount = lastValue(lines, "Pages:").toInt();
    info.metadata.version = QString::fromLatin1(lastValue(lines, "PDF version:"));
    info.isEncrypted = lastValue(lines, "Encrypted:").startsWith("yes");

    info.pageSize = pageSize(lastValue(lines, "Page size:"));
    info.mediaBox = boxSize(lastValue(lines, "MediaBox:"));
    // The page's size has more digits than its box.
    if (isNearly(info.mediaBox, info.pageSize))
        info.mediaBox = info.pageSize;
    if (lastValue(lines, "Page rot:").toInt() % 180 != 0)
        info.pageSize.transpose();
    return info;
}

} // namespace mosaro::importing
