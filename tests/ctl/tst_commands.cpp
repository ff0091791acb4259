#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "ctl/Ctl.h"
#include "store/ZNDBManager.h"
#include "support/FakePlatform.h"
#include "support/TemporaryLibrary.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro;

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
        for (const QJsonValue& item : items) {
            values.append(item[QLatin1String(attribute)].toVariant().toString());
        }
        return values;
    }
};

importing::AnalysisResult analyseByName(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result;
    const QFileInfo file(request.path);
    if (file.fileName().startsWith(QLatin1String("bad"))) {
        result.outcome = base::Failure{QStringLiteral("It is torn.")};
        return result;
    }
    result.type = request.type;
    result.kind = request.kind == importing::MediaKind::Unset ? importing::MediaKind::Other : request.kind;
    result.preview = "preview";
    result.metadata.width = static_cast<int>(file.size());
    result.metadata.height = 10;
    result.colors.push_back({{0.5F, 0.5F, 0.5F, 1.0F}, 1.0F});
    return result;
}

/// A home of its own for every test: preferences, support folder and a library.
class Home {
public:
    Home() { fillPlatform(); }

    [[nodiscard]] QString at(const QString& name) const { return m_dir.path() + u'/' + name; }
    [[nodiscard]] QString library() const { return at(QStringLiteral("Test.mrlibrary")); }
    [[nodiscard]] base::ZNUserDefaults& defaults() { return m_defaults; }
    [[nodiscard]] test::FakeFileIndex& fileIndex() { return *m_fileIndex; }

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
                                              .platform = m_platform,
                                              .supportFolder = at(QStringLiteral("support")),
                                              .showsProgress = false,
                                              .onInterrupt = nullptr,
                                              .analyse = analyseByName});
        out.flush();
        err.flush();
        return outcome;
    }
    /// On the test's library, with JSON.
    Outcome json(const QStringList& arguments)
    {
        return call(QStringList{QStringLiteral("--library"), library(), QStringLiteral("--json")} +
                    arguments);
    }

