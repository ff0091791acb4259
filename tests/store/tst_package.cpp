#include "base/PropertyList.h"
#include "store/AccessList.h"
#include "store/SelectionElement.h"
#include "store/TextFunctions.h"
#include "store/Verification.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

using namespace mosaro;
using namespace mosaro::store;
using namespace mosaro::test;

Q_DECLARE_METATYPE(AccessList::AddOutcome)

class TestPackage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void paths();
    void pathComponents_data();
    void pathComponents();
    void accessRules_data();
    void accessRules();
    void accessListFile();
    void stateDefaultsAreLazy();
    void stateTexts();
    void stateColours();
    void stateSelections();
    void systemCollections();
    void exportPresets();
    void selectionKeys();
    void verifyFindsWhatIsAmiss();
    void repairRemovesOnlyLeftovers();
    void repairTrustsNoReport();
    void unreadableRecordsCondemnNoFolder();
    void damagedIndexCondemnsNoFolder();
};

void TestPackage::paths()
{
    const LibraryPackage package(QStringLiteral("/a/b/../L.mrlibrary/"));
    QCOMPARE(package.libraryDirPath(), QStringLiteral("/a/L.mrlibrary"));
    QCOMPARE(package.dbPath(), QStringLiteral("/a/L.mrlibrary/Mosaro"));
    QCOMPARE(LibraryPackage::itemFolder(QDate(2024, 3, 9), QStringLiteral("ID")),
             QStringLiteral("/2024/3/9/ID.mritem"));
    QVERIFY(LibraryPackage().isNull());
    QTemporaryDir folder;
    const LibraryPackage real(folder.path());
    QVERIFY(real.versionRecord().isEmpty());
    writeFile(real.libraryVersionPath(), "garbage");
    QVERIFY(real.versionRecord().isEmpty());
    QVERIFY(real.writeVersionRecord({{QStringLiteral("Version"), QStringLiteral("9")}}).ok());
    QCOMPARE(real.versionRecord().value(QStringLiteral("Version")).toString(), QStringLiteral("9"));
    QVERIFY(
        !LibraryPackage(QStringLiteral("/proc/none")).writeVersionRecord({{QStringLiteral("a"), 1}}).ok());
}

void TestPackage::pathComponents_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("safe");
    QTest::newRow("plain") << QStringLiteral("a b.png") << true;
    QTest::newRow("three dots") << QStringLiteral("...") << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("dot") << QStringLiteral(".") << false;
    QTest::newRow("up") << QStringLiteral("..") << false;
    QTest::newRow("slash") << QStringLiteral("../x") << false;
    QTest::newRow("nul") << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b")) << false;
}

void TestPackage::pathComponents()
{
    QFETCH(QString, name);
    QTEST(isSafePathComponent(name), "safe");
}

void TestPackage::accessRules_data()
{
    using enum AccessList::AddOutcome;
    QTest::addColumn<QString>("folder");
    QTest::addColumn<AccessList::AddOutcome>("outcome");
    QTest::addColumn<QString>("grant");
    QTest::newRow("root") << QStringLiteral("/") << Excluded << QString();
    QTest::newRow("system") << QStringLiteral("/Library/") << Excluded << QString();
    QTest::newRow("below system") << QStringLiteral("ROOT/x") << Added << QStringLiteral("ROOT/x");
    QTest::newRow("listed") << QStringLiteral("ROOT/a/b") << AlreadyListed << QStringLiteral("ROOT/a/b");
    QTest::newRow("listed, unclean") << QStringLiteral("ROOT/a//b/../b/") << AlreadyListed
                                     << QStringLiteral("ROOT/a/b");
    QTest::newRow("below a listed one")
        << QStringLiteral("ROOT/a/b/c/d") << AncestorListed << QStringLiteral("ROOT/a/b");
    QTest::newRow("above a listed one") << QStringLiteral("ROOT/a") << Added << QStringLiteral("ROOT/a");
    QTest::newRow("same beginning") << QStringLiteral("ROOT/a/bc") << Added << QStringLiteral("ROOT/a/bc");
    QTest::newRow("gone") << QStringLiteral("ROOT/none") << NoBookmark << QString();
}

void TestPackage::accessRules()
{
    QFETCH(QString, folder);
    QFETCH(QString, grant);
    QTemporaryDir root;
    for (const char* name : {"x", "a/b/c/d", "a/bc"})
        QVERIFY(QDir().mkpath(root.filePath(QLatin1String(name))));
    FakeBookmarks bookmarks;
    AccessList list;
    QCOMPARE(list.add(root.filePath(QStringLiteral("a/b")), bookmarks), AccessList::AddOutcome::Added);
    folder.replace(QStringLiteral("ROOT"), root.path());
    grant.replace(QStringLiteral("ROOT"), root.path());
    QTEST(list.add(folder, bookmarks), "outcome");
    QCOMPARE(list.grantFor(folder), grant);
    // With a folder and one below it listed, the folder itself comes first, then the nearest to the root.
    QVERIFY(list.grantFor(root.filePath(QStringLiteral("a/b/c"))).startsWith(root.path()));
}

