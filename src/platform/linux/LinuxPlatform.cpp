#include "platform/LinuxPlatform.h"

#include "platform/linux/AttributeFileIndex.h"
#include "platform/linux/BusFileRevealer.h"
#include "platform/linux/BusLauncherBadge.h"
#include "platform/linux/BusNotifier.h"
#include "platform/linux/DesktopThumbnailers.h"
#include "platform/linux/EffectPlayer.h"
#include "platform/linux/LinkResolver.h"
#include "platform/linux/MimeTypes.h"
#include "platform/linux/PathBookmarks.h"

#include <QStandardPaths>
#include <pwd.h>
#include <unistd.h>

namespace mosaro::platform {

namespace {

/// The first field of the passwd comment; an ampersand in it stands for the login name, capitalised.
QString fullNameOf(const passwd& user)
{
    QString login = QString::fromLocal8Bit(user.pw_name);
    QString name = QString::fromLocal8Bit(user.pw_gecos).section(QLatin1Char(','), 0, 0).trimmed();
    if (name.isEmpty())
        return login;
    login[0] = login.isEmpty() ? QChar() : login[0].toUpper();
    return name.replace(QLatin1Char('&'), login);
}

} // namespace

Platform makeLinuxPlatform(bool desktop)
{
    Platform platform;
    platform.types = std::make_unique<MimeTypes>();
    platform.thumbnailers = std::make_unique<DesktopThumbnailers>();
    platform.fileIndex = std::make_unique<AttributeFileIndex>();
    platform.aliases = std::make_unique<LinkResolver>();
    platform.bookmarks = std::make_unique<PathBookmarks>();
    if (desktop) {
        platform.revealer = std::make_unique<BusFileRevealer>();
        platform.badge = std::make_unique<BusLauncherBadge>();
        platform.notifier = std::make_unique<BusNotifier>();
        platform.sounds = std::make_unique<EffectPlayer>();
    }
    return platform;
}

QString userFullName()
{
    std::vector<char> buffer(size_t{16} * 1024);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
        return fullNameOf(*found);
    return qEnvironmentVariable("USER");
}

QString applicationSupportFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

} // namespace mosaro::platform
