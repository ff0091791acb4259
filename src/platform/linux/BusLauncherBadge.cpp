#include "platform/linux/BusLauncherBadge.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace mosaro::platform {

namespace {

void broadcast(const QVariantMap& properties)
{
    auto signal = QDBusMessage::createSignal(QStringLiteral("/org/mosaro/Mosaro/LauncherEntry"),
                                             QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                             QStringLiteral("Update"));
    signal << QStringLiteral("application://org.mosaro.Mosaro.desktop") << properties;
    QDBusConnection::sessionBus().send(signal);
}

} // namespace

void BusLauncherBadge::setPercent(int percent)
{
    percent = std::clamp(percent, 0, 100);
    if (m_shown == percent)
        return;
    m_shown = percent;
    broadcast({{QStringLiteral("count"), qlonglong(percent)},
               {QStringLiteral("count-visible"), true},
               {QStringLiteral("progress"), percent / 100.0},
               {QStringLiteral("progress-visible"), true}});
}

void BusLauncherBadge::clear()
{
    if (!m_shown)
        return;
    m_shown.reset();
    broadcast({{QStringLiteral("count"), qlonglong(0)},
               {QStringLiteral("count-visible"), false},
               {QStringLiteral("progress"), 0.0},
               {QStringLiteral("progress-visible"), false}});
}

} // namespace mosaro::platform
