#include "base/Text.h"
#include "base/ZNFileManager.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

using namespace mosaro::base;

namespace {

void touch(const QString& path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

class FileManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void freeNamesBeginWithTwo()
    {
        const QString path = m_folder->filePath(QStringLiteral("Photo 100% (1).new"));
        const QString suffix = QStringLiteral("png");
        const QStringList expected{path + QStringLiteral(".png"), path + QStringLiteral(" (2).png"),
                                   path + QStringLiteral(" (3).png")};
        for (const QString& name : expected) {
            QCOMPARE(m_manager.availableFileName(path, suffix), name);
            touch(name);
        }
        // A gap is filled.
        QVERIFY(QFile::remove(expected[1]));
        QCOMPARE(m_manager.availableFileName(path, suffix), expected[1]);
    }

    void folderNames()
    {
        const QString path = m_folder->filePath(QStringLiteral("Export"));
        QCOMPARE(m_manager.availableFolderName(path), path);
        QVERIFY(m_manager.createDirectoryAtPath(path));
        QCOMPARE(m_manager.availableFolderName(path), path + QStringLiteral(" (2)"));
    }

    void aDanglingLinkTakesItsName()
    {
        const QString path = m_folder->filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(QStringLiteral("/no/such/file"), path));
        QCOMPARE(m_manager.availableFolderName(path), path + QStringLiteral(" (2)"));
    }

    void thePlainNameWhenAllAreTaken()
    {
        const QString path = m_folder->filePath(QStringLiteral("a"));
        touch(path + QStringLiteral(".png"));
        for (int number = 2; number <= 9998; ++number)
            touch(path + QStringLiteral(" (%1).png").arg(number));
        QCOMPARE(m_manager.availableFileName(path, QStringLiteral("png")), path + QStringLiteral(".png"));
        QVERIFY(QFile::remove(path + QStringLiteral(" (9998).png")));
        QCOMPARE(m_manager.availableFileName(path, QStringLiteral("png")),
                 path + QStringLiteral(" (9998).png"));
    }

    void sizes_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0LL << QStringLiteral("Zero KB");
        QTest::newRow("unknown") << -1LL << QStringLiteral("Zero KB");
        QTest::newRow("one") << 1LL << QStringLiteral("1 byte");
        QTest::newRow("bytes") << 999LL << QStringLiteral("999 bytes");
        QTest::newRow("first KB") << 1000LL << QStringLiteral("1 KB");
        QTest::newRow("KB without decimals") << 12'499LL << QStringLiteral("12 KB");
        QTest::newRow("last KB") << 999'499LL << QStringLiteral("999 KB");
        QTest::newRow("rounded up to a MB") << 999'500LL << QStringLiteral("1 MB");
        QTest::newRow("MB with one decimal") << 3'440'000LL << QStringLiteral("3.4 MB");
        QTest::newRow("rounded up to a GB") << 999'990'000LL << QStringLiteral("1 GB");
        QTest::newRow("GB with two decimals") << 1'234'567'890LL << QStringLiteral("1.23 GB");
        QTest::newRow("no zeros at the end") << 20'500'000'000LL << QStringLiteral("20.5 GB");
        QTest::newRow("TB") << 4'000'000'000'000LL << QStringLiteral("4 TB");
        QTest::newRow("largest") << std::numeric_limits<qint64>::max() << QStringLiteral("9223.37 PB");
    }
    void sizes()
    {
        QFETCH(const qint64, bytes);
        QTEST(m_manager.fileSizeAsString(bytes), "text");
    }

    void createsFoldersOnce()
    {
        const QString path = m_folder->filePath(QStringLiteral("a/b/c"));
        QVERIFY(m_manager.createDirectoryAtPath(path));
        QVERIFY(QDir(path).exists());
        QVERIFY(!m_manager.createDirectoryAtPath(path));
        QVERIFY(!m_manager.createDirectoryAtPath(QString()));
        touch(m_folder->filePath(QStringLiteral("file")));
        QVERIFY(!m_manager.createDirectoryAtPath(m_folder->filePath(QStringLiteral("file/below"))));
    }

    void removesLinksButNotWhatTheyLeadTo()
    {
        const QString kept = m_folder->filePath(QStringLiteral("kept"));
        QVERIFY(m_manager.createDirectoryAtPath(kept));
        touch(kept + QStringLiteral("/file"));
        const QString removed = m_folder->filePath(QStringLiteral("removed/inner"));
        QVERIFY(m_manager.createDirectoryAtPath(removed));
        QVERIFY(QFile::link(kept, removed + QStringLiteral("/link")));
        const QString link = m_folder->filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(kept, link));

        QVERIFY(m_manager.removeItemAtPath(link));
        QVERIFY(m_manager.removeItemAtPath(m_folder->filePath(QStringLiteral("removed"))));
        QVERIFY(QFile::exists(kept + QStringLiteral("/file")));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
        QVERIFY(!m_manager.removeItemAtPath(m_folder->filePath(QStringLiteral("missing"))));
        QVERIFY(!m_manager.removeItemAtPath(QString()));
    }

private:
    ZNFileManager m_manager;
    std::unique_ptr<QTemporaryDir> m_folder;
};

} // namespace

QTEST_GUILESS_MAIN(FileManagerTest)
#include "tst_filemanager.moc"
