#include "import/FileCopy.h"

#include "base/Text.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <cerrno>
#include <sys/stat.h>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

class FileCopyTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString at(const char* name) const { return m_dir.path() + u'/' + QString::fromUtf8(name); }

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void copiesBytesAndTime()
    {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(1'500'000'000'123);
        for (const qsizetype size : {0, 3, 3'000'001}) { // The last is larger than any buffer.
            test::writeFile(at("source"), QByteArray(size, 'z'));
            QFile source(at("source"));
            QVERIFY(source.open(QIODevice::ReadWrite));
            QVERIFY(source.setFileTime(time, QFileDevice::FileModificationTime));
            source.close();
            QFile::remove(at("copy"));
            QVERIFY(copyFile(at("source"), at("copy")).ok());
            QVERIFY(QFileInfo::exists(at("copy")));
            QCOMPARE(test::fileContents(at("copy")), QByteArray(size, 'z'));
            QCOMPARE(QFileInfo(at("copy")).lastModified(), time);
        }
    }

    void copiesByHandWhatTheKernelDoesNot()
    {
        QVERIFY(copyFile(u"/proc/version"_s, at("version")).ok());
        QCOMPARE(test::fileContents(at("version")), test::fileContents(u"/proc/version"_s));
        const test::FullDisk disk(10);
        QVERIFY(!copyFile(u"/proc/version"_s, at("cut")).ok() && !QFileInfo::exists(at("cut")));
    }

    void makesReadOnlyFilesRemovable()
    {
        test::writeFile(at("readonly"), "x");
        QVERIFY(::chmod(at("readonly").toUtf8().constData(), 0444) == 0);
        QVERIFY(copyFile(at("readonly"), at("writable")).ok());
        QVERIFY(QFileInfo(at("writable")).permission(QFile::WriteOwner));
    }

    void refuses()
    {
        test::writeFile(at("here"), "here");
        test::writeFile(at("taken"), "taken");
        QVERIFY(::mkfifo(at("pipe").toUtf8().constData(), 0600) == 0); // Its writer is not waited for.
        const std::pair<const char*, const char*> rows[] = {
            {"nowhere", "new"}, {"", "new"}, {"pipe", "new"}, {"here", "nofolder/new"}, {"here", "taken"}};
        for (const auto& [source, destination] : rows) {
            const auto copied = copyFile(at(source), at(destination));
            QVERIFY2(!copied.ok(), source);
            QVERIFY(!copied.reason().isEmpty());
            QVERIFY(!QFileInfo::exists(at("new")));
            QCOMPARE(test::fileContents(at("taken")), QByteArray("taken"));
        }
    }

    void leavesNothingOnAFullDisk()
    {
        const QByteArray large(200'000, 'x');
        test::writeFile(at("large"), large);
        const test::FullDisk disk(64'000);
        const auto copied = copyFile(at("large"), at("copy2"));
        QVERIFY(!copied.ok());
        QVERIFY2(copied.reason().contains(systemReason(EFBIG)), qUtf8Printable(copied.reason()));
        QVERIFY(!importing::writeFile(at("bytes"), large).ok());
        QVERIFY(!QFileInfo::exists(at("copy2")) && !QFileInfo::exists(at("bytes")));
        QVERIFY(importing::writeFile(at("bytes"), "small").ok());
        QCOMPARE(systemReason(ENOSPC), base::text("Failure.Disk.Full"));
    }

    void namesStoredFiles()
    {
        const QString longStem(250, u'ä'); // Two bytes each; a side file must find room beside it.
        const QString start(90, u'a');     // A character is never halved.
        for (const auto& [name, stored] : {std::pair(u"a b.png"_s, u"a b.png"_s),
                                           {u".png"_s, u".png"_s},
                                           {QString(), u"file"_s},
                                           {u".."_s, u"file"_s},
                                           {u"../a.png"_s, u"file"_s},
                                           {longStem + u".png"_s, longStem.left(117) + u".png"_s},
                                           {start + u"😀"_s.repeated(60), start + u"😀"_s.repeated(37)}})
            QCOMPARE(storedFileName(name), stored);
    }
};

QTEST_GUILESS_MAIN(FileCopyTest)
#include "tst_filecopy.moc"
