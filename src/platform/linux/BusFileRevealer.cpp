#include "platform/linux/BusFileRevealer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace mosaro::platform {

namespace {

void openFolderOf(const QString& path)
{
    QProcess::startDetached(QStringLiteral("xdg-open"), {QFileInfo(path).absolutePath()});
}

} // namespace

void BusFileRevealer::reveal(const QString& path)
{
    if (path.isEmpty())
        return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolderOf(path);
        return;
    }
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    message << QStringList{url.toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [path](QDBusPendingCallWatcher* call) {
        if (call->isError())
            openFolderOf(path);
        call->deleteLater();
    });
}

} // namespace mosaro::platform
