#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "ctl/Ctl.h"
#include "store/ZNDBManager.h"
#include "support/FakeDesktop.h"
#include "support/TemporaryLibrary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro;
using namespace Qt::StringLiterals;

namespace {

struct Outcome {
    int status = -1;
    QString out;
    QString err;

    [[nodiscard]] QJsonArray array() const { return QJsonDocument::fromJson(out.toUtf8()).array(); }
    [[nodiscard]] QJsonObject object() const { return QJsonDocument::fromJson(out.toUtf8()).object(); }
    /// What "list" says of the attribute of every item.
    [[nodiscard]] QStringList all(const char* attribute) const
    {
        QStringList values;
        const QJsonArray items = array();
        for (const QJsonValue& item : items)
            values.append(item[QLatin1String(attribute)].toVariant().toString());
        return values;
    }
};

/// Pictures as wide as their files are long.
importing::AnalysisResult analyseByName(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result = test::pictureUnlessBad(request);
    result.metadata.width = static_cast<int>(QFileInfo(request.path).size());
    result.metadata.height = 10;
    result.colors.push_back({{0.5F, 0.5F, 0.5F, 1.0F}, 1.0F});
    return result;
}

/// A home of its own for every test: preferences, support folder and a library.
class Home : test::FakeDesktop {
public:
    Home()
    {
        platform.types = std::make_unique<test::FakeTypes>();
        platform.thumbnailers = std::make_unique<test::FakeThumbnailers>();
    }

    [[nodiscard]] QString at(const QString& name) const { return m_dir.path() + u'/' + name; }
    [[nodiscard]] QString library() const { return at(u"Test.mrlibrary"_s); }
    [[nodiscard]] base::ZNUserDefaults& defaults() { return m_defaults; }
    void setTags(const QString& path, const QStringList& tags)
    {
        static_cast<test::FakeFileIndex&>(*platform.fileIndex).entries[path].tags = tags;
    }

    QString file(const QString& name, qsizetype size = 4)
    {
        test::writeFile(at(name), QByteArray(size, 'x'));
        return at(name);
    }

    Outcome call(const QStringList& arguments)
    {
        Outcome outcome;
        QTextStream out(&outcome.out);
        QTextStream err(&outcome.err);
        outcome.status = ctl::run(arguments, {.out = out,
                                              .err = err,
                                              .defaults = m_defaults,
                                              .platform = platform,
                                              .supportFolder = at(u"support"_s),
                                              .showsProgress = false,
                                              .onInterrupt = nullptr,
                                              .analyse = analyseByName});
        out.flush();
        err.flush();
        return outcome;
    }
    /// On the test's library.
    Outcome plain(const QStringList& arguments)
    {
        return call(QStringList{u"--library"_s, library()} + arguments);
    }
    Outcome json(const QStringList& arguments) { return plain(QStringList{u"--json"_s} + arguments); }

private:
    QTemporaryDir m_dir;
    base::ZNUserDefaults m_defaults{m_dir.path() + u"/preferences.ini"_s};
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

class CommandsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<Home> m_home;

    Outcome import(const QString& path, const char* options = "")
    {
        return m_home->json(QStringList{u"import"_s, path} + words(options));
    }
    QStringList titlesOf(const char* arguments)
    {
        const Outcome outcome = m_home->json(words(arguments));
        return outcome.status == ctl::kAllWell ? outcome.all("mediaTitle") : QStringList{outcome.err};
    }

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void init()
    {
        m_home = std::make_unique<Home>();
        QCOMPARE(m_home->call({u"create"_s, m_home->library()}).status, int(ctl::kAllWell));
    }

