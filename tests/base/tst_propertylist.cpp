#include "base/PropertyList.h"

#include "base/Text.h"
#include "support/Bytes.h"
#include "support/CommaLocale.h"
#include "support/Files.h"

#include <QtTest>
#include <limits>

using namespace mosaro::base;
using namespace mosaro::test;
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

/// A binary list of these objects, the first being the root; references are two bytes wide.
QByteArray binary(const QList<QByteArray>& objects, int top = 0)
{
    Bytes data(QDataStream::BigEndian);
    Bytes table(QDataStream::BigEndian);
    data.put("bplist00");
    for (const QByteArray& object : objects) {
        table.put32(data.all().size());
        data.put(object);
    }
    const qsizetype tableOffset = data.all().size();
    data.put(table.all()).put(QByteArray(6, '\0')).put8(4, 2);
    return data.put32(0, objects.size(), 0, top, 0, tableOffset).all();
}

QByteArray arrayOf(const QList<int>& references)
{
    Bytes object(QDataStream::BigEndian);
    object.put8(0xA0 | std::min<qsizetype>(references.size(), 15));
    if (references.size() >= 15)
        object.put8(0x12).put32(references.size());
    for (const int reference : references)
        object.put16(reference);
    return object.all();
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
    const QByteArray text = "\x5F\x12\x00\x01\x86\xA0"_ba + QByteArray(100'000, 'x');
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

    void roundTrips()
    {
        QVariantMap many;
        for (int i = 0; i < 2000; ++i)
            many.insert(u"key%1"_s.arg(i), qint64(i));
        using Whole = std::numeric_limits<qint64>;
        QVariantList values{true,           false,        0LL,     -12345LL,
                            Whole::min(),   Whole::max(), 1.0 / 3, -0.001953125,
                            123456789012.5, 1e300,        4.9e-20, 0.1};
        values << QString::fromLatin1("") << u"  a \n b  "_s << u"<a href=\"x\">&amp;</a> ]]>"_s
               << u"Grüße 漢字 \U0001F3A8"_s << ""_ba
               << "\0\1\xFF<>"_ba << QByteArray(100'000, '\x7F')
               << QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56), Qt::UTC)
               << QDateTime(QDate(1984, 1, 24), QTime(1, 2, 3), Qt::UTC) // before 2001
               << QVariant(QVariantList()) << QVariantMap() << QVariantMap{{u"CF$UID"_s, 7LL}} << nested(64)
               << QVariantMap{{u"list"_s, QVariantList{1LL, u"two"_s, 3.5, true}},
                              {u"key with & < marks"_s, QVariantMap()},
                              {u""_s, 1LL}}
               << many;
        for (const QVariant& value : values) {
            for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
                const auto data = writePropertyList(value, format);
                QVERIFY2(data.ok(), data.ok() ? "" : qPrintable(data.reason()));
                const auto read = readPropertyList(data.value());
                QVERIFY2(read.ok(), data.value().left(300).constData());
                QVERIFY2(read.value() == value, data.value().left(300).constData());
                QCOMPARE(read.value().metaType(), value.metaType());
            }
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
        const CommaLocale comma;
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

    void refusesToWrite()
    {
        const std::pair<const char*, QVariant> rows[] = {
            {"nothing", {}},
            {"nothing in a list", QVariantList{QVariant()}},
            {"another type", QSize(1, 2)},
            {"65 levels", nested(65)},
            {"no date", QDateTime()},
            {"date out of range", QDateTime(QDate(2400, 1, 1), QTime(0, 0), Qt::UTC)},
            {"integer out of range", std::numeric_limits<quint64>::max()}};
        for (const auto& [name, value] : rows) {
            for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
                const auto data = writePropertyList(value, format);
                QVERIFY2(!data.ok() && !data.reason().startsWith("Failure."_L1), name);
            }
        }
    }

    void refusesHostileInput()
    {
        const std::pair<const char*, QByteArray> rows[] = {
            {"nothing", {}},
            {"text", "hello"},
            {"zeros", QByteArray(1000, '\0')},
            {"too large", QByteArray(64 * 1024 * 1024 + 1, ' ')},
            {"other document", "<?xml version=\"1.0\"?><html><body/></html>"},
            {"empty list document", xml("")},
            {"cut off XML", xml("<dict><key>a</key><string>b").chopped(8)},
            {"unbalanced XML", xml("<dict><array></dict></array>")},
            {"65 levels of XML", xml("<array>"_ba.repeated(65) + "</array>"_ba.repeated(65))},
            {"endless XML levels", xml("<array>"_ba.repeated(500'000))},
            {"entities", entities()},
            {"header alone", "bplist00"},
            {"header and zeros", "bplist00" + QByteArray(100, '\0')},
            {"header and ones", "bplist00" + QByteArray(100, '\xFF')},
            {"holds itself", binary({arrayOf({0})})},
            {"loop of two", binary({arrayOf({1}), arrayOf({0})})},
            {"reference out of range", binary({arrayOf({9})})},
            {"root out of range", binary({QByteArray(1, char(0x09))}, 5)},
            {"text beyond the end", binary({"\x5F\x12\x7F\xFF\xFF\xFF"_ba})},
            {"count that wraps", binary({"\xAF\x13\x80\0\0\0\0\0\0\1"_ba})},
            {"65 levels", levels(65)},
            {"10,000 levels", levels(10'000)},
            {"two to the 40th", levels(40, 2)},
            {"texts by the million", amplified()},
        };
        for (const auto& [name, data] : rows) {
            const auto read = readPropertyList(data);
            QVERIFY2(!read.ok(), name);
            QVERIFY2(!read.reason().isEmpty() && !read.reason().startsWith("Failure."_L1), name);
        }
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
            const FullDisk disk(10);
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
