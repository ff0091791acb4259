#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "organisation/ImportSession.h"
#include "support/FakeDesktop.h"
#include "support/TemporaryLibrary.h"

#include <QSemaphore>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using importing::ImportItem;
using organisation::ImportSession;

namespace {

struct FakeBadge : platform::LauncherBadge {
    QStringList& log;
    explicit FakeBadge(QStringList& lines) : log(lines) {}
    void setPercent(int percent) override { log.append(u"badge %1"_s.arg(percent)); }
    void clear() override { log.append(u"badge off"_s); }
};

struct LoggingNotifier : base::UserNotifier {
    QStringList& log;
    explicit LoggingNotifier(QStringList& lines) : log(lines) {}
    void notify(const QString& title, const QString&, const QString& content) override
    {
        log.append(title + QLatin1Char('/') + content);
    }
};

QString completed(const char* key, int count)
{
    return base::text("Message.Import.Completed") + QLatin1Char('/') +
           base::text(key, QString::number(count));
}

} // namespace

class TestImportSession : public QObject {
    Q_OBJECT

private:
    /// A session on a library, all of whose effects on the outside end in one log, in order.
    struct World : test::FakeDesktop {
        test::TemporaryLibrary library;
        base::ZNUtilities utilities;
        QStringList log;
        LoggingNotifier notifier{log};
        QObject observer;
        bool copies = true;
        std::function<importing::AnalysisResult(const importing::AnalysisRequest&)> analyse =
            test::pictureUnlessBad;
        std::unique_ptr<ImportSession> session;
        std::shared_ptr<store::Collections> collection;
        QVariantList busPayloads;

        World()
        {
            library.defaults().initialize();
            platform.badge = std::make_unique<FakeBadge>(log);
            utilities.setUserNotifier(&notifier);
            utilities.bus().observe(base::MOSARO_NOTE_UPDATED_USER_DEFINED_BOOKMARKS, &observer,
                                    [this](const QVariant&) { log.append(u"access list"_s); });
            utilities.bus().observe(base::MOSARO_NOTI_SHOW_IMPORT_PROCESS, &observer,
                                    [this](const QVariant& value) { busPayloads.append(value); });
            collection = library.addCollection(u"Target"_s);
            session = std::make_unique<ImportSession>(organisation::ImportSessionEnvironment{
                library.manager(), library.defaults(), utilities, library.prompts(), platform, classification,
                [this] { return copies; }, [this] { log.append(u"activate"_s); },
                [this](const importing::AnalysisRequest& request) { return analyse(request); }});
            connect(session.get(), &ImportSession::sheetShouldBegin, &observer,
                    [this] { log.append(u"sheet up"_s); });
            connect(session.get(), &ImportSession::sheetShouldEnd, &observer,
                    [this] { log.append(session->isImporting() ? u"busy"_s : u"sheet down"_s); });
            connect(session.get(), &ImportSession::failed, &observer,
                    [this](const std::vector<importing::FailedPath>& paths) {
                        log.append(u"failed %1"_s.arg(paths.size()));
                    });
        }

        std::vector<ImportItem> files(const QStringList& names)
        {
            std::vector<ImportItem> items;
            for (const QString& name : names) {
                const QString path = library.folder() + QLatin1Char('/') + name;
                test::writeFile(path, "\x89PNG");
                items.push_back(ImportItem::fromPath(path));
            }
            return items;
        }

        void run(std::vector<ImportItem> items, bool fromInternalSource = true)
        {
            QVERIFY(session->addMediaItem(std::move(items), collection, fromInternalSource));
            QVERIFY(session->isImporting());
            QTRY_VERIFY(!session->isImporting());
        }

        /// The log without the badge's percentages: progress is reported at most once per frame.
        QString steps() const
        {
            static const QRegularExpression percentages(u"^badge \\d+$"_s);
            QStringList left;
            for (const QString& line : log) {
                if (!percentages.match(line).hasMatch())
                    left.append(line);
            }
            return left.join(u'|');
        }
    };

private Q_SLOTS:
    void stepsComeInOrder()
    {
        World world;
        const QString waiting = world.library.manager().downloadDirectory() + u"/left.png"_s;
        test::writeFile(waiting, "x");
        world.run(world.files({u"a.png"_s, u"bad.png"_s, u"c.png"_s}));

        QVERIFY(!QFileInfo::exists(waiting));
        QCOMPARE(world.collection->mediaCount(), 2);
        QVERIFY(world.log.contains(u"badge 100"_s)); // only the last is sure to come
        QCOMPARE(world.steps(), u"activate|sheet up|badge off|sheet down|%1|activate|failed 1"_s.arg(
                                    completed("Message.Import.Completed.Items", 3)));
    }

