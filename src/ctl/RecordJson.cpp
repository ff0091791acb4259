#include "ctl/RecordJson.h"

#include "ctl/Session.h"
#include "import/MRBrowserItem.h"
#include "store/Collections.h"
#include "store/ColorList.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace mosaro::ctl {

namespace {

QJsonValue attributeJson(const QVariant& value, store::ValueType type)
{
    if (!value.isValid()) {
        return QJsonValue::Null;
    }
    if (type == store::ValueType::Date) {
        return value.toDateTime().toUTC().toString(Qt::ISODateWithMs);
    }
    return QJsonValue::fromVariant(value);
}

QJsonArray colorsJson(const store::Media& media)
{
    auto links = media.colorList();
    std::sort(links.begin(), links.end(),
              [](const auto& a, const auto& b) { return a->colorType() < b->colorType(); });
    QJsonArray array;
    for (const auto& link : links) {
        array.append(QJsonObject{{QStringLiteral("colorID"), link->colorID()},
                                 {QStringLiteral("colorType"), link->colorType()}});
    }
    return array;
}

} // namespace

QJsonObject recordJson(const store::Record& record)
{
    QJsonObject object;
    const auto attributes = record.entity().attributes;
    for (size_t i = 0; i < attributes.size(); ++i) {
        if (attributes[i].type != store::ValueType::Reference) {
            object.insert(attributes[i].name,
                          attributeJson(record.attribute(static_cast<int>(i)), attributes[i].type));
        }
    }
    return object;
}

QJsonObject mediaJson(const std::shared_ptr<store::Media>& media, const QString& masterDirPath)
{
    const importing::MRBrowserItem item(media, masterDirPath);
    QStringList tags = item.tagsWithName();
    tags.sort();
    QJsonObject object = recordJson(*media);
    object.insert(QStringLiteral("tags"), QJsonArray::fromStringList(tags));
    object.insert(QStringLiteral("colors"), colorsJson(*media));
    object.insert(QStringLiteral("collection"), item.collectionTitle());
    object.insert(QStringLiteral("path"), item.mediaPath());
    object.insert(QStringLiteral("preview"), item.thumbPath());
    return object;
}

void printFields(QTextStream& out, const QJsonObject& object)
{
    for (auto field = object.begin(); field != object.end(); ++field) {
        if (field->isNull()) {
            continue;
        }
        const bool isPlain = !field->isArray() && !field->isObject();
        const QString value = isPlain
                                  ? field->toVariant().toString()
                                  : QString::fromUtf8((field->isArray() ? QJsonDocument(field->toArray())
                                                                        : QJsonDocument(field->toObject()))
                                                          .toJson(QJsonDocument::Compact));
        out << field.key() << ": " << oneLine(value) << '\n';
    }
    out.flush();
}

JsonArrayWriter::JsonArrayWriter(QTextStream& out) : m_out(out)
{
    m_out << '[';
}

JsonArrayWriter::~JsonArrayWriter()
{
    m_out << (m_isEmpty ? "]" : "\n]") << Qt::endl;
}

void JsonArrayWriter::write(const QJsonObject& object)
{
    m_out << (m_isEmpty ? "\n" : ",\n")
          << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    m_isEmpty = false;
}

} // namespace mosaro::ctl
