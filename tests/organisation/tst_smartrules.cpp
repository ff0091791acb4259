#include "organisation/SmartRuleQuery.h"
#include "organisation/SmartRuleText.h"
#include "organisation/SmartRules.h"
#include "store/MediaSet.h"
#include "store/SelectionElement.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace organisation;
using store::Media;

namespace {

const QVariant kNone;

QVariantMap rule(int type, const QVariant& condition, const QVariant& value, const QVariant& other = kNone)
{
    QVariantMap record{{SMART_KEY_RULE_TYPE, type}};
    const std::pair<QLatin1String, QVariant> given[] = {
        {SMART_KEY_CONDITION, condition}, {SMART_KEY_DEFAULT_VALUE, value}, {SMART_KEY_OTHER_VALUE, other}};
    for (const auto& [key, part] : given) {
        if (part.isValid())
            record.insert(key, part);
    }
    return record;
}

QVariantMap titleRule(int condition, const QString& value)
{
    return rule(0, condition, value);
}

QDateTime local(int month, int day, QTime time = QTime(12, 0))
{
    return QDateTime(QDate(2024, month, day), time);
}

} // namespace

class TestSmartRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Clocks go forward on 2024-03-31 and back on 2024-10-27.
        qputenv("TZ", "Europe/Berlin");
        tzset();
        m_library = std::make_unique<test::TemporaryLibrary>();
        m_red = m_library->addTag(u"red"_s);
        m_blue = m_library->addTag(u"blue"_s);
        const auto collection = m_library->addCollection(u"c"_s);
        const auto add = [&](const QString& title, const QList<std::pair<int, QVariant>>& values) {
            const auto media = m_library->addMedia(title, collection);
            for (const auto& [attribute, value] : values)
                media->setAttribute(attribute, value);
            return media;
        };
        const QDateTime lastSecond = local(3, 31, QTime(23, 59, 59));
        const auto logo = add(u"Logo"_s, {{Media::k_mediaRating, 5},
                                          {Media::k_mediaLabel, 1},
                                          {Media::k_mediaDocumentType, 1},
                                          {Media::k_mediaFileSize, 5'000'000},
                                          {Media::k_imageDPI, 72.5},
                                          {Media::k_imageHasAlpha, true},
                                          {Media::k_mediaWeburl, u"https://example.org/50%"_s},
                                          {Media::k_mediaDateCreated, local(3, 31, QTime(0, 0))}});
        const auto accented = add(u"Café LOGO \"x\" 100%\\"_s, {{Media::k_mediaRating, 4},
                                                                {Media::k_mediaDocumentType, 0},
                                                                {Media::k_mediaFileSize, 5'242'880},
                                                                {Media::k_mediaWidth, 0},
                                                                {Media::k_mediaWeburl, QString()},
                                                                {Media::k_mediaDateCreated, lastSecond}});
        add(u"Straße"_s, {{Media::k_mediaRating, 0},
                          {Media::k_mediaDocumentType, 6},
                          {Media::k_mediaFileSize, std::numeric_limits<qint64>::max()},
                          {Media::k_mediaDateCreated, lastSecond.addMSecs(1)}});
        add(u"*bare*"_s, {{Media::k_mediaRating, {}},
                          {Media::k_mediaLabel, {}},
                          {Media::k_mediaDocumentType, {}},
                          {Media::k_mediaFileSize, {}},
                          {Media::k_mediaWidth, {}},
                          {Media::k_imageHasAlpha, {}},
                          {Media::k_mediaDateCreated, {}}});
        m_library->link(logo, m_red);
        m_library->link(logo, m_blue);
        m_library->link(accented, m_blue);
        QVERIFY(m_library->context().save());
    }

    void rules_data()
    {
        QTest::addColumn<QVariantList>("rules");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("found"); // Numbers of the items in the order of their making.
        const auto row = [](const char* name, const QVariantMap& rule, const QString& text,
                            const char* found) {
            QTest::newRow(name) << QVariantList{rule} << text << QString::fromLatin1(found);
        };
        row("glob anywhere", titleRule(0, u"logo"_s), u"mediaTitle like[c] '*logo*'"_s, "1 2");
        row("glob of the user's", titleRule(0, u"c?f*x"_s), u"mediaTitle like[c] '*c?f*x*'"_s, "2");
        row("one for a sharp s", titleRule(0, u"STRA?E"_s), u"mediaTitle like[c] '*STRA?E*'"_s, "3");
        row("two for a sharp s", titleRule(0, u"strasse"_s), u"mediaTitle like[c] '*strasse*'"_s, "3");
        row("accents count", titleRule(0, u"cafe"_s), u"mediaTitle like[c] '*cafe*'"_s, "");
        row("quotes are characters", titleRule(0, u"\"x\" 100%\\"_s),
            u"mediaTitle like[c] '*\"x\" 100%\\*'"_s, "2");
        row("everything with a title", titleRule(0, QString()), u"mediaTitle like[c] '**'"_s, "1 2 3 4");
        row("contains a star", titleRule(1, u"*B"_s), u"mediaTitle contains[c] \"*B\""_s, "4");
        row("ends with an escape", titleRule(3, u"%\\"_s), u"mediaTitle endswith[c] \"%\\\""_s, "2");
        row("would be an injection", titleRule(1, u"\" OR 1 == 1 OR \""_s),
            u"mediaTitle contains[c] \"\" OR 1 == 1 OR \"\""_s, "");
        row("begins", titleRule(2, u"CAF\u00c9"_s), u"mediaTitle beginswith[c] \"CAF\u00c9\""_s, "2");
        row("is", titleRule(4, u"logo"_s), u"mediaTitle ==[c] \"logo\""_s, "1");
        row("unset is not empty", rule(7, 4, QString()), u"mediaWeburl ==[c] \"\""_s, "2");
        row("unset never matches", rule(7, 0, QString()), u"mediaWeburl like[c] '**'"_s, "1 2");
        row("model", rule(12, 1, u"q"_s), u"imageColorModel contains[c] \"q\""_s, "");
        row("profile", rule(13, 1, u"q"_s), u"imageProfile contains[c] \"q\""_s, "");
        row("no condition", rule(0, kNone, u"logo"_s), {}, "");
        row("no value", rule(0, 1, kNone), {}, "");
        row("condition outside the table", titleRule(5, u"logo"_s), {}, "");

        row("file type", rule(2, kNone, u"jpg, jpeg"_s), u"mediaDocumentType == 1"_s, "1");
        row("half a key", rule(2, kNone, u"jpg"_s), u"mediaDocumentType == -1"_s, "");

        row("size in decimal units", rule(3, kNone, u"5"_s, 1'000'000), u"mediaFileSize == 5000000"_s, "1");
        row("at least", rule(3, 1, u"5000"_s, 1000), u"mediaFileSize >= 5000000"_s, "1 2 3");
        row("at most", rule(3, 2, u"5000"_s, 1000), u"mediaFileSize <= 5000000"_s, "1 4");
        row("beyond any number", rule(3, 1, u"99999999999999999999"_s, 1'000'000'000),
            u"mediaFileSize >= 9223372036854775807"_s, "3");
        row("times beyond any number", rule(3, 2, u"-9999999999999"_s, 1'000'000'000),
            u"mediaFileSize <= -9223372036854775808"_s, "");
        row("size without a unit", rule(3, 0, u"5"_s), {}, "");

        row("empty field is 0", rule(8, 0, QString()), u"mediaWidth == 0"_s, "2 4");
        row("width at least itself", rule(8, 1, u"640"_s), u"mediaWidth >= 640"_s, "1 3");
        row("number at the beginning", rule(8, 0, u" 640px"_s), u"mediaWidth == 640"_s, "1 3");
        row("height", rule(9, 2, u"-1"_s), u"mediaHeight <= -1"_s, "");
        row("fraction in the store", rule(10, 1, u"73"_s), u"imageDPI >= 73"_s, "");

        row("rating", rule(21, 0, 4.0), u"mediaRating == 4"_s, "2");
        row("at least 0: rated or not", rule(21, 1, 0.0), u"mediaRating >= 0"_s, "1 2 3 4");
        row("at most", rule(21, 2, 4.9), u"mediaRating <= 4"_s, "2 3 4");
        row("no number", rule(21, 0, std::nan("")), u"mediaRating == 0"_s, "3 4");
        row("endless", rule(21, 1, HUGE_VAL), u"mediaRating >= 9223372036854775807"_s, "");
        row("label", rule(16, kNone, 1), u"mediaLabel == 1"_s, "1");
        row("alpha", rule(18, kNone, 7), u"imageHasAlpha == 1"_s, "1");
        row("no alpha", rule(18, kNone, 0), u"imageHasAlpha == 0"_s, "2 3 4");

        const QString tags =
            u"SUBQUERY(mediaTagList, $mediaTagList, $mediaTagList.tagID == \"%1\").@count "_s;
        const QString red = m_red->tagID();
        row("tag", rule(20, 1, red), tags.arg(red) + u"> 0"_s, "1");
        row("not the tag", rule(20, 0, red), tags.arg(red) + u"== 0"_s, "2 3 4");
        row("no tags in the library", rule(20, 1, kNone), {}, "");

        // A day of 23 hours; its midnight is at 23:00 of the day before in UTC.
        const auto cast = [](int seconds) { return u"CAST(%1.000000, \"NSDate\")"_s.arg(seconds); };
        const auto within = [&cast](const QString& attribute, int start, int end) {
            return u"%1 >= %2 AND %1 <= %3"_s.arg(attribute, cast(start), cast(end));
        };
        const QString created = u"mediaDateCreated"_s;
        row("day", rule(4, 0, local(3, 31)), within(created, 733532400, 733615199), "1 2");
        row("before", rule(4, 1, local(4, 1)), created + u" < "_s + cast(733615200), "1 2 3");
        row("not before", rule(4, 1, local(3, 31)), created + u" < "_s + cast(733532400), "");
        row("last second is after", rule(4, 2, local(3, 31)), created + u" > "_s + cast(733615199), "3");
        row("range", rule(5, 3, local(10, 27), local(10, 28)),
            within(u"mediaDateModified"_s, 751672800, 751849199), "");
        row("range back", rule(4, 3, local(12, 31), local(1, 1)), within(created, 757292400, 725842799), "");
        row("range without an end", rule(6, 3, local(1, 1)), {}, "");
        row("no date", rule(6, 0, u"2024-01-01"_s), {}, "");

        for (const int type : {1, 11, 14, 15, 17, 19, 22, -1})
            row(qPrintable(u"reserved %1"_s.arg(type)), rule(type, 1, u"logo"_s), {}, "");
        row("no type", {{SMART_KEY_CONDITION, 1}, {SMART_KEY_DEFAULT_VALUE, u"logo"_s}}, {}, "");
    }

    void rules()
    {
        QFETCH(QVariantList, rules);
        QFETCH(QString, text);
        QFETCH(QString, found);
        for (const bool all : {false, true}) {
            QCOMPARE(smartQueryText(rules, all), text);
            QCOMPARE(items(rules, all), found);
        }
        QCOMPARE(smartQuery(rules, true).has_value(), !text.isEmpty());
    }

    void joins()
    {
        const auto logo = titleRule(1, u"logo"_s);
        const auto four = rule(21, 1, 4.0);
        const auto five = rule(21, 0, 5.0);
        const auto day = rule(4, 0, local(3, 31));
        const auto reserved = rule(14, 1, u"Straße"_s);
        QCOMPARE(smartQueryText({logo, four}, true),
                 u"mediaTitle contains[c] \"logo\" AND mediaRating >= 4"_s);
        QCOMPARE(smartQueryText({logo, reserved, four, logo}, false),
                 u"mediaTitle contains[c] \"logo\" OR mediaRating >= 4"_s);
        QVERIFY(smartQueryText({five, day}, false)
                    .startsWith(u"mediaRating == 5 OR mediaDateCreated >= CAST("_s));
        QCOMPARE(items({logo, reserved, five, logo}, true), u"1"_s);
        QCOMPARE(items({five, day}, false), u"1 2"_s);
        QCOMPARE(items({five, rule(4, 3, local(12, 31), local(1, 1))}, false), u"1"_s);
        QCOMPARE(items({rule(20, 1, m_red->tagID()), rule(20, 1, m_blue->tagID())}, true), u"1"_s);
        for (const QVariantList& nothing : {QVariantList(), QVariantList{reserved}, QVariantList{5}})
            QVERIFY(!smartQuery(nothing, true) && !smartQuery(nothing, false));
    }

    /// With their types apart. A property list has no room for days far away: one would take all rules of the
    /// collection with it.
    void recordsSurviveInTheStore()
    {
        const QVariantList rules{titleRule(1, u"5"_s), rule(21, 1, 4.0), rule(3, 0, u"5"_s, 1000000),
                                 rule(4, 3, firstSmartRuleDay().startOfDay(), lastSmartRuleDay().endOfDay())};
        const auto made = m_library->addCollection(u"smart"_s, store::kTypeSmartCollection);
        made->setFilters(rules);
        QVERIFY(m_library->context().save());
        const auto row = made->rowId();
        QVERIFY(m_library->reopen());
        const auto filters = m_library->context().object<store::Collections>(row)->filters();
        QCOMPARE(smartQueryText(filters, true), smartQueryText(rules, true));
        const auto typeOf = [&filters](int at) {
            return QMetaType::Type(filters[at].toMap().value(SMART_KEY_DEFAULT_VALUE).typeId());
        };
        QCOMPARE(typeOf(0), QMetaType::QString);
        QCOMPARE(typeOf(1), QMetaType::Double);
        QCOMPARE(typeOf(2), QMetaType::QString);
        QCOMPARE(typeOf(3), QMetaType::QDateTime);
    }

    void validity()
    {
        const QVariantMap whole{{SMART_COLLECTION_TITLE, QString()},
                                {SMART_COLLECTION_MATCH_CONDITION, 0},
                                {SMART_COLLECTION_RULES, QVariantList{QVariantMap()}}};
        QVERIFY(isValidSmartCollection(whole));
        for (const QString& key : whole.keys()) {
            QVariantMap less = whole;
            less.remove(key);
            QVERIFY2(!isValidSmartCollection(less), qPrintable(key));
        }
    }

private:
    QString items(const QVariantList& rules, bool all)
    {
        const auto query = smartQuery(rules, all);
        const auto set = query ? store::mediaSet(m_library->context(), {*query}) : store::MediaSet();
        QStringList numbers;
        for (const store::RowId id : set.ids)
            numbers.append(QString::number(id));
        return numbers.join(u' ');
    }

    std::unique_ptr<test::TemporaryLibrary> m_library;
    std::shared_ptr<store::Tags> m_red;
    std::shared_ptr<store::Tags> m_blue;
};

QTEST_GUILESS_MAIN(TestSmartRules)
#include "tst_smartrules.moc"
