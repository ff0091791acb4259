#include "platform/linux/DesktopEntry.h"

#include <QFile>
#include <QFileInfo>

namespace mosaro::platform {

namespace {

constexpr qint64 kMaximumBytes = 64LL * 1024;

} // namespace

QHash<QString, QString> readDesktopEntry(const QString& path, const QString& group)
{
    QHash<QString, QString> values;
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > kMaximumBytes || !file.open(QIODevice::ReadOnly))
        return values;
    const QString header = QLatin1Char('[') + group + QLatin1Char(']');
    bool inGroup = false;
    const QStringList lines = QString::fromUtf8(file.read(kMaximumBytes)).split(QLatin1Char('\n'));
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (line.startsWith(QLatin1Char('[')))
            inGroup = line == header;
        else if (inGroup && equals > 0 && !line.startsWith(QLatin1Char('#')))
            values.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return values;
}

} // namespace mosaro::platform