void TestPackage::accessListFile()
{
    TemporaryLibrary library;
    AccessList list = AccessList::read(library.package());
    QVERIFY(list.entries().isEmpty());
    QVERIFY(!QFileInfo::exists(library.package().accessListInfoPath()));
    list.enter(QStringLiteral("/gone/é"), QByteArray("token\0x", 7));
    list.enter(QStringLiteral("/none"), QByteArray());
    QVERIFY(list.write(library.package()).ok());
    QCOMPARE(AccessList::read(library.package()).entries(), list.entries());
    list.remove(QStringLiteral("/none"));
    QCOMPARE(list.entries().size(), 1);
    writeFile(library.package().accessListInfoPath(), "<plist>garbage");
    QVERIFY(AccessList::read(library.package()).entries().isEmpty());
}

void TestPackage::stateDefaultsAreLazy()
{
    LibraryState state(QVariantMap{{QStringLiteral("Expanded Collections"), QStringLiteral("not a list")},
                                   {QStringLiteral("System Collections"), QVariantList()},
                                   {QStringLiteral("Last Selected Colors"), 5},
                                   {QStringLiteral("Future"), 1}});
    QVERIFY(state.expandedCollections().isEmpty());
    QCOMPARE(state.systemCollections().size(), 13);
    QVERIFY(state.lastSelectedColors().isEmpty());
    QVERIFY(!state.record().contains(QStringLiteral("Export Presets")));
    QCOMPARE(state.exportPresets(), LibraryState::imagePresets());
    QVERIFY(state.record().contains(QStringLiteral("Export Presets")));
    QVERIFY(state.lastSelectedMedia().isEmpty());
    QVERIFY(state.lastSelectedTags().isEmpty());
    QVERIFY(state.lastSelectedCollections().isEmpty());
    QVariantMap expected = LibraryState::defaultLibraryXML();
    expected.insert(QStringLiteral("Future"), 1);
    QCOMPARE(state.record(), expected);
}

void TestPackage::stateTexts()
{
    LibraryState state;
    for (int i = 0; i < 2; ++i) {
        state.addExpandedCollection(QStringLiteral("a"));
        state.addLastSelectedCollection(QStringLiteral("b"));
        state.addLastSelectedTag(QStringLiteral("c"));
    }
    state.addExpandedCollection(QString());
    state.addExpandedCollection(QStringLiteral("z"));
    state.removeExpandedCollection(QStringLiteral("none"));
    QCOMPARE(state.expandedCollections(), (QStringList{QStringLiteral("a"), QStringLiteral("z")}));
    QCOMPARE(state.lastSelectedCollections(), QStringList{QStringLiteral("b")});
    QCOMPARE(state.lastSelectedTags(), QStringList{QStringLiteral("c")});
    state.removeExpandedCollection(QStringLiteral("a"));
    state.removeAllLastSelectedTags();
    state.removeAllLastSelectedCollections();
    QCOMPARE(state.expandedCollections(), QStringList{QStringLiteral("z")});
    QVERIFY(state.lastSelectedTags().isEmpty() && state.lastSelectedCollections().isEmpty());
}

void TestPackage::stateColours()
{
    LibraryState state;
    state.addLastSelectedColorIndex({3, 17, 400});
    QCOMPARE(state.lastSelectedColorPositions(), (std::vector<int>{3, 17, 400}));
    state.addLastSelectedColorIndex({});
    QVERIFY(state.lastSelectedColors().isEmpty());
    QVERIFY(state.lastSelectedColorPositions().empty());
    LibraryState hostile(
        QVariantMap{{QStringLiteral("Last Selected Colors"), QByteArray("bplist00garbage")}});
    QVERIFY(hostile.lastSelectedColorPositions().empty());
}

void TestPackage::stateSelections()
{
    LibraryState state;
    state.addLastSelectedMedia({}, QStringLiteral("k"));
    state.addLastSelectedMedia({QByteArray("r")}, QString());
    QVERIFY(state.lastSelectedMedia().isEmpty());
    state.addLastSelectedMedia({QByteArray("r"), QByteArray("s")}, QStringLiteral("k+Tag"));
    const QVariantMap entry = state.lastSelectedMedia().value(QStringLiteral("k+Tag")).toMap();
    const auto items =
        base::readPropertyList(entry.value(QStringLiteral("Last Selected Items")).toByteArray());
    QCOMPARE(items.value().toList().size(), 2);
    state.removeLastSelectedMedia(QStringLiteral("none"));
    QCOMPARE(state.lastSelectedMedia().size(), 1);
    state.removeLastSelectedMedia(QStringLiteral("k+Tag"));
    QVERIFY(state.lastSelectedMedia().isEmpty());
}

