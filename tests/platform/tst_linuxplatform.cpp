#include "platform/LinuxPlatform.h"
#include "platform/linux/DesktopThumbnailers.h"
#include "support/Files.h"

#include <QtTest>
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

QByteArray thumbnailer(const QByteArray& program, const QByteArray& types)
{
    return "[Thumbnailer Entry]\nTryExec=" + program + "\nExec=" + program +
           " -s %s %u %o\nMimeType=" + types + "\n";
}

} // namespace

/// What needs no session: file index, links and bookmarks on real files, and types. There is no bus either,
/// as over a plain remote login.
class LinuxPlatformTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); }
    void init()
    {
        // Beside the program, since a memory file system may know no attributes.
        m_folder = std::make_unique<QTemporaryDir>(QStringLiteral(MOSARO_BINARY_DIR "/tst_files-XXXXXX"));
        QVERIFY(m_folder->isValid());
        m_file = at("Grün ☂.png");
        writeFile(m_file);
    }

    void readsAttributes()
    {
        const char* const kAddress = "user.xdg.origin.url";
        const char* const kComment = "user.xdg.comment";
        const char* const kLabel = "user.mosaro.label";
        // What is read: address, comment, tags, label.
        const std::tuple<const char*, QByteArray, const char*> rows[] = {
            {"", "", "|||0"},
            {kAddress, "https://example.org/a?b=ü", "https://example.org/a?b=ü|||0"},
            {kAddress, "https://a.example\nhttps://b.example", "https://a.example|||0"},
            {kComment, "Größe\nzwei", "|Größe\nzwei||0"},
            {kComment, "text\0"_ba, "|text||0"},
            {kComment, "a\xFF", "|a\uFFFD||0"},
            {"user.xdg.tags", "zwei, eins,,drei,eins,", "||zwei+eins+drei|0"},
            {kLabel, "7", "|||7"},
            {kLabel, "8", "|||0"},
            {kLabel, "-1", "|||0"},
            {kLabel, "red", "|||0"}};
        for (const auto& [name, value, expected] : rows) {
            init(); // A file without any.
            if (*name != '\0' && !setAttribute(m_file, name, value))
                QSKIP("the file system has no extended attributes");
            const FileIndexEntry entry = m_platform.fileIndex->read(m_file);
            QCOMPARE((QStringList{entry.whereFrom, entry.comment, entry.tags.join(u'+'),
                                  QString::number(entry.labelNumber)}
                          .join(u'|')),
                     QString::fromUtf8(expected));
        }
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
        for (const int label : {0, 1})
            QVERIFY(!index.writeLabelNumber(at("missing"), label));
    }

    void resolvesLinks()
    {
        makeLinks();
        const std::pair<const char*, const char*> rows[] = {{"file.png", "file.png"},
                                                            {"missing.png", "missing.png"},
                                                            {"./sub/../file.png", "file.png"},
                                                            {"link", "file.png"},
                                                            {"link2", "file.png"},
                                                            {"folder", "sub"},
                                                            {"dangling", ""},
                                                            {"loop", ""},
                                                            {"link.desktop", "a b ü.png"},
                                                            {"CAPITAL.DESKTOP", "file.png"},
                                                            {"deep.desktop", "file.png"},
                                                            {"to-desktop", "a b ü.png"},
                                                            {"gone.desktop", ""},
                                                            {"self.desktop", ""},
                                                            {"web.desktop", "web.desktop"},
                                                            {"host.desktop", "host.desktop"},
                                                            {"program.desktop", "program.desktop"},
                                                            {"group.desktop", "group.desktop"},
                                                            {"huge.desktop", "huge.desktop"},
                                                            {"pipe.desktop", "pipe.desktop"},
                                                            {"link.txt", "link.txt"}};
        for (const auto& [path, target] : rows)
            QCOMPARE(m_platform.aliases->resolve(at(path)), *target == '\0' ? QString() : at(target));
    }

    void bookmarks()
    {
        const Bookmarks& bookmarks = *m_platform.bookmarks;
        const QByteArray token = bookmarks.bookmarkData(m_file);
        QCOMPARE(bookmarks.resolve(token), m_file);
        if (geteuid() != 0) { // Whom no permission stops.
            QVERIFY(QFile::setPermissions(m_file, {}));
            QVERIFY(bookmarks.bookmarkData(m_file).isEmpty());
        }
        QVERIFY(QFile::remove(m_file));
        QCOMPARE(bookmarks.resolve(token), QString());
        QVERIFY(bookmarks.bookmarkData(m_file).isEmpty() && bookmarks.bookmarkData(QString()).isEmpty());
        for (const QByteArray& foreign : {QByteArray(), "relative"_ba, "/\0tmp"_ba, "book\xFF\xFE"_ba})
            QCOMPARE(bookmarks.resolve(foreign), QString());
    }

    void knowsTheUser()
    {
        QVERIFY(!userFullName().isEmpty() && !userFullName().contains(u','));
        qputenv("XDG_DATA_HOME", "/tmp/elsewhere");
        QCOMPARE(applicationSupportFolder(), u"/tmp/elsewhere"_s);
        qunsetenv("XDG_DATA_HOME");
    }

    void typesByExtension()
    {
        const std::pair<const char*, const char*> rows[] = {{"png", "image/png"},
                                                            {"JPEG", "image/jpeg"},
                                                            {"pdf", "application/pdf"},
                                                            {"nosuchextension", ""},
                                                            {"", ""},
                                                            {"png/../../etc/passwd", ""},
                                                            {"x/y.png", ""}};
        for (const auto& [extension, mime] : rows)
            QCOMPARE(m_platform.types->mimeTypeForExtension(QLatin1String(extension)), QLatin1String(mime));
    }

    void inheritance()
    {
        const std::tuple<const char*, const char*, bool> rows[] = {
            {"image/png", "image/png", true},
            {"image/svg+xml", "application/xml", true},
            {"application/xml", "image/svg+xml", false},
            {"made/up", "made/up", true},
            {"made/up", "image/png", false},
            {"", "", false}};
        for (const auto& [type, ancestor, expected] : rows)
            QVERIFY2(m_platform.types->inherits(QLatin1String(type), QLatin1String(ancestor)) == expected,
                     type);
    }

    void thumbnailersThatCanStart()
    {
        const std::pair<const char*, QByteArray> files[] = {
            {"own/a.thumbnailer", thumbnailer("sh", "image/x-a; image/x-b;")},
            {"own/b.thumbnailer", thumbnailer("/no/such/program", "image/x-c;")},
            {"own/c.thumbnailer", "MimeType=image/x-d;\nExec=sh\n"},
            {"own/d.txt", thumbnailer("sh", "image/x-e;")},
            {"own/e.thumbnailer", "[Thumbnailer Entry]\n# Exec=/no\nExec=\"/bin/sh\" %u\nMimeType=image/x-f"},
            // One of the same name further down is hidden, as a user hides what the system offers.
            {"system/a.thumbnailer", thumbnailer("sh", "image/x-g;")},
            {"system/z.thumbnailer", thumbnailer("sh", "image/x-h;")}};
        for (const auto& [name, content] : files)
            writeFile(at(name), content);
        const DesktopThumbnailers lookup({at("own"), at("missing"), at("system")});
        QString found;
        for (const QChar letter : u"abcdefgh"_s) {
            if (lookup.hasThumbnailer({u"image/x-nothing"_s, u"image/x-"_s + letter}))
                found += letter;
        }
        QCOMPARE(found, u"abfh"_s);
        QVERIFY(!lookup.hasThumbnailer({}) && !lookup.hasThumbnailer({QString()}));
        QCOMPARE(lookup.thumbnailerCommand({u"image/x-nothing"_s, u"image/x-h"_s}), u"sh -s %s %u %o"_s);
    }

    void thumbnailersOfTheDataFolders()
    {
        writeFile(at("thumbnailers/x.thumbnailer"), thumbnailer("sh", "image/x-mine;"));
        qputenv("XDG_DATA_HOME", m_folder->path().toLocal8Bit());
        const DesktopThumbnailers lookup;
        qunsetenv("XDG_DATA_HOME");
        QVERIFY(lookup.hasThumbnailer({u"image/x-mine"_s}));
    }

    void withoutABusEveryStartIsTheFirst()
    {
        SingleInstance one;
        SingleInstance two;
        QVERIFY(one.claim() && two.claim());
    }

    void withoutABusServicesKeepQuiet()
    {
        QVERIFY(!m_platform.notifier && !m_platform.sounds && !m_platform.badge && !m_platform.revealer);
        const Platform platform = makeLinuxPlatform(true);
        platform.notifier->notify(u"Title"_s, {}, u"Content"_s);
        platform.badge->setPercent(10);
        platform.badge->clear();
        platform.revealer->reveal(QString());
        platform.sounds->play(u":/sounds/None.wav"_s);
        QCoreApplication::processEvents();
    }

