#include "platform/linux/DesktopThumbnailers.h"

#include "platform/linux/DesktopEntry.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>

namespace mosaro::platform {

namespace {

QStringList standardFolders()
{
    QStringList folders;
    const QStringList dataFolders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& folder : dataFolders)
        folders.append(folder + QStringLiteral("/thumbnailers"));
    folders.append(QStringLiteral("/usr/share/thumbnailers"));
    folders.removeDuplicates();
    return folders;
}

bool canStart(const QHash<QString, QString>& entry)
{
    const QStringList command = QProcess::splitCommand(entry.value(QStringLiteral("Exec")));
    if (command.isEmpty())
        return false;
    const QString program = entry.value(QStringLiteral("TryExec"), command.first());
    return !QStandardPaths::findExecutable(program).isEmpty();
}

} // namespace

DesktopThumbnailers::DesktopThumbnailers()
{
    readFolders(standardFolders());
}

DesktopThumbnailers::DesktopThumbnailers(const QStringList& folders)
{
    readFolders(folders);
}

void DesktopThumbnailers::readFolders(const QStringList& folders)
{
    QSet<QString> seen;
    for (const QString& folder : folders) {
        const QFileInfoList files =
            QDir(folder).entryInfoList({QStringLiteral("*.thumbnailer")}, QDir::Files | QDir::Readable);
        for (const QFileInfo& file : files) {
            if (seen.contains(file.fileName()))
                continue;
            seen.insert(file.fileName());
            const auto entry = readDesktopEntry(file.filePath(), QStringLiteral("Thumbnailer Entry"));
            if (!canStart(entry))
                continue;
            const QStringList types =
                entry.value(QStringLiteral("MimeType")).split(QLatin1Char(';'), Qt::SkipEmptyParts);
            for (const QString& type : types)
                m_types.insert(type.trimmed());
        }
    }
}

bool DesktopThumbnailers::hasThumbnailer(const QStringList& mimeTypes) const
{
    return std::any_of(mimeTypes.begin(), mimeTypes.end(),
                       [this](const QString& type) { return m_types.contains(type); });
}

} // namespace mosaro::platform
