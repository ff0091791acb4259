#include "store/LibraryPackage.h"

#include "base/PropertyList.h"

#include <QDir>

namespace mosaro::store {

LibraryPackage::LibraryPackage(const QString& rootPath)
    : m_root(rootPath.isEmpty() ? QString() : QDir::cleanPath(QDir(rootPath).absolutePath()))
{
}

QString LibraryPackage::dbPath() const
{
    return m_root + QStringLiteral("/Mosaro");
}

QString LibraryPackage::masterDirPath() const
{
    return m_root + QStringLiteral("/Masters");
}

QString LibraryPackage::xmlPath() const
{
    return m_root + QStringLiteral("/Mosaro Library.plist");
}

QString LibraryPackage::libraryVersionPath() const
{
    return m_root + QStringLiteral("/MRLib.data");
}

QString LibraryPackage::accessListInfoPath() const
{
    return m_root + QStringLiteral("/MRAccessList.data");
}

QString LibraryPackage::stagingDirPath() const
{
    return masterDirPath() + QStringLiteral("/.incoming");
}

QString LibraryPackage::itemFolder(const QDate& date, const QString& mediaID)
{
    return QStringLiteral("/%1/%2/%3/%4.%5")
        .arg(QString::number(date.year()), QString::number(date.month()), QString::number(date.day()),
             mediaID, QLatin1String(kItemSuffix));
}

QVariantMap LibraryPackage::versionRecord() const
{
    const auto record = base::readPropertyListFile(libraryVersionPath());
    return record ? record.value().toMap() : QVariantMap();
}

base::Result<void> LibraryPackage::writeVersionRecord(const QVariantMap& record) const
{
    return base::writePropertyListFile(libraryVersionPath(), record, base::PropertyListFormat::Xml);
}

bool isSafePathComponent(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QChar(0));
}

} // namespace mosaro::store
