#include "base/FinderStyleCompare.h"
#include "store/AsynchronousFetch.h"
#include "store/MediaSet.h"
#include "store/MediaTagList.h"
#include "store/TextFolding.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <random>

using namespace mosaro::store;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1String kTitle{"mediaTitle"};
constexpr QLatin1String kRating{"mediaRating"};
constexpr QLatin1String kImported{"mediaDateImported"};

Predicate title(Comparison comparison, const QVariant& value, Fold fold = Fold::None)
{
    return Predicate::compare(kTitle, comparison, value, fold);
}

Predicate rating(Comparison comparison, const QVariant& value)
{
    return Predicate::compare(kRating, comparison, value);
}

const QString kWithNul = u"nul"_s + QChar(0) + u"tail"_s;

} // namespace

class TestQuery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Ten items: the title is the row's number but for those with a name; some have no rating or no address.
    void initTestCase()
    {
        m_library = std::make_unique<TemporaryLibrary>();
        const auto collection = m_library->addCollection(u"c"_s);
        const QStringList names{u"it's \"50%\" _off_ \\ [a-z]*?"_s,
                                u"Caf\u00e9"_s,
                                u"cafe\u0301 au lait"_s,
                                u"STRASSE"_s,
                                u"stra\u00dfe"_s,
                                kWithNul,
                                u"\u0130stanbul"_s,
                                u"\uac01"_s,
                                u""_s,
                                u"\u041f\u0440\u0438\u0432\u0435\u0442 \U0001F600"_s};
        for (int i = 0; i < names.size(); ++i) {
            const auto media = m_library->addMedia(names[i], collection);
            if (i == 3)
                media->setAttribute(Media::k_mediaTitle, {});
            media->setAttribute(Media::k_mediaRating, i % 4 == 0 ? QVariant() : QVariant(i % 6));
            if (i == 1)
                media->setMediaWeburl(u"http://example.org/?a='1'"_s);
            if (i == 2)
                media->setMediaWeburl(QString());
            media->setMediaDateImported(QDateTime(QDate(2024, 1, i + 1), QTime(12, 0), Qt::UTC));
        }
        QVERIFY(m_library->context().save().ok());
    }

    void finds()
    {
        using enum Comparison;
        const std::tuple<const char*, Predicate, const char*> rows[] = {
            {"all", Predicate::all(), "0 1 2 3 4 5 6 7 8 9"},
            {"nothing", Predicate::nothing(), ""},
            {"all of none", Predicate::allOf({}), "0 1 2 3 4 5 6 7 8 9"},
            {"any of none", Predicate::anyOf({}), ""},
            {"quote", title(Contains, u"it's \"50%\""_s), "0"},
            {"injection", title(Equal, u"' OR 1=1 --"_s), ""},
            {"percent is a character", title(Contains, u"%"_s), "0"},
            {"underscore is a character", title(BeginsWith, u"_t's"_s), ""},
            {"backslash", title(Contains, u"\\ ["_s), "0"},
            {"star is a character", title(EndsWith, u"*?"_s), "0"},
            {"exact", title(Equal, u"Caf\u00e9"_s), "1"},
            {"exact is exact", title(Equal, u"caf\u00e9"_s), ""},
            {"case", title(Equal, u"CAF\u00c9"_s, Fold::Case), "1"},
            {"case keeps accents", title(Contains, u"CAFE"_s, Fold::Case), ""},
            {"case, composed otherwise", title(BeginsWith, u"CAF\u00c9"_s, Fold::Case), "1 2"},
            {"case and diacritics", title(Contains, u"CAFE"_s, Fold::CaseAndDiacritics), "1 2"},
            {"accent in the part", title(Contains, u"f\u00e8"_s, Fold::CaseAndDiacritics), "1 2"},
            {"sharp s", title(Equal, u"STRASSE"_s, Fold::Case), "4"},
            {"dotted I", title(BeginsWith, u"istan"_s, Fold::CaseAndDiacritics), "6"},
            {"cyrillic", title(Contains, u"\u041f\u0420\u0418\u0412"_s, Fold::Case), "9"},
            {"beyond the basic plane", title(EndsWith, u"\U0001F600"_s), "9"},
            {"a syllable is no prefix", title(Contains, u"\uac00"_s, Fold::CaseAndDiacritics), ""},
            {"nul", title(Equal, kWithNul), "5"},
            {"nul is no end", title(Equal, u"nul"_s), ""},
            {"after nul", title(EndsWith, u"TAIL"_s, Fold::Case), "5"},
            {"like is for the whole text", title(Like, u"caf"_s, Fold::Case), ""},
            {"one character, composed or not", title(Like, u"caf?*"_s, Fold::Case), "1 2"},
            {"the star gives back", title(Like, u"*a*a?t*"_s, Fold::Case), "2"},
            {"like after nul", title(Like, u"n*?tail"_s), "5"},
            {"nothing is like empty text", title(Like, QString()), "8"},
            {"empty text", title(Equal, QString()), "8"},
            {"empty part is in every text", title(Contains, QString()), "0 1 2 4 5 6 7 8 9"},
            {"longer than the text", title(BeginsWith, u"\uac01\uac01"_s), ""},
            {"no value: equal", title(Equal, QVariant()), "3"},
            {"no value: not equal", title(NotEqual, QVariant()), "0 1 2 4 5 6 7 8 9"},
            {"not equal takes those without", title(NotEqual, u"Caf\u00e9"_s), "0 2 3 4 5 6 7 8 9"},
            {"not equal, folded", title(NotEqual, u"STRASSE"_s, Fold::Case), "0 1 2 3 5 6 7 8 9"},
            {"less leaves out those without", rating(Less, 3), "1 2 6 7"},
            {"not less takes those without", Predicate::notOf(rating(Less, 3)), "0 3 4 5 8 9"},
            {"between", Predicate::allOf({rating(GreaterOrEqual, 2), rating(LessOrEqual, 3)}), "2 3 9"},
            {"fraction", rating(Greater, 2.5), "3 5 9"},
            {"number as text", rating(Equal, u"5"_s), "5"},
            {"or", Predicate::anyOf({rating(Equal, 5), title(Equal, QString())}), "5 8"},
            {"not of not", Predicate::notOf(Predicate::notOf(rating(Equal, 5))), "5"},
            {"and binds inside or",
             Predicate::anyOf({Predicate::allOf({rating(Equal, 5), Predicate::nothing()}), rating(Equal, 2)}),
             "2"},
            {"written empty is not missing", Predicate::compare("mediaWeburl"_L1, Equal, QString()), "2"},
            {"date",
             Predicate::compare(kImported, Greater, QDateTime(QDate(2024, 1, 8), QTime(12, 0), Qt::UTC)),
             "8 9"},
            {"in", rating(In, QVariantList{5, 2, 77}), "2 5"},
            {"in nothing", rating(In, QVariantList()), ""},
            {"in with missing", rating(In, QVariantList{5, QVariant()}), "0 4 5 8"},
            {"in, folded", title(In, QVariantList{u"CAFE"_s, u"x"_s}, Fold::CaseAndDiacritics), "1"}};
        for (const auto& [name, predicate, expected] : rows)
            QVERIFY2(titles(predicate).join(u' ') == QLatin1String(expected), name);
    }

    /// The quick way by single characters gives what the whole text gives; a character beyond the basic plane
    /// bars the quick way.
    void foldsByCharacterAsAsAWhole()
    {
        const std::string smile = "\U0001F600";
        for (char32_t character = 1; character <= 0xFFFF; ++character) {
            if (QChar::isSurrogate(character))
                continue;
            const QString one = QChar(static_cast<char16_t>(character));
            for (const QString& text :
                 {u"e"_s + one, one + u'\u0301', one + one, u'\u1100' + one + u'\u11a8'}) {
                const std::string bytes = text.toStdString();
                for (const Fold fold : {Fold::Case, Fold::CaseAndDiacritics}) {
                    if (foldedText(bytes, fold) + smile != foldedText(bytes + smile, fold))
                        QFAIL(qPrintable(u"U+%1 in %2"_s.arg(character, 4, 16).arg(text)));
                }
            }
        }
    }

    void refuses()
    {
        using enum Comparison;
        const auto of = [](QLatin1String attribute, Comparison comparison, const QVariant& value) {
            return Predicate::compare(attribute, comparison, value);
        };
        const std::pair<const char*, Predicate> rows[] = {
            {"unknown attribute", of("1; DROP TABLE Media"_L1, Equal, 1)},
            {"another entity's", of("tagID"_L1, Equal, 1)},
            {"text for a number", of(kRating, Less, u"many"_s)},
            {"no date", of(kImported, Less, u"soon"_s)},
            {"part of a number", of(kRating, Contains, u"1"_s)},
            {"dictionary", of("mediaOtherInfo"_L1, Equal, 1)},
            {"no reference", Predicate::linkedBy(MediaTagList::info(), "tagID"_L1, Predicate::all())},
            {"inside a link", Predicate::linkedBy(MediaTagList::info(), "media"_L1, of(kTitle, Equal, 1))}};
        auto& context = m_library->context();
        for (const auto& [name, predicate] : rows) {
            const auto counted = context.count(Media::info(), Predicate::notOf(predicate));
            QVERIFY2(!counted.ok(), name);
            QVERIFY2(!counted.reason().isEmpty(), name);
            QVERIFY2(context.first<Media>(predicate) == nullptr, name);
            QCOMPARE(mediaSet(context, {predicate, rating(Equal, 5)}).ids.size(), size_t(1));
        }
    }

    void longAndDeepConditions()
    {
        std::vector<Predicate> parts;
        QVariantList list{kWithNul};
        for (int i = 0; i < 5000; ++i) {
            parts.push_back(title(Comparison::Equal, u"'%1"_s.arg(i)));
            list.append(u"\"%1\\"_s.arg(i));
        }
        parts.push_back(title(Comparison::Equal, u"Caf\u00e9"_s));
        list.append(u"stra\u00dfe"_s);
        QCOMPARE(titles(Predicate::anyOf(parts)), QStringList{u"1"_s});
        QCOMPARE(titles(title(Comparison::In, list)), (QStringList{u"4"_s, u"5"_s}));
        QVariantList numbers;
        for (int i = 5; i < 40000; ++i)
            numbers.append(i);
        QCOMPARE(titles(rating(Comparison::In, numbers)), QStringList{u"5"_s});
    }

    void linkedBy()
    {
        TemporaryLibrary library;
        const auto collection = library.addCollection(u"c"_s);
        const auto a = library.addMedia(u"a"_s, collection);
        const auto b = library.addMedia(u"b"_s, collection);
        (void)library.addMedia(u"c"_s, collection);
        const auto tag = library.addTag(u"x"_s);
        const auto other = library.addTag(u"y"_s);
        for (const auto& [media, linked] : {std::pair(a, tag), {b, other}, {b, tag}})
            library.link(media, linked);
        const auto tagged = [&](const std::shared_ptr<Tags>& wanted) {
            const auto condition = Predicate::compare("tagID"_L1, Comparison::Equal, wanted->tagID());
            return Predicate::linkedBy(MediaTagList::info(), "media"_L1, condition);
        };
        QCOMPARE(mediaSet(library.context(), {tagged(tag)}).ids,
                 (std::vector<RowId>{a->rowId(), b->rowId()}));
        QCOMPARE(mediaSet(library.context(), {Predicate::allOf({tagged(tag), tagged(other)})}).ids,
                 std::vector<RowId>{b->rowId()});
        QCOMPARE(library.context().count(Media::info(), Predicate::notOf(tagged(tag))).value(), 1);
    }

    /// Every key, either way, of many items and of few, against a sort in memory.
    void ordersByAnyKey()
    {
        static constexpr int kAttributes[] = {
            Media::k_mediaTitle,        Media::k_mediaFileSize,     Media::k_mediaRating,
            Media::k_mediaWidth,        Media::k_mediaHeight,       Media::k_mediaDateCreated,
            Media::k_mediaDateModified, Media::k_mediaDateImported, Media::k_mediaDateLastOpened};
        TemporaryLibrary library;
        auto& context = library.context();
        std::mt19937 random(7);
        const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
        std::vector<std::shared_ptr<Media>> items;
        for (int i = 0; i < 600; ++i) {
            const auto& media = items.emplace_back(context.insert<Media>());
            media->setMediaID(freshID());
            for (const int attribute : kAttributes) {
                const int value = below(50);
                QVariant written = value;
                if (attribute == Media::k_mediaTitle)
                    written = QString(value % 2 ? u"Img %1"_s : u"\u00e9cran %1"_s).arg(value);
                else if (attribute >= Media::k_mediaDateCreated && attribute <= Media::k_mediaDateModified)
                    written = QDateTime::fromMSecsSinceEpoch(value);
                media->setAttribute(attribute, below(10) == 0 ? QVariant() : written);
            }
        }
        QVERIFY(context.save().ok());
        for (int test = 0; test < 36; ++test) {
            const int key = test / 4;
            const bool isAscending = (test & 2) != 0;
            std::vector<RowId> ids;
            for (RowId id = 1; id <= 600; id += test & 1 ? 31 : 2)
                ids.push_back(id);
            auto expected = ids;
            std::sort(expected.begin(), expected.end(), [&](RowId left, RowId right) {
                if (!isAscending)
                    std::swap(left, right);
                const QVariant a = context.object<Media>(left)->attribute(kAttributes[key]);
                const QVariant b = context.object<Media>(right)->attribute(kAttributes[key]);
                if (a.isValid() != b.isValid())
                    return b.isValid();
                const int order = key == 0 ? mosaro::base::finderStyleCompare(a.toString(), b.toString())
                                  : a == b ? 0
                                  : QVariant::compare(a, b) == QPartialOrdering::Less ? -1
                                                                                      : 1;
                return order == 0 ? left < right : order < 0;
            });
            std::shuffle(ids.begin(), ids.end(), random);
            const auto ordered = orderMedia(context, ids, key, isAscending);
            QVERIFY2(ordered.ok() && ordered.value() == expected, qPrintable(QString::number(test)));
        }
    }

    void mediaSets()
    {
        auto& context = m_library->context();
        const auto five = rating(Comparison::Equal, 5);
        const MediaSet set = mediaSet(context, {five, rating(Comparison::Greater, 3), five});
        QCOMPARE(set.ids, (std::vector<RowId>{6}));
        QCOMPARE(set.totalFileSize, 1000);
        QVERIFY(mediaSet(context, {}).ids.empty());
        const MediaSet all = mediaSet(context, {five, Predicate::all()});
        QCOMPARE(all.ids.size(), size_t(10));
        QVERIFY(std::is_sorted(all.ids.begin(), all.ids.end()));
        QCOMPARE(all.totalFileSize, 10000);
        const std::vector<RowId> given{9, 1, 5};
        for (const int none : {9, -1})
            QCOMPARE(orderMedia(context, given, none, true).value(), given);
        const std::vector<RowId> gone{999, 2, 1};
        QCOMPARE(orderMedia(context, gone, 7, false).value(), (std::vector<RowId>{2, 1}));
    }

    void sortsAndLimits()
    {
        Query query;
        query.predicate = rating(Comparison::Greater, 0);
        query.order = {{kRating, false}, {kImported, true}};
        query.limit = 3;
        const auto ids = m_library->context().fetchIds(Media::info(), query);
        QCOMPARE(ids.value(), (std::vector<RowId>{6, 4, 10}));
        query.order = {{"nonsense"_L1, true}};
        QVERIFY(!m_library->context().fetchIds(Media::info(), query).ok());
        QVERIFY(!m_library->context().sum(Media::info(), "x"_L1, Predicate::all()).ok());
    }

    void fetchesWithoutHoldingUpTheMainThread()
    {
        StoreContext& context = m_library->context();
        Query query{title(Comparison::NotEqual, u"none"_s), {{kTitle, false, true}}, -1};
        const auto expected = context.fetch<Media>(query);
        QVERIFY(!expected.value().empty());
        const Query broken{Predicate::compare("none"_L1, Comparison::Equal, 1), {}, -1};
        std::optional<mosaro::base::Result<std::vector<std::shared_ptr<Media>>>> found, failed;
        {
            AsynchronousFetch fetch(context);
            fetch.executeFetchRequest<Media>(query, nullptr);
            fetch.executeFetchRequest<Media>(query, [&found](const auto& result) { found = result; });
            fetch.executeFetchRequest<Media>(broken, [&failed](const auto& result) { failed = result; });
            QVERIFY(!found); // Never at once.
            QTRY_VERIFY(found && failed);
            fetch.executeFetchRequest<Media>(query, [](const auto&) { QFAIL("completed after its end"); });
        }
        QCOMPARE(found->value(), expected.value()); // The very same records, in order.
        QVERIFY(!failed->ok() && !failed->reason().isEmpty());
        QCoreApplication::processEvents();
    }

private:
    QStringList titles(const Predicate& predicate)
    {
        Query query;
        query.predicate = predicate;
        const auto found = m_library->context().fetchIds(Media::info(), query);
        if (!found)
            return {found.reason()};
        QStringList numbers;
        for (const RowId id : found.value())
            numbers.append(QString::number(id - 1));
        numbers.sort();
        return numbers;
    }

    std::unique_ptr<TemporaryLibrary> m_library;
};

QTEST_GUILESS_MAIN(TestQuery)
#include "tst_query.moc"
