#include "platform/linux/DesktopThumbnailers.h"

#include "platform/linux/DesktopEntry.h"

#include <QDir>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <algorithm>

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
            for (const QString& type : types) {
                // An earlier one goes before a later one.
                if (!m_commands.contains(type.trimmed()))
                    m_commands.insert(type.trimmed(), entry.value(QStringLiteral("Exec")));
            }
        }
    }
}

bool DesktopThumbnailers::hasThumbnailer(const QStringList& mimeTypes) const
{
    return !thumbnailerCommand(mimeTypes).isEmpty();
}

QString DesktopThumbnailers::thumbnailerCommand(const QStringList& mimeTypes) const
{
    const auto type = std::find_if(mimeTypes.begin(), mimeTypes.end(),
                                   [this](const QString& name) { return m_commands.contains(name); });
    return type == mimeTypes.end() ? QString() : m_commands.value(*type);
}

} // namespace mosaro::platform