    void preferencesSilence()
    {
        World world;
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_IMPORT_MEDIA_NOTI, false);
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, false);
        world.run(world.files({u"a.png"_s}));
        QCOMPARE(world.log.join(u'|'), u"activate|sheet up|badge off|sheet down|activate"_s);
        world.log.clear();
        world.session->updateBadgeSetting();
        QCOMPARE(world.log, QStringList(u"badge off"_s));
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, true);
        world.session->updateBadgeSetting();
        QCOMPARE(world.log.size(), 1);
    }

    void nothingAcceptableSaysNothing()
    {
        World world;
        world.run(world.files({u"notes.txt"_s}));
        QCOMPARE(world.collection->mediaCount(), 0);
        QCOMPARE(world.steps(), u"activate|sheet up|badge off|sheet down|activate"_s);
    }

    void referencesAskForTheirFolder()
    {
        World world;
        world.copies = false;
        world.run(world.files({u"a.png"_s}));
        QCOMPARE(world.collection->mediaCount(), 0);
        // The number of items that were tried, failed ones included.
        QVERIFY(world.log.contains(completed("Message.Import.Completed.Item", 1)));
        QCOMPARE(world.log.last(), u"failed 1"_s);

        const base::OpenPanelRequest asked = world.library.prompts().openPanels.takeFirst();
        QVERIFY(asked.directories && !asked.files && !asked.multiple);
        QCOMPARE(QDir::cleanPath(asked.directory), QDir::cleanPath(world.library.folder()));
        world.log.clear();
        world.library.prompts().openAnswers.append(QStringList(world.library.folder()));
        world.run(world.files({u"a.png"_s, u"b.png"_s}));
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
        QVERIFY(world.log.indexOf(u"access list"_s) > world.log.indexOf(u"sheet down"_s));
        QCOMPARE(world.collection->mediaCount(), 2);
    }

    void progressByTheBus()
    {
        World world;
        world.run(world.files({u"a.png"_s}), false);
        QVERIFY(!world.log.contains(u"sheet up"_s));
        QCOMPARE(world.busPayloads.first(), QVariant(true));
        QCOMPARE(world.busPayloads.last(), QVariant(false));
        const QVariantMap step = world.busPayloads.value(1).toMap();
        QCOMPARE(step.value(u"file"_s).toString(), u"a.png"_s);
        QCOMPARE(step.value(u"index"_s).toInt(), 1);
        QCOMPARE(step.value(u"totalCount"_s).toInt(), 1);
    }

    void oneRunAtATime()
    {
        World world;
        QVERIFY(!world.session->addMediaItem({}, world.collection, true));
        QVERIFY(!world.session->addMediaItem(world.files({u"a.png"_s}), nullptr, true));
        QVERIFY(world.session->addMediaItem(world.files({u"a.png"_s}), world.collection, true));
        QVERIFY(!world.session->addMediaItem(world.files({u"b.png"_s}), world.collection, true));
        QTRY_VERIFY(!world.session->isImporting());
        QCOMPARE(world.collection->mediaCount(), 1);

        world.library.manager().closeDatabase();
        QVERIFY(!world.session->addMediaItem(world.files({u"c.png"_s}), world.collection, true));
    }

    void stopCountsTheItemAtWhichItIsSeen()
    {
        World world;
        const auto names = u"1.png 2.png 3.png 4.png 5.png 6.png 7.png 8.png 9.png 10.png"_s.split(u' ');
        QSemaphore gate;
        world.analyse = [&](const importing::AnalysisRequest& request) {
            const QString name = QFileInfo(request.path).fileName();
            if (name != names[0] && name != names[1])
                gate.acquire();
            return test::pictureUnlessBad(request);
        };
        connect(world.session.get(), &ImportSession::progressed, world.session.get(),
                [&](const importing::ImportProgress& progress) {
                    if (progress.index == 2) {
                        world.session->requestStop();
                        gate.release(int(names.size()));
                    }
                });
        world.run(world.files(names));
        QCOMPARE(world.collection->mediaCount(), 2);
        QVERIFY(world.log.contains(completed("Message.Import.Completed.Items", 3)));
        QVERIFY(world.log.contains(u"sheet down"_s));
    }
};

QTEST_GUILESS_MAIN(TestImportSession)
#include "tst_importsession.moc"
