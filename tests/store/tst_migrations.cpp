#include "store/MediaTagList.h"
#include "store/Migrations.h"
#include "store/StoreFile.h"
#include "store/TextFunctions.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro::store;
using namespace mosaro::test;
using namespace Qt::StringLiterals;

class TestMigrations : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(u"Mosaro"_s);
    }

    void tablesHaveTheAttributesOfTheirEntities()
    {
        const auto file = StoreFile::open(m_path);
        QVERIFY(file.ok());
        for (const EntityInfo* entity : allEntities()) {
            QStringList expected{u"id"_s};
            for (const AttributeInfo& attribute : entity->attributes)
                expected.append(attribute.name);
            QStringList columns;
            auto rows = file.value()->statement("SELECT name FROM pragma_table_info('"_ba +
                                                entity->name.data() + "')");
            while (rows->executeStep())
                columns.append(QString::fromStdString(rows->getColumn(0).getString()));
            QCOMPARE(columns, expected);
        }
        QCOMPARE(file.value()->number("PRAGMA user_version"), currentMigrations().back().number);
        QCOMPARE(file.value()->number("PRAGMA foreign_keys"), 1);
        QCOMPARE(file.value()->number("SELECT count(*) FROM pragma_foreign_key_list('ColorList')"), 2);
    }

    void runsOnlyTheMissingSteps()
    {
        const auto file = StoreFile::open(m_path);
        QVERIFY(file.ok());
        QList<int> ran;
        std::vector<Migration> steps = currentMigrations();
        const int next = steps.back().number + 1;
        for (int number = next; number < next + 2; ++number)
            steps.push_back({number, [&ran, number](SQLite::Database&) { ran.append(number); }});
        for (int start = 0; start < 2; ++start)
            QVERIFY(migrate(file.value()->database(), m_path, steps).ok());
        QCOMPARE(ran, (QList<int>{next, next + 1}));
        QCOMPARE(file.value()->number("PRAGMA user_version"), next + 1);
    }

    void oldestLibrariesComeAlong()
    {
        {
            SQLite::Database database(m_path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            registerTextFunctions(database);
            QVERIFY(migrate(database, m_path, std::span(currentMigrations()).first(1)).ok());
            database.exec("INSERT INTO Tags (tagID, title) VALUES ('T', 'red');"
                          "INSERT INTO Media (mediaID, mediaTitle) VALUES ('M', 'one');"
                          "INSERT INTO MediaTagList (mediaID, tagID, media, tags) VALUES ('M', 'T', 1, 1)");
        }
        const auto context = StoreContext::open(m_path);
        QVERIFY2(context.ok(), qPrintable(context.ok() ? QString() : context.reason()));
        const auto media = context.value()->first<Media>(Predicate::all());
        QCOMPARE(media->mediaTagList().front()->tags()->title(), u"red"_s);
        const QByteArray indexes = "SELECT count(*) FROM sqlite_master WHERE type = 'index'";
        const auto created = StoreFile::open(m_folder->filePath(u"new"_s));
        QCOMPARE(StoreFile::open(m_path).value()->number(indexes), created.value()->number(indexes));
    }

    void failedStepLeavesTheFile()
    {
        (void)StoreFile::open(m_path);
        const QByteArray before = fileContents(m_path);
        QVERIFY(!before.isEmpty());
        {
            const auto file = StoreFile::open(m_path);
            QVERIFY(file.ok());
            std::vector<Migration> steps = currentMigrations();
            const char* const sql = "ALTER TABLE Media ADD COLUMN extra TEXT; DELETE FROM StoreInformation;"
                                    "DROP TABLE ColorList; INSERT INTO NoSuchTable VALUES (1)";
            steps.push_back(
                {steps.back().number + 1, [sql](SQLite::Database& database) { database.exec(sql); }});
            const auto migrated = migrate(file.value()->database(), m_path, steps);
            QVERIFY(!migrated.ok() && !migrated.reason().isEmpty());
            QVERIFY(!file.value()->information(u"storeID"_s).isEmpty());
            QCOMPARE(file.value()->number("PRAGMA user_version"), currentMigrations().back().number);
        }
        QCOMPARE(fileContents(m_path), before);
        QVERIFY(StoreContext::open(m_path).ok());
    }

    void newerSchemaIsRefusedUntouched()
    {
        StoreFile::open(m_path).value()->database().exec(
            "PRAGMA user_version = 1000; CREATE TABLE Future (x); PRAGMA journal_mode = DELETE");
        const QByteArray before = fileContents(m_path);
        const auto opened = StoreContext::open(m_path);
        QVERIFY(!opened.ok() && opened.reason().contains(u"newer"_s, Qt::CaseInsensitive));
        QCOMPARE(fileContents(m_path), before);
    }

    void compactsWhenMuchIsFree()
    {
        QString storeID;
        {
            const auto context = StoreContext::open(m_path);
            storeID = context.value()->storeID();
            for (int i = 0; i < 300; ++i) {
                const auto item = context.value()->insert<Media>();
                item->setMediaID(freshID());
                item->setMediaNotes(QString(10000, u'n'));
            }
            QVERIFY(context.value()->save().ok());
            for (RowId row = 2; row <= 300; ++row)
                context.value()->remove(*context.value()->object<Media>(row));
            QVERIFY(context.value()->save().ok());
        }
        const qint64 before = QFileInfo(m_path).size();
        const auto context = StoreContext::open(m_path);
        QVERIFY(QFileInfo(m_path).size() < before / 4);
        QCOMPARE(context.value()->storeID(), storeID);
        QCOMPARE(context.value()->count(Media::info(), Predicate::all()).value(), 1);
    }

    void anotherCollationBuildsItsIndexesAnew()
    {
        const QString key = u"collationVersion"_s;
        QString current;
        {
            const auto file = StoreFile::open(m_path);
            current = file.value()->information(key);
            file.value()->setInformation(key, u"1.0"_s);
        }
        const auto file = StoreFile::open(m_path);
        QVERIFY(!current.isEmpty());
        QCOMPARE(file.value()->information(key), current);
        QCOMPARE(
            file.value()->number("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
            0);
    }
};

QTEST_GUILESS_MAIN(TestMigrations)
#include "tst_migrations.moc"
