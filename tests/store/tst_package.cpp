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
using namespace Qt::StringLiterals;

class TestPackage : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TemporaryLibrary> m_library;
    [[nodiscard]] const LibraryPackage& package() const { return m_library->package(); }
    [[nodiscard]] QString master(const QString& path) const { return package().masterDirPath() + path; }
    VerificationReport verify() { return verifyLibrary(m_library->context(), package()); }
    [[nodiscard]] SQLite::Database otherProgram() const
    {
        return {package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000};
    }

private Q_SLOTS:
    void init() { m_library = std::make_unique<TemporaryLibrary>(); }

    void paths()
    {
        const LibraryPackage package(u"/a/b/../L.mrlibrary/"_s);
        QCOMPARE(package.libraryDirPath(), u"/a/L.mrlibrary"_s);
        QCOMPARE(package.dbPath(), u"/a/L.mrlibrary/Mosaro"_s);
        QCOMPARE(LibraryPackage::itemFolder(QDate(2024, 3, 9), u"ID"_s), u"/2024/3/9/ID.mritem"_s);
        QVERIFY(LibraryPackage().isNull());
        writeFile(m_library->package().libraryVersionPath(), "garbage");
        QVERIFY(m_library->package().versionRecord().isEmpty());
    }

    void pathComponents()
    {
        for (const QString& safe : {u"a b.png"_s, u"..."_s})
            QVERIFY2(isSafePathComponent(safe), qPrintable(safe));
        for (const QString& unsafe : {u""_s, u"."_s, u".."_s, u"../x"_s, QString(u"a"_s + QChar(0) + u"b"_s)})
            QVERIFY2(!isSafePathComponent(unsafe), qPrintable(unsafe));
    }

    void accessRules()
    {
        using enum AccessList::AddOutcome;
        QTemporaryDir root;
        for (const char* name : {"x", "a/b/c/d", "a/bc"})
            QVERIFY(QDir().mkpath(root.filePath(QLatin1String(name))));
        const FakeBookmarks bookmarks;
        const auto at = [&root](QString path) { return path.replace(u"ROOT"_s, root.path()); };
        // The folder, how adding it ends, and what then grants it.
        const std::tuple<QString, AccessList::AddOutcome, QString> rows[] = {
            {u"/"_s, Excluded, {}},
            {u"/Library/"_s, Excluded, {}},
            {u"ROOT/x"_s, Added, u"ROOT/x"_s},
            {u"ROOT/a/b"_s, AlreadyListed, u"ROOT/a/b"_s},
            {u"ROOT/a//b/../b/"_s, AlreadyListed, u"ROOT/a/b"_s},
            {u"ROOT/a/b/c/d"_s, AncestorListed, u"ROOT/a/b"_s},
            {u"ROOT/a"_s, Added, u"ROOT/a"_s},
            {u"ROOT/a/bc"_s, Added, u"ROOT/a/bc"_s},
            {u"ROOT/none"_s, NoBookmark, {}}};
        for (const auto& [folder, outcome, grant] : rows) {
            AccessList list;
            QCOMPARE(list.add(at(u"ROOT/a/b"_s), bookmarks), Added);
            QVERIFY2(list.add(at(folder), bookmarks) == outcome, qPrintable(folder));
            QCOMPARE(list.grantFor(at(folder)), at(grant));
            // With a folder and one below it listed, the folder itself comes first, then the nearest to the
            // root.
            QVERIFY(list.grantFor(at(u"ROOT/a/b/c"_s)).startsWith(root.path()));
        }
    }

    void accessListFile()
    {
        AccessList list = AccessList::read(package());
        QVERIFY(list.entries().isEmpty() && !QFileInfo::exists(package().accessListInfoPath()));
        list.enter(u"/gone/é"_s, "token\0x"_ba);
        list.enter(u"/none"_s, QByteArray());
        QVERIFY(list.write(package()).ok());
        QCOMPARE(AccessList::read(package()).entries(), list.entries());
        list.remove(u"/none"_s);
        QCOMPARE(list.entries().size(), 1);
        writeFile(package().accessListInfoPath(), "<plist>garbage");
        QVERIFY(AccessList::read(package()).entries().isEmpty());
    }

    void stateDefaultsAreLazy()
    {
        LibraryState state(QVariantMap{{u"Expanded Collections"_s, u"not a list"_s},
                                       {u"System Collections"_s, QVariantList()},
                                       {u"Last Selected Colors"_s, 5},
                                       {u"Future"_s, 1}});
        QVERIFY(state.expandedCollections().isEmpty() && state.lastSelectedColors().isEmpty());
        QCOMPARE(state.systemCollections().size(), 13);
        QVERIFY(!state.record().contains(u"Export Presets"_s));
        QCOMPARE(state.exportPresets(), LibraryState::imagePresets());
        QVERIFY(state.lastSelectedMedia().isEmpty() && state.lastSelectedTags().isEmpty() &&
                state.lastSelectedCollections().isEmpty());
        QVariantMap expected = LibraryState::defaultLibraryXML();
        expected.insert(u"Future"_s, 1);
        QCOMPARE(state.record(), expected);
        QCOMPARE(state.exportPresets().size(), 7);
        state.saveExportPresets({});
        QVERIFY(state.exportPresets().isEmpty()); // Deleted by the user: not a reason for defaults.
        state.restoreExportPresets();
        QCOMPARE(state.exportPresets(), LibraryState::imagePresets());
    }

    void stateLists()
    {
        LibraryState state;
        for (const QString& id : {u"a"_s, u"a"_s, u""_s, u"z"_s})
            state.addExpandedCollection(id);
        state.removeExpandedCollection(u"none"_s);
        QCOMPARE(state.expandedCollections(), (QStringList{u"a"_s, u"z"_s}));
        state.removeExpandedCollection(u"a"_s);
        for (int i = 0; i < 2; ++i) {
            state.addLastSelectedCollection(u"b"_s);
            state.addLastSelectedTag(u"c"_s);
        }
        QCOMPARE(state.lastSelectedCollections(), QStringList{u"b"_s});
        QCOMPARE(state.lastSelectedTags(), QStringList{u"c"_s});
        state.removeAllLastSelectedTags();
        state.removeAllLastSelectedCollections();
        QCOMPARE(state.expandedCollections(), QStringList{u"z"_s});
        QVERIFY(state.lastSelectedTags().isEmpty() && state.lastSelectedCollections().isEmpty());
    }

    void stateSelections()
    {
        LibraryState state;
        state.addLastSelectedColorIndex({3, 17, 400});
        QCOMPARE(state.lastSelectedColorPositions(), (std::vector<int>{3, 17, 400}));
        state.addLastSelectedColorIndex({});
        QVERIFY(state.lastSelectedColors().isEmpty() && state.lastSelectedColorPositions().empty());
        LibraryState hostile(QVariantMap{{u"Last Selected Colors"_s, "bplist00garbage"_ba}});
        QVERIFY(hostile.lastSelectedColorPositions().empty());

        state.addLastSelectedMedia({}, u"k"_s);
        state.addLastSelectedMedia({"r"_ba}, QString());
        QVERIFY(state.lastSelectedMedia().isEmpty());
        state.addLastSelectedMedia({"r"_ba, "s"_ba}, u"k+Tag"_s);
        const QVariantMap entry = state.lastSelectedMedia().value(u"k+Tag"_s).toMap();
        const auto items = base::readPropertyList(entry.value(u"Last Selected Items"_s).toByteArray());
        QCOMPARE(items.value().toList().size(), 2);
        state.removeLastSelectedMedia(u"none"_s);
        QCOMPARE(state.lastSelectedMedia().size(), 1);
        state.removeLastSelectedMedia(u"k+Tag"_s);
        QVERIFY(state.lastSelectedMedia().isEmpty());
    }

    void systemCollections()
    {
        LibraryState state;
        QVERIFY(state.hasSystemCollection(u"13"_s));
        for (const QString& id : {u"1"_s, u"15"_s}) {
            state.setSystemCollectionSort(id, 0, true);
            state.setSystemCollectionZoom(id, 0.1);
        }
        QVERIFY(!state.hasSystemCollection(u"3"_s) && !state.hasSystemCollection(u"15"_s));
        const auto changed = state.systemCollection(u"1"_s);
        QVERIFY(changed.sortKey == 0 && changed.isAscending == true);
        QCOMPARE(*changed.zoom, static_cast<double>(0.1f));
        const auto fresh = state.systemCollection(u"2"_s);
        QVERIFY(fresh.sortKey == 7 && fresh.isAscending == false && fresh.zoom == 0.4);

        const QVariantMap lacking{{u"LIB_SORT_VALUE"_s, 3}, {u"Future"_s, 1}};
        LibraryState partial({{u"System Collections"_s, QVariantMap{{u"1"_s, lacking}}}});
        partial.setSystemCollectionSort(u"1"_s, 1, true);
        partial.setSystemCollectionZoom(u"1"_s, 0.5);
        QCOMPARE(partial.systemCollections().value(u"1"_s).toMap(), lacking);
        QVERIFY(!partial.systemCollection(u"1"_s).zoom);
    }

    void verifyFindsWhatIsAmiss()
    {
        const auto collection = m_library->addCollection(u"c"_s);
        (void)m_library->addMedia(u"whole"_s, collection, true);
        QVERIFY(verify().isClean());
        const auto noPreview = m_library->addMedia(u"p"_s, collection, true);
        const auto noOriginal = m_library->addMedia(u"o"_s, collection, true);
        const auto referenced = m_library->addMedia(u"r"_s, collection, true);
        QVERIFY(QFile::remove(master(noPreview->mediaThumbPath())));
        QVERIFY(QFile::remove(master(noOriginal->mediaPath())));
        referenced->setMediaPath(QString());
        referenced->setMediaOriginalPath(u"/none/at/all.png"_s);
        QVERIFY(m_library->context().save().ok());
        const QString leftover = master(u"/2020/1/2/LEFT.mritem"_s);
        const QString staged = package().stagingDirPath() + u"/half"_s;
        writeFile(leftover + u"/Preivew/preview.png"_s, "x");
        writeFile(staged + u"/Originals/a"_s, "x");
        for (const QString& other :
             {u"/2020/1/2/notes.txt"_s, u"/Other/1/2/A.mritem/file"_s, u"/2020/1/2/A.folder/file"_s})
            writeFile(master(other), "x"); // None of these is an item's folder.
        const auto report = verify();
        QVERIFY(report.isComplete && !report.isClean());
        QCOMPARE(report.foldersWithoutRecord, (QStringList{leftover, staged}));
        QCOMPARE(report.missingPreviews, QStringList{noPreview->mediaID()});
        QCOMPARE(report.missingOriginals, (QStringList{noOriginal->mediaID(), referenced->mediaID()}));
    }

    void repairRemovesOnlyLeftovers()
    {
        const auto media = m_library->addMedia(u"m"_s, m_library->addCollection(u"c"_s), true);
        const QString alone = master(u"/2020/1/2/A.mritem"_s);
        const QString accompanied = master(u"/2021/5/6/B.mritem"_s);
        for (const QString& file :
             {alone + u"/Originals/x"_s, accompanied + u"/Originals/x"_s, master(u"/2021/5/6/keep.txt"_s),
              package().stagingDirPath() + u"/half/x"_s})
            writeFile(file, "x");
        QVERIFY(QFile::link(master(u"/2021"_s), alone + u"/link"_s));
        QCOMPARE(repairLibrary(verify(), package()).size(), 3);
        QVERIFY(!QFileInfo::exists(master(u"/2020"_s)) && !QFileInfo::exists(accompanied));
        QVERIFY(QFileInfo::exists(master(u"/2021/5/6/keep.txt"_s)));
        QVERIFY(QFileInfo::exists(master(media->mediaPath())) && verify().isClean());
    }

    void repairTrustsNoReport()
    {
        const QString outside = m_library->folder(u"1/2/3/X.mritem"_s);
        VerificationReport report;
        report.foldersWithoutRecord = {outside,
                                       master({}),
                                       m_library->packagePath(),
                                       package().dbPath(),
                                       package().stagingDirPath(),
                                       master(u"/1/2/3/../../../X.mritem"_s),
                                       master(u"/1/2/3/absent.mritem"_s)};
        writeFile(master(u"/X.mritem/file"_s), "x");
        QVERIFY(repairLibrary(report, package()).isEmpty());
        QVERIFY(QFileInfo::exists(outside) && QFileInfo::exists(master(u"/X.mritem/file"_s)));
    }

    void unreadableRecordsCondemnNoFolder()
    {
        (void)m_library->addMedia(u"m"_s, m_library->addCollection(u"c"_s), true);
        {
            SQLite::Database other = otherProgram();
            registerTextFunctions(other);
            other.exec("ALTER TABLE Media RENAME COLUMN mediaThumbPath TO renamed");
        }
        const auto report = verify();
        QVERIFY(!report.isClean() && report.foldersWithoutRecord.isEmpty());
    }

    void damagedIndexCondemnsNoFolder()
    {
        writeFile(master(u"/2020/1/2/A.mritem/Preivew/preview.png"_s), "x");
        {
            // A wrong order of titles stands in for a damaged index: sound pages, that say what is not so.
            SQLite::Database other = otherProgram();
            const auto backwards = [](void*, int, const void* a, int, const void* b) {
                return int(*static_cast<const char*>(b)) - *static_cast<const char*>(a);
            };
            sqlite3_create_collation(other.getHandle(), "FINDER", SQLITE_UTF8, nullptr, backwards);
            other.exec("INSERT INTO Media (mediaID, mediaTitle) VALUES ('a', 'a'), ('b', 'b'), ('c', 'c'), "
                       "('d', 'd')");
        }
        const auto report = verify();
        QVERIFY(!report.isClean() && !report.isComplete);
        QVERIFY(!report.storeDamage.isEmpty() && report.foldersWithoutRecord.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPackage)
#include "tst_package.moc"
