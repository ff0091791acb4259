#include "import/SvgSize.h"

#include "import/ImageOperations.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <array>
#include <cmath>
#include <optional>

namespace mosaro::importing {

namespace {

// A root element stands near the beginning, behind a licence and a document type at most. Small also because
// the XML reader compares every two attributes of an element.
constexpr qint64 kHeadBytes = qint64(128) << 10;

struct Unit {
    QLatin1String name;
    double pixels;
};
// The order counts only for the reader: no two of them can end the same text.
constexpr std::array<Unit, 8> kUnits{{
    {QLatin1String("em"), 16.0},
    {QLatin1String("ex"), 16.0},
    {QLatin1String("px"), 1.0},
    {QLatin1String("pt"), 1.333333},
    {QLatin1String("pc"), 16.0},
    {QLatin1String("cm"), 37.795276},
    {QLatin1String("mm"), 3.779528},
    {QLatin1String("in"), 96.0},
}};

using Attributes = QHash<QString, QString>;

/// What stands at the beginning of the text as a number; 0 for none.
double leadingNumber(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?)"));
    const double value = number.match(text).captured(1).toDouble();
    return std::isfinite(value) ? value : 0;
}

double lengthOf(const QString& text, double factor)
{
    QString number = text;
    for (const Unit& unit : kUnits)
        number.remove(unit.name);
    return leadingNumber(number.trimmed()) * factor;
}

QSizeF sizeByAttributes(const Attributes& attributes)
{
    double width = 0;
    double height = 0;
    const QStringList box = attributes.value(QStringLiteral("viewBox")).split(u' ');
    if (box.size() == 4) {
        width = leadingNumber(box.at(2));
        height = leadingNumber(box.at(3));
    }
    if (const auto given = attributes.constFind(QStringLiteral("width")); given != attributes.cend())
        width = lengthOf(*given, unitConvert(*given));
    if (const auto given = attributes.constFind(QStringLiteral("height")); given != attributes.cend())
        height = lengthOf(*given, unitConvert(*given));
    if (width > 0 && height > 0 && std::isfinite(width) && std::isfinite(height))
        return {width, height};
    return kPreviewBox;
}

bool isSvgElement(QStringView qualifiedName)
{
    return qualifiedName.mid(qualifiedName.lastIndexOf(u':') + 1) == QLatin1String("svg");
}

/// The root element's attributes as the XML says; nothing when the XML breaks before it.
std::optional<Attributes> attributesByXml(const QByteArray& document)
{
    QXmlStreamReader reader(document);
    reader.setNamespaceProcessing(false); // A prefix that nobody declared is no reason to give up.
    if (!reader.readNextStartElement())
        return std::nullopt;
    Attributes attributes;
    if (isSvgElement(reader.qualifiedName())) {
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            attributes.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    }
    return attributes;
}

/// The first tag that is called so, in text that is no good XML.
Attributes attributesByText(const QByteArray& document)
{
    static const QRegularExpression begin(QStringLiteral("<(?:[\\w.-]{1,64}:)?svg(?=[\\s/>])"));
    static const QRegularExpression attribute(
        QStringLiteral("\\s([\\w:.-]+)\\s*=\\s*(?:\"([^\"<]*)\"|'([^'<]*)')"));
    const QString text = QString::fromUtf8(document);
    const QRegularExpressionMatch tag = begin.match(text);
    if (!tag.hasMatch())
        return {};
    const qsizetype end = text.indexOf(u'>', tag.capturedEnd());
    const QString inside = text.mid(tag.capturedEnd(), end < 0 ? -1 : end - tag.capturedEnd());
    Attributes attributes;
    for (auto found = attribute.globalMatch(inside); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        attributes.insert(match.captured(1), match.captured(2) + match.captured(3));
    }
    return attributes;
}

} // namespace

double unitConvert(QStringView text)
{
    for (const Unit& unit : kUnits) {
        if (text.endsWith(unit.name))
            return unit.pixels;
    }
    return 1.0;
}

QSizeF svgSize(const QString& path)
{
    if (path.isEmpty())
        return {0, 0};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return kPreviewBox;
    return svgSizeOf(file.read(kHeadBytes));
}

QSizeF svgSizeOf(const QByteArray& document)
{
    const QByteArray head = document.left(kHeadBytes);
    const std::optional<Attributes> attributes = attributesByXml(head);
    return sizeByAttributes(attributes ? *attributes : attributesByText(head));
}

} // namespace mosaro::importing
