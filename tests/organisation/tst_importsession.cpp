#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "import/MediaClassification.h"
#include "organisation/ImportSession.h"
#include "support/TemporaryLibrary.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QtTest>

using namespace mosaro;
using importing::ImportItem;
using organisation::ImportSession;

namespace {

class FakeBadge : public platform::LauncherBadge {
public:
    explicit FakeBadge(QStringList& log) : m_log(log) {}
    void setPercent(int percent) override { m_log.append(QStringLiteral("badge %1").arg(percent)); }
    void clear() override { m_log.append(QStringLiteral("badge off")); }

private:
    QStringList& m_log;
};

class LoggingNotifier : public base::UserNotifier {
public:
    explicit LoggingNotifier(QStringList& log) : m_log(log) {}
    void notify(const QString& title, const QString&, const QString& content) override
    {
        m_log.append(title + QLatin1Char('/') + content);
    }

private:
    QStringList& m_log;
};

QString completed(const char* key, int count)
{
    return base::text("Message.Import.Completed") + QLatin1Char('/') +
           base::text(key, QString::number(count));
}

/// Files named "bad…" fail, all others become a picture.
importing::AnalysisResult fakeAnalysis(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result;
    result.type = request.type;
    result.kind = importing::MediaKind::Other;
    if (QFileInfo(request.path).fileName().startsWith(QLatin1String("bad"))) {
        result.outcome = base::Failure{QStringLiteral("spoilt")};
    } else {
        result.preview = "preview";
    }
    return result;
}

} // namespace

class TestImportSession : public QObject {
    Q_OBJECT

private:
    /// A session on a library, all of whose effects on the outside end in one log, in order.
    struct World {
        test::TemporaryLibrary library;
        test::FakeTypes types;
        test::FakeThumbnailers thumbnailers;
        importing::MediaClassification classification{types, thumbnailers};
        platform::Platform platform;
        base::ZNUtilities utilities;
        QStringList log;
        LoggingNotifier notifier{log};
        QObject observer;
        bool copies = true;
        std::function<importing::AnalysisResult(const importing::AnalysisRequest&)> analyse = fakeAnalysis;
        std::unique_ptr<ImportSession> session;
        std::shared_ptr<store::Collections> collection;
        QVariantList busPayloads;

        World()
        {
            library.defaults().initialize();
            types.mimeTypes.insert(QStringLiteral("png"), QStringLiteral("image/png"));
            platform.aliases = std::make_unique<test::FakeAliases>();
            platform.fileIndex = std::make_unique<test::FakeFileIndex>();
            platform.bookmarks = std::make_unique<test::FakeBookmarks>();
            platform.badge = std::make_unique<FakeBadge>(log);
            utilities.setUserNotifier(&notifier);
            utilities.bus().observe(base::MOSARO_NOTE_UPDATED_USER_DEFINED_BOOKMARKS, &observer,
                                    [this](const QVariant&) { log.append(QStringLiteral("access list")); });
            utilities.bus().observe(base::MOSARO_NOTI_SHOW_IMPORT_PROCESS, &observer,
                                    [this](const QVariant& value) { busPayloads.append(value); });
            collection = library.addCollection(QStringLiteral("Target"));
            session = std::make_unique<ImportSession>(organisation::ImportSessionEnvironment{
                library.manager(), library.defaults(), utilities, library.prompts(), platform, classification,
                [this] { return copies; }, [this] { log.append(QStringLiteral("activate")); },
                [this](const importing::AnalysisRequest& request) { return analyse(request); }});
            connect(session.get(), &ImportSession::sheetShouldBegin, &observer,
                    [this] { log.append(QStringLiteral("sheet up")); });
            connect(session.get(), &ImportSession::sheetShouldEnd, &observer, [this] {
                log.append(session->isImporting() ? QStringLiteral("sheet down, busy")
                                                  : QStringLiteral("sheet down"));
            });
            connect(session.get(), &ImportSession::failed, &observer,
                    [this](const std::vector<importing::FailedPath>& paths) {
                        log.append(QStringLiteral("failed %1").arg(paths.size()));
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
    };

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void stepsComeInOrder()
    {
        World world;
        const QString waiting = world.library.manager().downloadDirectory() + QStringLiteral("/left.png");
        test::writeFile(waiting, "x");
        world.run(world.files({QStringLiteral("a.png"), QStringLiteral("bad.png"), QStringLiteral("c.png")}));

        QVERIFY(!QFileInfo::exists(waiting));
        QCOMPARE(world.collection->mediaCount(), 2);
        // Progress is reported at most once per frame, so that only the last badge is sure to come.
        QVERIFY(world.log.contains(QStringLiteral("badge 100")));
        world.log.erase(std::remove_if(world.log.begin(), world.log.end(),
                                       [](const QString& line) {
                                           return line.startsWith(QLatin1String("badge ")) &&
                                                  line != QLatin1String("badge off");
                                       }),
                        world.log.end());
        QCOMPARE(world.log, QStringList({QStringLiteral("activate"), QStringLiteral("sheet up"),
                                         QStringLiteral("badge off"), QStringLiteral("sheet down"),
                                         completed("Message.Import.Completed.Items", 3),
                                         QStringLiteral("activate"), QStringLiteral("failed 1")}));
    }

    void preferencesSilence()
    {
        World world;
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_IMPORT_MEDIA_NOTI, false);
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, false);
        world.run(world.files({QStringLiteral("a.png")}));
        QCOMPARE(world.log, QStringList({QStringLiteral("activate"), QStringLiteral("sheet up"),
                                         QStringLiteral("badge off"), QStringLiteral("sheet down"),
                                         QStringLiteral("activate")}));
        world.log.clear();
        world.session->updateBadgeSetting();
        QCOMPARE(world.log, QStringList(QStringLiteral("badge off")));
        world.library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, true);
        world.session->updateBadgeSetting();
        QCOMPARE(world.log.size(), 1);
    }

