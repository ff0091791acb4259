#include "platform/linux/PathBookmarks.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::platform {

QByteArray PathBookmarks::bookmarkData(const QString& path) const
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isReadable())
        return {};
    return QDir::cleanPath(info.absoluteFilePath()).toUtf8();
}

QString PathBookmarks::resolve(const QByteArray& bookmark) const
{
    const QString path = QString::fromUtf8(bookmark);
    if (!QDir::isAbsolutePath(path) || path.contains(QChar::Null) || !QFileInfo::exists(path))
        return {};
    return path;
}

} // namespace mosaro::platform
