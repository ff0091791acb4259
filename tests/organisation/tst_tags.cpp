#include "organisation/CollectionNames.h"
#include "organisation/TagAssignment.h"
#include "organisation/TagColors.h"
#include "organisation/TagCommands.h"
#include "organisation/TagRun.h"
#include "store/MediaSet.h"
#include "store/MediaTagList.h"
#include "store/TagLinks.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::organisation;
using store::RowId;

namespace {

/// A library with tags and with items that bear some of them, as "ab|b|": three items, the last without a
/// tag.
struct TagWorld {
    test::TemporaryLibrary library;
    QHash<QChar, std::shared_ptr<store::Tags>> tags;
    std::vector<RowId> items;

    explicit TagWorld(const QString& rows)
    {
        const auto collection = library.addCollection(u"Collection"_s);
        for (const QString& row : rows.split(u'|')) {
            const auto media = library.addMedia(u"item"_s, collection);
            items.push_back(media->rowId());
            for (const QChar name : row)
                library.link(media, tag(name));
        }
    }

    std::shared_ptr<store::Tags> tag(QChar name)
    {
        auto& record = tags[name];
        record = record ? record : library.addTag(name);
        return record;
    }

    /// The same form as in the constructor, letters in alphabetical order.
    QString rows()
    {
        QStringList rows;
        for (const RowId item : items) {
            QString row;
            for (const auto& link : library.context().object<store::Media>(item)->mediaTagList())
                row += link->tags()->title();
            std::sort(row.begin(), row.end());
            rows.append(row);
        }
        return rows.join(u'|');
    }

    TagList list()
    {
        TagList list;
        (void)list.reload(library.context());
        return list;
    }
};

/// Counts what a progress panel would show, and stops the work at the second figure.
struct FakeProgress : base::ProgressSink {
    int begun = 0;
    int ended = 0;
    QList<int> percents;
    std::function<void()> stop;
    void begin(const QString&) override { ++begun; }
    void update(const QString&, int percent) override
    {
        percents.append(percent);
        if (percents.size() == 2)
            stop();
    }
    void end() override { ++ended; }
    void offerStop(const std::function<void()>& offered) override { stop = offered; }
};

} // namespace

class TestTags : public QObject {
    Q_OBJECT

    static void linkAndCompare(TagDirection direction, int perSave, const QString& rows, int expected)
    {
        TagWorld world(u"ab|a|||b"_s);
        std::vector<RowId> items = world.items;
        items.insert(items.end(), {world.items[2], 4711, world.items[0]});
        FakeProgress progress;
        TagRun run(&progress);
        int changed = -1;
        const TagLinker linker(world.library.context(), world.tag(u'a')->rowId(), items, direction, perSave);
        QVERIFY(run.start(world.library.context(), linker, {},
                          [&](const TagLinker& ended) { changed = int(ended.changed()); }));
        QTRY_COMPARE(changed, expected);
        QCOMPARE(world.rows(), rows);
        QVERIFY(!world.library.context().hasChanges());
        QCOMPARE(progress.begun, progress.ended);
    }

private Q_SLOTS:
    void listIsInNaturalOrder()
    {
        test::TemporaryLibrary library;
        for (const QString& title : {u"Poster 10"_s, u"icon"_s, u"Poster 9"_s, u"Äther"_s})
            library.addTag(title);
        TagList list;
        QVERIFY(list.reload(library.context()));
        QCOMPARE(list.titles(), (QStringList{u"Äther"_s, u"icon"_s, u"Poster 9"_s, u"Poster 10"_s}));
        QCOMPARE(list.at(list.indexOf(list.at(2).tagID)).title, u"Poster 9"_s);
        QCOMPARE(list.indexOf(u"none"_s), -1);
        QVERIFY(list.isTitleTaken(u"ICON"_s) && !list.isTitleTaken(u"icons"_s));
    }

    void availableNames()
    {
        for (const auto& [taken, name] : {std::pair{u"Other"_s, u"Tag"_s},
                                          {u"Tag"_s, u"Tag (2)"_s},
                                          {u"Tag|Tag (3)"_s, u"Tag (2)"_s},
                                          {u"Tag|Tag (2)|Tag (4)"_s, u"Tag (3)"_s},
                                          {u"My Tag"_s, u"Tag (2)"_s},
                                          {u"tag"_s, u"Tag"_s}}) {
            QCOMPARE(availableName(u"Tag"_s, taken.split(u'|')), name);
        }
        QCOMPARE(availableName(u"50%2 %1"_s, {u"50%2 %1"_s}), u"50%2 %1 (2)"_s);
    }