    void nothingAcceptableSaysNothing()
    {
        World world;
        world.run(world.files({QStringLiteral("notes.txt")}));
        QCOMPARE(world.collection->mediaCount(), 0);
        QVERIFY(world.log.filter(base::text("Message.Import.Completed")).isEmpty());
        QVERIFY(world.log.contains(QStringLiteral("sheet down")));
    }

    void referencesAskForTheirFolder()
    {
        World world;
        world.copies = false;
        const auto items = world.files({QStringLiteral("a.png"), QStringLiteral("b.png")});
        world.library.prompts().openAnswers.append(QStringList(world.library.folder()));
        world.run(items);
        QCOMPARE(world.library.prompts().openPanels.size(), 1);
        const base::OpenPanelRequest& asked = world.library.prompts().openPanels.first();
        QVERIFY(asked.directories && !asked.files && !asked.multiple);
        QCOMPARE(QDir::cleanPath(asked.directory), QDir::cleanPath(world.library.folder()));
        const auto note = world.log.indexOf(QStringLiteral("access list"));
        QVERIFY(note > world.log.indexOf(QStringLiteral("sheet down")));
        QCOMPARE(world.collection->mediaCount(), 2);
    }

    void refusedFolderFails()
    {
        World world;
        world.copies = false;
        world.run(world.files({QStringLiteral("a.png")}));
        QCOMPARE(world.collection->mediaCount(), 0);
        QCOMPARE(world.log.last(), QStringLiteral("failed 1"));
        // The number of items that were tried, failed ones included.
        QVERIFY(world.log.contains(completed("Message.Import.Completed.Item", 1)));
    }

    void progressByTheBus()
    {
        World world;
        world.run(world.files({QStringLiteral("a.png")}), false);
        QVERIFY(!world.log.contains(QStringLiteral("sheet up")));
        QCOMPARE(world.busPayloads.first(), QVariant(true));
        QCOMPARE(world.busPayloads.last(), QVariant(false));
        const QVariantMap step = world.busPayloads.value(1).toMap();
        QCOMPARE(step.value(QStringLiteral("file")).toString(), QStringLiteral("a.png"));
        QCOMPARE(step.value(QStringLiteral("index")).toInt(), 1);
        QCOMPARE(step.value(QStringLiteral("totalCount")).toInt(), 1);
    }

    void oneRunAtATime()
    {
        World world;
        QVERIFY(!world.session->addMediaItem({}, world.collection, true));
        QVERIFY(!world.session->addMediaItem(world.files({QStringLiteral("a.png")}), nullptr, true));
        QVERIFY(world.session->addMediaItem(world.files({QStringLiteral("a.png")}), world.collection, true));
        QVERIFY(!world.session->addMediaItem(world.files({QStringLiteral("b.png")}), world.collection, true));
        QTRY_VERIFY(!world.session->isImporting());
        QCOMPARE(world.collection->mediaCount(), 1);

        world.library.manager().closeDatabase();
        QVERIFY(!world.session->addMediaItem(world.files({QStringLiteral("c.png")}), world.collection, true));
    }

    void stopCountsTheItemAtWhichItIsSeen()
    {
        World world;
        QStringList names;
        for (int number = 1; number <= 10; ++number) {
            names.append(QStringLiteral("f%1.png").arg(number));
        }
        QSemaphore gate;
        world.analyse = [&](const importing::AnalysisRequest& request) {
            const QString name = QFileInfo(request.path).fileName();
            if (name != names[0] && name != names[1]) {
                gate.acquire();
            }
            return fakeAnalysis(request);
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
        QVERIFY(world.log.contains(QStringLiteral("sheet down")));
    }
};

QTEST_GUILESS_MAIN(TestImportSession)
#include "tst_importsession.moc"
