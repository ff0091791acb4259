#include "platform/LinuxPlatform.h"
#include "support/Files.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QtTest>

using namespace mosaro::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kSecondStart = "--second-start";

/// A notification server of the test's own. What it says it can do is up to the test.
class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList capabilities;
    QList<QStringList> notes; ///< Application, icon, summary, body and sound.

public Q_SLOTS:
    QStringList GetCapabilities() { return capabilities; }
    uint Notify(const QString& application, uint, const QString& icon, const QString& summary,
                const QString& body, const QStringList&, const QVariantMap& hints, int)
    {
        notes.append({application, icon, summary, body, hints[u"sound-name"_s].toString()});
        return uint(notes.size());
    }
};

class FakeFileManager : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;
    bool refuses = false;

public Q_SLOTS:
    void ShowItems(const QStringList& addresses, const QString&)
    {
        if (refuses)
            sendErrorReply(QDBusError::Failed, u"no window"_s);
        else
            shown += addresses;
    }
};

class Launcher : public QObject {
    Q_OBJECT

public:
    QList<std::pair<QString, QVariantMap>> updates; ///< Application and properties.

public Q_SLOTS:
    void Update(const QString& application, const QVariantMap& properties)
    {
        updates.append({application, properties});
    }
};

class SessionBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
        QVERIFY2(m_services.isConnected(), "run under dbus-run-session");
    }

    void notifies()
    {
        const std::tuple<QStringList, QString, QString> rows[] = {
            {{u"body"_s}, {}, u"1 < 2 & 3"_s},
            {{u"body"_s, u"body-markup"_s}, {}, u"1 &lt; 2 &amp; 3"_s},
            {{u"body"_s}, u"Sub"_s, u"Sub\n1 < 2 & 3"_s}};
        for (const auto& [capabilities, subtitle, body] : rows) {
            FakeNotifications server;
            server.capabilities = capabilities;
            const auto service =
                offer(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s, server);
            const Platform platform = makeLinuxPlatform(true);
            platform.notifier->notify(u"Title"_s, subtitle, u"1 < 2 & 3"_s);
            QTRY_COMPARE(server.notes.size(), 1);
            QCOMPARE(server.notes.first(), (QStringList{u"Mosaro"_s, u"org.mosaro.Mosaro"_s, u"Title"_s, body,
                                                        u"message-new-instant"_s}));
        }
    }

    void reveals()
    {
        FakeFileManager manager;
        const auto service = offerFileManager(manager);
        const Platform platform = makeLinuxPlatform(true);
        platform.revealer->reveal(u"/tmp/a b#ü%.png"_s);
        QTRY_COMPARE(manager.shown, QStringList{u"file:///tmp/a%20b%23%C3%BC%25.png"_s});
    }

    void opensTheFolderInstead()
    {
        for (const bool managerRefuses : {false, true}) { // Else there is none.
            const QTemporaryDir folder;
            const QString note = folder.filePath(u"opened"_s);
            installOpener(folder, note);
            FakeFileManager manager;
            manager.refuses = true;
            const auto service = managerRefuses ? offerFileManager(manager) : nullptr;
            const Platform platform = makeLinuxPlatform(true);
            platform.revealer->reveal(u"/tmp/some folder/file.png"_s);
            QTRY_COMPARE(mosaro::test::fileContents(note), "/tmp/some folder"_ba);
        }
    }

    void showsProgressOnTheLauncher()
    {
        Launcher launcher;
        QVERIFY(m_services.connect(QString(), QString(), u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s,
                                   &launcher, SLOT(Update(QString, QVariantMap))));
        const Platform platform = makeLinuxPlatform(true);
        platform.badge->clear();
        for (const int percent : {40, 40, 130})
            platform.badge->setPercent(percent);
        platform.badge->clear();
        platform.badge->clear();
        QTRY_COMPARE(launcher.updates.size(), 3);
        roundTrip();
        QCOMPARE(launcher.updates.size(), 3);
        const auto& [application, first] = launcher.updates[0];
        QCOMPARE(application, u"application://org.mosaro.Mosaro.desktop"_s);
        QCOMPARE(first[u"progress"_s].toDouble(), 0.4);
        QCOMPARE(first[u"count"_s].metaType().id(), int(QMetaType::LongLong));
        const QVariantMap& second = launcher.updates[1].second;
        QVERIFY(second[u"progress"_s] == 1.0 && second[u"progress-visible"_s].toBool());
        const QVariantMap& third = launcher.updates[2].second;
        QVERIFY(!third[u"progress-visible"_s].toBool() && !third[u"count-visible"_s].toBool());
    }

    void aSecondStartRaisesTheFirst()
    {
        SingleInstance first;
        QVERIFY(first.claim());
        QSignalSpy raised(&first, &SingleInstance::raiseRequested);
        QCOMPARE(startAgain(), 1);
        QCOMPARE(raised.size(), 1);
        QVERIFY(QDBusConnection::sessionBus().unregisterService(u"org.mosaro.Mosaro"_s));
        QCOMPARE(startAgain(), 0);
    }

    void servicesKeepQuietWithoutServerOrDevice()
    {
        const Platform platform = makeLinuxPlatform(true);
        platform.notifier->notify(u"Title"_s, {}, u"Content"_s);
        for (const char* sound : {"Snap", "Snap", "None"})
            platform.sounds->play(u":/sounds/%1.wav"_s.arg(QLatin1String(sound)));
        roundTrip();
    }

private:
    /// The object under the name, until the pointer is let go.
    std::shared_ptr<void> offer(const QString& name, const QString& path, QObject& object)
    {
        const bool offered = m_services.registerObject(path, &object, QDBusConnection::ExportAllSlots) &&
                             m_services.registerService(name);
        if (!offered)
            qFatal("cannot offer %s", qPrintable(name));
        return {&object, [this, name, path](void*) {
                    m_services.unregisterObject(path);
                    m_services.unregisterService(name);
                }};
    }

    std::shared_ptr<void> offerFileManager(FakeFileManager& manager)
    {
        return offer(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s, manager);
    }

    /// Lets everything that is under way arrive: the bus keeps the order.
    void roundTrip()
    {
        QVERIFY(QDBusConnection::sessionBus().interface()->registeredServiceNames().isValid());
        QVERIFY(m_services.interface()->registeredServiceNames().isValid());
        QCoreApplication::processEvents();
    }

    /// Exit status of another process that claims the name: 0 first, 1 not.
    static int startAgain()
    {
        QProcess second;
        second.setProcessChannelMode(QProcess::ForwardedChannels);
        QSignalSpy finished(&second, &QProcess::finished);
        second.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kSecondStart)});
        return finished.wait(20'000) && second.exitStatus() == QProcess::NormalExit ? second.exitCode() : -1;
    }

    /// An xdg-open of the test's own, first on the path, that notes its argument.
    static void installOpener(const QTemporaryDir& folder, const QString& note)
    {
        const QString script = folder.filePath(u"xdg-open"_s);
        const QString lines = u"#!/bin/sh\nprintf %s \"$1\" > '%1.new' && mv '%1.new' '%1'\n"_s;
        mosaro::test::writeFile(script, QString(lines).replace(u"%1"_s, note).toUtf8());
        QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
        qputenv("PATH", folder.path().toLocal8Bit() + ":/usr/bin:/bin");
    }

    QDBusConnection m_services{QString()};
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(QString::fromLatin1(kSecondStart))) {
        SingleInstance instance;
        return instance.claim() ? 0 : 1;
    }
    SessionBusTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "session_bus.moc"
