#include "import/FileCopy.h"

#include "base/Text.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>
#include <cerrno>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

/// A tiny file system of its own; needs the rights of an administrator.
class SmallDisk {
public:
    explicit SmallDisk(const QString& path) : m_path(path.toUtf8())
    {
        m_mounted = ::geteuid() == 0 && ::mount("tmpfs", m_path.constData(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount(m_path.constData());
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)
    [[nodiscard]] bool isMounted() const { return m_mounted; }

private:
    QByteArray m_path;
    bool m_mounted = false;
};

} // namespace

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
        QVERIFY(QDir().mkpath(at("disk")));
        const SmallDisk disk(at("disk"));
        if (!disk.isMounted())
            QSKIP("needs the right to mount a small file system");
        test::writeFile(at("large"), QByteArray(200'000, 'x'));
        const auto copied = copyFile(at("large"), at("disk/copy"));
        QVERIFY(!copied.ok());
        QVERIFY2(copied.reason().contains(systemReason(ENOSPC)), qUtf8Printable(copied.reason()));
        QVERIFY(!QFileInfo::exists(at("disk/copy")));
        QVERIFY(!importing::writeFile(at("disk/bytes"), QByteArray(200'000, 'x')).ok());
        QVERIFY(!QFileInfo::exists(at("disk/bytes")));
        QVERIFY(importing::writeFile(at("disk/bytes"), "small").ok());
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
