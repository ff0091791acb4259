#include "platform/LinuxPlatform.h"
#include "platform/linux/DesktopThumbnailers.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro::platform;
using mosaro::test::writeFile;
using namespace Qt::StringLiterals;

namespace {

QByteArray thumbnailer(const QByteArray& program, const QByteArray& types)
{
    return "[Thumbnailer Entry]\nTryExec=" + program + "\nExec=" + program +
           " -s %s %u %o\nMimeType=" + types + "\n";
}

class TypesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typesByExtension()
    {
        for (const auto& [extension, mime] : {std::pair{u"png"_s, u"image/png"_s},
                                              {u"JPEG"_s, u"image/jpeg"_s},
                                              {u"pdf"_s, u"application/pdf"_s},
                                              {u"nosuchextension"_s, u""_s},
                                              {u""_s, u""_s},
                                              {u"png/../../etc/passwd"_s, u""_s},
                                              {u"x/y.png"_s, u""_s}})
            QCOMPARE(m_platform.types->mimeTypeForExtension(extension), mime);
    }

    void inheritance()
    {
        const TypeDatabase& types = *m_platform.types;
        QVERIFY(types.inherits(u"image/png"_s, u"image/png"_s));
        QVERIFY(types.inherits(u"image/svg+xml"_s, u"application/xml"_s));
        QVERIFY(!types.inherits(u"application/xml"_s, u"image/svg+xml"_s));
        QVERIFY(types.inherits(u"made/up"_s, u"made/up"_s));
        QVERIFY(!types.inherits(u"made/up"_s, u"image/png"_s));
        QVERIFY(!types.inherits(QString(), QString()));
    }

    void thumbnailersThatCanStart()
    {
        const QTemporaryDir folder;
        const QString own = folder.filePath(u"own"_s);
        const QString system = folder.filePath(u"system"_s);
        writeFile(own + u"/a.thumbnailer"_s, thumbnailer("sh", "image/x-a; image/x-b;"));
        writeFile(own + u"/b.thumbnailer"_s, thumbnailer("/no/such/program", "image/x-c;"));
        writeFile(own + u"/c.thumbnailer"_s, "MimeType=image/x-d;\nExec=sh\n");
        writeFile(own + u"/d.txt"_s, thumbnailer("sh", "image/x-e;"));
        writeFile(own + u"/e.thumbnailer"_s,
                  "[Thumbnailer Entry]\n# Exec=/no\nExec=\"/bin/sh\" %u\nMimeType=image/x-f");
        // One of the same name further down is hidden, as a user hides what the system offers.
        writeFile(system + u"/a.thumbnailer"_s, thumbnailer("sh", "image/x-g;"));
        writeFile(system + u"/z.thumbnailer"_s, thumbnailer("sh", "image/x-h;"));
        const DesktopThumbnailers lookup({own, folder.filePath(u"missing"_s), system});

        QStringList found;
        for (const char letter : {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}) {
            const QString type = u"image/x-%1"_s.arg(QLatin1Char(letter));
            if (lookup.hasThumbnailer({u"image/x-nothing"_s, type}))
                found.append(QString(QLatin1Char(letter)));
        }
        QCOMPARE(found.join(QString()), u"abfh"_s);
        QVERIFY(!lookup.hasThumbnailer({}));
        QVERIFY(!lookup.hasThumbnailer({QString()}));
        QCOMPARE(lookup.thumbnailerCommand({u"image/x-nothing"_s, u"image/x-h"_s}), u"sh -s %s %u %o"_s);
    }

    void thumbnailersOfTheDataFolders()
    {
        const QTemporaryDir home;
        writeFile(home.filePath(u"thumbnailers/x.thumbnailer"_s), thumbnailer("sh", "image/x-mine;"));
        qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
        const DesktopThumbnailers lookup;
        qunsetenv("XDG_DATA_HOME");
        QVERIFY(lookup.hasThumbnailer({u"image/x-mine"_s}));
    }

private:
    Platform m_platform = makeLinuxPlatform(false);
};

} // namespace

QTEST_GUILESS_MAIN(TypesTest)
#include "tst_types.moc"