    void refusesWrongUsage()
    {
        const auto lines =
            "|frobnicate|--frob list|list --frob|list extra|create|create a b|import|show|search|"
            "list --kind 99|list --kind 3|list --kind x|list --sort colour|"
            "list --recent --kind 4|list --collection a --tag b|search --in tags x|"
            "import --kind 3 a.png|verify now|--library|list --smart a --recent|"
            "smart|smart list|smart add|smart add X|smart add X --rules|smart make X --rules [{}]|"
            "smart add X --all --any --rules [{}]|smart add X --rules nonsense|smart add X --rules {}|"
            "smart add X --rules []|smart add X --rules [1]|smart add X --rules [{}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":\"0\"}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":0,\"VALUE\":\"x\"}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":0,\"SMART_KEY_DEFAULT_VALUE\":5}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":21,\"SMART_KEY_DEFAULT_VALUE\":\"5\"}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":4,\"SMART_KEY_DEFAULT_VALUE\":\"soon\"}]|"
            "smart add X --rules [{\"SMART_KEY_RULE_TYPE\":4,\"SMART_KEY_DEFAULT_VALUE\":\"2100-01-01\"}]"_ba;
        for (const QByteArray& line : lines.split('|')) {
            const Outcome outcome = m_home->call(words(line.constData()));
            QVERIFY2(outcome.status == ctl::kWrongUsage, line.constData());
            QCOMPARE(outcome.out, QString());
            QCOMPARE(outcome.err.count(u'\n'), 1);
            QVERIFY(outcome.err.startsWith(u"mosaroctl: "_s));
            QVERIFY2(outcome.err.contains(u"--help"_s), qUtf8Printable(outcome.err));
        }
    }

    void helps()
    {
        for (const auto& [arguments, mention] : {std::pair{"--help", u"verify"_s},
                                                 {"import --help", u"--reference"_s},
                                                 {"list --help", u"--descending"_s},
                                                 {"--json search --help", u"copyright"_s},
                                                 {"help smart", u"5 Date Modified"_s},
                                                 {"help", u"smart add TITLE"_s},
                                                 {"--version", u"mosaroctl "_s}}) {
            const Outcome outcome = m_home->call(words(arguments));
            QCOMPARE(outcome.status, int(ctl::kAllWell));
            QVERIFY2(outcome.out.contains(mention), qUtf8Printable(outcome.out));
            QVERIFY(!outcome.out.contains(u"Hint."_s)); // Every text is there.
        }
    }

    void namesWhatIsMissing()
    {
        for (const char* line : {"list --collection Nowhere", "list --tag Nothing", "list --smart None",
                                 "show NOBODY", "search x --collection Nowhere"}) {
            const Outcome outcome = m_home->json(words(line));
            QCOMPARE(outcome.status, int(ctl::kFailed));
            QCOMPARE(outcome.out, QString());
            QVERIFY2(outcome.err.count(u'\n') == 1, qUtf8Printable(outcome.err));
        }
    }

