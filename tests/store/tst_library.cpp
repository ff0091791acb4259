#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/Text.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace mosaro;
using namespace mosaro::store;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

namespace {

QStringList entries(const QString& path)
{
    return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                QDir::Name);
}

/// Everything below a folder with its bytes.
QMap<QString, QByteArray> snapshot(const QString& path)
{
    QMap<QString, QByteArray> files;
    QDirIterator walk(path, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString entry = walk.next();
        files.insert(entry, QFileInfo(entry).isDir() ? "folder"_ba : fileContents(entry));
    }
    return files;
}

using Damage = std::function<void(const QString&)>;
constexpr auto kBrokenAtTheEnd = "a store with one broken page, the last";

} // namespace

class TestLibrary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void init()
    {
        m_manager.reset();
        m_defaults.reset();
        m_root = std::make_unique<QTemporaryDir>();
        m_bookmarks = {};
        m_prompts = {};
        m_defaults = std::make_unique<base::ZNUserDefaults>(at(u"preferences.ini"_s));
        m_manager = std::make_unique<ZNDBManager>();
        m_manager->setUp(*m_defaults, m_bookmarks, at(u"support"_s));
        m_manager->setPrompts(&m_prompts);
        m_path = at(u"L.mrlibrary"_s);
    }

    void newPackageHasExactlyItsEntries()
    {
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY2(m_manager->createLibaryAtPath(m_path), qPrintable(m_manager->lastError()));
        QVERIFY(m_manager->isOpenedDatabase() && m_manager->lastError().isEmpty());
        QCOMPARE(m_manager->libraryDirPath(), m_path);
        QCOMPARE(m_manager->masterDirPath(), m_path + u"/Masters"_s);
        QCOMPARE(m_manager->package().versionRecord(),
                 (QVariantMap{{u"Copy items to library"_s, true},
                              {u"Version"_s, base::ZNUserDefaults::applicationVersion()}}));
        m_manager->closeDatabase();
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY(m_manager->libraryDirPath().isEmpty() && m_manager->masterDirPath().isEmpty());
        QCOMPARE(entries(m_path),
                 (QStringList{u"MRLib.data"_s, u"Masters"_s, u"Mosaro"_s, u"Mosaro Library.plist"_s}));
        QVERIFY(fileContents(m_path + u"/MRLib.data"_s).startsWith("<?xml"));
    }

    void opensTheRememberedLibraryOrADefaultOne()
    {
        const QString support = at(u"support/Mosaro"_s);
        QVERIFY(m_manager->openDatabase());
        QCOMPARE(m_manager->libraryDirPath(), support + u"/Mosaro.mrlibrary"_s);
        const QString own = at(u"Own.mrlibrary"_s);
        m_manager->closeDatabase();
        QVERIFY(m_manager->createLibaryAtPath(own));
        QVERIFY(m_manager->openDatabase());
        QCOMPARE(m_manager->libraryDirPath(), own);
        m_manager->closeDatabase();
        QVERIFY(QDir(own).removeRecursively());
        // Gone, and the default name is taken: the next free one, which is then the remembered one.
        for (int start = 0; start < 2; ++start) {
            QVERIFY(m_manager->openDatabase());
            QCOMPARE(m_manager->libraryDirPath(), support + u"/Mosaro (2).mrlibrary"_s);
        }
        for (int time = 0; time < 2; ++time) // Again, while open.
            QVERIFY(m_manager->openDatabaseAtPath(support + u"/Mosaro.mrlibrary"_s));
        QVERIFY(!m_manager->openDatabaseAtPath(own) && !m_manager->openDatabaseAtPath(QString()));
        QVERIFY(!m_manager->lastError().isEmpty());
    }

    void toolsDoNotChangeTheRememberedLibrary()
    {
        QVERIFY(m_manager->createLibaryAtPath(m_path));
        const QByteArray remembered = m_defaults->data(base::MOSARO_LIBRARY_LOCATION);
        m_manager->setRemembersLibrary(false);
        QVERIFY(m_manager->createLibaryAtPath(at(u"Second.mrlibrary"_s)));
        QCOMPARE(m_defaults->data(base::MOSARO_LIBRARY_LOCATION), remembered);
        m_bookmarks.refused = {m_path};
        QVERIFY(!m_manager->validateDatabaseAtURL(m_path));
        QVERIFY(!m_manager->isOpenedDatabase());
    }

    void createRefusesWhatExists()
    {
        QVERIFY(makeLibrary());
        QVERIFY(!m_manager->createLibaryAtPath(m_path));
        QVERIFY(!m_manager->lastError().isEmpty());
        QVERIFY(m_manager->isOpenedDatabase()); // Which the caller closes.
        writeFile(at(u"file"_s), "x");
        QVERIFY(!m_manager->createLibaryAtPath(at(u"file/below.mrlibrary"_s)));
        QVERIFY(!m_manager->createLibaryAtPath(u"/proc/none/L.mrlibrary"_s));
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY(!m_manager->createLibaryAtPath(QString()));
        const QString half = at(u"Half.mrlibrary"_s);
        {
            const FullDisk disk(10'000);
            QVERIFY(!m_manager->createLibaryAtPath(half));
        }
        QVERIFY(!QFileInfo::exists(half)); // No half library stays.
    }

    void refusesToOpen_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<Damage>("damage");
        const auto row = [](const char* name, const char* file, const Damage& damage) {
            QTest::newRow(name) << QString::fromLatin1(file) << damage;
        };
        const auto bytes = [](const QByteArray& written) {
            return [written](const QString& file) { writeFile(file, written); };
        };
        const auto sql = [](const char* statement) {
            return [statement](const QString& file) {
                SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
                    .exec(statement);
            };
        };
        /// Keeps so much of the store, and fills it up with rubbish or not at all.
        const auto keep = [](auto kept, bool fills) {
            return [kept, fills](const QString& file) {
                const QByteArray now = fileContents(file);
                const qsizetype size = kept(now.size());
                writeFile(file, now.left(size) + QByteArray(fills ? now.size() - size : 0, '\x7f'));
            };
        };
        row("a store of another program", "Mosaro", [sql](const QString& file) {
            QVERIFY(QFile::remove(file));
            sql("CREATE TABLE history (id)")(file);
        });
        row("a text as store", "Mosaro", bytes(QByteArray(4096, 'x')));
        row("a truncated store", "Mosaro", keep([](auto size) { return size / 3; }, false));
        row("a store with broken pages", "Mosaro", keep([](auto) { return 100; }, true));
        row(kBrokenAtTheEnd, "Mosaro", keep([](auto size) { return size - 4096; }, true));
        row("a newer store", "Mosaro", sql("PRAGMA user_version = 99"));
        row("an emptied store, items there", "Mosaro", bytes({}));
        row("no store, items there", "Mosaro", [](const QString& file) { QVERIFY(QFile::remove(file)); });
        const char* const record = "Mosaro Library.plist";
        row("an unreadable state record", record, bytes("<plist><dict><key>"));
        row("an empty state record", record, bytes("<plist version=\"1.0\"><dict/></plist>"));
        row("a state record that is a list", record, bytes("<plist version=\"1.0\"><array/></plist>"));
        row("a folder of pictures", "holiday.jpg", [this](const QString& file) {
            QVERIFY(QDir(m_path).removeRecursively());
            writeFile(file, "jpeg");
        });
        row("a file as Masters", "Masters", [](const QString& file) {
            QVERIFY(QDir(file).removeRecursively());
            writeFile(file, "file");
        });
    }
    void refusesToOpen()
    {
        QFETCH(QString, file);
        QFETCH(Damage, damage);
        QVERIFY(m_manager->createLibaryAtPath(m_path));
        m_manager->context()->insert<Collections>()->setTitle(u"kept"_s);
        QVERIFY(m_manager->saveChanges());
        m_manager->closeDatabase();
        writeFile(m_path + u"/Masters/2024/1/2/X.mritem/Preivew/preview.png"_s, "png");
        m_defaults->remove(base::MOSARO_LIBRARY_LOCATION);
        damage(m_path + u'/' + file);

        const auto before = snapshot(m_path);
        QVERIFY(!m_manager->validateDatabaseAtURL(m_path));
        QVERIFY(!m_manager->isOpenedDatabase() && m_manager->context() == nullptr);
        QVERIFY2(m_manager->lastError().contains(u' '), qPrintable(m_manager->lastError()));
        m_manager->closeDatabase();
        QCOMPARE(snapshot(m_path), before);
        // Only what is found out at the very end comes after the library has become the remembered one.
        QCOMPARE(m_defaults->data(base::MOSARO_LIBRARY_LOCATION).isEmpty(),
                 qstrcmp(QTest::currentDataTag(), kBrokenAtTheEnd) != 0);
    }

    void missingStateRecordIsMadeAnew()
    {
        QVERIFY(makeLibrary());
        QVERIFY(QFile::remove(m_path + u"/Mosaro Library.plist"_s));
        QVERIFY(QDir(m_path + u"/Masters"_s).removeRecursively());
        QVERIFY(m_manager->validateDatabaseAtURL(m_path));
        QCOMPARE(m_manager->state().exportPresets().size(), 7);
        QVERIFY(QFileInfo(m_manager->masterDirPath()).isDir());
    }

    void unknownStateKeysSurvive()
    {
        QVERIFY(makeLibrary());
        // As a keyed archive of a record looks when it is read as a plain list: none of the known keys.
        const QVariantMap strange{{u"$archiver"_s, u"NSKeyedArchiver"_s},
                                  {u"$version"_s, 100000},
                                  {u"$objects"_s, QVariantList{u"$null"_s}},
                                  {u"$top"_s, QVariantMap{{u"root"_s, QVariantMap{{u"CF$UID"_s, 1}}}}}};
        const QString record = m_path + u"/Mosaro Library.plist"_s;
        QVERIFY(base::writePropertyListFile(record, strange, base::PropertyListFormat::Binary).ok());
        QVERIFY(m_manager->validateDatabaseAtURL(m_path));
        QCOMPARE(m_manager->state().systemCollections(), LibraryState::defaultSystemCollections());
        const QByteArray before = fileContents(record);
        m_manager->state().addExpandedCollection(u"e"_s);
        QVERIFY(m_manager->saveChanges());
        QCOMPARE(fileContents(record), before); // Written at the close only.
        m_manager->closeDatabase();
        QVERIFY(fileContents(record).startsWith("bplist00"));
        const QVariantMap written = base::readPropertyListFile(record).value().toMap();
        for (auto entry = strange.begin(); entry != strange.end(); ++entry)
            QCOMPARE(written.value(entry.key()), entry.value());
        QVERIFY(m_manager->validateDatabaseAtURL(m_path));
        QCOMPARE(m_manager->state().expandedCollections(), QStringList{u"e"_s});
    }

    void heldByAnotherProcess()
    {
        QVERIFY(m_manager->createLibaryAtPath(m_path));
        {
            ZNDBManager other;
            other.setUp(*m_defaults, m_bookmarks, at(u"support"_s));
            QVERIFY(!other.validateDatabaseAtURL(m_path));
            QVERIFY(other.lastError().contains(QString::number(::getpid())));
            QVERIFY(m_manager->isOpenedDatabase());
        }
        m_manager->closeDatabase();
        const auto before = snapshot(m_path);
        QProcess holder;
        holder.start(u"flock"_s, {u"--no-fork"_s, m_path, u"sh"_s, u"-c"_s, u"echo; read line"_s});
        QVERIFY(holder.waitForReadyRead());
        QVERIFY(!m_manager->validateDatabaseAtURL(m_path));
        const QString reason = m_manager->lastError();
        QVERIFY2(reason.contains(QString::number(holder.processId())) && reason.contains(u"“sh”"_s),
                 qPrintable(reason));
        QCOMPARE(snapshot(m_path), before);
        m_prompts.saveAnswers = {m_path};
        QVERIFY(!m_manager->createDatabase()); // Not deleted while another has it open.
        QCOMPARE(snapshot(m_path), before);
        holder.kill();
        QVERIFY(holder.waitForFinished());
        QVERIFY2(m_manager->validateDatabaseAtURL(m_path), qPrintable(m_manager->lastError()));
    }

    void killedProcessLosesNothingSaved()
    {
        QVERIFY(makeLibrary());
        const pid_t child = ::fork();
        if (child == 0) {
            if (!m_manager->validateDatabaseAtURL(m_path))
                ::_exit(1);
            m_manager->context()->insert<Tags>()->setTitle(u"saved"_s);
            if (!m_manager->saveChanges())
                ::_exit(1);
            m_manager->context()->insert<Tags>()->setTitle(u"pending"_s);
            ::kill(::getpid(), SIGKILL);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status));
        QVERIFY(m_manager->validateDatabaseAtURL(m_path));
        const auto tags = m_manager->context()->fetch<Tags>({});
        QCOMPARE(tags.value().size(), size_t(1));
        QCOMPARE(tags.value().front()->title(), u"saved"_s);
    }

    void panels()
    {
        QVERIFY(!m_manager->chooseDatabase()); // Cancelled.
        QVERIFY(!m_manager->createDatabase());
        QVERIFY(m_prompts.alerts.isEmpty());
        const QString path = at(u"sub/Chosen.mrlibrary"_s);
        m_prompts.saveAnswers = {path};
        QVERIFY2(m_manager->createDatabase(), qPrintable(m_manager->lastError()));
        QCOMPARE(m_prompts.savePanels.last().name, u"Mosaro.mrlibrary"_s);
        QCOMPARE(m_defaults->string(base::PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY), at(u"sub"_s));
        m_prompts.openAnswers = {QStringList{path}};
        QVERIFY(m_manager->chooseDatabase()); // The open one again.
        QCOMPARE(m_prompts.openPanels.last().suffixes, QStringList{u"mrlibrary"_s});
        QCOMPARE(m_prompts.openPanels.last().directory, at(u"sub"_s));
        QCOMPARE(m_manager->libraryDirPath(), path);
        m_prompts.saveAnswers = {u"/proc/none/L.mrlibrary"_s};
        QVERIFY(!m_manager->createDatabase() && !m_manager->isOpenedDatabase());
        QCOMPARE(m_prompts.alerts.size(), 1);
        QVERIFY(m_prompts.alerts.first().messageText.contains(u"L.mrlibrary"_s));
        QVERIFY(!m_manager->lastError().isEmpty());
        m_manager->setPrompts(nullptr);
        QVERIFY(!m_manager->chooseDatabase() && !m_manager->createDatabase());
    }

    void createReplacesOnlyWhatWasConfirmed()
    {
        const QString old = m_path + u"/anything"_s;
        writeFile(old, "old");
        m_prompts.saveAnswers = {at(u"L"_s)}; // The panel asked about a name without the suffix.
        QVERIFY(!m_manager->createDatabase());
        QCOMPARE(fileContents(old), "old"_ba);
        m_prompts.saveAnswers = {m_path};
        QVERIFY(m_manager->createDatabase());
        QVERIFY(!QFileInfo::exists(old));
    }

    void scratchFolders()
    {
        const QString downloads = m_manager->downloadDirectory();
        QCOMPARE(downloads, at(u"support/Mosaro/Downloads"_s));
        writeFile(downloads + u"/a/b"_s, "x");
        m_manager->clearDownloadDirectory();
        QVERIFY(QFileInfo(downloads).isDir() && entries(downloads).isEmpty());
        writeFile(at(u"own/picture"_s), "x");
        QVERIFY(QDir().rmdir(downloads) && QFile::link(at(u"own"_s), downloads));
        m_manager->clearDownloadDirectory();
        QVERIFY(!QFileInfo(downloads).isSymLink() && QFileInfo::exists(at(u"own/picture"_s)));
        const QString day = at(u"keep/2024/3/9"_s);
        writeFile(day + u"/.hidden"_s, "x");
        QVERIFY(QDir().mkpath(at(u"keep/2024/4"_s)));
        ZNDBManager::unusedFolderInPath(day + u'/');
        QVERIFY(QFileInfo::exists(day));
        QVERIFY(QFile::remove(day + u"/.hidden"_s));
        ZNDBManager::unusedFolderInPath(day);
        QCOMPARE(entries(at(u"keep/2024"_s)), QStringList{u"4"_s});
        QVERIFY(QDir().mkpath(at(u"keep/2025/1/1"_s)));
        ZNDBManager::unusedFolderInPath(at(u"keep/2025/1/1"_s));
        QCOMPARE(entries(at(u"keep"_s)), QStringList{u"2024"_s}); // Up to three levels.
        ZNDBManager::unusedFolderInPath(at(u"keep/none/none/none"_s));
        QVERIFY(QFileInfo::exists(at(u"keep"_s)));
    }

    void saveChangesTellsTheReason()
    {
        QVERIFY(!m_manager->saveChanges());
        QVERIFY(m_manager->createLibaryAtPath(m_path));
        QVERIFY(m_manager->saveChanges());
        SQLite::Database other(m_manager->package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000);
        other.exec("CREATE TRIGGER refuse BEFORE INSERT ON Tags BEGIN SELECT RAISE(ABORT, 'no'); END");
        (void)m_manager->context()->insert<Tags>();
        QVERIFY(!m_manager->saveChanges());
        QVERIFY(!m_manager->lastError().isEmpty());
    }

private:
    /// A new library at the usual place, closed again.
    bool makeLibrary()
    {
        const bool isMade = m_manager->createLibaryAtPath(m_path);
        m_manager->closeDatabase();
        return isMade;
    }
    std::unique_ptr<QTemporaryDir> m_root;
    QString m_path;
    std::unique_ptr<base::ZNUserDefaults> m_defaults;
    FakeBookmarks m_bookmarks;
    FakePrompts m_prompts;
    std::unique_ptr<ZNDBManager> m_manager;
    [[nodiscard]] QString at(const QString& name) const { return m_root->path() + u'/' + name; }
};

QTEST_GUILESS_MAIN(TestLibrary)
#include "tst_library.moc"
