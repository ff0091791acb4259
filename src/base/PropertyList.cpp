#include "base/PropertyList.h"

#include "base/PropertyListConversion.h"
#include "base/PropertyListGuard.h"
#include "base/Text.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdlib>
#include <locale.h>

namespace mosaro::base {

namespace {

/// The parser reads numbers as the thread's locale has them; a list has them in one way only.
class PlainNumbers {
public:
    PlainNumbers() : m_locale(newlocale(LC_ALL_MASK, "C", nullptr)), m_former(uselocale(m_locale)) {}
    ~PlainNumbers()
    {
        uselocale(m_former);
        if (m_locale != nullptr)
            freelocale(m_locale);
    }
    Q_DISABLE_COPY_MOVE(PlainNumbers)

private:
    locale_t m_locale;
    locale_t m_former;
};

PlistPointer parse(const QByteArray& data)
{
    const PlainNumbers plain;
    plist_t root = nullptr;
    const auto size = uint32_t(data.size());
    if (isBinaryPropertyList(data))
        plist_from_bin(data.constData(), size, &root);
    else
        plist_from_xml(data.constData(), size, &root);
    return PlistPointer(root);
}

Failure inFile(const QString& path, const QString& reason)
{
    return {text("Failure.PropertyList.File", path, reason)};
}

} // namespace

Result<QVariant> readPropertyList(const QByteArray& data)
{
    if (auto checked = checkPropertyList(data); !checked)
        return checked.failure();
    const PlistPointer root = parse(data);
    if (!root)
        return damagedPropertyList();
    return variantFromPlist(root.get());
}

Result<QByteArray> writePropertyList(const QVariant& value, PropertyListFormat format)
{
    const auto root = plistFromVariant(value, format);
    if (!root)
        return root.failure();
    const PlainNumbers plain;
    char* bytes = nullptr;
    uint32_t size = 0;
    if (format == PropertyListFormat::Binary)
        plist_to_bin(root.value().get(), &bytes, &size);
    else
        plist_to_xml(root.value().get(), &bytes, &size);
    const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
    if (bytes == nullptr)
        return Failure{text("Failure.PropertyList.Unsupported")};
    return QByteArray(bytes, qsizetype(size));
}

Result<QVariant> readPropertyListFile(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return inFile(path, text("Failure.PropertyList.Missing"));
    QFile file(path);
    if (file.size() > kPropertyListBytes)
        return inFile(path, oversizedPropertyList().reason);
    if (!file.open(QIODevice::ReadOnly))
        return inFile(path, file.errorString());
    const QByteArray data = file.read(kPropertyListBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return inFile(path, file.errorString());
    auto result = readPropertyList(data);
    return result ? std::move(result) : inFile(path, result.reason());
}

Result<void> writePropertyListFile(const QString& path, const QVariant& value, PropertyListFormat format)
{
    const auto data = writePropertyList(value, format);
    if (!data)
        return inFile(path, data.reason());
    QSaveFile file(path);
    // A commit does not notice that the last bytes found no room, and would put an empty file in its place.
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(data.value()) == data.value().size() && file.flush();
    if (!written || !file.commit())
        return inFile(path, file.errorString());
    return {};
}

} // namespace mosaro::base
