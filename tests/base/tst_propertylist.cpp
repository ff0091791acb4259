#include "base/PropertyList.h"

#include "base/Text.h"

#include "support/CommaLocale.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <limits>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

namespace {

QVariantMap nested(int levels)
{
    QVariantMap map;
    for (int level = 1; level < levels; ++level)
        map = {{u"in"_s, map}};
    return map;
}

QByteArray xml(const QByteArray& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body + "</plist>";
}

QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int shift = size - 1; shift >= 0; --shift)
        bytes.append(char(number >> (8 * shift)));
    return bytes;
}

/// A binary list of these objects, the first being the root; references are two bytes wide.
QByteArray binary(const QList<QByteArray>& objects, quint64 top = 0)
{
    QByteArray data("bplist00");
    QByteArray table;
    for (const QByteArray& object : objects) {
        table += bigEndian(quint64(data.size()), 4);
        data += object;
    }
    const auto tableOffset = quint64(data.size());
    return data + table + QByteArray(6, '\0') + char(4) + char(2) + bigEndian(quint64(objects.size()), 8) +
           bigEndian(top, 8) + bigEndian(tableOffset, 8);
}

QByteArray arrayOf(const QList<int>& references)
{
    QByteArray object(1, char(0xA0 | std::min<qsizetype>(references.size(), 15)));
    if (references.size() >= 15)
        object += char(0x12) + bigEndian(quint64(references.size()), 4);
    for (const int reference : references)
        object += bigEndian(quint64(reference), 2);
    return object;
}

/// Each array names the next one so many times: that number to the power of `levels` leaves.
QByteArray levels(int levels, int times = 1)
{
    QList<QByteArray> objects;
    for (int level = 0; level < levels; ++level)
        objects.append(arrayOf(QList<int>(times, level + 1)));
    objects.append(QByteArray(1, char(0x09)));
    return binary(objects);
}

/// One long text, named a thousand times by each of a thousand arrays.
QByteArray amplified()
{
    const QByteArray text = "\x5F\x12"_ba + bigEndian(100'000, 4) + QByteArray(100'000, 'x');
    return binary({arrayOf(QList<int>(1000, 1)), arrayOf(QList<int>(1000, 2)), text});
}

/// Texts of ten times ten times ten ... characters.
QByteArray entities()
{
    QByteArray data("<!DOCTYPE plist [<!ENTITY a \"xxxxxxxxxx\">");
    for (char name = 'b'; name < 'k'; ++name) {
        const QByteArray inner = QByteArray("&").append(char(name - 1)).append(';').repeated(10);
        data += "<!ENTITY "_ba + name + " \"" + inner + "\">";
    }
    return data + "]><plist><string>&j;</string></plist>";
}

class PropertyListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void roundTrips_data()
    {
        QTest::addColumn<QVariant>("value");
        const auto add = [](const char* name, const QVariant& value) { QTest::newRow(name) << value; };
        add("true", true);
        add("false", false);
        add("zero", 0LL);
        add("negative", -12345LL);
        add("smallest", std::numeric_limits<qint64>::min());
        add("largest", std::numeric_limits<qint64>::max());
        add("third", 1.0 / 3);
        add("negative fraction", -0.001953125);
        add("large real", 123456789012.5);
        add("huge real", 1e300);
        add("tiny real", 4.9e-20);
        add("tenth", 0.1);
        add("empty text", QString::fromLatin1(""));
        add("blank text", u"  a \n b  "_s);
        add("marks of XML", u"<a href=\"x\">&amp;</a> ]]>"_s);
        add("beyond Latin", u"Grüße 漢字 \U0001F3A8"_s);
        add("no data", ""_ba);
        add("data", "\0\1\xFF<>"_ba);
        add("long data", QByteArray(100'000, '\x7F'));
        add("date", QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56), Qt::UTC));
        add("date before 2001", QDateTime(QDate(1984, 1, 24), QTime(1, 2, 3), Qt::UTC));
        add("empty list", QVariantList());
        add("empty map", QVariantMap());
        add("uid", QVariantMap{{u"CF$UID"_s, 7LL}});
        add("64 levels", nested(64));
        add("mixed", QVariantMap{{u"list"_s, QVariantList{1LL, u"two"_s, 3.5, true}},
                                 {u"key with & < marks"_s, QVariantMap()},
                                 {u""_s, 1LL}});
        QVariantMap many;
        for (int i = 0; i < 2000; ++i)
            many.insert(u"key%1"_s.arg(i), qint64(i));
        add("many keys", many);
    }
    void roundTrips()
    {
        QFETCH(const QVariant, value);
        for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
            const auto data = writePropertyList(value, format);
            QVERIFY2(data.ok(), data.ok() ? "" : qPrintable(data.reason()));
            const auto read = readPropertyList(data.value());
            QVERIFY2(read.ok(), data.value().left(300).constData());
            QCOMPARE(read.value(), value);
            QCOMPARE(read.value().metaType(), value.metaType());
        }
    }

    void dates()
    {
        const QDateTime moment(QDate(2024, 5, 1), QTime(8, 0, 0, 250), Qt::UTC);
        const auto binary = writePropertyList(moment, PropertyListFormat::Binary);
        QCOMPARE(readPropertyList(binary.value()).value().toDateTime(), moment); // With the fraction.
        const auto xml = writePropertyList(moment.toOffsetFromUtc(7200), PropertyListFormat::Xml);
        QVERIFY2(xml.value().contains("2024-05-01T08:00:00Z"), xml.value().constData());
    }

    void readsRealsAlikeInEveryLocale()
    {
        const mosaro::test::CommaLocale comma;
        if (!comma.isActive())
            QSKIP("no locale with a decimal comma can be made on this machine");
        QCOMPARE(readPropertyList(xml("<real>0.5</real>")).value().toDouble(), 0.5);
        QVERIFY(writePropertyList(0.5, PropertyListFormat::Xml).value().contains("<real>0.5"));
    }

    void leavesOutWhatXmlCannotHold()
    {
        const QString title = u"a\u0001b"_s + QChar(0) + u"c\uFFFEd"_s;
        const auto data = writePropertyList(title, PropertyListFormat::Xml);
        QVERIFY(data.ok());
        QCOMPARE(readPropertyList(data.value()).value().toString(), u"abcd"_s);
    }

    void refusesToWrite_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("nothing in a list") << QVariant(QVariantList{QVariant()});
        QTest::newRow("another type") << QVariant(QSize(1, 2));
        QTest::newRow("65 levels") << QVariant(nested(65));
        QTest::newRow("no date") << QVariant(QDateTime());
        QTest::newRow("date out of range") << QVariant(QDateTime(QDate(2400, 1, 1), QTime(0, 0), Qt::UTC));
        QTest::newRow("integer out of range") << QVariant(std::numeric_limits<quint64>::max());
    }
    void refusesToWrite()
    {
        QFETCH(const QVariant, value);
        for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
            const auto data = writePropertyList(value, format);
            QVERIFY(!data.ok());
            QVERIFY(!data.reason().startsWith("Failure."_L1));
        }
    }

    void refusesHostileInput_data()
    {
        QTest::addColumn<QByteArray>("data");
        const auto add = [](const char* name, const QByteArray& data) { QTest::newRow(name) << data; };
        add("nothing", {});
        add("text", "hello");
        add("zeros", QByteArray(1000, '\0'));
        add("too large", QByteArray(64 * 1024 * 1024 + 1, ' '));
        add("other document", "<?xml version=\"1.0\"?><html><body/></html>");
        add("empty list document", xml(""));
        add("cut off XML", xml("<dict><key>a</key><string>b").chopped(8));
        add("unbalanced XML", xml("<dict><array></dict></array>"));
        add("65 levels of XML", xml("<array>"_ba.repeated(65) + "</array>"_ba.repeated(65)));
        add("endless XML levels", xml("<array>"_ba.repeated(500'000)));
        add("entities", entities());
        add("header alone", "bplist00");
        add("header and zeros", "bplist00" + QByteArray(100, '\0'));
        add("header and ones", "bplist00" + QByteArray(100, '\xFF'));
        add("holds itself", binary({arrayOf({0})}));
        add("loop of two", binary({arrayOf({1}), arrayOf({0})}));
        add("reference out of range", binary({arrayOf({9})}));
        add("root out of range", binary({QByteArray(1, char(0x09))}, 5));
        add("text beyond the end", binary({"\x5F\x12\x7F\xFF\xFF\xFF"_ba}));
        add("count that wraps", binary({"\xAF\x13" + bigEndian(~0ULL / 2 + 2, 8)}));
        add("65 levels", levels(65));
        add("10,000 levels", levels(10'000));
        add("two to the 40th", levels(40, 2));
        add("texts by the million", amplified());
    }
    void refusesHostileInput()
    {
        QFETCH(const QByteArray, data);
        const auto read = readPropertyList(data);
        QVERIFY(!read.ok());
        QVERIFY(!read.reason().isEmpty() && !read.reason().startsWith("Failure."_L1));
    }

    void acceptsWhatIsAllowed()
    {
        for (
            const QByteArray& data :
            {levels(64), levels(10, 2),
             xml("<array>"_ba.repeated(64) + "<true/>" + "</array>"_ba.repeated(64)),
             "<?xml version=\"1.0\"?><!DOCTYPE plist SYSTEM \"http://127.0.0.1:1/list.dtd\">"
             "<plist version=\"1.0\"><!-- note --><dict><key>a</key><integer>1</integer></dict></plist>"_ba}) {
            const auto read = readPropertyList(data);
            QVERIFY2(read.ok(), read.ok() ? "" : qPrintable(read.reason()));
        }
    }

    /// Whatever a damaged disk makes of a list, reading it ends in a value or a reason.
    void survivesDamage()
    {
        const QVariantMap map{{u"path"_s, u"/home/someone/Pictures"_s},
                              {u"data"_s, QByteArray(40, 'x')},
                              {u"list"_s, QVariantList{1LL, -2LL, 2.5, true, nested(5)}}};
        for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
            const QByteArray good = writePropertyList(map, format).value();
            for (qsizetype at = 0; at < good.size(); ++at) {
                for (const char flip : {'\x01', '\x10', '\x80', '\xFF'}) {
                    QByteArray bad = good;
                    bad[at] = char(bad[at] ^ flip);
                    const auto read = readPropertyList(bad);
                    QVERIFY(read.ok() || !read.reason().isEmpty());
                }
                const auto cut = readPropertyList(good.left(at));
                QVERIFY(cut.ok() || !cut.reason().isEmpty());
            }
        }
    }

    void aFailedWriteLeavesTheFileAsItWas()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"list.data"_s);
        QVERIFY(writePropertyListFile(path, true, PropertyListFormat::Xml).ok());
        QVERIFY(!writePropertyListFile(path, QVariant(QSize()), PropertyListFormat::Xml).ok());
        {
            const mosaro::test::FullDisk disk(10);
            QVERIFY(!writePropertyListFile(path, false, PropertyListFormat::Xml).ok());
        }
        QCOMPARE(readPropertyListFile(path).value().toBool(), true);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"list.data"_s});
    }

    void namesTheFileInReasons()
    {
        const QTemporaryDir folder;
        const QString missing = folder.filePath(u"missing.plist"_s);
        QVERIFY(readPropertyListFile(missing).reason().contains(missing));
        QVERIFY(readPropertyListFile(folder.path()).reason().contains(folder.path()));
        const QString nowhere = folder.filePath(u"no/such/folder.plist"_s);
        QVERIFY(writePropertyListFile(nowhere, true, PropertyListFormat::Binary).reason().contains(nowhere));
    }
};

} // namespace

QTEST_GUILESS_MAIN(PropertyListTest)
#include "tst_propertylist.moc"