    void colorChoices()
    {
        for (int choice = 1; choice <= kLastLabelColor; ++choice)
            QCOMPARE(tagColorChoice(base::colorAsString(*labelColorAtIndex(choice))), choice);
        QCOMPARE(labelColorAtIndex(1)->toColor(), QColor(252, 99, 89));
        QCOMPARE(labelColorAtIndex(4)->toColor(), QColor(174, 216, 65));
        QVERIFY(!labelColorAtIndex(0) && !labelColorAtIndex(8));
        std::vector<TagRecord> tags(3);
        tags[1].tagColor = base::colorAsString(*labelColorAtIndex(1));
        tags[2].tagColor = u"0.1+0.2+0.3+1"_s;
        QCOMPARE(tagColorChoices(tags), (std::set{kNoTagColor, 1, kCustomTagColor}));
    }

    void deletingTakesLinksAndMemory()
    {
        TagWorld world(u"ab|a"_s);
        store::LibraryState& state = world.library.state();
        TagCommands commands(world.library.context(), state);
        state.addLastSelectedMedia({"reference"}, world.tag(u'a')->tagID() + u"+Tag"_s);
        QVERIFY(commands.remove(world.list().at(0)));
        QCOMPARE(world.rows(), u"b|"_s);
        QVERIFY(state.lastSelectedMedia().isEmpty());
        QVERIFY(!commands.rename(99, u"gone"_s));
        const auto made = commands.addTag(u"c"_s);
        const auto record = world.library.context().object<store::Tags>(world.list().at(1).object);
        QCOMPARE(record->rowId(), made.value());
        QCOMPARE(record->sortKey(), 7);
        QCOMPARE(record->zoomValue(), 0.4);
        QVERIFY(!record->isAscending() && !record->isEmptyAttribute("tagColor"_L1));
    }

    void usesOfASelection()
    {
        TagWorld world(u"ab|bc|d"_s);
        const auto uses = [&world](std::span<const RowId> items) {
            QString states;
            for (const AssignedTag& tag : assignedTags(world.library.context(), world.list(), items))
                states += u"-~+"[int(tag.use)];
            return states;
        };
        QCOMPARE(uses(std::span(world.items).first(2)), u"~+~-"_s);
        QCOMPARE(uses(world.items), u"~~~~"_s);
        QCOMPARE(uses({}), u"----"_s);
        // A selection as large as a library is counted another way.
        std::vector<RowId> many(25'000);
        std::iota(many.begin(), many.end(), 1);
        QCOMPARE(store::tagCounts(world.library.context(), many).value(),
                 store::tagCounts(world.library.context()).value());
        QCOMPARE(store::tagCounts(world.library.context()).value().value(world.tag(u'b')->rowId()), 2);
    }

    /// An item that comes twice, and one that is not there, change nothing.
    void links()
    {
        for (const int perSave : {1, 2, 100}) {
            linkAndCompare(TagDirection::Add, perSave, u"ab|a|a|a|ab"_s, 3);
            linkAndCompare(TagDirection::Remove, perSave, u"b||||b"_s, 2);
        }
    }

    void longRunTellsItsProgressAndCanBeStopped()
    {
        TagWorld world(u"a"_s);
        FakeProgress progress;
        TagRun run(&progress);
        const std::vector<RowId> items(3'000'000, world.items[0]);
        bool finished = false;
        QVERIFY(run.start(
            world.library.context(),
            TagLinker(world.library.context(), world.tag(u'a')->rowId(), items, TagDirection::Remove, 1),
            u"Title"_s, [&finished](const TagLinker&) { finished = true; }));
        QTRY_VERIFY_WITH_TIMEOUT(finished, 60'000);
        QCOMPARE(progress.begun, 1);
        QCOMPARE(progress.ended, 1);
        QCOMPARE(progress.percents.size(), 2);
        QVERIFY(progress.percents[0] <= progress.percents[1] && progress.percents[1] < 100);
    }

    void failedSaveIsDropped()
    {
        TagWorld world(u"|"_s);
        store::StoreContext& context = world.library.context();
        const RowId tag = world.tag(u'a')->rowId();
        TagLinker linker(context, tag, world.items, TagDirection::Add);
        linker.step(0);
        world.tags.clear();
        context.remove(*context.object<store::Tags>(tag));
        QVERIFY(context.save());
        linker.step(1); // Leads to a tag that is gone now.
        QCOMPARE(linker.failed(), 1);
        QVERIFY(!linker.reason().isEmpty() && !context.hasChanges());
        QCOMPARE(TagLinker(context, tag, world.items, TagDirection::Add).count(), 0);
    }
};

QTEST_GUILESS_MAIN(TestTags)

#include "tst_tags.moc"
