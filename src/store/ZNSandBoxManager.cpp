#include "store/ZNSandBoxManager.h"

#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/ZNUserDefaults.h"
#include "platform/Ports.h"

#include <QFileInfo>

namespace mosaro::store {

QStringList ZNSandBoxManager::excludedDestination()
{
    return {QStringLiteral("/"), QStringLiteral("/Applications"), QStringLiteral("/Library"),
            QStringLiteral("/System")};
}

QByteArray ZNSandBoxManager::bookmarkDataWithURL(const QString& path) const
{
    return path.isEmpty() ? QByteArray() : m_bookmarks.bookmarkData(path);
}

base::Result<void> ZNSandBoxManager::isReadableSecurityScopeWithURL(const QString& path) const
{
    if (!bookmarkDataWithURL(path).isEmpty())
        return {};
    return base::Failure{QFileInfo::exists(path) ? base::text("Failure.Library.NotReadable", path)
                                                 : base::text("Failure.Library.Missing", path)};
}

base::Result<void> ZNSandBoxManager::addScope(const QString& path)
{
    if (auto readable = isReadableSecurityScopeWithURL(path); !readable)
        return readable;
    if (!m_defaults.updateUserDefaults(base::MOSARO_LIBRARY_LOCATION, bookmarkDataWithURL(path)))
        return base::Failure{base::text("Failure.Library.NotRemembered", path)};
    return {};
}

QString ZNSandBoxManager::rememberedLibrary() const
{
    const QByteArray bookmark = m_defaults.data(base::MOSARO_LIBRARY_LOCATION);
    const QString path = bookmark.isEmpty() ? QString() : m_bookmarks.resolve(bookmark);
    return QFileInfo::exists(path) ? path : QString();
}

} // namespace mosaro::store
