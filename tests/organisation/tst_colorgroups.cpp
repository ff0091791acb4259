#include "organisation/ColorCommands.h"
#include "organisation/ColorReader.h"
#include "store/ColorList.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::ColorGroups;
using organisation::ColorViewOptions;
using organisation::MRColorTagItem;

namespace {

const QString kRed = u"1.000000+0.000000+0.000000+1.000000"_s;
const QString kDarkRed = u"0.500000+0.000000+0.000000+1.000000"_s;
const QString kGreen = u"0.000000+1.007843+0.000000+1.000000"_s; // beyond 1, as the colour engine makes some
const QString kGrey = u"0.400000+0.400000+0.400000+1.000000"_s;

struct World {
    test::TemporaryLibrary library;
    std::shared_ptr<store::Collections> collection = library.addCollection(u"C"_s);
    ColorGroups groups;

    /// A colour that as many new items have.
    std::shared_ptr<store::Colors> add(const QString& colorID, int type, int items, bool isLike = false)
    {
        const auto color = library.addColor(colorID, type);
        color->setIsLike(isLike);
        for (int i = 0; i < items; ++i)
            library.link(library.addMedia(u"m"_s, collection), color);
        return library.context().save() ? color : nullptr;
    }
    /// The groups as "type:first+count:hex hex …|…".
    QString shown(const ColorViewOptions& options = {})
    {
        const auto rows = store::colorRows(library.context(), organisation::colorsOnShow(options));
        groups = ColorGroups(library.manager(), rows.value());
        QStringList parts;
        for (const auto& [type, first, count] : groups.group()) {
            QStringList hex;
            for (int i = first; i < first + count; ++i)
                hex.append(groups.color(i).colorAsHex());
            parts.append(u"%1:%2+%3:%4"_s.arg(type).arg(first).arg(count).arg(hex.join(u' ')));
        }
        return parts.join(u'|');
    }
    qint64 colorCount()
    {
        return library.context().count(store::Colors::info(), store::Predicate::all()).value();
    }
};

} // namespace

