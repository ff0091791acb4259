#include "base/Text.h"
#include "import/WebImageFetcher.h"
#include "support/Pictures.h"
#include "support/WebServer.h"

#include <QMimeData>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro::importing;
using mosaro::test::WebServer;

namespace {

struct Bench {
    QTemporaryDir folder;
    WebServer server;
    FetchLimits limits;
    std::unique_ptr<WebImageFetcher> fetcher;
    std::optional<ImportItem> item;
    int ends = 0;

    void start(const WebImageRequest& request)
    {
        fetcher = std::make_unique<WebImageFetcher>(folder.path(), limits);
        QObject::connect(fetcher.get(), &WebImageFetcher::finished, fetcher.get(),
                         [this](const std::optional<ImportItem>& made) {
                             item = made;
                             ++ends;
                         });
        fetcher->fetch(request);
    }
    /// The file's name and content as "name=content", or "" when nothing came of it.
    QString fetch(const WebImageRequest& request)
    {
        start(request);
        if (ends != 0 || !QTest::qWaitFor([this] { return ends == 1; }, 20000))
            return u"it never ended"_s;
        ends = 0;
        if (!item)
            return files().isEmpty() ? QString() : u"left "_s + files().join(u' ');
        QFile file(item->path);
        const bool isOpen = file.open(QIODevice::ReadOnly);
        const QString made = QFileInfo(item->path).fileName() + u'=' + QString::fromLatin1(file.readAll());
        return isOpen && file.remove() ? made : u"no file"_s;
    }
    QString fetch(const QUrl& address) { return fetch(WebImageRequest{address, true, {}, {}}); }
    QString fetchFromServer(const QString& path) { return fetch(server.url(path)); }
    void start(const QUrl& address) { start(WebImageRequest{address, true, {}, {}}); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
};

} // namespace

class TestWebImage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosaro::base::installTexts(); }

    void pictureAtAnAddress()
    {
        Bench bench;
        const auto redirect = [](const QByteArray& place) {
            return WebServer::answer("", "302 Found", "Location: " + place + "\r\n");
        };
        // The path, what the server answers, and the file that is made of it.
        const std::tuple<QString, QByteArray, QString> rows[] = {
            {u"/a/photo.png"_s, WebServer::answer("PICTURE"), u"photo.png=PICTURE"_s},
            {u"/a/two%20words.jpeg?size=2"_s, WebServer::answer("PICTURE"), u"two words.jpeg=PICTURE"_s},
            {u"/..%2F..%2Fout.png"_s, WebServer::answer("PICTURE"), u"..-..-out.png=PICTURE"_s},
            {u"/page.png"_s, WebServer::answer("<html><body>"), {}},
            {u"/other.png"_s, WebServer::answer("<!DOCTYPE html>"), {}},
            {u"/blank.png"_s, WebServer::answer(" <html>"), u"blank.png= <html>"_s},
            {u"/gone.png"_s, WebServer::answer("PICTURE", "404 Not Found"), {}},
            {u"/nothing.png"_s, WebServer::answer(""), {}},
            {u"/moved.png"_s, redirect("/a/photo.png"), u"moved.png=PICTURE"_s},
            {u"/steals.png"_s, redirect("file:///etc/passwd"), {}},
            {u"/circle.png"_s, redirect("/circle.png"), {}},
            {u"/cut.png"_s, "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nPICTURE", {}},
        };
        for (const auto& [path, answer, made] : rows)
            bench.server.answers[path.toLatin1()] = answer;
        for (const auto& [path, answer, made] : rows)
            QCOMPARE(path + bench.fetchFromServer(path), path + made);
        QVERIFY(bench.fetchFromServer(u"/a/photo.png"_s).endsWith(u"PICTURE"));
        QCOMPARE(bench.item->url, bench.server.url(u"/a/photo.png"_s).toString());
        QCOMPARE(bench.item->kind, MediaKind::Web);
    }

    void otherSchemesAreNotOpened()
    {
        Bench bench;
        QFile secret(bench.folder.filePath(u"secret.png"_s));
        QVERIFY(secret.open(QIODevice::WriteOnly));
        for (const QUrl& url : {QUrl::fromLocalFile(secret.fileName()), QUrl(u"ftp://127.0.0.1/a.png"_s),
                                QUrl(u"qrc:/a.png"_s), QUrl(u"//host/a.png"_s)})
            QCOMPARE(bench.fetch(url), u"left secret.png"_s);
    }

    void limits()
    {
        Bench bench;
        bench.limits = {.wholeTime = 60'000, .silence = 60'000, .bytes = 10};
        bench.server.answers = {{"/long.png", WebServer::answer("12345678901")},
                                {"/fits.png", WebServer::answer("1234567890")},
                                {"/untold.png", "HTTP/1.1 200 OK\r\n\r\n12345678901"}};
        QCOMPARE(bench.fetchFromServer(u"/long.png"_s), QString());
        QCOMPARE(bench.fetchFromServer(u"/untold.png"_s), QString());
        QCOMPARE(bench.fetchFromServer(u"/fits.png"_s), u"fits.png=1234567890"_s);
        bench.limits = {.wholeTime = 50, .silence = 60'000, .bytes = 10};
        QCOMPARE(bench.fetchFromServer(u"/silent.png"_s), QString());
        bench.limits = {.wholeTime = 60'000, .silence = 50, .bytes = 10};
        QCOMPARE(bench.fetchFromServer(u"/silent.png"_s), QString());
    }

    void cancelledOrDestroyedInBetween()
    {
        Bench bench;
        bench.start(bench.server.url(u"/silent.png"_s));
        QTRY_COMPARE(bench.server.asked, 1);
        bench.fetcher->cancel();
        QTRY_COMPARE(bench.ends, 1);
        QVERIFY(!bench.item);

        bench.start(bench.server.url(u"/silent.png"_s));
        QTRY_COMPARE(bench.server.asked, 2);
        bench.fetcher.reset();

        // While the file is being written: nobody will hear of it.
        bench.start(QUrl(u"data:,\x47IF"_s));
        bench.fetcher->cancel();
        QTRY_COMPARE(bench.ends, 2);
        bench.start(QUrl(u"data:,\x47IF"_s));
        bench.fetcher.reset();
        QCoreApplication::processEvents();
        QCOMPARE(bench.ends, 2);
        QCOMPARE(bench.files(), QStringList());
    }

    void dataAddress()
    {
        Bench bench;
        const std::pair<QString, QString> cases[] = {
            {u"data:image/gif;base64,R0lGODlh"_s, u".gif=GIF89a"_s},
            {u"data:image/svg+xml,%3Csvg%2F%3E"_s, u".svg=<svg/>"_s},
            {u"data:image/svg+xml;charset=utf-8,<svg a=\"?b#c\"/>"_s, u".svg=<svg a=\"?b#c\"/>"_s},
            {u"data:text/html,%3Chtml"_s, u".svg=<html"_s}, // The first byte decides, and nothing else.
            {u"data:image/webp;base64,UklGRg=="_s, {}},
            {u"data:image/png"_s, {}},
            {u"data:,"_s, {}},
        };
        for (const auto& [address, expected] : cases) {
            const QString made = bench.fetch(QUrl(address));
            QCOMPARE(address + made.mid(made.indexOf(u'.')), address + expected);
            QVERIFY(expected.isEmpty() || QRegularExpression(u"^\\d{14}\\."_s).match(made).hasMatch());
        }
    }

    /// An extension counts only as it is written; else the picture of the drop is what counts.
    void pictureOfTheDrop()
    {
        const QImage opaque = mosaro::test::plain({4, 4}, Qt::red);
        const QImage clear = mosaro::test::halfTransparent({4, 4}, Qt::red);
        const std::tuple<QString, QImage, bool, QByteArray> cases[] = {
            {u"http://host/a.png"_s, opaque, true, {}},
            {u"http://host/a.PNG"_s, opaque, false, "\xff\xd8"},
            {u"http://host/a.png/"_s, clear, false, "\x89PNG"},
            {u"http://host/.png"_s, clear, false, "\x89PNG"},
            {u"http://host/show?id=5.png"_s, {}, false, {}},
        };
        for (const auto& [address, image, downloads, start] : cases) {
            QMimeData data;
            data.setUrls({QUrl(address)});
            if (!image.isNull())
                data.setImageData(image);
            const WebImageRequest request = webImageOf(data, {u"png"_s, u"jpg"_s});
            QVERIFY2(request.downloads == downloads, qPrintable(address));
            if (downloads)
                continue;
            Bench bench;
            const QString made = bench.fetch(request);
            QVERIFY2(made.section(u'=', 1).toLatin1().startsWith(start), qPrintable(address));
            QCOMPARE(made.isEmpty(), start.isEmpty());
            QCOMPARE(made.contains(u".png="), start == "\x89PNG");
        }
    }

    void pictureThatCanNotBeReadIsKept()
    {
        QMimeData data;
        data.setUrls({QUrl(u"http://host/show"_s)});
        data.setData(u"image/tiff"_s, "II*?");
        Bench bench;
        QVERIFY(bench.fetch(webImageOf(data, {u"png"_s})).endsWith(u".jpg=II*?"));
    }

    void filesAndAddresses()
    {
        QMimeData data;
        data.setUrls({QUrl(u"relative.png"_s), QUrl::fromLocalFile(u"/a b.png"_s),
                      QUrl(u"https://host/c.png"_s), QUrl(u"file://localhost/d.png"_s),
                      QUrl(u"file://%1/e.png"_s.arg(QSysInfo::machineHostName()))});
        QCOMPARE(filesOf(data), (QStringList{u"/a b.png"_s, u"/d.png"_s, u"/e.png"_s}));
        QCOMPARE(addressOf(data), QUrl(u"https://host/c.png"_s));
        data.setUrls({QUrl(u"relative.png"_s)});
        QVERIFY(!addressOf(data).isValid());
    }

    void names()
    {
        const QDateTime date(QDate(2026, 3, 4), QTime(15, 6, 7));
        QCOMPARE(dateAsString(date), u"20260304150607"_s);
        const QLocale before;
        const std::pair<QLocale, QString> cases[] = {
            {QLocale(QLocale::German), u"Clipboard 2026-03-04 15:06:07"_s},
            {QLocale(QLocale::Finnish), u"Clipboard 2026-03-04 15.06.07"_s},
            {QLocale(QLocale::English, QLocale::UnitedStates), u"Clipboard 2026-03-04 3:06:07 PM"_s},
        };
        for (const auto& [locale, name] : cases) {
            QLocale::setDefault(locale);
            QCOMPARE(clipboardPicture({}, date).name.simplified(), name);
        }
        QLocale::setDefault(before);
        QCOMPARE(clipboardPicture({}, date).kind, MediaKind::Other);
    }
};

QTEST_GUILESS_MAIN(TestWebImage)
#include "tst_webimage.moc"
