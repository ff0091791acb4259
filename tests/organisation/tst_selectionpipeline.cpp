#include "base/PreferenceKeys.h"
#include "organisation/CollectionTree.h"
#include "organisation/RecentPredicate.h"
#include "organisation/SelectionPipeline.h"
#include "support/TemporaryLibrary.h"

#include <QTimeZone>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::CollectionTree;
using organisation::NodeList;
using organisation::SelectionPipeline;
using store::Comparison;
using store::Predicate;

namespace {

QDateTime at(const QString& text, const QByteArray& zone = "UTC")
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
            folder = collection(u"folder"_s, store::kTypeFolder);
            inner = collection(u"inner"_s, store::kTypeFolder, folder);
            inFolder = collection(u"in"_s, store::kTypeCollection, folder);
            deep = collection(u"deep"_s, store::kTypeCollection, inner);
            beside = collection(u"beside"_s, store::kTypeCollection);
            smart = collection(u"smart"_s, store::kTypeSmartCollection);
            otherSmart = collection(u"other"_s, store::kTypeSmartCollection);
            add("one", inFolder, 7);
            add("two", deep, 14);
            add("three", deep, 7);
            add("four", beside, 15);
            add("five", beside, 13);
            if (!tree.makeLibrary(library.context())) {
                qFatal("no tree");
            }
        }

        std::shared_ptr<store::Collections> collection(const QString& title, qint64 type,
                                                       const std::shared_ptr<store::Collections>& parent = {})
        {
            return library.addCollection(title, type, parent ? parent->collectionID() : QString());
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
        const auto empty = world.library.addCollection(u"empty"_s, store::kTypeFolder);
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
            return Predicate::compare(QLatin1String("mediaTitle"), Comparison::BeginsWith, u"t"_s);
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
        const auto folder = library.addCollection(u"F"_s, store::kTypeFolder);
        const auto owner = library.addCollection(u"C"_s, store::kTypeCollection, folder->collectionID());
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
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("now");
        QTest::addColumn<int>("days");
        QTest::addColumn<QString>("start");
        const auto row = [](const char* name, const char* zone, const char* now, int days,
                            const char* start) {
            QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(now) << days
                                << QString::fromLatin1(start);
        };
        // Seven days of 25 hours are seven days and seven hours.
        row("evening", "UTC", "2024-06-15T20:00:00", 7, "2024-06-09T00:00:00");
        row("small hours fall on the day before", "UTC", "2024-06-15T06:59:59", 7, "2024-06-08T00:00:00");
        row("last second of the rule", "UTC", "2024-06-15T07:00:00", 7, "2024-06-09T00:00:00");
        row("no days: the next midnight", "UTC", "2024-06-15T12:00:00", 0, "2024-06-16T00:00:00");
        row("over the change to summer time", "Europe/Berlin", "2024-04-02T08:30:00", 7,
            "2024-03-27T00:00:00");
        row("after a day without midnight", "America/Sao_Paulo", "2018-11-05T12:00:00", 1,
            "2018-11-05T00:00:00");
        row("a day without midnight", "America/Sao_Paulo", "2018-11-04T23:00:00", 1, "2018-11-04T01:00:00");
        row("year boundary", "Asia/Tokyo", "2024-01-03T10:00:00", 3, "2024-01-01T00:00:00");
    }

    void recentStart()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, now);
        QFETCH(int, days);
        QFETCH(QString, start);
        QCOMPARE(organisation::recentStart(at(now, zone), days), at(start, zone));
    }

    void recentWindow()
    {
        World world;
        base::ZNUserDefaults& defaults = world.library.defaults();
        const QDateTime now = at(u"2024-06-15T20:00:00"_s);
        const auto importedAt = [&world](const char* title, const QDateTime& date) {
            const auto media = world.library.addMedia(QString::fromLatin1(title), world.beside);
            media->setMediaDateImported(date);
            QVERIFY(world.library.context().save());
        };
        importedAt("first", at(u"2024-06-09T00:00:00"_s));
        importedAt("before", at(u"2024-06-08T23:59:59"_s));
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
