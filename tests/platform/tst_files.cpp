#include "platform/LinuxPlatform.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace mosaro::platform;
using mosaro::test::writeFile;
using namespace Qt::StringLiterals;

namespace {

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
        m_file = m_folder->filePath(u"Grün ☂.png"_s);
        writeFile(m_file);
    }

    void readsAttributes_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QString>("read"); // Address, comment, tags, label.
        const auto row = [](const char* test, const char* name, const QByteArray& value, const char* read) {
            QTest::newRow(test) << QByteArray(name) << value << QString::fromUtf8(read);
        };
        row("none", "", "", "|||0");
        row("address", "user.xdg.origin.url", "https://example.org/a?b=ü", "https://example.org/a?b=ü|||0");
        row("first of two addresses", "user.xdg.origin.url", "https://a.example\nhttps://b.example",
            "https://a.example|||0");
        row("comment", "user.xdg.comment", "Größe\nzwei", "|Größe\nzwei||0");
        row("closing zero", "user.xdg.comment", "text\0"_ba, "|text||0");
        row("no UTF-8", "user.xdg.comment", "a\xFF", "|a\uFFFD||0");
        row("tags in order", "user.xdg.tags", "zwei, eins,,drei,eins,", "||zwei+eins+drei|0");
        row("label", "user.mosaro.label", "7", "|||7");
        row("label beyond", "user.mosaro.label", "8", "|||0");
        row("label below", "user.mosaro.label", "-1", "|||0");
        row("label no number", "user.mosaro.label", "red", "|||0");
    }
    void readsAttributes()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QByteArray, value);
        if (!name.isEmpty() && !setAttribute(m_file, name.constData(), value))
            QSKIP("the file system has no extended attributes");
        const FileIndexEntry entry = m_platform.fileIndex->read(m_file);
        const QStringList read{entry.whereFrom, entry.comment, entry.tags.join(u'+'),
                               QString::number(entry.labelNumber)};
        QTEST(read.join(u'|'), "read");
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
        QVERIFY(!index.writeLabelNumber(m_folder->filePath(u"missing"_s), 1));
        QVERIFY(!index.writeLabelNumber(m_folder->filePath(u"missing"_s), 0));
    }

    void resolvesLinks()
    {
        makeLinks();
        for (const auto& [path, target] : {std::pair{u"file.png"_s, u"file.png"_s},
                                           {u"missing.png"_s, u"missing.png"_s},
                                           {u"./sub/../file.png"_s, u"file.png"_s},
                                           {u"link"_s, u"file.png"_s},
                                           {u"link2"_s, u"file.png"_s},
                                           {u"folder"_s, u"sub"_s},
                                           {u"dangling"_s, u""_s},
                                           {u"loop"_s, u""_s},
                                           {u"link.desktop"_s, u"a b ü.png"_s},
                                           {u"CAPITAL.DESKTOP"_s, u"file.png"_s},
                                           {u"deep.desktop"_s, u"file.png"_s},
                                           {u"to-desktop"_s, u"a b ü.png"_s},
                                           {u"gone.desktop"_s, u""_s},
                                           {u"self.desktop"_s, u""_s},
                                           {u"web.desktop"_s, u"web.desktop"_s},
                                           {u"host.desktop"_s, u"host.desktop"_s},
                                           {u"program.desktop"_s, u"program.desktop"_s},
                                           {u"group.desktop"_s, u"group.desktop"_s},
                                           {u"huge.desktop"_s, u"huge.desktop"_s},
                                           {u"link.txt"_s, u"link.txt"_s}}) {
            const QString found = m_platform.aliases->resolve(m_folder->filePath(path));
            QCOMPARE(found, target.isEmpty() ? QString() : m_folder->filePath(target));
        }
    }

    /// A pipe with the right name must not be waited for.
    void doesNotReadPipes()
    {
        const QString pipe = m_folder->filePath(u"pipe.desktop"_s);
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
        for (const QByteArray& foreign : {QByteArray(), "relative"_ba, "/\0tmp"_ba, "book\xFF\xFE"_ba})
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
        QVERIFY(!userFullName().contains(u','));
        qputenv("XDG_DATA_HOME", "/tmp/elsewhere");
        QCOMPARE(applicationSupportFolder(), u"/tmp/elsewhere"_s);
        qunsetenv("XDG_DATA_HOME");
    }

private:
    void desktopFile(const char* name, const QByteArray& url, const QByteArray& type = "Link")
    {
        writeFile(m_folder->filePath(QString::fromLatin1(name)),
                  "[Desktop Entry]\nName=x\nType=" + type + "\nURL=" + url + "\n[Other]\nType=Application\n");
    }
    void link(const char* target, const char* name)
    {
        QVERIFY(QFile::link(m_folder->filePath(QString::fromLatin1(target)),
                            m_folder->filePath(QString::fromLatin1(name))));
    }
    void makeLinks()
    {
        const QString spaced = m_folder->filePath(u"a b ü.png"_s);
        const QByteArray folder = QUrl::fromLocalFile(m_folder->path()).toEncoded();
        writeFile(m_folder->filePath(u"file.png"_s));
        writeFile(spaced);
        QVERIFY(QDir(m_folder->path()).mkdir(u"sub"_s));
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
        writeFile(m_folder->filePath(u"group.desktop"_s),
                  "Type=Link\n[Other]\nType=Link\nURL=" + folder + "/file.png\n");
        writeFile(m_folder->filePath(u"huge.desktop"_s),
                  "[Desktop Entry]\nType=Link\nURL=" + folder + "/file.png\n" + QByteArray(100'000, '#'));
    }

    Platform m_platform = makeLinuxPlatform(false);
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

} // namespace

QTEST_GUILESS_MAIN(FilesTest)
#include "tst_files.moc"
