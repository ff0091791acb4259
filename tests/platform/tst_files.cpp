#include "platform/LinuxPlatform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace mosaro::platform;

namespace {

void write(const QString& path, const QByteArray& bytes = {})
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

bool setAttribute(const QString& path, const char* name, const QByteArray& value)
{
    return setxattr(path.toLocal8Bit().constData(), name, value.constData(), size_t(value.size()), 0) == 0;
}

/// File index, links and bookmarks on real files.
class FilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        // Beside the program, since a memory file system may know no attributes.
        m_folder = std::make_unique<QTemporaryDir>(QStringLiteral(MOSARO_BINARY_DIR "/tst_files-XXXXXX"));
        QVERIFY(m_folder->isValid());
        m_file = m_folder->filePath(QStringLiteral("Grün ☂.png"));
        write(m_file);
    }

    void readsAttributes_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("whereFrom");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QStringList>("tags");
        QTest::addColumn<int>("label");
        const QString none;
        const QStringList noTags;
        const QByteArray url("user.xdg.origin.url");
        const QByteArray comment("user.xdg.comment");
        const QByteArray tags("user.xdg.tags");
        const QByteArray label("user.mosaro.label");
        QTest::newRow("none") << QByteArray() << QByteArray() << none << none << noTags << 0;
        QTest::newRow("address") << url << QByteArray("https://example.org/a?b=ü")
                                 << QStringLiteral("https://example.org/a?b=ü") << none << noTags << 0;
        QTest::newRow("first of two addresses") << url << QByteArray("https://a.example\nhttps://b.example")
                                                << QStringLiteral("https://a.example") << none << noTags << 0;
        QTest::newRow("comment") << comment << QByteArray("Größe\nzwei") << none
                                 << QStringLiteral("Größe\nzwei") << noTags << 0;
        QTest::newRow("closing zero")
            << comment << QByteArray("text\0", 5) << none << QStringLiteral("text") << noTags << 0;
        QTest::newRow("no UTF-8") << comment << QByteArray("a\xFF") << none << QStringLiteral("a\uFFFD")
                                  << noTags << 0;
        QTest::newRow("tags in order")
            << tags << QByteArray("zwei, eins,,drei,eins,") << none << none
            << QStringList{QStringLiteral("zwei"), QStringLiteral("eins"), QStringLiteral("drei")} << 0;
        QTest::newRow("label") << label << QByteArray("7") << none << none << noTags << 7;
        QTest::newRow("label beyond") << label << QByteArray("8") << none << none << noTags << 0;
        QTest::newRow("label below") << label << QByteArray("-1") << none << none << noTags << 0;
        QTest::newRow("label no number") << label << QByteArray("red") << none << none << noTags << 0;
    }
    void readsAttributes()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QByteArray, value);
        if (!name.isEmpty() && !setAttribute(m_file, name.constData(), value))
            QSKIP("the file system has no extended attributes");
        const FileIndexEntry entry = m_platform.fileIndex->read(m_file);
        QTEST(entry.whereFrom, "whereFrom");
        QTEST(entry.comment, "comment");
        QTEST(entry.tags, "tags");
        QTEST(entry.labelNumber, "label");
    }

    void writesLabels()
    {
        if (!setAttribute(m_file, "user.test", "x"))
            QSKIP("the file system has no extended attributes");
        FileIndex& index = *m_platform.fileIndex;
        QVERIFY(index.writeLabelNumber(m_file, 0));
        for (const int label : {6, 2, 0}) {
            QVERIFY(index.writeLabelNumber(m_file, label));
            QCOMPARE(index.read(m_file).labelNumber, label);
        }
        QVERIFY(!index.writeLabelNumber(m_file, 8));
        QVERIFY(!index.writeLabelNumber(m_folder->filePath(QStringLiteral("missing")), 1));
        QVERIFY(!index.writeLabelNumber(m_folder->filePath(QStringLiteral("missing")), 0));
    }

    void resolvesLinks_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("target");
        const QString none;
        const auto text = [](const char* name) { return QString::fromLatin1(name); };
        QTest::newRow("file") << text("file.png") << text("file.png");
        QTest::newRow("missing file") << text("missing.png") << text("missing.png");
        QTest::newRow("unclean path") << text("./sub/../file.png") << text("file.png");
        QTest::newRow("link") << text("link") << text("file.png");
        QTest::newRow("link to a link") << text("link2") << text("file.png");
        QTest::newRow("folder link") << text("folder") << text("sub");
        QTest::newRow("dangling link") << text("dangling") << none;
        QTest::newRow("loop of links") << text("loop") << none;
        QTest::newRow("desktop link") << text("link.desktop") << text("a b ü.png");
        QTest::newRow("desktop link in capitals") << text("CAPITAL.DESKTOP") << text("file.png");
        QTest::newRow("desktop link to a link") << text("deep.desktop") << text("file.png");
        QTest::newRow("link to a desktop link") << text("to-desktop") << text("a b ü.png");
        QTest::newRow("desktop link to nothing") << text("gone.desktop") << none;
        QTest::newRow("desktop link to itself") << text("self.desktop") << none;
        QTest::newRow("desktop link to the web") << text("web.desktop") << text("web.desktop");
        QTest::newRow("desktop link to another host") << text("host.desktop") << text("host.desktop");
        QTest::newRow("desktop entry of a program") << text("program.desktop") << text("program.desktop");
        QTest::newRow("Type in another group") << text("group.desktop") << text("group.desktop");
        QTest::newRow("huge desktop file") << text("huge.desktop") << text("huge.desktop");
        QTest::newRow("other ending") << text("link.txt") << text("link.txt");
    }
    void resolvesLinks()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, target);
        makeLinks();
        const QString expected = target.isEmpty() ? QString() : m_folder->filePath(target);
        QCOMPARE(m_platform.aliases->resolve(m_folder->filePath(path)), expected);
    }

    /// A pipe with the right name must not be waited for.
    void doesNotReadPipes()
    {
        const QString pipe = m_folder->filePath(QStringLiteral("pipe.desktop"));
        QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
        QCOMPARE(m_platform.aliases->resolve(pipe), pipe);
    }

    void bookmarks()
    {
        const Bookmarks& bookmarks = *m_platform.bookmarks;
        const QByteArray token = bookmarks.bookmarkData(m_file);
        QCOMPARE(bookmarks.resolve(token), m_file);
        QVERIFY(QFile::remove(m_file));
        QCOMPARE(bookmarks.resolve(token), QString());
        QVERIFY(bookmarks.bookmarkData(m_file).isEmpty());
        QVERIFY(bookmarks.bookmarkData(QString()).isEmpty());
        for (const QByteArray& foreign :
             {QByteArray(), QByteArray("relative"), QByteArray("/\0tmp", 5), QByteArray("book\xFF\xFE", 6)})
            QCOMPARE(bookmarks.resolve(foreign), QString());
    }

    void noBookmarkForUnreadablePaths()
    {
        if (geteuid() == 0)
            QSKIP("root reads everything");
        QVERIFY(QFile::setPermissions(m_file, {}));
        QVERIFY(m_platform.bookmarks->bookmarkData(m_file).isEmpty());
    }

    void withoutADesktopThereAreNoSessionServices()
    {
        QVERIFY(!m_platform.notifier && !m_platform.sounds && !m_platform.badge && !m_platform.revealer);
    }

    void knowsTheUser()
    {
        QVERIFY(!userFullName().isEmpty());
        QVERIFY(!userFullName().contains(QLatin1Char(',')));
        qputenv("XDG_DATA_HOME", "/tmp/elsewhere");
        QCOMPARE(applicationSupportFolder(), QStringLiteral("/tmp/elsewhere"));
        qunsetenv("XDG_DATA_HOME");
    }