class TestColorGroups : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itemTellsItsColor()
    {
        const struct {
            QString colorID, hex, rgb, hsb;
        } rows[] = {
            {kDarkRed, u"800000"_s, u"R:0.5, G:0.0, B:0.0, A:1.0"_s, u"HSB (0.00, 1.00, 0.50, 1.00)"_s},
            {kGreen, u"00FF00"_s, u"R:0.0, G:1.0, B:0.0, A:1.0"_s, u"HSB (0.33, 1.00, 1.00, 1.00)"_s},
            {u"1+0+0.5+0.5"_s, u"FF0080"_s, u"R:1.0, G:0.0, B:0.5, A:0.5"_s,
             u"HSB (0.92, 1.00, 1.00, 0.50)"_s},
            {u"1+0"_s, u""_s, u"R:0.0, G:0.0, B:0.0, A:0.0"_s, u"HSB (0.00, 0.00, 0.00, 0.00)"_s}, // none
        };
        World world;
        for (const auto& row : rows) {
            const MRColorTagItem item(world.library.manager(), {7, row.colorID, 1, false, 1234567});
            QCOMPARE(item.colorAsHex(), row.hex);
            QCOMPARE(item.colorAsRGBString(), row.rgb);
            QCOMPARE(item.colorAsHSBString(), row.hsb);
            QCOMPARE(item.countOfMediaAsString(), u"1,234,567"_s);
            QCOMPARE(item.colorAsImage().pixelColor(0, 31), QColor(Qt::black));
        }
    }

    void reloadGroupsAndSorts()
    {
        World world;
        world.add(kGreen, 0, 1);
        world.add(kRed, 0, 2, true);
        world.add(kDarkRed, 0, 1);
        world.add(kGrey, 0, 1);
        world.add(kRed, 2, 1);
        world.add(kGrey, 3, 1, true);
        world.add(kGreen, 3, 0);
        world.add(kDarkRed, 1, 0, true);
        const std::vector<std::tuple<ColorViewOptions, QString, size_t>> rows{
            {{}, u"0:0+4:666666 800000 FF0000 00FF00|2:4+1:FF0000|3:5+1:666666"_s, 2},
            {{{true, true, true, true}, true}, u"0:0+1:FF0000|3:1+1:666666"_s, 1},
            {{{false, false, true, true}, false}, u"2:0+1:FF0000|3:1+1:666666"_s, 1},
            {{{false, false, true, false}, true}, QString(), 0},
            {{{false, false, false, false}, false}, QString(), 0}};
        for (const auto& [options, shown, orphans] : rows) {
            QCOMPARE(world.shown(options), shown);
            QCOMPARE(world.groups.orphans().size(), orphans);
        }
        QCOMPARE(organisation::ColorGroup({0, 0, 1234}).headerText(), u"   Focus Colors (1,234)"_s);

        world.shown();
        world.groups.color(0).setIsLike(true);
        QVERIFY(world.groups.color(0).isLike() && world.groups.color(0).colorRecord()->isLike());
        QVERIFY(!world.library.context().hasChanges());
        QCOMPARE(organisation::colorsNamed(world.library.manager(), u"#ff0000"_s).size(), size_t(2));
        QCOMPARE(organisation::colorsNamed(world.library.manager(), kGrey).size(), size_t(2));
        QVERIFY(organisation::colorsNamed(world.library.manager(), u"#"_s).empty());
    }

    void readingsFollowEachOther()
    {
        World world;
        world.add(kRed, 0, 1);
        world.add(kGrey, 1, 1);
        std::vector<size_t> read;
        organisation::ColorReader reader(world.library.manager(), [&read](const ColorGroups& groups) {
            read.push_back(groups.colors().size());
        });
        reader.start({});
        reader.start({{false, false, true, false}, false});
        reader.start({{true, false, false, false}, false});
        QVERIFY(read.empty() && reader.isRunning());
        QTRY_VERIFY(!reader.isRunning());
        QCOMPARE(read, std::vector<size_t>{1}); // Only the last one is told.
        reader.start({});
        QTRY_COMPARE(read, (std::vector<size_t>{1, 2}));
        reader.start({});
        world.library.manager().closeDatabase();
        QTRY_VERIFY(!reader.isRunning());
        QCOMPARE(read.size(), size_t(2));
    }

    void itemsOfSeveralColorsOnce()
    {
        World world;
        const auto red = world.add(kRed, 0, 2);
        const auto grey = world.add(kGrey, 1, 40);
        world.library.link(world.library.addMedia(u"both"_s, world.collection), red);
        const auto links = red->colorList();
        world.library.link(links.back()->media(), grey);
        const auto items = [&](const std::vector<store::RowId>& rows) {
            const store::MediaSet set = store::itemsOfColors(world.library.context(), rows);
            return std::pair(set.ids.size(), set.totalFileSize);
        };
        QCOMPARE(items({red->rowId()}), std::pair(size_t(3), qint64(3000)));
        QCOMPARE(items({grey->rowId()}), std::pair(size_t(41), qint64(41000)));
        QCOMPARE(items({red->rowId(), grey->rowId()}), std::pair(size_t(43), qint64(43000)));
        QCOMPARE(items({}), std::pair(size_t(0), qint64(0)));
        // More than fit into one list of parameters.
        std::vector<store::RowId> many(2000, red->rowId());
        many.push_back(grey->rowId());
        QCOMPARE(items(many).first, size_t(43));
    }

    void orphansAreDeleted()
    {
        World world;
        world.add(kRed, 0, 1);
        const auto lost = world.add(kGreen, 0, 0);
        const auto found = world.add(kGrey, 0, 0);
        organisation::OrphanedColors orphans(world.library.manager());
        world.shown();
        orphans.collect(world.groups.orphans());
        orphans.collect(world.groups.orphans()); // while the first run goes on
        world.library.link(world.library.addMedia(u"new"_s, world.collection), found);
        QTRY_VERIFY(!orphans.isRunning());
        QCOMPARE(world.colorCount(), 2);
        QVERIFY(!world.library.context().hasChanges());
        QCOMPARE(world.shown(), u"0:0+2:666666 FF0000"_s);
    }
};

QTEST_GUILESS_MAIN(TestColorGroups)
#include "tst_colorgroups.moc"
