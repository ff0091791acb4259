#include "platform/linux/BusNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace mosaro::platform {

namespace {

QDBusMessage callOf(const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

} // namespace

void BusNotifier::notify(const QString& title, const QString& subtitle, const QString& content)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    const QString body = subtitle.isEmpty() ? content : subtitle + QLatin1Char('\n') + content;
    // Only a server that reads mark-up wants it escaped, so ask first.
    auto* watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(callOf(QStringLiteral("GetCapabilities"))), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [title, body](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QStringList> reply = *call;
        const bool markup = reply.isValid() && reply.value().contains(QLatin1String("body-markup"));
        send(title, markup ? body.toHtmlEscaped() : body);
        call->deleteLater();
    });
}

void BusNotifier::send(const QString& title, const QString& body)
{
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), QStringLiteral("org.mosaro.Mosaro")},
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
    };
    constexpr int kServerDecides = -1;
    auto message = callOf(QStringLiteral("Notify"));
    message << QStringLiteral("Mosaro") << 0U << QStringLiteral("org.mosaro.Mosaro") << title << body
            << QStringList() << hints << kServerDecides;
    QDBusConnection::sessionBus().asyncCall(message);
}

} // namespace mosaro::platform