void TestPackage::systemCollections()
{
    LibraryState state;
    QVERIFY(state.hasSystemCollection(QStringLiteral("13")));
    QVERIFY(!state.hasSystemCollection(QStringLiteral("3")) &&
            !state.hasSystemCollection(QStringLiteral("15")));
    const auto fresh = state.systemCollection(QStringLiteral("1"));
    QVERIFY(fresh.sortKey == 7 && fresh.isAscending == false && fresh.zoom == 0.4);
    state.setSystemCollectionSort(QStringLiteral("1"), 0, true);
    state.setSystemCollectionZoom(QStringLiteral("1"), 0.1);
    const auto changed = state.systemCollection(QStringLiteral("1"));
    QVERIFY(changed.sortKey == 0 && changed.isAscending == true);
    QCOMPARE(*changed.zoom, static_cast<double>(0.1f));
    state.setSystemCollectionSort(QStringLiteral("15"), 1, true);
    state.setSystemCollectionZoom(QStringLiteral("15"), 0.5);
    QVERIFY(!state.hasSystemCollection(QStringLiteral("15")));

    const QVariantMap lacking{{QStringLiteral("LIB_SORT_VALUE"), 3}, {QStringLiteral("Future"), 1}};
    LibraryState partial(
        {{QStringLiteral("System Collections"), QVariantMap{{QStringLiteral("1"), lacking}}}});
    partial.setSystemCollectionSort(QStringLiteral("1"), 1, true);
    partial.setSystemCollectionZoom(QStringLiteral("1"), 0.5);
    QCOMPARE(partial.systemCollections().value(QStringLiteral("1")).toMap(), lacking);
    QVERIFY(!partial.systemCollection(QStringLiteral("1")).zoom);
}

void TestPackage::exportPresets()
{
    LibraryState state;
    QVariantList presets = state.exportPresets();
    QCOMPARE(presets.size(), 7);
    QCOMPARE(presets[3].toMap().size(), 9);
    QCOMPARE(presets[3].toMap().value(QStringLiteral("PRESET_SIZE_TYPE")).toInt(), 2);
    QCOMPARE(presets[3].toMap().value(QStringLiteral("PRESET_FORMAT_QUALITY")).toDouble(), 0.8);
    state.saveExportPresets({});
    QVERIFY(state.exportPresets().isEmpty()); // Deleted by the user: not a reason for defaults.
    state.restoreExportPresets();
    QCOMPARE(state.exportPresets(), LibraryState::imagePresets());
}

void TestPackage::selectionKeys()
{
    SelectionElement element;
    element.id = QStringLiteral("1");
    QCOMPARE(element.selectionKey(), QStringLiteral("1+Collection"));
    element.shape = SelectionElement::Shape::TagRow;
    QCOMPARE(element.selectionKey(), QStringLiteral("1+Tag"));
    element.shape = SelectionElement::Shape::Colour;
    const char* const expected[] = {"1+BackgroundColor", "1+PrimaryColor", "1+SecondaryColor",
                                    "1+DetailColor", ""};
    for (element.type = 0; element.type < 5; ++element.type)
        QCOMPARE(element.selectionKey(), QString::fromLatin1(expected[element.type]));
}

void TestPackage::verifyFindsWhatIsAmiss()
{
    TemporaryLibrary library;
    const QString masters = library.package().masterDirPath();
    const auto collection = library.addCollection(QStringLiteral("c"));
    const auto whole = library.addMedia(QStringLiteral("whole"), collection, true);
    QVERIFY(verifyLibrary(library.context(), library.package()).isClean());
    const auto noPreview = library.addMedia(QStringLiteral("p"), collection, true);
    const auto noOriginal = library.addMedia(QStringLiteral("o"), collection, true);
    const auto referenced = library.addMedia(QStringLiteral("r"), collection, true);
    QVERIFY(QFile::remove(masters + noPreview->mediaThumbPath()));
    QVERIFY(QFile::remove(masters + noOriginal->mediaPath()));
    referenced->setMediaPath(QString());
    referenced->setMediaOriginalPath(QStringLiteral("/none/at/all.png"));
    QVERIFY(library.context().save().ok());
    const QString leftover = masters + QStringLiteral("/2020/1/2/LEFT.mritem");
    writeFile(leftover + QStringLiteral("/Preivew/preview.png"), "x");
    const QString staged = library.package().stagingDirPath() + QStringLiteral("/half");
    writeFile(staged + QStringLiteral("/Originals/a"), "x");
    // None of these is an item's folder.
    writeFile(masters + QStringLiteral("/2020/1/2/notes.txt"), "x");
    writeFile(masters + QStringLiteral("/Other/1/2/A.mritem/file"), "x");
    writeFile(masters + QStringLiteral("/2020/1/2/A.folder/file"), "x");
    const auto report = verifyLibrary(library.context(), library.package());
    QVERIFY(report.isComplete && !report.isClean());
    QCOMPARE(report.foldersWithoutRecord, (QStringList{leftover, staged}));
    QCOMPARE(report.missingPreviews, QStringList{noPreview->mediaID()});
    QCOMPARE(report.missingOriginals, (QStringList{noOriginal->mediaID(), referenced->mediaID()}));
}