private:
    void desktopFile(const char* name, const QByteArray& url, const QByteArray& type = "Link")
    {
        write(m_folder->filePath(QString::fromLatin1(name)),
              "[Desktop Entry]\nName=x\nType=" + type + "\nURL=" + url + "\n[Other]\nType=Application\n");
    }
    void link(const char* target, const char* name)
    {
        QVERIFY(QFile::link(m_folder->filePath(QString::fromLatin1(target)),
                            m_folder->filePath(QString::fromLatin1(name))));
    }
    void makeLinks()
    {
        const QString spaced = m_folder->filePath(QString::fromLatin1("a b ü.png"));
        const QByteArray folder = QUrl::fromLocalFile(m_folder->path()).toEncoded();
        write(m_folder->filePath(QStringLiteral("file.png")));
        write(spaced);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("sub")));
        link("file.png", "link");
        link("link", "link2");
        link("sub", "folder");
        link("missing", "dangling");
        link("loop2", "loop");
        link("loop", "loop2");
        link("link.desktop", "to-desktop");
        desktopFile("link.desktop", QUrl::fromLocalFile(spaced).toEncoded());
        desktopFile("CAPITAL.DESKTOP", folder + "/file.png");
        desktopFile("deep.desktop", folder + "/link2");
        desktopFile("gone.desktop", folder + "/missing");
        desktopFile("self.desktop", folder + "/self.desktop");
        desktopFile("web.desktop", "https://example.org/");
        desktopFile("host.desktop", "file://elsewhere/etc/passwd");
        desktopFile("program.desktop", folder + "/file.png", "Application");
        desktopFile("link.txt", folder + "/file.png");
        write(m_folder->filePath(QStringLiteral("group.desktop")),
              "Type=Link\n[Other]\nType=Link\nURL=" + folder + "/file.png\n");
        write(m_folder->filePath(QStringLiteral("huge.desktop")),
              "[Desktop Entry]\nType=Link\nURL=" + folder + "/file.png\n" + QByteArray(100'000, '#'));
    }

    Platform m_platform = makeLinuxPlatform(false);
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

} // namespace

QTEST_GUILESS_MAIN(FilesTest)
#include "tst_files.moc"
