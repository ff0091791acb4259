#include "platform/LinuxPlatform.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace mosaro::platform {

namespace {

constexpr int kRaiseTimeout = 3000;

} // namespace

SingleInstance::SingleInstance(QObject* parent) : QObject(parent) {}

bool SingleInstance::claim()
{
    const auto kService = QStringLiteral("org.mosaro.Mosaro");
    const auto kObject = QStringLiteral("/org/mosaro/Mosaro");
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return true;
    // The object stands before the name is known, so that no call is lost.
    bus.registerObject(kObject, this, QDBusConnection::ExportAllInvokables);
    if (bus.registerService(kService))
        return true;
    bus.unregisterObject(kObject);
    const auto raise = QDBusMessage::createMethodCall(kService, kObject, kService, QStringLiteral("Raise"));
    bus.call(raise, QDBus::Block, kRaiseTimeout);
    return false;
}

} // namespace mosaro::platform