void TestPackage::repairRemovesOnlyLeftovers()
{
    TemporaryLibrary library;
    const QString masters = library.package().masterDirPath();
    const auto media =
        library.addMedia(QStringLiteral("m"), library.addCollection(QStringLiteral("c")), true);
    const QString alone = masters + QStringLiteral("/2020/1/2/A.mritem");
    const QString accompanied = masters + QStringLiteral("/2021/5/6/B.mritem");
    writeFile(alone + QStringLiteral("/Originals/x"), "x");
    writeFile(accompanied + QStringLiteral("/Originals/x"), "x");
    writeFile(masters + QStringLiteral("/2021/5/6/keep.txt"), "x");
    writeFile(library.package().stagingDirPath() + QStringLiteral("/half/x"), "x");
    QVERIFY(QFile::link(masters + QStringLiteral("/2021"), alone + QStringLiteral("/link")));
    QCOMPARE(repairLibrary(verifyLibrary(library.context(), library.package()), library.package()).size(), 3);
    QVERIFY(!QFileInfo::exists(masters + QStringLiteral("/2020")));
    QVERIFY(!QFileInfo::exists(accompanied));
    QVERIFY(QFileInfo::exists(masters + QStringLiteral("/2021/5/6/keep.txt")));
    QVERIFY(QFileInfo::exists(masters + media->mediaPath()));
    QVERIFY(verifyLibrary(library.context(), library.package()).isClean());
}

void TestPackage::repairTrustsNoReport()
{
    TemporaryLibrary library;
    const QString outside = library.folder(QStringLiteral("1/2/3/X.mritem"));
    const QString masters = library.package().masterDirPath();
    VerificationReport report;
    report.foldersWithoutRecord = {outside,
                                   masters,
                                   library.packagePath(),
                                   library.package().dbPath(),
                                   library.package().stagingDirPath(),
                                   masters + QStringLiteral("/1/2/3/../../../X.mritem"),
                                   masters + QStringLiteral("/1/2/3/absent.mritem")};
    writeFile(masters + QStringLiteral("/X.mritem/file"), "x");
    QVERIFY(repairLibrary(report, library.package()).isEmpty());
    QVERIFY(QFileInfo::exists(outside) && QFileInfo::exists(masters + QStringLiteral("/X.mritem/file")));
}

void TestPackage::unreadableRecordsCondemnNoFolder()
{
    TemporaryLibrary library;
    (void)library.addMedia(QStringLiteral("m"), library.addCollection(QStringLiteral("c")), true);
    {
        SQLite::Database other(library.package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000);
        registerTextFunctions(other);
        other.exec("ALTER TABLE Media RENAME COLUMN mediaThumbPath TO renamed");
    }
    const auto report = verifyLibrary(library.context(), library.package());
    QVERIFY(!report.isClean());
    QVERIFY(report.foldersWithoutRecord.isEmpty());
}

void TestPackage::damagedIndexCondemnsNoFolder()
{
    TemporaryLibrary library;
    writeFile(library.package().masterDirPath() + QStringLiteral("/2020/1/2/A.mritem/Preivew/preview.png"),
              "x");
    {
        // A wrong order of titles stands in for a damaged index: the pages are sound, what they say is not.
        SQLite::Database other(library.package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000);
        sqlite3_create_collation(other.getHandle(), "FINDER", SQLITE_UTF8, nullptr,
                                 [](void*, int, const void* a, int, const void* b) {
                                     return int(*static_cast<const char*>(b)) - *static_cast<const char*>(a);
                                 });
        for (const char* title : {"a", "b", "c", "d"})
            other.exec(std::string("INSERT INTO Media (mediaID, mediaTitle) VALUES ('") + title + "', '" +
                       title + "')");
    }
    const auto report = verifyLibrary(library.context(), library.package());
    QVERIFY(!report.isClean() && !report.isComplete);
    QVERIFY(!report.storeDamage.isEmpty());
    QVERIFY(report.foldersWithoutRecord.isEmpty());
}

QTEST_GUILESS_MAIN(TestPackage)
#include "tst_package.moc"
