#include "platform/linux/MimeTypes.h"

#include <QMimeType>

namespace mosaro::platform {

QString MimeTypes::mimeTypeForExtension(const QString& extension) const
{
    // The database loses its way over a zero.
    if (extension.isEmpty() || extension.contains(QLatin1Char('/')) || extension.contains(QChar::Null))
        return {};
    const QMimeType type =
        m_database.mimeTypeForFile(QStringLiteral("file.") + extension, QMimeDatabase::MatchExtension);
    return type.isDefault() ? QString() : type.name();
}

bool MimeTypes::inherits(const QString& mime, const QString& ancestor) const
{
    if (mime.isEmpty() || ancestor.isEmpty())
        return false;
    const QMimeType type = m_database.mimeTypeForName(mime);
    return mime == ancestor || (type.isValid() && type.inherits(ancestor));
}

} // namespace mosaro::platform