private:
    void fillPlatform()
    {
        auto index = std::make_unique<test::FakeFileIndex>();
        m_fileIndex = index.get();
        m_platform.types = std::make_unique<test::FakeTypes>();
        m_platform.thumbnailers = std::make_unique<test::FakeThumbnailers>();
        m_platform.fileIndex = std::move(index);
        m_platform.aliases = std::make_unique<test::FakeAliases>();
        m_platform.bookmarks = std::make_unique<test::FakeBookmarks>();
    }

    QTemporaryDir m_dir;
    base::ZNUserDefaults m_defaults{m_dir.path() + QStringLiteral("/preferences.ini")};
    platform::Platform m_platform;
    test::FakeFileIndex* m_fileIndex = nullptr;
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

    QStringList import(const QStringList& arguments)
    {
        const Outcome outcome = m_home->json(QStringList{QStringLiteral("import")} + arguments);
        return QVariant(outcome.object()[QLatin1String("imported")].toArray().toVariantList()).toStringList();
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
        QCOMPARE(m_home->call({QStringLiteral("create"), m_home->library()}).status, int(ctl::kAllWell));
    }

    void refusesWrongUsage_data()
    {
        QTest::addColumn<QString>("arguments");
        for (const char* line : {"",
                                 "frobnicate",
                                 "--frob list",
                                 "list --frob",
                                 "list extra",
                                 "create",
                                 "create a b",
                                 "import",
                                 "show",
                                 "search",
                                 "list --kind 99",
                                 "list --kind 3",
                                 "list --kind x",
                                 "list --sort colour",
                                 "list --recent --kind 4",
                                 "list --collection a --tag b",
                                 "search --in tags x",
                                 "import --kind 3 a.png",
                                 "verify now",
                                 "--library"}) {
            QTest::newRow(line) << QString::fromLatin1(line);
        }
    }
    void refusesWrongUsage()
    {
        QFETCH(QString, arguments);
        const Outcome outcome = m_home->call(arguments.split(u' ', Qt::SkipEmptyParts));
        QCOMPARE(outcome.status, int(ctl::kWrongUsage));
        QCOMPARE(outcome.out, QString());
        QCOMPARE(outcome.err.count(u'\n'), 1);
        QVERIFY(outcome.err.startsWith(QStringLiteral("mosaroctl: ")));
        QVERIFY2(outcome.err.contains(QStringLiteral("--help")), qUtf8Printable(outcome.err));
    }

    void helps_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("mention");
        const auto row = [](const char* arguments, const char* mention) {
            QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(mention);
        };
        row("--help", "verify");
        row("import --help", "--reference");
        row("list --help", "--descending");
        row("--json search --help", "copyright");
        row("--version", "mosaroctl ");
    }
    void helps()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, mention);
        const Outcome outcome = m_home->call(arguments.split(u' '));
        QCOMPARE(outcome.status, int(ctl::kAllWell));
        QVERIFY2(outcome.out.contains(mention), qUtf8Printable(outcome.out));
        QVERIFY(!outcome.out.contains(QStringLiteral("Hint."))); // Every text is there.
    }

    void namesWhatIsMissing_data()
    {
        QTest::addColumn<QString>("arguments");
        for (const char* line : {"list --collection Nowhere", "list --tag Nothing", "show NOBODY",
                                 "search x --collection Nowhere"}) {
            QTest::newRow(line) << QString::fromLatin1(line);
        }
    }
    void namesWhatIsMissing()
    {
        QFETCH(QString, arguments);
        const Outcome outcome = m_home->json(arguments.split(u' '));
        QCOMPARE(outcome.status, int(ctl::kFailed));
        QCOMPARE(outcome.out, QString());
        QCOMPARE(outcome.err.count(u'\n'), 1);
    }

    void makesNoLibraryOfAnyFolder()
    {
        QVERIFY(QDir().mkpath(m_home->at(QStringLiteral("mine"))));
        m_home->file(QStringLiteral("holiday/sun.png"));
        for (const char* name : {"mine", "nowhere", "holiday"}) {
            const Outcome outcome = m_home->call(
                {QStringLiteral("--library"), m_home->at(QLatin1String(name)), QStringLiteral("list")});
            QCOMPARE(outcome.status, int(ctl::kFailed));
        }
        QVERIFY(QDir(m_home->at(QStringLiteral("mine"))).isEmpty());
        QCOMPARE(
            QDir(m_home->at(QStringLiteral("holiday"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList{QStringLiteral("sun.png")});
        QVERIFY(!QFileInfo::exists(m_home->at(QStringLiteral("nowhere"))));
    }

    void createsOnlyWhereNothingStands()
    {
        const QString taken = m_home->file(QStringLiteral("taken.mrlibrary"));
        QCOMPARE(m_home->call({QStringLiteral("create"), taken}).status, int(ctl::kFailed));
        QCOMPARE(QFileInfo(taken).size(), 4);
        QCOMPARE(m_home->call({QStringLiteral("create"), m_home->library()}).status, int(ctl::kFailed));
        const QString fresh = m_home->at(QStringLiteral("deep/er/New.mrlibrary"));
        const Outcome outcome = m_home->call({QStringLiteral("create"), fresh, QStringLiteral("--json")});
        QCOMPARE(outcome.array()[0][QLatin1String("path")].toString(), fresh);
    }

    void importsAndShowsInFull()
    {
        const QString path = m_home->file(QStringLiteral("sun.png"), 20);
        m_home->fileIndex().entries[path].tags = words("warm big");
        const Outcome outcome =
            m_home->json({QStringLiteral("import"), path, QStringLiteral("--collection"),
                          QStringLiteral("Sky"), QStringLiteral("--kind"), QStringLiteral("8")});
        QCOMPARE(outcome.status, int(ctl::kAllWell));
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.object().keys(), words("failed imported skipped"));
        const QString mediaID = outcome.object()[QLatin1String("imported")][0].toString();

        const Outcome shown = m_home->json({QStringLiteral("show"), mediaID.toLower()});
        QCOMPARE(shown.status, int(ctl::kAllWell));
        QCOMPARE(shown.array().size(), 1);
        const QJsonObject item = shown.array()[0].toObject();
        QCOMPARE(item[QLatin1String("mediaID")].toString(), mediaID);
        QCOMPARE(item[QLatin1String("mediaWidth")].toDouble(), 20.0);
        QCOMPARE(item[QLatin1String("mediaKind")].toInt(), 8);
        QCOMPARE(item[QLatin1String("tags")].toArray(),
                 QJsonArray({QStringLiteral("big"), QStringLiteral("warm")}));
        QCOMPARE(item[QLatin1String("colors")][0][QLatin1String("colorID")].toString(),
                 QStringLiteral("0.500000+0.500000+0.500000+1.000000"));
        QCOMPARE(item[QLatin1String("colors")][0][QLatin1String("colorType")].toInt(), 0);
        QCOMPARE(item[QLatin1String("collection")].toString(), QStringLiteral("Sky"));
        QVERIFY(QFileInfo(item[QLatin1String("path")].toString()).isFile());
        QVERIFY(QFileInfo(item[QLatin1String("preview")].toString()).isFile());
        QVERIFY(item[QLatin1String("imageHasAlpha")].isBool());
        QVERIFY(item[QLatin1String("pdfTitle")].isNull());
        QVERIFY(!item.contains(QLatin1String("collections")));
        const QString date = item[QLatin1String("mediaDateImported")].toString();
        QVERIFY2(date.endsWith(u'Z'), qUtf8Printable(date));
        QVERIFY(qAbs(QDateTime::fromString(date, Qt::ISODateWithMs).secsTo(QDateTime::currentDateTimeUtc())) <
                100);

        QCOMPARE(m_home->json({QStringLiteral("tags")}).all("title"), words("big warm"));
        QCOMPARE(m_home->json({QStringLiteral("colors")}).all("colorType"), words("0"));
        QCOMPARE(m_home->json({QStringLiteral("collections")}).all("title"), words("Sky"));
        QCOMPARE(titlesOf("list --tag warm"), words("sun"));
        const Outcome plain =
            m_home->call({QStringLiteral("--library"), m_home->library(), QStringLiteral("show"), mediaID});
        QVERIFY(plain.out.contains(QStringLiteral("mediaTitle: sun\n")));
    }

    void reportsFailedAndSkipped()
    {
        const QString good = m_home->file(QStringLiteral("in/good.png"));
        const QString bad = m_home->file(QStringLiteral("in/bad.png"));
        const QString notes = m_home->file(QStringLiteral("in/notes.txt"));
        const Outcome outcome = m_home->json({QStringLiteral("import"), m_home->at(QStringLiteral("in"))});
        QCOMPARE(outcome.status, int(ctl::kSomeItemsFailed));
        const QJsonObject report = outcome.object();
        QCOMPARE(report[QLatin1String("imported")].toArray().size(), 1);
        QCOMPARE(report[QLatin1String("failed")][0].toObject(),
                 QJsonObject({{QStringLiteral("path"), bad},
                              {QStringLiteral("reason"), QStringLiteral("It is torn.")}}));
        QCOMPARE(report[QLatin1String("skipped")][0][QLatin1String("path")].toString(), notes);
        QCOMPARE(outcome.err.count(u'\n'), 2);
        QCOMPARE(m_home->json({QStringLiteral("import"), good, notes}).status, int(ctl::kAllWell));
        const QString missing = m_home->at(QStringLiteral("missing.png"));
        QCOMPARE(m_home->json({QStringLiteral("import"), missing, good}).status, int(ctl::kSomeItemsFailed));
        QCOMPARE(titlesOf("list").size(), 3); // Into the same collection each time.
        QCOMPARE(m_home->json({QStringLiteral("collections")}).array().size(), 1);
    }

    void refersToFilesOnDemand()
    {
        const QString path = m_home->file(QStringLiteral("sun.png"));
        QCOMPARE(import({path, QStringLiteral("--reference")}).size(), 1);
        const QJsonObject item = m_home->json({QStringLiteral("list")}).array()[0].toObject();
        QCOMPARE(item[QLatin1String("mediaPath")].toString(), QString());
        QCOMPARE(item[QLatin1String("path")].toString(), path);
        QFile::remove(path);
        const Outcome verified = m_home->json({QStringLiteral("verify"), QStringLiteral("--repair")});
        QCOMPARE(verified.status, int(ctl::kSomeItemsFailed)); // Nothing brings the file back.
        QCOMPARE(verified.all("problem"), words("missingOriginal"));
        QCOMPARE(verified.all("mediaID"), m_home->json({QStringLiteral("list")}).all("mediaID"));
    }

    void ordersAndSelects()
    {
        import({m_home->file(QStringLiteral("img10.png"), 30), QStringLiteral("--collection"),
                QStringLiteral("A")});
        import({m_home->file(QStringLiteral("img9.png"), 20), QStringLiteral("--collection"),
                QStringLiteral("B"), QStringLiteral("--kind"), QStringLiteral("4")});
        import({m_home->file(QStringLiteral("Über.png"), 10), QStringLiteral("--collection"),
                QStringLiteral("A")});
        const QString umlaut = QStringLiteral("Über");
        QCOMPARE(titlesOf("list"), QStringList({QStringLiteral("img10"), QStringLiteral("img9"), umlaut}));
        QCOMPARE(titlesOf("list --descending"),
                 QStringList({umlaut, QStringLiteral("img9"), QStringLiteral("img10")}));
        QCOMPARE(titlesOf("list --sort title"),
                 QStringList({QStringLiteral("img9"), QStringLiteral("img10"), umlaut}));
        QCOMPARE(titlesOf("list --sort size"),
                 QStringList({umlaut, QStringLiteral("img9"), QStringLiteral("img10")}));
        QCOMPARE(titlesOf("list --sort fileSize"), titlesOf("list --sort size"));
        QCOMPARE(titlesOf("list --sort width --descending"), titlesOf("list --sort imported"));
        QCOMPARE(titlesOf("list --collection A"), QStringList({QStringLiteral("img10"), umlaut}));
        QCOMPARE(titlesOf("list --kind 4"), words("img9"));
        QCOMPARE(titlesOf("list --recent").size(), 3);
        QCOMPARE(titlesOf("search IMG"), words("img9 img10")); // Latest first.
        QCOMPARE(titlesOf("search uber"), QStringList{umlaut});
        QCOMPARE(titlesOf("search img --collection B"), words("img9"));
        QCOMPARE(titlesOf("search % --in notes"), QStringList());
    }

    void asksForOneCollection()
    {
        store::ZNDBManager manager;
        test::FakeBookmarks bookmarks;
        manager.setUp(m_home->defaults(), bookmarks, m_home->at(QStringLiteral("support")));
        manager.setRemembersLibrary(false);
        QVERIFY(manager.openDatabaseAtPath(m_home->library()));
        for (const char* id : {"one", "two"}) {
            auto collection = manager.context()->insert<store::Collections>();
            collection->setCollectionID(QLatin1String(id));
            collection->setTitle(QStringLiteral("Twice"));
            collection->setType(10000);
        }
        QVERIFY(manager.context()->save().ok());
        const QString path = m_home->file(QStringLiteral("sun.png"));
        const QStringList arguments{QStringLiteral("import"), path, QStringLiteral("--collection"),
                                    QStringLiteral("Twice")};
        QCOMPARE(m_home->json(arguments).status, int(ctl::kFailed)); // Still held.
        manager.closeDatabase();
        const Outcome outcome = m_home->json(arguments);
        QCOMPARE(outcome.status, int(ctl::kFailed));
        QVERIFY2(outcome.err.contains(QStringLiteral("Twice")), qUtf8Printable(outcome.err));
        QCOMPARE(titlesOf("list --collection Twice"), QStringList());
    }

    void findsAndRepairsWhatHasNoRecord()
    {
        import({m_home->file(QStringLiteral("sun.png"))});
        QCOMPARE(m_home->json({QStringLiteral("verify")}).out, QStringLiteral("[]\n"));
        const QString stray = m_home->library() + QStringLiteral("/Masters/2020/1/2/STRAY.mritem");
        test::writeFile(stray + QStringLiteral("/Originals/x.png"), "x");
        const Outcome found = m_home->json({QStringLiteral("verify")});
        QCOMPARE(found.status, int(ctl::kSomeItemsFailed));
        QCOMPARE(found.all("path"), QStringList{stray});
        const Outcome repaired = m_home->json({QStringLiteral("verify"), QStringLiteral("--repair")});
        QCOMPARE(repaired.status, int(ctl::kAllWell));
        QCOMPARE(repaired.array()[0][QLatin1String("removed")].toBool(), true);
        QVERIFY(!QFileInfo::exists(m_home->library() + QStringLiteral("/Masters/2020")));
        QCOMPARE(m_home->json({QStringLiteral("verify")}).status, int(ctl::kAllWell));
        QCOMPARE(titlesOf("list"), words("sun"));
    }

    void usesTheRememberedLibraryAndChangesNothingAboutIt()
    {
        const QByteArray remembered = m_home->library().toUtf8();
        QVERIFY(m_home->defaults().updateUserDefaults(base::MOSARO_LIBRARY_LOCATION, remembered));
        import({m_home->file(QStringLiteral("sun.png"))});
        const QString other = m_home->at(QStringLiteral("Other.mrlibrary"));
        QCOMPARE(m_home->call({QStringLiteral("create"), other}).status, int(ctl::kAllWell));
        QCOMPARE(m_home->call({QStringLiteral("list"), QStringLiteral("--library"), other}).out, QString());
        QCOMPARE(m_home->call({QStringLiteral("list"), QStringLiteral("--json")}).all("mediaTitle"),
                 words("sun"));
        QCOMPARE(m_home->defaults().data(base::MOSARO_LIBRARY_LOCATION), remembered);
    }

    void keepsToOneDefaultLibrary()
    {
        const QString path = m_home->file(QStringLiteral("sun.png"));
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(m_home->call({QStringLiteral("import"), path}).status, int(ctl::kAllWell));
        }
        QCOMPARE(m_home->call({QStringLiteral("list"), QStringLiteral("--json")}).array().size(), 2);
        QCOMPARE(
            QDir(m_home->at(QStringLiteral("support/Mosaro"))).entryList({QStringLiteral("*.mrlibrary")}),
            words("Mosaro.mrlibrary"));
        QVERIFY(!m_home->defaults().contains(base::MOSARO_LIBRARY_LOCATION));
    }

    void printsNothingThatATerminalObeys()
    {
        import({m_home->file(QStringLiteral("a\n\x1b[31mred.png"))});
        const Outcome outcome =
            m_home->call({QStringLiteral("--library"), m_home->library(), QStringLiteral("list")});
        QCOMPARE(outcome.out.count(u'\n'), 1);
        QVERIFY(!outcome.out.contains(QChar(0x1b)));
        QCOMPARE(titlesOf("list"), QStringList{QStringLiteral("a\n\x1b[31mred")});
    }
};

QTEST_GUILESS_MAIN(CommandsTest)
#include "tst_commands.moc"
