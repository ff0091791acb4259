#include "base/PreferenceKeys.h"
#include "organisation/RecentPredicate.h"
#include "organisation/SelectionPipeline.h"
#include "organisation/SmartRules.h"
#include "organisation/TreeFixture.h"

#include <QTimeZone>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::NodeList;
using organisation::SelectionPipeline;

namespace {

QDateTime at(const char* text, const QByteArray& zone = "UTC")
{
    QDateTime moment = QDateTime::fromString(QLatin1String(text), Qt::ISODate);
    moment.setTimeZone(QTimeZone(zone));
    return moment;
}

} // namespace

class TestSelectionPipeline : public QObject {
    Q_OBJECT

    struct World : test::TreeFixture {
        World()
            : TreeFixture(
                  u"folder,,10002|inner,,10002,folder|in,,10000,folder|deep,,10000,inner|beside,,10000|"
                  "empty,,10002|smart,,10001|other,,10001"_s)
        {
            add(u"one"_s, u"in"_s)->setMediaKind(7);
            add(u"two"_s, u"deep"_s)->setMediaKind(14);
            add(u"three"_s, u"deep"_s)->setMediaKind(7);
            add(u"four"_s, u"beside"_s)->setMediaKind(15);
            add(u"five"_s, u"beside"_s)->setMediaKind(13);
            if (!library.context().save())
                qFatal("no save");
        }
        std::shared_ptr<store::Media> add(const QString& title, const QString& owner)
        {
            return library.addMedia(title, record(owner));
        }
        QString titles(const store::MediaSet& set)
        {
            QStringList found;
            for (const auto& media : library.context().objects<store::Media>(set.ids))
                found.append(media->mediaTitle());
            return found.join(u' ');
        }
        QString select(const NodeList& selected, const QDateTime& now = QDateTime::currentDateTime())
        {
            return titles(
                SelectionPipeline(library.context(), library.defaults()).selectedMedia(selected, now));
        }
        QString select(const QString& ids) { return select(nodes(ids)); }
    };

private Q_SLOTS:
    void nodesToItems()
    {
        World world;
        const std::pair<const char*, const char*> rows[] = {
            {"", ""},
            {"1", "one two three four five"},
            {"7", "one three"},
            {"14", "two"},
            {"4", ""},
            {"beside", "four five"},
            {"empty", ""},
            {"folder", "one two three"},
            {"folder in beside", "one two three four five"},
        };
        for (const auto& [selected, titles] : rows)
            QCOMPARE(world.select(QString::fromLatin1(selected)), QString::fromLatin1(titles));
    }

    void smartCollections()
    {
        World world;
        QCOMPARE(world.select(u"smart other"_s), QString());
        const auto setRule = [&world](const QString& id, const QVariantMap& rule) {
            world.record(id)->setFilters({rule});
            QVERIFY(world.library.context().save());
        };
        const QVariantMap titleBegins{{organisation::SMART_KEY_RULE_TYPE, 0},
                                      {organisation::SMART_KEY_CONDITION, 2},
                                      {organisation::SMART_KEY_DEFAULT_VALUE, u"t"_s}};
        QVariantMap reserved = titleBegins;
        reserved[organisation::SMART_KEY_RULE_TYPE] = 14;
        setRule(u"smart"_s, titleBegins);
        setRule(u"other"_s, reserved);
        QCOMPARE(world.select(u"smart other"_s), u"two three"_s);
        QCOMPARE(world.select(u"other"_s), QString());
        QCOMPARE(world.select(u"smart other in"_s), u"one two three"_s);
        reserved[organisation::SMART_KEY_RULE_TYPE] = 13;
        world.record(u"other"_s)->setFilters({reserved, titleBegins});
        QCOMPARE(world.select(u"smart other"_s), u"two three"_s);
    }

    void removedRecordContributesNothing()
    {
        World world;
        const NodeList nodes = world.nodes(u"beside in"_s);
        world.library.context().remove(*world.record(u"beside"_s));
        QVERIFY(world.library.context().save());
        QCOMPARE(world.select(nodes), u"one"_s);
    }

    void hundredThousandItems()
    {
        World world;
        const auto owner = world.record(u"in"_s);
        constexpr int kCount = 100'000;
        for (int i = 0; i < kCount; ++i) {
            const auto media = world.library.context().insert<store::Media>();
            media->setMediaID(QString::number(i));
            media->setMediaFileSize(2);
            media->setCollections(owner);
        }
        QVERIFY(world.library.context().save());
        const SelectionPipeline pipeline(world.library.context(), world.library.defaults());
        const auto set = pipeline.selectedMedia(world.nodes(u"folder"_s), QDateTime::currentDateTime());
        QCOMPARE(set.ids.size(), size_t(kCount + 3));
        QCOMPARE(set.totalFileSize, 2 * kCount + 3000);
    }

    /// Seven days of 25 hours are seven days and seven hours.
    void recentStart()
    {
        const struct {
            const char *name, *zone, *now;
            int days;
            const char* start;
        } rows[] = {
            {"evening", "UTC", "2024-06-15T20:00:00", 7, "2024-06-09T00:00:00"},
            {"small hours fall on the day before", "UTC", "2024-06-15T06:59:59", 7, "2024-06-08T00:00:00"},
            {"last second of the rule", "UTC", "2024-06-15T07:00:00", 7, "2024-06-09T00:00:00"},
            {"no days: the next midnight", "UTC", "2024-06-15T12:00:00", 0, "2024-06-16T00:00:00"},
            {"summer time begins", "Europe/Berlin", "2024-04-02T08:30:00", 7, "2024-03-27T00:00:00"},
            {"after a day without midnight", "America/Sao_Paulo", "2018-11-05T12:00:00", 1,
             "2018-11-05T00:00:00"},
            {"a day without midnight", "America/Sao_Paulo", "2018-11-04T23:00:00", 1, "2018-11-04T01:00:00"},
            {"year boundary", "Asia/Tokyo", "2024-01-03T10:00:00", 3, "2024-01-01T00:00:00"},
        };
        for (const auto& row : rows) {
            const QDateTime start = organisation::recentStart(at(row.now, row.zone), row.days);
            QVERIFY2(start == at(row.start, row.zone), row.name);
        }
    }

    void recentWindow()
    {
        World world;
        base::ZNUserDefaults& defaults = world.library.defaults();
        const QDateTime now = at("2024-06-15T20:00:00");
        const QDateTime start = at("2024-06-09T00:00:00");
        world.add(u"first"_s, u"beside"_s)->setMediaDateImported(start);
        world.add(u"before"_s, u"beside"_s)->setMediaDateImported(start.addSecs(-1));
        world.add(u"now"_s, u"beside"_s)->setMediaDateImported(now);
        world.add(u"later"_s, u"beside"_s)->setMediaDateImported(now.addSecs(1));
        QVERIFY(world.library.context().save());

        defaults.remove(base::PREFS_GENERAL_SHOW_RECENT_DAYS);
        QCOMPARE(world.select(world.nodes(u"2"_s), now), u"first now"_s);
        QCOMPARE(defaults.integer(base::PREFS_GENERAL_SHOW_RECENT_DAYS), 7);
        defaults.updateUserDefaults(base::PREFS_GENERAL_SHOW_RECENT_DAYS, 1);
        QCOMPARE(world.select(world.nodes(u"2"_s), now), u"now"_s);
    }
};

QTEST_GUILESS_MAIN(TestSelectionPipeline)
#include "tst_selectionpipeline.moc"
