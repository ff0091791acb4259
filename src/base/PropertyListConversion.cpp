#include "base/PropertyListConversion.h"

#include "base/PropertyListGuard.h"
#include "base/Text.h"

#include <QDateTime>
#include <QVariantHash>
#include <cstdlib>
#include <limits>

namespace mosaro::base {

namespace {

/// Seconds from 1970 to 2001, where property lists begin to count.
constexpr qint64 kEpoch = 978'307'200;
const auto kUidKey = QStringLiteral("CF$UID");

using OwnedText = std::unique_ptr<char, decltype(&std::free)>;

bool isStorable(QChar character, PropertyListFormat format)
{
    const ushort code = character.unicode();
    if (format == PropertyListFormat::Binary)
        return code != 0;
    return (code >= 0x20 && code < 0xFFFE) || code == '\t' || code == '\n' || code == '\r';
}

QByteArray storableText(QString string, PropertyListFormat format)
{
    string.removeIf([format](QChar character) { return !isStorable(character, format); });
    return string.toUtf8();
}

/// Turns values into nodes, and stops at the first that a list cannot hold.
class Writer {
public:
    explicit Writer(PropertyListFormat format) : m_format(format) {}

    /// Null when the value cannot be stored.
    PlistPointer node(const QVariant& value, int depth)
    {
        switch (value.metaType().id()) {
        case QMetaType::Bool:
            return PlistPointer(plist_new_bool(value.toBool() ? 1 : 0));
        case QMetaType::Float:
        case QMetaType::Double:
            return PlistPointer(plist_new_real(value.toDouble()));
        case QMetaType::QString:
            return PlistPointer(plist_new_string(storableText(value.toString(), m_format).constData()));
        case QMetaType::QByteArray:
            return data(value.toByteArray());
        case QMetaType::QDateTime:
            return date(value.toDateTime());
        case QMetaType::QVariantList:
        case QMetaType::QStringList:
            return list(value.toList(), depth + 1);
        case QMetaType::QVariantMap:
        case QMetaType::QVariantHash:
            return map(value.toMap(), depth + 1);
        default:
            return integer(value);
        }
    }

private:
    static PlistPointer data(const QByteArray& bytes)
    {
        return PlistPointer(plist_new_data(bytes.constData(), uint64_t(bytes.size())));
    }

    static PlistPointer integer(const QVariant& value)
    {
        switch (value.metaType().id()) {
        case QMetaType::ULongLong:
        case QMetaType::ULong:
            if (value.toULongLong() > quint64(std::numeric_limits<qint64>::max()))
                return nullptr;
            [[fallthrough]];
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::Long:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::SChar:
        case QMetaType::UChar:
            return PlistPointer(plist_new_uint(uint64_t(value.toLongLong())));
        default:
            return nullptr;
        }
    }

    static PlistPointer date(const QDateTime& moment)
    {
        const qint64 milliseconds = moment.toMSecsSinceEpoch() - kEpoch * 1000;
        const qint64 seconds = milliseconds / 1000;
        if (!moment.isValid() || seconds != qint32(seconds))
            return nullptr;
        return PlistPointer(plist_new_date(qint32(seconds), qint32(milliseconds % 1000 * 1000)));
    }

    PlistPointer list(const QVariantList& values, int depth)
    {
        PlistPointer array(plist_new_array());
        for (const QVariant& value : values) {
            PlistPointer item = depth > kPropertyListDepth ? nullptr : node(value, depth);
            if (!item)
                return nullptr;
            plist_array_append_item(array.get(), item.release());
        }
        return depth > kPropertyListDepth ? nullptr : std::move(array);
    }

    PlistPointer map(const QVariantMap& values, int depth)
    {
        if (values.size() == 1 && values.firstKey() == kUidKey)
            return PlistPointer(plist_new_uid(values.first().toULongLong()));
        PlistPointer dictionary(plist_new_dict());
        for (auto it = values.begin(); it != values.end(); ++it) {
            PlistPointer item = depth > kPropertyListDepth ? nullptr : node(it.value(), depth);
            if (!item)
                return nullptr;
            plist_dict_set_item(dictionary.get(), storableText(it.key(), m_format).constData(),
                                item.release());
        }
        return depth > kPropertyListDepth ? nullptr : std::move(dictionary);
    }

    PropertyListFormat m_format;
};

QVariant textOf(plist_t node)
{
    char* value = nullptr;
    plist_get_string_val(node, &value);
    const OwnedText owner(value, &std::free);
    return QString::fromUtf8(value);
}

QVariant dataOf(plist_t node)
{
    char* value = nullptr;
    uint64_t size = 0;
    plist_get_data_val(node, &value, &size);
    const OwnedText owner(value, &std::free);
    return value != nullptr ? QByteArray(value, qsizetype(size)) : QByteArray();
}

QVariant dateOf(plist_t node)
{
    int32_t seconds = 0;
    int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return QDateTime::fromMSecsSinceEpoch((seconds + kEpoch) * 1000 + microseconds / 1000, Qt::UTC);
}

QVariant listOf(plist_t node)
{
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
    QVariantList values;
    values.reserve(plist_array_get_size(node));
    plist_t item = nullptr;
    for (plist_array_next_item(node, iterator, &item); item != nullptr;
         plist_array_next_item(node, iterator, &item))
        values.append(variantFromPlist(item));
    return values;
}

QVariant mapOf(plist_t node)
{
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
    QVariantMap values;
    for (;;) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        const OwnedText keyOwner(key, &std::free);
        if (item == nullptr)
            return values;
        values.insert(QString::fromUtf8(key), variantFromPlist(item));
    }
}

} // namespace

Result<PlistPointer> plistFromVariant(const QVariant& value, PropertyListFormat format)
{
    PlistPointer root = Writer(format).node(value, 0);
    if (!root)
        return Failure{text("Failure.PropertyList.Unsupported")};
    return root;
}

QVariant variantFromPlist(plist_t node)
{
    uint8_t flag = 0;
    uint64_t number = 0;
    double real = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        plist_get_bool_val(node, &flag);
        return flag != 0;
    case PLIST_UINT:
        plist_get_uint_val(node, &number);
        return qint64(number);
    case PLIST_REAL:
        plist_get_real_val(node, &real);
        return real;
    case PLIST_UID:
        plist_get_uid_val(node, &number);
        return QVariantMap{{kUidKey, qint64(number)}};
    case PLIST_STRING:
    case PLIST_KEY:
        return textOf(node);
    case PLIST_DATA:
        return dataOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_ARRAY:
        return listOf(node);
    case PLIST_DICT:
        return mapOf(node);
    case PLIST_NONE:
        break;
    }
    return {};
}

} // namespace mosaro::base
