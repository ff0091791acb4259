#include "platform/linux/LinkResolver.h"

#include "platform/linux/DesktopEntry.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace mosaro::platform {

namespace {

/// Links to links end somewhere; more than so many are a loop.
constexpr int kMaximumSteps = 16;

/// What a ".desktop" file of type Link names on this machine; nothing when it is no such link.
std::optional<QString> targetOfDesktopLink(const QFileInfo& file)
{
    if (file.suffix().compare(QLatin1String("desktop"), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    const auto entry = readDesktopEntry(file.filePath(), QStringLiteral("Desktop Entry"));
    if (entry.value(QStringLiteral("Type")) != QLatin1String("Link"))
        return std::nullopt;
    // KDE marks an address in which it expands variables.
    QString address =
        entry.value(QStringLiteral("URL[$e]")).replace(QLatin1String("$HOME"), QDir::homePath());
    if (address.isEmpty())
        address = entry.value(QStringLiteral("URL"));
    if (address.startsWith(QLatin1Char('/')))
        return address;
    const QUrl url(address);
    const bool here = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    if (!url.isLocalFile() || !here)
        return std::nullopt;
    return url.path(QUrl::FullyDecoded);
}

} // namespace

QString LinkResolver::resolve(const QString& path) const
{
    QFileInfo file(path);
    for (int step = 0; step < kMaximumSteps; ++step) {
        if (file.isSymLink()) {
            const QString target = file.canonicalFilePath();
            if (target.isEmpty() || !QFileInfo::exists(target))
                return {};
            file.setFile(target);
        }
        const auto target = targetOfDesktopLink(file);
        if (!target)
            return QDir::cleanPath(file.absoluteFilePath());
        file.setFile(*target);
        if (!file.isSymLink() && !file.exists())
            return {};
    }
    return {};
}

} // namespace mosaro::platform
