#include "import/FileCopy.h"

#include "base/Text.h"
#include "support/TemporaryLibrary.h"

#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not readable)");
}

/// A tiny file system of its own; needs the rights of an administrator.
class SmallDisk {
public:
    explicit SmallDisk(const QString& path) : m_path(path.toUtf8())
    {
        m_mounted = ::geteuid() == 0 && ::mount("tmpfs", m_path.constData(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDisk()
    {
        if (m_mounted) {
            ::umount(m_path.constData());
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
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

    void copiesBytesAndTime_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("small") << QByteArray("abc");
        QTest::newRow("larger than any buffer") << QByteArray(3'000'001, 'z');
    }
    void copiesBytesAndTime()
    {
        QFETCH(QByteArray, bytes);
        test::writeFile(at("source"), bytes);
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(1'500'000'000'123);
        QFile source(at("source"));
        QVERIFY(source.open(QIODevice::ReadWrite));
        QVERIFY(source.setFileTime(time, QFileDevice::FileModificationTime));
        source.close();
        QFile::remove(at("copy"));
        QVERIFY(copyFile(at("source"), at("copy")).ok());
        QCOMPARE(contents(at("copy")), bytes);
        QCOMPARE(QFileInfo(at("copy")).lastModified(), time);
    }

    void makesReadOnlyFilesRemovable()
    {
        test::writeFile(at("readonly"), "x");
        QVERIFY(::chmod(at("readonly").toUtf8().constData(), 0444) == 0);
        QVERIFY(copyFile(at("readonly"), at("writable")).ok());
        QVERIFY(QFileInfo(at("writable")).permission(QFile::WriteOwner));
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        test::writeFile(at("here"), "here");
        test::writeFile(at("taken"), "taken");
        QVERIFY(::mkfifo(at("pipe").toUtf8().constData(), 0600) == 0);
        QTest::newRow("no source") << at("nowhere") << at("new");
        QTest::newRow("a folder") << m_dir.path() << at("new");
        QTest::newRow("a pipe, without waiting for its writer") << at("pipe") << at("new");
        QTest::newRow("no folder for it") << at("here") << at("nofolder/new");
        QTest::newRow("a name that is taken") << at("here") << at("taken");
    }
    void refuses()
    {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        const auto copied = copyFile(source, destination);
        QVERIFY(!copied.ok());
        QVERIFY(!copied.reason().isEmpty());
        QVERIFY(!QFileInfo::exists(at("new")));
        QCOMPARE(contents(at("taken")), QByteArray("taken"));
    }

    void leavesNothingOnAFullDisk()
    {
        QVERIFY(QDir().mkpath(at("disk")));
        const SmallDisk disk(at("disk"));
        if (!disk.isMounted()) {
            QSKIP("needs the right to mount a small file system");
        }
        test::writeFile(at("large"), QByteArray(200'000, 'x'));
        const auto copied = copyFile(at("large"), at("disk/copy"));
        QVERIFY(!copied.ok());
        QVERIFY2(copied.reason().contains(systemReason(ENOSPC)), qUtf8Printable(copied.reason()));
        QVERIFY(!QFileInfo::exists(at("disk/copy")));
        QVERIFY(!importing::writeFile(at("disk/bytes"), QByteArray(200'000, 'x')).ok());
        QVERIFY(!QFileInfo::exists(at("disk/bytes")));
        QVERIFY(importing::writeFile(at("disk/bytes"), "small").ok());
    }

    void namesStoredFiles_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("stored");
        const QString longStem(250, u'ä'); // Two bytes each.
        QTest::newRow("plain") << QStringLiteral("a b.png") << QStringLiteral("a b.png");
        QTest::newRow("all extension") << QStringLiteral(".png") << QStringLiteral(".png");
        QTest::newRow("no name") << QString() << QStringLiteral("file");
        QTest::newRow("folder above") << QStringLiteral("..") << QStringLiteral("file");
        QTest::newRow("path") << QStringLiteral("../a.png") << QStringLiteral("file");
        QTest::newRow("too long for a side file beside it")
            << longStem + QStringLiteral(".png") << longStem.left(117) + QStringLiteral(".png");
        QTest::newRow("never half a character") << QString(90, u'a') + QStringLiteral("😀").repeated(60)
                                                << QString(90, u'a') + QStringLiteral("😀").repeated(37);
    }
    void namesStoredFiles()
    {
        QFETCH(QString, name);
        QTEST(storedFileName(name), "stored");
    }
};

QTEST_GUILESS_MAIN(FileCopyTest)
#include "tst_filecopy.moc"