    void makesNoLibraryOfAnyFolder()
    {
        QVERIFY(QDir().mkpath(m_home->at(u"mine"_s)));
        m_home->file(u"holiday/sun.png"_s);
        for (const char* name : {"mine", "nowhere", "holiday"}) {
            const Outcome outcome =
                m_home->call({u"--library"_s, m_home->at(QLatin1String(name)), u"list"_s});
            QCOMPARE(outcome.status, int(ctl::kFailed));
        }
        QVERIFY(QDir(m_home->at(u"mine"_s)).isEmpty());
        QCOMPARE(QDir(m_home->at(u"holiday"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{u"sun.png"_s});
        QVERIFY(!QFileInfo::exists(m_home->at(u"nowhere"_s)));
    }

    void createsOnlyWhereNothingStands()
    {
        const QString taken = m_home->file(u"taken.mrlibrary"_s);
        QCOMPARE(m_home->call({u"create"_s, taken}).status, int(ctl::kFailed));
        QCOMPARE(QFileInfo(taken).size(), 4);
        QCOMPARE(m_home->call({u"create"_s, m_home->library()}).status, int(ctl::kFailed));
        const QString fresh = m_home->at(u"deep/er/New.mrlibrary"_s);
        const Outcome outcome = m_home->call({u"create"_s, fresh, u"--json"_s});
        QCOMPARE(outcome.array()[0]["path"_L1].toString(), fresh);
    }

    void importsAndShowsInFull()
    {
        const QString path = m_home->file(u"sun.png"_s, 20);
        m_home->setTags(path, words("warm big"));
        const Outcome outcome = import(path, "--collection Sky --kind 8");
        QCOMPARE(outcome.status, int(ctl::kAllWell));
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.object().keys(), words("failed imported skipped"));
        const QString mediaID = outcome.object()["imported"_L1][0].toString();

        const Outcome shown = m_home->json({u"show"_s, mediaID.toLower()});
        QCOMPARE(shown.status, int(ctl::kAllWell));
        QCOMPARE(shown.array().size(), 1);
        const QJsonObject item = shown.array()[0].toObject();
        QCOMPARE(item["mediaID"_L1].toString(), mediaID);
        QCOMPARE(item["mediaWidth"_L1].toDouble(), 20.0);
        QCOMPARE(item["mediaKind"_L1].toInt(), 8);
        QCOMPARE(item["tags"_L1].toArray(), QJsonArray({u"big"_s, u"warm"_s}));
        QCOMPARE(item["colors"_L1][0]["colorID"_L1].toString(), u"0.500000+0.500000+0.500000+1.000000"_s);
        QCOMPARE(item["colors"_L1][0]["colorType"_L1].toInt(), 0);
        QCOMPARE(item["collection"_L1].toString(), u"Sky"_s);
        QVERIFY(QFileInfo(item["path"_L1].toString()).isFile());
        QVERIFY(QFileInfo(item["preview"_L1].toString()).isFile());
        QVERIFY(item["imageHasAlpha"_L1].isBool());
        QVERIFY(item["pdfTitle"_L1].isNull());
        QVERIFY(!item.contains("collections"_L1));
        const QString date = item["mediaDateImported"_L1].toString();
        QVERIFY2(date.endsWith(u'Z'), qUtf8Printable(date));
        const auto imported = QDateTime::fromString(date, Qt::ISODateWithMs);
        QVERIFY(qAbs(imported.secsTo(QDateTime::currentDateTimeUtc())) < 100);

        QCOMPARE(m_home->json({u"tags"_s}).all("title"), words("big warm"));
        QCOMPARE(m_home->json({u"colors"_s}).all("colorType"), words("0"));
        QCOMPARE(m_home->json({u"collections"_s}).all("title"), words("Sky"));
        QCOMPARE(titlesOf("list --tag warm"), words("sun"));
        QCOMPARE(titlesOf("list --color #808080"), words("sun"));
        QVERIFY(titlesOf("list --color 8080").value(0).contains(u"mosaroctl colors"_s));
        QVERIFY(m_home->plain({u"show"_s, mediaID}).out.contains(u"mediaTitle: sun\n"_s));
    }

    void reportsFailedAndSkipped()
    {
        const QString good = m_home->file(u"in/good.png"_s);
        const QString bad = m_home->file(u"in/bad.png"_s);
        const QString notes = m_home->file(u"in/notes.txt"_s);
        const Outcome outcome = import(m_home->at(u"in"_s));
        QCOMPARE(outcome.status, int(ctl::kSomeItemsFailed));
        const QJsonObject report = outcome.object();
        QCOMPARE(report["imported"_L1].toArray().size(), 1);
        QCOMPARE(report["failed"_L1][0].toObject(),
                 QJsonObject({{u"path"_s, bad}, {u"reason"_s, u"spoilt"_s}}));
        QCOMPARE(report["skipped"_L1][0]["path"_L1].toString(), notes);
        QCOMPARE(outcome.err.count(u'\n'), 2);
        QCOMPARE(m_home->json({u"import"_s, good, notes}).status, int(ctl::kAllWell));
        const QString missing = m_home->at(u"missing.png"_s);
        QCOMPARE(m_home->json({u"import"_s, missing, good}).status, int(ctl::kSomeItemsFailed));
        QCOMPARE(titlesOf("list").size(), 3); // Into the same collection each time.
        QCOMPARE(m_home->json({u"collections"_s}).array().size(), 1);
    }

    void refersToFilesOnDemand()
    {
        const QString path = m_home->file(u"sun.png"_s);
        QCOMPARE(import(path, "--reference").status, int(ctl::kAllWell));
        const QJsonObject item = m_home->json({u"list"_s}).array()[0].toObject();
        QCOMPARE(item["mediaPath"_L1].toString(), QString());
        QCOMPARE(item["path"_L1].toString(), path);
        QFile::remove(path);
        const Outcome verified = m_home->json({u"verify"_s, u"--repair"_s});
        QCOMPARE(verified.status, int(ctl::kSomeItemsFailed)); // Nothing brings the file back.
        QCOMPARE(verified.all("problem"), words("missingOriginal"));
        QCOMPARE(verified.all("mediaID"), m_home->json({u"list"_s}).all("mediaID"));
    }

    void ordersAndSelects()
    {
        import(m_home->file(u"img10.png"_s, 30), "--collection A");
        import(m_home->file(u"img9.png"_s, 20), "--collection B --kind 4");
        import(m_home->file(u"Über.png"_s, 10), "--collection A");
        for (const auto& [arguments, titles] : {std::pair{"list", u"img10 img9 Über"_s},
                                                {"list --descending", u"Über img9 img10"_s},
                                                {"list --sort title", u"img9 img10 Über"_s},
                                                {"list --sort size", u"Über img9 img10"_s},
                                                {"list --sort fileSize", u"Über img9 img10"_s},
                                                {"list --sort width --descending", u"img10 img9 Über"_s},
                                                {"list --sort imported", u"img10 img9 Über"_s},
                                                {"list --collection A", u"img10 Über"_s},
                                                {"list --kind 4", u"img9"_s},
                                                {"list --recent --sort title", u"img9 img10 Über"_s},
                                                {"search IMG", u"img9 img10"_s}, // Latest first.
                                                {"search uber", u"Über"_s},
                                                {"search img --collection B", u"img9"_s},
                                                {"search % --in notes", u""_s}})
            QVERIFY2(titlesOf(arguments).join(u' ') == titles, arguments);
    }

    void smartCollections()
    {
        const QString sun = m_home->file(u"sun.png"_s, 20);
        m_home->setTags(sun, words("warm"));
        import(sun);
        import(m_home->file(u"sunset.png"_s, 5));
        import(m_home->file(u"moon.png"_s, 5));
        // Rules as "type condition value [other]"; then the titles, and how many rules are idle.
        const std::tuple<const char*, const char*, const char*, int> rows[] = {
            {"--all", "0 2 \"SUN\"|8 2 5", "sunset", 0},
            {"--any", "0 4 \"moon\"|20 1 \"warm\"", "sun moon", 0},
            {"--all", "20 0 \"warm\"|3 1 \"0\" 1000", "sunset moon", 0},
            {"--all", "6 3 \"2001-09-09\" \"2001-09-10T12:00:00Z\"", "", 0},
            {"--any", "0 9 \"x\"|0 1 \"moo\"|14 1 \"x\"", "moon", 2},
            {"--all", "20 1 \"cold\"", nullptr, 1},
        };
        const char* const keys[] = {"RULE_TYPE", "CONDITION", "DEFAULT_VALUE", "OTHER_VALUE"};
        for (const auto& [option, rules, titles, complaints] : rows) {
            QStringList json;
            for (const QString& rule : QString::fromLatin1(rules).split(u'|')) {
                QStringList members;
                for (const QString& value : rule.split(u' '))
                    members.append(u"\"SMART_KEY_%1\":%2"_s.arg(QLatin1String(keys[members.size()]), value));
                json.append(u'{' + members.join(u',') + u'}');
            }
            const QString text = u'[' + json.join(u',') + u']';
            const Outcome made =
                m_home->json({u"smart"_s, u"add"_s, text, QLatin1String(option), u"--rules"_s, text});
            QCOMPARE(made.status, int(titles ? ctl::kAllWell : ctl::kFailed));
            QCOMPARE(made.err.count(u'\n'), complaints);
            QCOMPARE(m_home->json({u"list"_s, u"--smart"_s, text}).all("mediaTitle"), words(titles));
        }
    }

    void organises()
    {
        const auto id = [this](const char* call, const char* attribute) {
            return m_home->json(words(call)).array()[0].toObject()[QLatin1String(attribute)].toString();
        };
        QVERIFY(!id("collection add --folder Box", "collectionID").isEmpty());
        const QString inBox = id("collection add --in Box Twin", "collectionID");
        QVERIFY(!id("collection add Twin", "collectionID").isEmpty());
        for (const char* name : {"a.png", "b.png", "c.png"})
            QCOMPARE(import(m_home->file(QLatin1String(name)), "--collection Start").status, 0);
        const QStringList items = m_home->json({u"list"_s}).all("mediaID");
        const auto call = [this](const QString& line) { return m_home->plain(line.split(u' ')); };

        QCOMPARE(call(u"rate 4 %1 %2"_s.arg(items[0], items[1].toLower())).status, int(ctl::kAllWell));
        QCOMPARE(call(u"rate 6 "_s + items[0]).status, int(ctl::kWrongUsage));
        QCOMPARE(call(u"label Blue "_s + items[0]).status, int(ctl::kAllWell));
        QCOMPARE(call(u"label 8 "_s + items[0]).status, int(ctl::kWrongUsage));
        QCOMPARE(call(u"label 0 nobody "_s + items[1]).status, int(ctl::kSomeItemsFailed));
        QCOMPARE(call(u"label 0 nobody"_s).status, int(ctl::kFailed));
        QCOMPARE(m_home->json({u"list"_s}).all("mediaRating").join(u' '), u"4 4 0"_s);
        QCOMPARE(m_home->json({u"show"_s, items[0]}).all("mediaLabel"), QStringList(u"5"_s));

        QCOMPARE(call(u"tag add New --collection Start"_s).status, int(ctl::kAllWell));
        QCOMPARE(call(u"tag remove NEW %1 nobody"_s.arg(items[1])).status, int(ctl::kSomeItemsFailed));
        QCOMPARE(call(u"tag add Old "_s + items[1]).status, int(ctl::kAllWell));
        QCOMPARE(call(u"tag remove Other "_s + items[1]).status, int(ctl::kFailed));
        QCOMPARE(call(u"tag add New"_s).status, int(ctl::kWrongUsage));
        QCOMPARE(m_home->json({u"tags"_s}).all("title").join(u' '), u"New Old"_s);
        QCOMPARE(m_home->json({u"list"_s, u"--tag"_s, u"New"_s}).all("mediaID").size(), 2);

        QCOMPARE(call(u"move --to Twin "_s + items[0]).status, int(ctl::kFailed)); // two of that title
        QCOMPARE(call(u"move --to Box "_s + items[0]).status, int(ctl::kFailed));
        QCOMPARE(call(u"move "_s + items[0]).status, int(ctl::kWrongUsage));
        QCOMPARE(call(u"move --to %1 %2 %3"_s.arg(inBox, items[0], items[1])).status, int(ctl::kAllWell));
        QCOMPARE(call(u"collection rename %1 Inner"_s.arg(inBox)).status, int(ctl::kAllWell));
        QCOMPARE(titlesOf("list --collection Inner").size(), 2);

        const QString preview = m_home->json({u"show"_s, items[0]}).all("preview").first();
        QVERIFY(QFileInfo::exists(preview));
        QCOMPARE(call(u"collection delete Start nothing"_s).status, int(ctl::kFailed)); // all or none
        QCOMPARE(call(u"collection delete Box Inner"_s).status, int(ctl::kAllWell));
        QVERIFY(!QFileInfo::exists(preview));
        QCOMPARE(m_home->json({u"list"_s}).all("mediaID"), items.mid(2));
        QCOMPARE(m_home->plain({u"verify"_s}).status, int(ctl::kAllWell));
        QCOMPARE(call(u"collection drop Start"_s).status, int(ctl::kWrongUsage));
        QCOMPARE(m_home->plain({u"collection"_s, u"add"_s, u" "_s}).status, int(ctl::kWrongUsage));
    }

    void findsAndRepairsWhatHasNoRecord()
    {
        import(m_home->file(u"sun.png"_s));
        QCOMPARE(m_home->json({u"verify"_s}).out, u"[]\n"_s);
        const QString stray = m_home->library() + u"/Masters/2020/1/2/STRAY.mritem"_s;
        test::writeFile(stray + u"/Originals/x.png"_s, "x");
        const Outcome found = m_home->json({u"verify"_s});
        QCOMPARE(found.status, int(ctl::kSomeItemsFailed));
        QCOMPARE(found.all("path"), QStringList{stray});
        const Outcome repaired = m_home->json({u"verify"_s, u"--repair"_s});
        QCOMPARE(repaired.status, int(ctl::kAllWell));
        QCOMPARE(repaired.array()[0]["removed"_L1].toBool(), true);
        QVERIFY(!QFileInfo::exists(m_home->library() + u"/Masters/2020"_s));
        QCOMPARE(m_home->json({u"verify"_s}).status, int(ctl::kAllWell));
        QCOMPARE(titlesOf("list"), words("sun"));
    }

    void usesTheRememberedLibraryAndChangesNothingAboutIt()
    {
        const QByteArray remembered = m_home->library().toUtf8();
        QVERIFY(m_home->defaults().updateUserDefaults(base::MOSARO_LIBRARY_LOCATION, remembered));
        import(m_home->file(u"sun.png"_s));
        const QString other = m_home->at(u"Other.mrlibrary"_s);
        QCOMPARE(m_home->call({u"create"_s, other}).status, int(ctl::kAllWell));
        QCOMPARE(m_home->call({u"list"_s, u"--library"_s, other}).out, QString());
        QCOMPARE(m_home->call({u"list"_s, u"--json"_s}).all("mediaTitle"), words("sun"));
        QCOMPARE(m_home->defaults().data(base::MOSARO_LIBRARY_LOCATION), remembered);
    }

    void keepsToOneDefaultLibrary()
    {
        const QString path = m_home->file(u"sun.png"_s);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(m_home->call({u"import"_s, path}).status, int(ctl::kAllWell));
        QCOMPARE(m_home->call({u"list"_s, u"--json"_s}).array().size(), 2);
        QCOMPARE(QDir(m_home->at(u"support/Mosaro"_s)).entryList({u"*.mrlibrary"_s}),
                 words("Mosaro.mrlibrary"));
        QVERIFY(!m_home->defaults().contains(base::MOSARO_LIBRARY_LOCATION));
    }

    void printsNothingThatATerminalObeys()
    {
        import(m_home->file(u"a\n\x1b[31mred.png"_s));
        const Outcome outcome = m_home->plain({u"list"_s});
        QCOMPARE(outcome.out.count(u'\n'), 1);
        QVERIFY(!outcome.out.contains(QChar(0x1b)));
        QCOMPARE(titlesOf("list"), QStringList{u"a\n\x1b[31mred"_s});
    }
};

QTEST_GUILESS_MAIN(CommandsTest)
#include "tst_commands.moc"
