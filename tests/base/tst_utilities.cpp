#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/Threads.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

using namespace mosaro::base;

namespace {

class Sounds : public SoundPlayer {
public:
    QStringList played;
    void play(const QString& resource) override { played.append(resource); }
};

class Notes : public UserNotifier {
public:
    QStringList notes;
    void notify(const QString& title, const QString& subtitle, const QString& content) override
    {
        notes.append(title + QLatin1Char('|') + subtitle + QLatin1Char('|') + content);
    }
};

class Alerts : public Prompts {
public:
    QList<AlertRequest> requests;
    int answer = 1;
    int alert(const AlertRequest& request) override
    {
        requests.append(request);
        return answer;
    }
    QStringList openPanel(const OpenPanelRequest&) override { return {}; }
    std::optional<QString> savePanel(const SavePanelRequest&) override { return std::nullopt; }
    void beep() override {}
};

class UtilitiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        installTexts();
    }

    void textsFallBackOnTheirKeys()
    {
        QCOMPARE(text("Basic.OK"), QStringLiteral("OK"));
        QCOMPARE(text("No.Such.Key"), QStringLiteral("No.Such.Key"));
        const QString path = QStringLiteral("50%1 %2.png");
        QCOMPARE(text("Failure.PropertyList.File", path, QStringLiteral("why")),
                 QStringLiteral("“50%1 %2.png”: why"));
    }

    void soundsAreGated_data()
    {
        QTest::addColumn<QVariant>("preference");
        QTest::addColumn<int>("effect");
        QTest::addColumn<QString>("played");
        QTest::newRow("move") << QVariant(true) << 0 << QStringLiteral(":/sounds/MoveItem.wav");
        QTest::newRow("delete") << QVariant(true) << 1 << QStringLiteral(":/sounds/DeleteItem.wav");
        QTest::newRow("tags") << QVariant(true) << 2 << QStringLiteral(":/sounds/RemoveTags.wav");
        QTest::newRow("snap") << QVariant(true) << 3 << QStringLiteral(":/sounds/Snap.wav");
        QTest::newRow("beyond") << QVariant(true) << 4 << QString();
        QTest::newRow("below") << QVariant(true) << -1 << QString();
        QTest::newRow("off") << QVariant(false) << 0 << QString();
        QTest::newRow("off, last") << QVariant(false) << 3 << QString();
        QTest::newRow("never chosen") << QVariant() << 1 << QStringLiteral(":/sounds/DeleteItem.wav");
    }
    void soundsAreGated()
    {
        QFETCH(const QVariant, preference);
        QFETCH(const int, effect);
        QFETCH(const QString, played);
        const QTemporaryDir folder;
        ZNUserDefaults defaults(folder.filePath(QStringLiteral("test.ini")));
        defaults.updateUserDefaults(PREFS_GENERAL_SOUND_EFFECTS, preference);
        ZNUtilities utilities;
        Sounds sounds;
        utilities.setSoundPlayer(&sounds);
        utilities.playSoundEffect(effect, defaults);
        QCOMPARE(sounds.played.join(QLatin1Char(' ')), played);
        QCOMPARE(defaults.boolean(PREFS_GENERAL_SOUND_EFFECTS), preference.isNull() || preference.toBool());
    }

    /// RIFF with linear samples, mono, 44.1 kHz, 16 bit, within a fraction of a second, and not silent.
    void soundsAreShortWaves()
    {
        for (const char* name : {"MoveItem", "DeleteItem", "RemoveTags", "Snap"}) {
            QFile file(QStringLiteral(":/sounds/%1.wav").arg(QLatin1String(name)));
            QVERIFY2(file.open(QIODevice::ReadOnly), name);
            const QByteArray bytes = file.readAll();
            QVERIFY(bytes.startsWith("RIFF") && bytes.mid(8, 8) == "WAVEfmt ");
            QCOMPARE(bytes.mid(20, 8), QByteArray("\x01\x00\x01\x00\x44\xAC\x00\x00", 8));
            QCOMPARE(bytes.mid(34, 2), QByteArray("\x10\x00", 2));
            const double seconds = double(bytes.size() - 44) / 2 / 44100;
            QVERIFY2(seconds >= 0.15 && seconds <= 0.6, name);
            const auto* samples = reinterpret_cast<const qint16*>(bytes.constData() + 44);
            const auto loudest = *std::max_element(samples, samples + (bytes.size() - 44) / 2);
            QVERIFY2(loudest > 8000 && loudest < 30000, name);
        }
    }

    void notificationsNeedATitleAndAContent()
    {
        ZNUtilities utilities;
        Notes notes;
        utilities.setUserNotifier(&notes);
        utilities.postUserNotification(QStringLiteral("T"), {}, QStringLiteral("C"));
        utilities.postUserNotification({}, QStringLiteral("S"), QStringLiteral("C"));
        utilities.postUserNotification(QStringLiteral("T"), QStringLiteral("S"), {});
        QCOMPARE(notes.notes, QStringList{QStringLiteral("T||C")});
    }

    void alertsPassTheirTextsUnchanged()
    {
        ZNUtilities utilities;
        Alerts alerts;
        utilities.setPrompts(&alerts);
        const QString informative = QStringLiteral("100%d %1 <b>");
        QCOMPARE(utilities.alertWithMessageText(QStringLiteral("M"), QStringLiteral("OK"), {}, informative),
                 1);
        QCOMPARE(alerts.requests.first().informativeText, informative);
        alerts.answer = 0;
        QCOMPARE(utilities.alertWithMessageText(QStringLiteral("M"), QStringLiteral("OK"), {}, {}), 0);
    }

    void withoutPortsNothingHappens()
    {
        const QTemporaryDir folder;
        ZNUserDefaults defaults(folder.filePath(QStringLiteral("test.ini")));
        ZNUtilities utilities;
        utilities.playSoundEffect(0, defaults);
        utilities.postUserNotification(QStringLiteral("T"), {}, QStringLiteral("C"));
        utilities.postNotification(QLatin1String("NOBODY"));
        QCOMPARE(utilities.alertWithMessageText({}, {}, {}, {}), 0);
    }

    void workHopsToAWorkerAndBack()
    {
        QThreadPool pool;
        QObject receiver;
        bool onWorker = false;
        bool back = false;
        QVERIFY(onMainThread());
        runOnWorker(pool, [&] {
            onWorker = !onMainThread();
            postToMain(receiver, [&] { back = onMainThread(); });
        });
        QVERIFY(pool.waitForDone());
        QVERIFY(!back);
        QTRY_VERIFY(back);
        QVERIFY(onWorker);
    }

    void nothingComesBackToTheDead()
    {
        QThreadPool pool;
        auto receiver = std::make_unique<QObject>();
        bool back = false;
        runOnWorker(pool, [&] { postToMain(*receiver, [&] { back = true; }); });
        QVERIFY(pool.waitForDone());
        receiver.reset();
        QCoreApplication::processEvents();
        QVERIFY(!back);
    }
};

} // namespace

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "tst_utilities.moc"