private:
    [[nodiscard]] QString at(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void desktopFile(const char* name, const QByteArray& url, const QByteArray& type = "Link")
    {
        writeFile(at(name),
                  "[Desktop Entry]\nName=x\nType=" + type + "\nURL=" + url + "\n[Other]\nType=Application\n");
    }
    void makeLinks()
    {
        const QByteArray folder = QUrl::fromLocalFile(m_folder->path()).toEncoded();
        writeFile(at("file.png"));
        writeFile(at("a b ü.png"));
        QVERIFY(QDir(m_folder->path()).mkdir(u"sub"_s));
        const std::pair<const char*, const char*> links[] = {
            {"link", "file.png"},          {"link2", "link"}, {"folder", "sub"},
            {"dangling", "missing"},       {"loop", "loop2"}, {"loop2", "loop"},
            {"to-desktop", "link.desktop"}};
        for (const auto& [name, target] : links)
            QVERIFY(QFile::link(at(target), at(name)));
        desktopFile("link.desktop", QUrl::fromLocalFile(at("a b ü.png")).toEncoded());
        desktopFile("CAPITAL.DESKTOP", folder + "/file.png");
        desktopFile("deep.desktop", folder + "/link2");
        desktopFile("gone.desktop", folder + "/missing");
        desktopFile("self.desktop", folder + "/self.desktop");
        desktopFile("web.desktop", "https://example.org/");
        desktopFile("host.desktop", "file://elsewhere/etc/passwd");
        desktopFile("program.desktop", folder + "/file.png", "Application");
        desktopFile("link.txt", folder + "/file.png");
        // A pipe with the right name must not be waited for.
        QCOMPARE(mkfifo(at("pipe.desktop").toLocal8Bit().constData(), 0600), 0);
        writeFile(at("group.desktop"), "Type=Link\n[Other]\nType=Link\nURL=" + folder + "/file.png\n");
        writeFile(at("huge.desktop"),
                  "[Desktop Entry]\nType=Link\nURL=" + folder + "/file.png\n" + QByteArray(100'000, '#'));
    }

    Platform m_platform = makeLinuxPlatform(false);
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(LinuxPlatformTest)
#include "tst_linuxplatform.moc"
