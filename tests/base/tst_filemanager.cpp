#include "base/Text.h"
#include "base/ZNFileManager.h"
#include "support/Files.h"

#include <QtTest>

using namespace mosaro::base;
using mosaro::test::writeFile;
using namespace Qt::StringLiterals;

class FileManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void freeNamesBeginWithTwo()
    {
        const QString path = at(u"Photo 100% (1).new"_s);
        const QString suffix = u"png"_s;
        const QStringList expected{path + u".png"_s, path + u" (2).png"_s, path + u" (3).png"_s};
        for (const QString& name : expected) {
            QCOMPARE(m_manager.availableFileName(path, suffix), name);
            writeFile(name);
        }
        // A gap is filled.
        QVERIFY(QFile::remove(expected[1]));
        QCOMPARE(m_manager.availableFileName(path, suffix), expected[1]);
    }

    void folderNames()
    {
        const QString path = at(u"Export"_s);
        QCOMPARE(m_manager.availableFolderName(path), path);
        QVERIFY(m_manager.createDirectoryAtPath(path));
        QVERIFY(QFile::link(u"/no/such/file"_s, path + u" (2)"_s)); // A dangling link takes its name.
        QCOMPARE(m_manager.availableFolderName(path), path + u" (3)"_s);
    }

    void thePlainNameWhenAllAreTaken()
    {
        const QString path = at(u"a"_s);
        writeFile(path + u".png"_s);
        for (int number = 2; number <= 9998; ++number)
            writeFile(path + u" (%1).png"_s.arg(number));
        QCOMPARE(m_manager.availableFileName(path, u"png"_s), path + u".png"_s);
        QVERIFY(QFile::remove(path + u" (9998).png"_s));
        QCOMPARE(m_manager.availableFileName(path, u"png"_s), path + u" (9998).png"_s);
    }

    void sizes()
    {
        const std::pair<qint64, QString> rows[] = {{0, u"Zero KB"_s},
                                                   {-1, u"Zero KB"_s},
                                                   {1, u"1 byte"_s},
                                                   {999, u"999 bytes"_s},
                                                   {1000, u"1 KB"_s},
                                                   {12'499, u"12 KB"_s},
                                                   {999'499, u"999 KB"_s},
                                                   {999'500, u"1 MB"_s},
                                                   {3'440'000, u"3.4 MB"_s},
                                                   {999'990'000, u"1 GB"_s},
                                                   {1'234'567'890, u"1.23 GB"_s},
                                                   {20'500'000'000, u"20.5 GB"_s},
                                                   {4'000'000'000'000, u"4 TB"_s},
                                                   {INT64_MAX, u"9223.37 PB"_s}};
        for (const auto& [bytes, text] : rows)
            QCOMPARE(m_manager.fileSizeAsString(bytes), text);
    }

    void createsFoldersOnce()
    {
        const QString path = at(u"a/b/c"_s);
        QVERIFY(m_manager.createDirectoryAtPath(path));
        QVERIFY(QDir(path).exists());
        QVERIFY(!m_manager.createDirectoryAtPath(path));
        QVERIFY(!m_manager.createDirectoryAtPath(QString()));
        writeFile(at(u"file"_s));
        QVERIFY(!m_manager.createDirectoryAtPath(at(u"file/below"_s)));
    }

    void removesLinksButNotWhatTheyLeadTo()
    {
        const QString kept = at(u"kept"_s);
        QVERIFY(m_manager.createDirectoryAtPath(kept));
        writeFile(kept + u"/file"_s);
        const QString removed = at(u"removed/inner"_s);
        QVERIFY(m_manager.createDirectoryAtPath(removed));
        QVERIFY(QFile::link(kept, removed + u"/link"_s));
        const QString link = at(u"link"_s);
        QVERIFY(QFile::link(kept, link));

        QVERIFY(m_manager.removeItemAtPath(link) && m_manager.removeItemAtPath(at(u"removed"_s)));
        QVERIFY(QFile::exists(kept + u"/file"_s));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
        QVERIFY(!m_manager.removeItemAtPath(at(u"missing"_s)) && !m_manager.removeItemAtPath(QString()));
    }

private:
    [[nodiscard]] QString at(const QString& name) const { return m_folder->filePath(name); }
    ZNFileManager m_manager;
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(FileManagerTest)
#include "tst_filemanager.moc"
