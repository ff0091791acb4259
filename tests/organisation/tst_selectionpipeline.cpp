#include "base/PreferenceKeys.h"
#include "organisation/CollectionTree.h"
#include "organisation/RecentPredicate.h"
#include "organisation/SelectionPipeline.h"
#include "support/TemporaryLibrary.h"

#include <QTimeZone>
#include <QtTest>

using namespace mosaro;
using organisation::CollectionTree;
using organisation::NodeList;
using organisation::SelectionPipeline;
using store::Comparison;
using store::Predicate;

namespace {

QDateTime at(const QString& text, const char* zone)
{
    QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
    moment.setTimeZone(QTimeZone(zone));
    return moment;
}

} // namespace

class TestSelectionPipeline : public QObject {
    Q_OBJECT

private:
    struct World {
        test::TemporaryLibrary library;
        CollectionTree tree;
        std::shared_ptr<store::Collections> folder, inner, inFolder, deep, beside, smart, otherSmart;

        World()
        {
            folder = library.addCollection(QStringLiteral("folder"), store::kTypeFolder);
            inner =
                library.addCollection(QStringLiteral("inner"), store::kTypeFolder, folder->collectionID());
            inFolder =
                library.addCollection(QStringLiteral("in"), store::kTypeCollection, folder->collectionID());
            deep =
                library.addCollection(QStringLiteral("deep"), store::kTypeCollection, inner->collectionID());
            beside = library.addCollection(QStringLiteral("beside"));
            smart = library.addCollection(QStringLiteral("smart"), store::kTypeSmartCollection);
            otherSmart = library.addCollection(QStringLiteral("other"), store::kTypeSmartCollection);
            add("one", inFolder, 7);
            add("two", deep, 14);
            add("three", deep, 7);
            add("four", beside, 15);
            add("five", beside, 13);
            if (!tree.makeLibrary(library.context())) {
                qFatal("no tree");
            }
        }

        void add(const char* title, const std::shared_ptr<store::Collections>& owner, qint64 kind)
        {
            const auto media = library.addMedia(QString::fromLatin1(title), owner);
            media->setMediaKind(kind);
            if (!library.context().save()) {
                qFatal("no save");
            }
        }

        NodeList nodes(const QStringList& ids) const
        {
            NodeList list;
            for (const QString& id : ids) {
                list.push_back(tree.node(id));
            }
            return list;
        }

        QStringList titles(const store::MediaSet& set)
        {
            QStringList found;
            for (const auto& media : library.context().objects<store::Media>(set.ids)) {
                found.append(media->mediaTitle());
            }
            return found;
        }
    };

    QStringList select(World& world, const QStringList& ids, const organisation::SmartQuerySource& smart = {})
    {
        const SelectionPipeline pipeline(world.library.context(), world.library.defaults(), smart);
        return world.titles(pipeline.selectedMedia(world.nodes(ids), QDateTime::currentDateTime()));
    }

