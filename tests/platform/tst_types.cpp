#include "platform/LinuxPlatform.h"
#include "platform/linux/DesktopThumbnailers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro::platform;

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray thumbnailer(const QByteArray& program, const QByteArray& types)
{
    return "[Thumbnailer Entry]\nTryExec=" + program + "\nExec=" + program +
           " -s %s %u %o\nMimeType=" + types + "\n";
}

class TypesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typesByExtension_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("mime");
        QTest::newRow("picture") << QStringLiteral("png") << QStringLiteral("image/png");
        QTest::newRow("in capitals") << QStringLiteral("JPEG") << QStringLiteral("image/jpeg");
        QTest::newRow("document") << QStringLiteral("pdf") << QStringLiteral("application/pdf");
        QTest::newRow("unknown") << QStringLiteral("nosuchextension") << QString();
        QTest::newRow("none") << QString() << QString();
        QTest::newRow("path") << QStringLiteral("png/../../etc/passwd") << QString();
        QTest::newRow("path to a type") << QStringLiteral("x/y.png") << QString();
    }
    void typesByExtension()
    {
        QFETCH(const QString, extension);
        QTEST(m_platform.types->mimeTypeForExtension(extension), "mime");
    }

    void inheritance()
    {
        const TypeDatabase& types = *m_platform.types;
        QVERIFY(types.inherits(QStringLiteral("image/png"), QStringLiteral("image/png")));
        QVERIFY(types.inherits(QStringLiteral("image/svg+xml"), QStringLiteral("application/xml")));
        QVERIFY(!types.inherits(QStringLiteral("application/xml"), QStringLiteral("image/svg+xml")));
        QVERIFY(types.inherits(QStringLiteral("made/up"), QStringLiteral("made/up")));
        QVERIFY(!types.inherits(QStringLiteral("made/up"), QStringLiteral("image/png")));
        QVERIFY(!types.inherits(QString(), QString()));
    }

    void thumbnailersThatCanStart()
    {
        const QTemporaryDir folder;
        const QString own = folder.filePath(QStringLiteral("own"));
        const QString system = folder.filePath(QStringLiteral("system"));
        QVERIFY(QDir().mkpath(own) && QDir().mkpath(system));
        write(own + QStringLiteral("/a.thumbnailer"), thumbnailer("sh", "image/x-a; image/x-b;"));
        write(own + QStringLiteral("/b.thumbnailer"), thumbnailer("/no/such/program", "image/x-c;"));
        write(own + QStringLiteral("/c.thumbnailer"), "MimeType=image/x-d;\nExec=sh\n");
        write(own + QStringLiteral("/d.txt"), thumbnailer("sh", "image/x-e;"));
        write(own + QStringLiteral("/e.thumbnailer"),
              "[Thumbnailer Entry]\n# Exec=/no\nExec=\"/bin/sh\" %u\nMimeType=image/x-f");
        // One of the same name further down is hidden, as a user hides what the system offers.
        write(system + QStringLiteral("/a.thumbnailer"), thumbnailer("sh", "image/x-g;"));
        write(system + QStringLiteral("/z.thumbnailer"), thumbnailer("sh", "image/x-h;"));
        const DesktopThumbnailers lookup({own, folder.filePath(QStringLiteral("missing")), system});

        QStringList found;
        for (const char letter : {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}) {
            const QString type = QStringLiteral("image/x-%1").arg(QLatin1Char(letter));
            if (lookup.hasThumbnailer({QStringLiteral("image/x-nothing"), type}))
                found.append(QString(QLatin1Char(letter)));
        }
        QCOMPARE(found.join(QString()), QStringLiteral("abfh"));
        QVERIFY(!lookup.hasThumbnailer({}));
        QVERIFY(!lookup.hasThumbnailer({QString()}));
    }

    void thumbnailersOfTheDataFolders()
    {
        const QTemporaryDir home;
        QVERIFY(QDir().mkpath(home.filePath(QStringLiteral("thumbnailers"))));
        write(home.filePath(QStringLiteral("thumbnailers/x.thumbnailer")),
              thumbnailer("sh", "image/x-mine;"));
        qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
        const DesktopThumbnailers lookup;
        qunsetenv("XDG_DATA_HOME");
        QVERIFY(lookup.hasThumbnailer({QStringLiteral("image/x-mine")}));
    }

private:
    Platform m_platform = makeLinuxPlatform(false);
};

} // namespace

QTEST_GUILESS_MAIN(TypesTest)
#include "tst_types.moc"
