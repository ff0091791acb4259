#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "base/Threads.h"
#include "base/ZNUserDefaults.h"
#include "base/ZNUtilities.h"
#include "support/FakePlatform.h"

#include <QtTest>
#include <algorithm>

using namespace mosaro::base;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

class UtilitiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void textsFallBackOnTheirKeys()
    {
        installTexts(); // Again.
        QCOMPARE(text("Basic.OK"), u"OK"_s);
        QCOMPARE(text("No.Such.Key"), u"No.Such.Key"_s);
        const QString path = u"50%1 %2.png"_s;
        QCOMPARE(text("Failure.PropertyList.File", path, u"why"_s), u"“50%1 %2.png”: why"_s);
    }

    void soundsAreGated()
    {
        const std::tuple<QVariant, int, QString> rows[] = {
            {true, 0, u":/sounds/MoveItem.wav"_s},
            {true, 3, u":/sounds/Snap.wav"_s},
            {true, 4, {}},
            {true, -1, {}},
            {false, 0, {}},
            {QVariant(), 1, u":/sounds/DeleteItem.wav"_s}}; // the last: never chosen
        for (const auto& [preference, effect, played] : rows) {
            const QTemporaryDir folder;
            ZNUserDefaults defaults(folder.filePath(u"test.ini"_s));
            defaults.updateUserDefaults(PREFS_GENERAL_SOUND_EFFECTS, preference);
            ZNUtilities utilities;
            utilities.playSoundEffect(effect, defaults); // To nobody.
            FakeSounds sounds;
            utilities.setSoundPlayer(&sounds);
            utilities.playSoundEffect(effect, defaults);
            QCOMPARE(sounds.played.join(u' '), played);
            QCOMPARE(defaults.boolean(PREFS_GENERAL_SOUND_EFFECTS),
                     preference.isNull() || preference.toBool());
        }
    }

    /// RIFF with linear samples, mono, 44.1 kHz, 16 bit, which the low-latency player reads; and not silent.
    void soundsArePlainWaves()
    {
        for (const char* name : {"MoveItem", "DeleteItem", "RemoveTags", "Snap"}) {
            QFile file(u":/sounds/%1.wav"_s.arg(QLatin1String(name)));
            QVERIFY2(file.open(QIODevice::ReadOnly), name);
            const QByteArray bytes = file.readAll();
            QVERIFY(bytes.startsWith("RIFF") && bytes.mid(8, 8) == "WAVEfmt ");
            QCOMPARE(bytes.mid(20, 8), "\x01\x00\x01\x00\x44\xAC\x00\x00"_ba);
            QCOMPARE(bytes.mid(34, 2), "\x10\x00"_ba);
            const auto* samples = reinterpret_cast<const qint16*>(bytes.constData() + 44);
            const auto loudest = *std::max_element(samples, samples + (bytes.size() - 44) / 2);
            QVERIFY2(loudest > 8000 && loudest < 30000, name);
            const double seconds = double(bytes.size() - 44) / 2 / 44100;
            QVERIFY2(seconds >= 0.15 && seconds <= 0.6, name);
        }
    }

    void notificationsNeedATitleAndAContent()
    {
        ZNUtilities utilities;
        utilities.postUserNotification(u"T"_s, {}, u"C"_s); // To nobody.
        FakeNotifier notifier;
        utilities.setUserNotifier(&notifier);
        utilities.postUserNotification(u"T"_s, {}, u"C"_s);
        utilities.postUserNotification({}, u"S"_s, u"C"_s);
        utilities.postUserNotification(u"T"_s, u"S"_s, {});
        QCOMPARE(notifier.notes.size(), 1);
        const auto& note = notifier.notes.first();
        QCOMPARE((QStringList{note.title, note.subtitle, note.content}),
                 (QStringList{u"T"_s, u""_s, u"C"_s}));
    }

    void alertsPassTheirTextsUnchanged()
    {
        ZNUtilities utilities;
        QCOMPARE(utilities.alertWithMessageText({}, {}, {}, {}), 0); // To nobody.
        FakePrompts prompts;
        prompts.alertAnswers = {1, 0};
        utilities.setPrompts(&prompts);
        const QString informative = u"100%d %1 <b>"_s;
        QCOMPARE(utilities.alertWithMessageText(u"M"_s, u"OK"_s, {}, informative), 1);
        QCOMPARE(prompts.alerts.first().informativeText, informative);
        QCOMPARE(utilities.alertWithMessageText(u"M"_s, u"OK"_s, {}, {}), 0);
    }

    void workHopsToAWorkerAndBack()
    {
        QThreadPool pool;
        QObject receiver;
        auto dead = std::make_unique<QObject>();
        bool onWorker = false;
        bool back = false;
        bool backToTheDead = false;
        QVERIFY(onMainThread());
        runOnWorker(pool, [&] {
            onWorker = !onMainThread();
            postToMain(*dead, [&] { backToTheDead = true; });
            postToMain(receiver, [&] { back = onMainThread(); });
        });
        QVERIFY(pool.waitForDone());
        QVERIFY(!back);
        dead.reset();
        QTRY_VERIFY(back);
        QVERIFY(onWorker && !backToTheDead);
    }
};

QTEST_GUILESS_MAIN(UtilitiesTest)
#include "tst_utilities.moc"
