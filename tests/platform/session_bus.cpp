#include "platform/LinuxPlatform.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro::platform;

namespace {

constexpr auto kSecondStart = "--second-start";

/// A notification server of the test's own. What it says it can do is up to the test.
class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Note {
        QString application, icon, summary, body;
        QVariantMap hints;
    };
    QStringList capabilities;
    QList<Note> notes;

public Q_SLOTS:
    QStringList GetCapabilities() { return capabilities; }
    uint Notify(const QString& application, uint replaces, const QString& icon, const QString& summary,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int timeout)
    {
        Q_UNUSED(replaces)
        Q_UNUSED(actions)
        Q_UNUSED(timeout)
        notes.append({application, icon, summary, body, hints});
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
            sendErrorReply(QDBusError::Failed, QStringLiteral("no window"));
        else
            shown += addresses;
    }
};

class Launcher : public QObject {
    Q_OBJECT

public:
    QStringList applications;
    QList<QVariantMap> updates;

public Q_SLOTS:
    void Update(const QString& application, const QVariantMap& properties)
    {
        applications.append(application);
        updates.append(properties);
    }
};

class SessionBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("services"));
        QVERIFY2(m_services.isConnected(), "run under dbus-run-session");
    }

    void notifies_data()
    {
        QTest::addColumn<QStringList>("capabilities");
        QTest::addColumn<QString>("subtitle");
        QTest::addColumn<QString>("body");
        const QStringList markup{QStringLiteral("body"), QStringLiteral("body-markup")};
        const QStringList plain{QStringLiteral("body")};
        QTest::newRow("plain") << plain << QString() << QStringLiteral("1 < 2 & 3");
        QTest::newRow("with mark-up") << markup << QString() << QStringLiteral("1 &lt; 2 &amp; 3");
        QTest::newRow("subtitle") << plain << QStringLiteral("Sub") << QStringLiteral("Sub\n1 < 2 & 3");
    }
    void notifies()
    {
        QFETCH(const QStringList, capabilities);
        QFETCH(const QString, subtitle);
        FakeNotifications server;
        server.capabilities = capabilities;
        const auto service = offer(QStringLiteral("org.freedesktop.Notifications"),
                                   QStringLiteral("/org/freedesktop/Notifications"), server);
        const Platform platform = makeLinuxPlatform(true);
        platform.notifier->notify(QStringLiteral("Title"), subtitle, QStringLiteral("1 < 2 & 3"));
        QTRY_COMPARE(server.notes.size(), 1);
        const auto& note = server.notes.first();
        QCOMPARE(note.application, QStringLiteral("Mosaro"));
        QCOMPARE(note.icon, QStringLiteral("org.mosaro.Mosaro"));
        QCOMPARE(note.summary, QStringLiteral("Title"));
        QTEST(note.body, "body");
        QCOMPARE(note.hints.value(QStringLiteral("sound-name")).toString(),
                 QStringLiteral("message-new-instant"));
    }

    void staysQuietWithoutANotificationServer()
    {
        const Platform platform = makeLinuxPlatform(true);
        platform.notifier->notify(QStringLiteral("Title"), {}, QStringLiteral("Content"));
        roundTrip();
    }

    void reveals()
    {
        FakeFileManager manager;
        const auto service = offer(QStringLiteral("org.freedesktop.FileManager1"),
                                   QStringLiteral("/org/freedesktop/FileManager1"), manager);
        const Platform platform = makeLinuxPlatform(true);
        platform.revealer->reveal(QStringLiteral("/tmp/a b#ü%.png"));
        QTRY_COMPARE(manager.shown, QStringList{QStringLiteral("file:///tmp/a%20b%23%C3%BC%25.png")});
    }

    void opensTheFolderInstead_data()
    {
        QTest::addColumn<bool>("managerRefuses");
        QTest::newRow("no file manager") << false;
        QTest::newRow("a file manager that cannot") << true;
    }
    void opensTheFolderInstead()
    {
        QFETCH(const bool, managerRefuses);
        const QTemporaryDir folder;
        const QString note = folder.filePath(QStringLiteral("opened"));
        installOpener(folder, note);
        FakeFileManager manager;
        manager.refuses = true;
        std::shared_ptr<void> service;
        if (managerRefuses)
            service = offer(QStringLiteral("org.freedesktop.FileManager1"),
                            QStringLiteral("/org/freedesktop/FileManager1"), manager);
        const Platform platform = makeLinuxPlatform(true);
        platform.revealer->reveal(QStringLiteral("/tmp/some folder/file.png"));
        QTRY_COMPARE(contents(note), QByteArray("/tmp/some folder"));
    }

    void showsProgressOnTheLauncher()
    {
        Launcher launcher;
        QVERIFY(m_services.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                   QStringLiteral("Update"), &launcher, SLOT(Update(QString, QVariantMap))));
        const Platform platform = makeLinuxPlatform(true);
        platform.badge->clear();
        platform.badge->setPercent(40);
        platform.badge->setPercent(40);
        platform.badge->setPercent(130);
        platform.badge->clear();
        platform.badge->clear();
        QTRY_COMPARE(launcher.updates.size(), 3);
        roundTrip();
        QCOMPARE(launcher.updates.size(), 3);
        QCOMPARE(launcher.applications.first(), QStringLiteral("application://org.mosaro.Mosaro.desktop"));
        QCOMPARE(launcher.updates[0].value(QStringLiteral("progress")).toDouble(), 0.4);
        QCOMPARE(launcher.updates[0].value(QStringLiteral("count")).metaType().id(),
                 int(QMetaType::LongLong));
        QCOMPARE(launcher.updates[1].value(QStringLiteral("progress")).toDouble(), 1.0);
        QVERIFY(launcher.updates[1].value(QStringLiteral("progress-visible")).toBool());
        QVERIFY(!launcher.updates[2].value(QStringLiteral("progress-visible")).toBool());
        QVERIFY(!launcher.updates[2].value(QStringLiteral("count-visible")).toBool());
    }

    void aSecondStartRaisesTheFirst()
    {
        SingleInstance first;
        QVERIFY(first.claim());
        QSignalSpy raised(&first, &SingleInstance::raiseRequested);
        QCOMPARE(startAgain(), 1);
        QCOMPARE(raised.size(), 1);
        QVERIFY(QDBusConnection::sessionBus().unregisterService(QStringLiteral("org.mosaro.Mosaro")));
        QCOMPARE(startAgain(), 0);
    }

    void soundsNeedNoDevice()
    {
        const Platform platform = makeLinuxPlatform(true);
        platform.sounds->play(QStringLiteral(":/sounds/Snap.wav"));
        platform.sounds->play(QStringLiteral(":/sounds/Snap.wav"));
        platform.sounds->play(QStringLiteral(":/sounds/None.wav"));
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
        QFile script(folder.filePath(QStringLiteral("xdg-open")));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf %s \"$1\" > '" + note.toUtf8() + ".new' && mv '" + note.toUtf8() +
                     ".new' '" + note.toUtf8() + "'\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        qputenv("PATH", folder.path().toLocal8Bit() + ":/usr/bin:/bin");
    }

    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
