#include "store/AccessList.h"

#include "base/PropertyList.h"
#include "platform/Ports.h"
#include "store/ZNSandBoxManager.h"

#include <QDir>

namespace mosaro::store {

namespace {

/// A clean absolute path and its ancestors, from the root down.
QStringList fromRootDown(const QString& folder)
{
    QStringList paths{QStringLiteral("/")};
    const QStringList components = folder.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString path;
    for (const QString& component : components) {
        path += QLatin1Char('/') + component;
        paths.append(path);
    }
    return paths;
}

} // namespace

AccessList AccessList::read(const LibraryPackage& package)
{
    AccessList list;
    const auto record = base::readPropertyListFile(package.accessListInfoPath());
    const QVariantMap map = record ? record.value().toMap() : QVariantMap();
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        list.m_entries.insert(entry.key(), entry.value().toByteArray());
    return list;
}

base::Result<void> AccessList::write(const LibraryPackage& package) const
{
    QVariantMap map;
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry)
        map.insert(entry.key(), entry.value());
    return base::writePropertyListFile(package.accessListInfoPath(), map, base::PropertyListFormat::Xml);
}

QString AccessList::grantFor(const QString& folder) const
{
    const QString path = QDir::cleanPath(folder);
    if (m_entries.contains(path))
        return path;
    const QStringList ancestors = fromRootDown(path);
    const auto granted = std::find_if(ancestors.begin(), ancestors.end(), [this](const QString& ancestor) {
        return m_entries.contains(ancestor);
    });
    return granted == ancestors.end() ? QString() : *granted;
}

AccessList::AddOutcome AccessList::add(const QString& folder, const platform::Bookmarks& bookmarks)
{
    const QString path = QDir::cleanPath(folder);
    if (path.isEmpty() || ZNSandBoxManager::excludedDestination().contains(path))
        return AddOutcome::Excluded;
    if (m_entries.contains(path))
        return AddOutcome::AlreadyListed;
    if (!grantFor(path).isEmpty())
        return AddOutcome::AncestorListed;
    const QByteArray bookmark = bookmarks.bookmarkData(path);
    if (bookmark.isEmpty())
        return AddOutcome::NoBookmark;
    m_entries.insert(path, bookmark);
    return AddOutcome::Added;
}

} // namespace mosaro::store