    static QStringList words(const char* text)
    {
        return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void nodesToItems()
    {
        World world;
        const QString folder = world.folder->collectionID();
        const QString in = world.inFolder->collectionID();
        const QString beside = world.beside->collectionID();

        QCOMPARE(select(world, {}), QStringList());
        QCOMPARE(select(world, words("1")), words("one two three four five"));
        QCOMPARE(select(world, words("7")), words("one three"));
        QCOMPARE(select(world, words("14")), words("two"));
        QCOMPARE(select(world, words("4")), QStringList());
        QCOMPARE(select(world, {beside}), words("four five"));
        QCOMPARE(select(world, {folder}), words("one two three"));
        QCOMPARE(select(world, {folder, in, beside}), words("one two three four five"));
        const auto empty = world.library.addCollection(QStringLiteral("empty"), store::kTypeFolder);
        QVERIFY(world.tree.makeUserCollections(world.library.context()));
        QCOMPARE(select(world, {empty->collectionID()}), QStringList());
    }

    void smartCollections()
    {
        World world;
        const QStringList both{world.smart->collectionID(), world.otherSmart->collectionID()};
        QCOMPARE(select(world, both), QStringList());

        const auto byTitle = [](const store::Collections& record) -> std::optional<Predicate> {
            if (record.title() != QLatin1String("smart")) {
                return std::nullopt;
            }
            return Predicate::compare(QLatin1String("mediaTitle"), Comparison::BeginsWith,
                                      QStringLiteral("t"));
        };
        QCOMPARE(select(world, both, byTitle), words("two three"));
        QCOMPARE(select(world, {both.last()}, byTitle), QStringList());
        QCOMPARE(select(world, both + QStringList{world.deep->collectionID()}, byTitle), words("two three"));
    }

    void removedRecordContributesNothing()
    {
        World world;
        const NodeList nodes = world.nodes({world.beside->collectionID(), world.inFolder->collectionID()});
        world.library.context().remove(*world.beside);
        QVERIFY(world.library.context().save());
        const SelectionPipeline pipeline(world.library.context(), world.library.defaults());
        QCOMPARE(world.titles(pipeline.selectedMedia(nodes, QDateTime::currentDateTime())), words("one"));
    }

    void hundredThousandItems()
    {
        test::TemporaryLibrary library;
        const auto folder = library.addCollection(QStringLiteral("F"), store::kTypeFolder);
        const auto owner =
            library.addCollection(QStringLiteral("C"), store::kTypeCollection, folder->collectionID());
        constexpr int kCount = 100'000;
        for (int i = 0; i < kCount; ++i) {
            const auto media = library.context().insert<store::Media>();
            media->setMediaID(QString::number(i));
            media->setMediaFileSize(2);
            media->setCollections(owner);
        }
        QVERIFY(library.context().save());
        CollectionTree tree;
        QVERIFY(tree.makeLibrary(library.context()));
        const SelectionPipeline pipeline(library.context(), library.defaults());
        const auto set =
            pipeline.selectedMedia({tree.node(folder->collectionID())}, QDateTime::currentDateTime());
        QCOMPARE(set.ids.size(), size_t(kCount));
        QCOMPARE(set.totalFileSize, 2 * kCount);
    }

    void recentStart_data()
    {
        QTest::addColumn<QDateTime>("now");
        QTest::addColumn<int>("days");
        QTest::addColumn<QDateTime>("start");

        // Seven days of 25 hours are seven days and seven hours.
        QTest::newRow("evening") << at(QStringLiteral("2024-06-15T20:00:00"), "UTC") << 7
                                 << at(QStringLiteral("2024-06-09T00:00:00"), "UTC");
        QTest::newRow("small hours fall on the day before")
            << at(QStringLiteral("2024-06-15T06:59:59"), "UTC") << 7
            << at(QStringLiteral("2024-06-08T00:00:00"), "UTC");
        QTest::newRow("last second of the rule") << at(QStringLiteral("2024-06-15T07:00:00"), "UTC") << 7
                                                 << at(QStringLiteral("2024-06-09T00:00:00"), "UTC");
        QTest::newRow("no days: the next midnight") << at(QStringLiteral("2024-06-15T12:00:00"), "UTC") << 0
                                                    << at(QStringLiteral("2024-06-16T00:00:00"), "UTC");
        QTest::newRow("over the change to summer time")
            << at(QStringLiteral("2024-04-02T08:30:00"), "Europe/Berlin") << 7
            << at(QStringLiteral("2024-03-27T00:00:00"), "Europe/Berlin");
        QTest::newRow("a day without midnight begins at one")
            << at(QStringLiteral("2018-11-05T12:00:00"), "America/Sao_Paulo") << 1
            << at(QStringLiteral("2018-11-05T00:00:00"), "America/Sao_Paulo");
        QTest::newRow("the day that lacks its midnight")
            << at(QStringLiteral("2018-11-04T23:00:00"), "America/Sao_Paulo") << 1
            << at(QStringLiteral("2018-11-04T01:00:00"), "America/Sao_Paulo");
        QTest::newRow("year boundary") << at(QStringLiteral("2024-01-03T10:00:00"), "Asia/Tokyo") << 3
                                       << at(QStringLiteral("2024-01-01T00:00:00"), "Asia/Tokyo");
    }

    void recentStart()
    {
        QFETCH(QDateTime, now);
        QFETCH(int, days);
        QTEST(organisation::recentStart(now, days), "start");
    }

    void recentWindow()
    {
        World world;
        base::ZNUserDefaults& defaults = world.library.defaults();
        const QDateTime now = at(QStringLiteral("2024-06-15T20:00:00"), "UTC");
        const auto importedAt = [&world](const char* title, const QDateTime& date) {
            const auto media = world.library.addMedia(QString::fromLatin1(title), world.beside);
            media->setMediaDateImported(date);
            QVERIFY(world.library.context().save());
        };
        importedAt("first", at(QStringLiteral("2024-06-09T00:00:00"), "UTC"));
        importedAt("before", at(QStringLiteral("2024-06-08T23:59:59"), "UTC"));
        importedAt("now", now);
        importedAt("later", now.addSecs(1));

        defaults.remove(base::PREFS_GENERAL_SHOW_RECENT_DAYS);
        const SelectionPipeline pipeline(world.library.context(), defaults);
        QCOMPARE(world.titles(pipeline.selectedMedia(world.nodes(words("2")), now)), words("first now"));
        QCOMPARE(defaults.integer(base::PREFS_GENERAL_SHOW_RECENT_DAYS), 7);

        defaults.updateUserDefaults(base::PREFS_GENERAL_SHOW_RECENT_DAYS, 1);
        QCOMPARE(world.titles(pipeline.selectedMedia(world.nodes(words("2")), now)), words("now"));
    }
};

QTEST_GUILESS_MAIN(TestSelectionPipeline)
#include "tst_selectionpipeline.moc"
