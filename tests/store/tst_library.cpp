#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/Text.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <SQLiteCpp/SQLiteCpp.h>
#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace mosaro;
using namespace mosaro::store;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
        files.insert(entry, QFileInfo(entry).isDir() ? "folder"_ba : contents(entry));
    }
    return files;
}

/// A child process that holds a directory's lock until this ends.
class Holder {
public:
    explicit Holder(const QString& path)
    {
        int ready[2];
        if (::pipe(ready) != 0)
            qFatal("pipe");
        m_process = ::fork();
        if (m_process == 0) {
            const int directory = ::open(qPrintable(path), O_RDONLY | O_DIRECTORY);
            const char answer = ::flock(directory, LOCK_EX | LOCK_NB) == 0 ? 'y' : 'n';
            (void)!::write(ready[1], &answer, 1);
            ::pause();
            ::_exit(0);
        }
        char answer = 'n';
        m_holds = ::read(ready[0], &answer, 1) == 1 && answer == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Holder() { kill(); }
    void kill()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
        m_process = 0;
    }
    [[nodiscard]] bool holds() const { return m_holds; }
    [[nodiscard]] pid_t process() const { return m_process; }

private:
    pid_t m_process = 0;
    bool m_holds = false;
};

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
    }

    void newPackageHasExactlyItsEntries()
    {
        const QString path = at(u"New.mrlibrary"_s);
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY2(m_manager->createLibaryAtPath(path), qPrintable(m_manager->lastError()));
        QVERIFY(m_manager->isOpenedDatabase());
        QVERIFY(m_manager->lastError().isEmpty());
        QCOMPARE(m_manager->libraryDirPath(), path);
        QCOMPARE(m_manager->masterDirPath(), path + u"/Masters"_s);
        QVERIFY(m_manager->package().versionRecord().value(u"Copy items to library"_s).toBool());
        QCOMPARE(m_manager->package().versionRecord().value(u"Version"_s).toString(),
                 base::ZNUserDefaults::applicationVersion());
        m_manager->closeDatabase();
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY(m_manager->libraryDirPath().isEmpty() && m_manager->masterDirPath().isEmpty());
        QCOMPARE(entries(path),
                 (QStringList{u"MRLib.data"_s, u"Masters"_s, u"Mosaro"_s, u"Mosaro Library.plist"_s}));
        QVERIFY(contents(path + u"/MRLib.data"_s).startsWith("<?xml"));
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
        QVERIFY(m_manager->openDatabaseAtPath(support + u"/Mosaro.mrlibrary"_s));
        QVERIFY(m_manager->openDatabaseAtPath(support + u"/Mosaro.mrlibrary"_s)); // Again, while open.
        QVERIFY(!m_manager->openDatabaseAtPath(own));
        QVERIFY(!m_manager->openDatabaseAtPath(QString()));
        QVERIFY(!m_manager->lastError().isEmpty());
    }

    void toolsDoNotChangeTheRememberedLibrary()
    {
        const QString first = at(u"First.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(first));
        const QByteArray remembered = m_defaults->data(base::MOSARO_LIBRARY_LOCATION);
        m_manager->setRemembersLibrary(false);
        QVERIFY(m_manager->createLibaryAtPath(at(u"Second.mrlibrary"_s)));
        QCOMPARE(m_defaults->data(base::MOSARO_LIBRARY_LOCATION), remembered);
        m_bookmarks.refused = {first};
        QVERIFY(!m_manager->validateDatabaseAtURL(first));
        QVERIFY(!m_manager->isOpenedDatabase());
    }

    void createRefusesWhatExists()
    {
        const QString path = at(u"A.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        m_manager->closeDatabase();
        QVERIFY(!m_manager->createLibaryAtPath(path));
        QVERIFY(!m_manager->lastError().isEmpty());
        QVERIFY(m_manager->isOpenedDatabase()); // Which the caller closes.
        writeFile(at(u"file"_s), "x");
        QVERIFY(!m_manager->createLibaryAtPath(at(u"file/below.mrlibrary"_s)));
        QVERIFY(!m_manager->createLibaryAtPath(u"/proc/none/L.mrlibrary"_s));
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY(!m_manager->createLibaryAtPath(QString()));
        // A limit on the size of files stands in for a full disk: no half library stays.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &limit), 0);
        const rlimit small{10'000, limit.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
        const QString half = at(u"Half.mrlibrary"_s);
        const bool isCreated = m_manager->createLibaryAtPath(half);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
        QVERIFY(!isCreated && !QFileInfo::exists(half));
    }

    void refusesToOpen_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("inLibrary");
        const auto row = [](const char* name, const char* file, QByteArray bytes, bool inLibrary = true) {
            QTest::newRow(name) << QString::fromLatin1(file) << std::move(bytes) << inLibrary;
        };
        row("a store of another program", "Mosaro", "SQLite format");
        row("a text as store", "Mosaro", QByteArray(4096, 'x'));
        row("a truncated store", "Mosaro", "truncate");
        row("a store with broken pages", "Mosaro", "break");
        row("a store with one broken page, the last", "Mosaro", "break the end");
        row("a newer store", "Mosaro", "newer");
        row("an emptied store, items there", "Mosaro", "");
        row("no store, items there", "Mosaro", "remove");
        row("an unreadable state record", "Mosaro Library.plist", "<plist><dict><key>");
        row("an empty state record", "Mosaro Library.plist", "<plist version=\"1.0\"><dict/></plist>");
        row("a state record that is a list", "Mosaro Library.plist",
            "<plist version=\"1.0\"><array/></plist>");
        row("a folder of pictures", "holiday.jpg", "jpeg", false);
        row("a file as Masters", "Masters", "file");
    }
    void refusesToOpen()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, inLibrary);
        const QString path = at(u"L.mrlibrary"_s);
        const QString target = path + u'/' + file;
        if (inLibrary) {
            QVERIFY(m_manager->createLibaryAtPath(path));
            auto collection = m_manager->context()->insert<Collections>();
            collection->setTitle(u"kept"_s);
            QVERIFY(m_manager->saveChanges());
            m_manager->closeDatabase();
            writeFile(path + u"/Masters/2024/1/2/X.mritem/Preivew/preview.png"_s, "png");
            m_defaults->remove(base::MOSARO_LIBRARY_LOCATION);
        }
        const bool isFoundLast = bytes == "break the end";
        QByteArray now = contents(target);
        if (file == "Masters"_L1) {
            QVERIFY(QDir(target).removeRecursively());
        } else if (bytes == "SQLite format") {
            QVERIFY(QFile::remove(target));
            SQLite::Database other(target.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            other.exec("CREATE TABLE history (id)");
        } else if (bytes == "newer") {
            SQLite::Database store(target.toStdString(), SQLite::OPEN_READWRITE);
            store.exec("PRAGMA user_version = 99");
        }
        if (bytes == "truncate")
            bytes = now.left(now.size() / 3);
        else if (bytes == "break")
            bytes = now.left(100) + QByteArray(now.size() - 100, '\x7f');
        else if (bytes == "break the end")
            bytes = now.left(now.size() - 4096) + QByteArray(4096, '\x7f');
        if (bytes == "remove")
            QVERIFY(QFile::remove(target));
        else if (bytes != "newer" && bytes != "SQLite format")
            writeFile(target, bytes);

        const auto before = snapshot(path);
        QVERIFY(!m_manager->validateDatabaseAtURL(path));
        QVERIFY(!m_manager->isOpenedDatabase());
        QVERIFY(m_manager->context() == nullptr);
        QVERIFY2(m_manager->lastError().contains(u' '), qPrintable(m_manager->lastError()));
        m_manager->closeDatabase();
        QCOMPARE(snapshot(path), before);
        // Only what is found out at the very end comes after the library has become the remembered one.
        QCOMPARE(m_defaults->data(base::MOSARO_LIBRARY_LOCATION).isEmpty(), !isFoundLast);
    }

    void missingStateRecordIsMadeAnew()
    {
        const QString path = at(u"L.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        m_manager->closeDatabase();
        QVERIFY(QFile::remove(path + u"/Mosaro Library.plist"_s));
        QVERIFY(QDir(path + u"/Masters"_s).removeRecursively());
        QVERIFY(m_manager->validateDatabaseAtURL(path));
        QCOMPARE(m_manager->state().exportPresets().size(), 7);
        QVERIFY(QFileInfo(m_manager->masterDirPath()).isDir());
    }

    void unknownStateKeysSurvive()
    {
        const QString path = at(u"L.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        m_manager->closeDatabase();
        // As a keyed archive of a record looks when it is read as a plain list: none of the known keys.
        const QVariantMap strange{{u"$archiver"_s, u"NSKeyedArchiver"_s},
                                  {u"$version"_s, 100000},
                                  {u"$objects"_s, QVariantList{u"$null"_s}},
                                  {u"$top"_s, QVariantMap{{u"root"_s, QVariantMap{{u"CF$UID"_s, 1}}}}}};
        const QString record = path + u"/Mosaro Library.plist"_s;
        QVERIFY(base::writePropertyListFile(record, strange, base::PropertyListFormat::Binary).ok());
        QVERIFY(m_manager->validateDatabaseAtURL(path));
        QCOMPARE(m_manager->state().systemCollections(), LibraryState::defaultSystemCollections());
        m_manager->state().addExpandedCollection(u"e"_s);
        m_manager->closeDatabase();
        const QVariantMap written = base::readPropertyListFile(record).value().toMap();
        for (auto entry = strange.begin(); entry != strange.end(); ++entry)
            QVERIFY2(written.contains(entry.key()), qPrintable(entry.key()));
        QCOMPARE(written.value(u"$objects"_s).toList().size(), 1);
        QVERIFY(contents(record).startsWith("bplist00"));
        QVERIFY(m_manager->validateDatabaseAtURL(path));
        QCOMPARE(m_manager->state().expandedCollections(), QStringList{u"e"_s});
    }

    void stateIsWrittenAtCloseOnly()
    {
        const QString path = at(u"L.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        const QString record = path + u"/Mosaro Library.plist"_s;
        const QByteArray before = contents(record);
        m_manager->state().addLastSelectedTag(u"t"_s);
        QVERIFY(m_manager->saveChanges());
        QCOMPARE(contents(record), before);
        m_manager->closeDatabase();
        QVERIFY(contents(record) != before);
    }

    void heldByAnotherProcess()
    {
        const QString path = at(u"L.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        {
            ZNDBManager other;
            other.setUp(*m_defaults, m_bookmarks, at(u"support"_s));
            QVERIFY(!other.validateDatabaseAtURL(path));
            QVERIFY(other.lastError().contains(QString::number(::getpid())));
            QVERIFY(m_manager->isOpenedDatabase());
        }
        m_manager->closeDatabase();
        const auto before = snapshot(path);
        Holder holder(path);
        QVERIFY(holder.holds());
        QVERIFY(!m_manager->validateDatabaseAtURL(path));
        const QString reason = m_manager->lastError();
        QVERIFY2(reason.contains(QString::number(holder.process())) && reason.contains(u"tst_library"_s),
                 qPrintable(reason));
        QCOMPARE(snapshot(path), before);
        m_prompts.saveAnswers = {path};
        QVERIFY(!m_manager->createDatabase()); // Not deleted while another has it open.
        QCOMPARE(snapshot(path), before);
        holder.kill();
        QVERIFY2(m_manager->validateDatabaseAtURL(path), qPrintable(m_manager->lastError()));
    }

    void killedProcessLosesNothingSaved()
    {
        const QString path = at(u"L.mrlibrary"_s);
        QVERIFY(m_manager->createLibaryAtPath(path));
        m_manager->closeDatabase();
        const pid_t child = ::fork();
        if (child == 0) {
            ZNDBManager manager;
            manager.setUp(*m_defaults, m_bookmarks, at(u"support"_s));
            if (manager.validateDatabaseAtURL(path)) {
                auto saved = manager.context()->insert<Tags>();
                saved->setTitle(u"saved"_s);
                if (manager.saveChanges()) {
                    manager.context()->insert<Tags>()->setTitle(u"pending"_s);
                    ::kill(::getpid(), SIGKILL);
                }
            }
            ::_exit(1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status));
        QVERIFY(m_manager->validateDatabaseAtURL(path));
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
        QVERIFY(!m_manager->createDatabase());
        QVERIFY(!m_manager->isOpenedDatabase());
        QCOMPARE(m_prompts.alerts.size(), 1);
        QVERIFY(m_prompts.alerts.first().messageText.contains(u"L.mrlibrary"_s));
        QVERIFY(!m_manager->lastError().isEmpty());
        m_manager->setPrompts(nullptr);
        QVERIFY(!m_manager->chooseDatabase() && !m_manager->createDatabase());
    }

    void createReplacesOnlyWhatWasConfirmed()
    {
        const QString path = at(u"Old.mrlibrary"_s);
        writeFile(path + u"/anything"_s, "old");
        m_prompts.saveAnswers = {at(u"Old"_s)}; // The panel asked about a name without the suffix.
        QVERIFY(!m_manager->createDatabase());
        QCOMPARE(contents(path + u"/anything"_s), "old"_ba);
        m_prompts.saveAnswers = {path};
        QVERIFY(m_manager->createDatabase());
        QVERIFY(!QFileInfo::exists(path + u"/anything"_s));
    }

    void scratchFolders()
    {
        const QString downloads = m_manager->downloadDirectory();
        QCOMPARE(downloads, at(u"support/Mosaro/Downloads"_s));
        writeFile(downloads + u"/a/b"_s, "x");
        m_manager->clearDownloadDirectory();
        QVERIFY(QFileInfo(downloads).isDir());
        QVERIFY(entries(downloads).isEmpty());
        const QString day = at(u"keep/2024/3/9"_s);
        QVERIFY(QDir().mkpath(day));
        QVERIFY(QDir().mkpath(at(u"keep/2024/4"_s)));
        ZNDBManager::unusedFolderInPath(day);
        QCOMPARE(entries(at(u"keep/2024"_s)), QStringList{u"4"_s});
        const QString other = at(u"keep/2025/1/1"_s);
        writeFile(other + u"/.hidden"_s, "x");
        ZNDBManager::unusedFolderInPath(other + u'/');
        QVERIFY(QFileInfo::exists(other));
        QVERIFY(QFile::remove(other + u"/.hidden"_s));
        ZNDBManager::unusedFolderInPath(other);
        QCOMPARE(entries(at(u"keep"_s)), QStringList{u"2024"_s});
        ZNDBManager::unusedFolderInPath(at(u"keep/none/none/none"_s));
        QVERIFY(QFileInfo::exists(at(u"keep"_s)));
    }

    void saveChangesTellsTheReason()
    {
        QVERIFY(!m_manager->saveChanges());
        QVERIFY(m_manager->createLibaryAtPath(at(u"L.mrlibrary"_s)));
        QVERIFY(m_manager->saveChanges());
        SQLite::Database other(m_manager->package().dbPath().toStdString(), SQLite::OPEN_READWRITE, 3000);
        other.exec("CREATE TRIGGER refuse BEFORE INSERT ON Tags BEGIN SELECT RAISE(ABORT, 'no'); END");
        (void)m_manager->context()->insert<Tags>();
        QVERIFY(!m_manager->saveChanges());
        QVERIFY(!m_manager->lastError().isEmpty());
    }

private:
    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<base::ZNUserDefaults> m_defaults;
    FakeBookmarks m_bookmarks;
    FakePrompts m_prompts;
    std::unique_ptr<ZNDBManager> m_manager;
    [[nodiscard]] QString at(const QString& name) const { return m_root->path() + u'/' + name; }
};

QTEST_GUILESS_MAIN(TestLibrary)
#include "tst_library.moc"
