#include "base/PropertyList.h"

#include "base/Text.h"

#include "support/CommaLocale.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <csignal>
#include <limits>
#include <sys/resource.h>

using namespace mosaro::base;

namespace {

QVariantMap nested(int levels)
{
    QVariantMap map;
    for (int level = 1; level < levels; ++level)
        map = {{QStringLiteral("in"), map}};
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

/// Each array names the next one twice: 2 to the power of `levels` leaves.
QByteArray doubling(int levels)
{
    QList<QByteArray> objects;
    for (int level = 0; level < levels; ++level)
        objects.append(arrayOf({level + 1, level + 1}));
    objects.append(QByteArray(1, char(0x09)));
    return binary(objects);
}

/// One long text, named a thousand times by each of a thousand arrays.
QByteArray amplified()
{
    QByteArray text("\x5F\x12");
    text += bigEndian(100'000, 4) + QByteArray(100'000, 'x');
    return binary({arrayOf(QList<int>(1000, 1)), arrayOf(QList<int>(1000, 2)), text});
}

QByteArray chain(int levels)
{
    QList<QByteArray> objects;
    for (int level = 0; level < levels; ++level)
        objects.append(arrayOf({level + 1}));
    objects.append(QByteArray(1, char(0x09)));
    return binary(objects);
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
        add("blank text", QStringLiteral("  a \n b  "));
        add("marks of XML", QStringLiteral("<a href=\"x\">&amp;</a> ]]>"));
        add("beyond Latin", QStringLiteral("Grüße 漢字 \U0001F3A8"));
        add("no data", QByteArray(""));
        add("data", QByteArray("\0\1\xFF<>", 5));
        add("long data", QByteArray(100'000, '\x7F'));
        add("date", QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56), Qt::UTC));
        add("date before 2001", QDateTime(QDate(1984, 1, 24), QTime(1, 2, 3), Qt::UTC));
        add("empty list", QVariantList());
        add("empty map", QVariantMap());
        add("uid", QVariantMap{{QStringLiteral("CF$UID"), 7LL}});
        add("64 levels", nested(64));
        add("mixed",
            QVariantMap{{QStringLiteral("list"), QVariantList{1LL, QStringLiteral("two"), 3.5, true}},
                        {QStringLiteral("key with & < marks"), QVariantMap()},
                        {QStringLiteral(""), 1LL}});
        QVariantMap many;
        for (int i = 0; i < 2000; ++i)
            many.insert(QStringLiteral("key%1").arg(i), qint64(i));
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

    void keepsFractionsOfSecondsInBinary()
    {
        const QDateTime moment(QDate(2024, 5, 1), QTime(8, 0, 0, 250), Qt::UTC);
        const auto data = writePropertyList(moment, PropertyListFormat::Binary);
        QVERIFY(data.ok());
        QCOMPARE(readPropertyList(data.value()).value().toDateTime(), moment);
    }

    void takesDatesOfOtherZones()
    {
        const QDateTime moment(QDate(2024, 5, 1), QTime(8, 0), Qt::OffsetFromUTC, 7200);
        const auto data = writePropertyList(moment, PropertyListFormat::Xml);
        QVERIFY(data.ok());
        QVERIFY2(data.value().contains("2024-05-01T06:00:00Z"), data.value().constData());
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
        const QString title = QStringLiteral("a\u0001b") + QChar(0) + QStringLiteral("c\uFFFEd");
        const auto data = writePropertyList(title, PropertyListFormat::Xml);
        QVERIFY(data.ok());
        QCOMPARE(readPropertyList(data.value()).value().toString(), QStringLiteral("abcd"));
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
            QVERIFY(!data.reason().startsWith(QLatin1String("Failure.")));
        }
    }

    void refusesHostileInput_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("hello");
        QTest::newRow("zeros") << QByteArray(1000, '\0');
        QTest::newRow("too large") << QByteArray(64 * 1024 * 1024 + 1, ' ');
        QTest::newRow("other document") << QByteArray("<?xml version=\"1.0\"?><html><body/></html>");
        QTest::newRow("empty list document") << xml("");
        QTest::newRow("cut off XML") << xml("<dict><key>a</key><string>b").chopped(8);
        QTest::newRow("unbalanced XML") << xml("<dict><array></dict></array>");
        QTest::newRow("65 levels of XML")
            << xml(QByteArray("<array>").repeated(65) + QByteArray("</array>").repeated(65));
        QTest::newRow("endless XML levels") << xml(QByteArray("<array>").repeated(500'000));
        QByteArray entities("<!DOCTYPE plist [<!ENTITY a \"xxxxxxxxxx\">");
        for (char name = 'b'; name < 'k'; ++name) {
            const QByteArray inner = QByteArray("&").append(char(name - 1)).append(';').repeated(10);
            entities += QByteArray("<!ENTITY ") + name + " \"" + inner + "\">";
        }
        QTest::newRow("entities") << entities + "]><plist><string>&j;</string></plist>";
        QTest::newRow("header alone") << QByteArray("bplist00");
        QTest::newRow("header and zeros") << QByteArray("bplist00") + QByteArray(100, '\0');
        QTest::newRow("header and ones") << QByteArray("bplist00") + QByteArray(100, '\xFF');
        QTest::newRow("holds itself") << binary({arrayOf({0})});
        QTest::newRow("loop of two") << binary({arrayOf({1}), arrayOf({0})});
        QTest::newRow("reference out of range") << binary({arrayOf({9})});
        QTest::newRow("root out of range") << binary({QByteArray(1, char(0x09))}, 5);
        QTest::newRow("text beyond the end") << binary({QByteArray("\x5F\x12\x7F\xFF\xFF\xFF", 6)});
        QTest::newRow("count that wraps")
            << binary({QByteArray("\xAF\x13", 2) + bigEndian(~0ULL / 2 + 2, 8)});
        QTest::newRow("65 levels") << chain(65);
        QTest::newRow("10,000 levels") << chain(10'000);
        QTest::newRow("two to the 40th") << doubling(40);
        QTest::newRow("texts by the million") << amplified();
    }
    void refusesHostileInput()
    {
        QFETCH(const QByteArray, data);
        const auto read = readPropertyList(data);
        QVERIFY(!read.ok());
        QVERIFY(!read.reason().isEmpty() && !read.reason().startsWith(QLatin1String("Failure.")));
    }

    void acceptsWhatIsAllowed_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("64 levels") << chain(64);
        QTest::newRow("shared objects") << doubling(10);
        QTest::newRow("64 levels of XML")
            << xml(QByteArray("<array>").repeated(64) + "<true/>" + QByteArray("</array>").repeated(64));
        QTest::newRow("document type") << QByteArray(
            "<?xml version=\"1.0\"?><!DOCTYPE plist SYSTEM \"http://127.0.0.1:1/list.dtd\">"
            "<plist version=\"1.0\"><!-- note --><dict><key>a</key><integer>1</integer></dict></plist>");
    }
    void acceptsWhatIsAllowed()
    {
        QFETCH(const QByteArray, data);
        const auto read = readPropertyList(data);
        QVERIFY2(read.ok(), read.ok() ? "" : qPrintable(read.reason()));
    }

    /// Whatever a damaged disk makes of a list, reading it ends in a value or a reason.
    void survivesDamage()
    {
        const QVariantMap map{{QStringLiteral("path"), QStringLiteral("/home/someone/Pictures")},
                              {QStringLiteral("data"), QByteArray(40, 'x')},
                              {QStringLiteral("list"), QVariantList{1LL, -2LL, 2.5, true, nested(5)}}};
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

    void writesFilesWhole()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("list.data"));
        QVERIFY(writePropertyListFile(path, QVariantMap{{QStringLiteral("a"), 1LL}}, PropertyListFormat::Xml)
                    .ok());
        // A value that cannot be stored leaves the file as it was.
        QVERIFY(!writePropertyListFile(path, QVariant(QSize()), PropertyListFormat::Xml).ok());
        QCOMPARE(readPropertyListFile(path).value().toMap().value(QStringLiteral("a")).toLongLong(), 1LL);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("list.data")});
    }

    void fullDiskLeavesTheFileAsItWas()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("list.data"));
        QVERIFY(writePropertyListFile(path, true, PropertyListFormat::Xml).ok());
        // A limit on the size of files stands in for a full disk.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &limit), 0);
        const rlimit none{10, limit.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &none), 0);
        const auto written = writePropertyListFile(path, false, PropertyListFormat::Xml);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
        QVERIFY(!written.ok());
        QCOMPARE(readPropertyListFile(path).value().toBool(), true);
    }

    void namesTheFileInReasons()
    {
        const QTemporaryDir folder;
        const QString missing = folder.filePath(QStringLiteral("missing.plist"));
        QVERIFY(readPropertyListFile(missing).reason().contains(missing));
        QVERIFY(readPropertyListFile(folder.path()).reason().contains(folder.path()));
        const QString nowhere = folder.filePath(QStringLiteral("no/such/folder.plist"));
        QVERIFY(writePropertyListFile(nowhere, true, PropertyListFormat::Binary).reason().contains(nowhere));
    }
};

} // namespace

QTEST_GUILESS_MAIN(PropertyListTest)
#include "tst_propertylist.moc"
