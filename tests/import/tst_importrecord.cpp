// What an import writes of one file: record, links, files.
#include "import/ImportFixture.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"

using namespace mosaro;
using namespace mosaro::importing;
using test::ImportFixture;
using test::sampleAnalysis;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not readable)");
}

} // namespace

class ImportRecordTest : public QObject {
    Q_OBJECT

private:
    static QString masters(ImportFixture& fixture) { return fixture.library.package().masterDirPath(); }

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void fillsTheRecord()
    {
        ImportFixture fixture;
        const QString path = fixture.makeFile(QStringLiteral("My Picture.v2.png"), "12345");
        fixture.index.entries[path] = {
            QStringLiteral("https://from.example/x"), QStringLiteral("a comment"), {}, 6};
        fixture.analyse = [](const AnalysisRequest& request) {
            AnalysisResult result = sampleAnalysis(request);
            result.metadata = {1200,
                               800,
                               144.5,
                               8,
                               true,
                               QStringLiteral("RGB"),
                               QStringLiteral("sRGB"),
                               QStringLiteral("Brush 3")};
            result.hasFrames = true;
            return result;
        };
        const QDateTime before = QDateTime::currentDateTime();
        const ImportReport report = fixture.import(QStringList{path});
        QCOMPARE(report.imported.size(), 1);
        QVERIFY(fixture.library.reopen());
        const auto media = fixture.media(report.imported[0]);
        QVERIFY(media);
        const QString folder = store::LibraryPackage::itemFolder(before.date(), report.imported[0]);
        QCOMPARE(media->mediaID().size(), 36);
        QCOMPARE(media->mediaID(), media->mediaID().toUpper());
        QCOMPARE(media->mediaPID(), media->collections()->collectionID());
        QCOMPARE(media->collections()->title(), QStringLiteral("Target"));
        QCOMPARE(media->mediaOriginalPath(), path);
        QCOMPARE(media->mediaPath(), folder + QStringLiteral("/Originals/My Picture.v2.png"));
        QCOMPARE(media->mediaThumbPath(), folder + QStringLiteral("/Preivew/preview.png"));
        QCOMPARE(media->mediaTitle(), QStringLiteral("My Picture.v2"));
        QCOMPARE(media->mediaDocumentType(), 6);
        QCOMPARE(media->mediaFileSize(), 5);
        QCOMPARE(media->mediaDateModified(), QFileInfo(path).lastModified());
        QVERIFY(media->mediaDateCreated().isValid());
        QVERIFY(media->mediaDateImported() >= before);
        QCOMPARE(media->mediaDateLastOpened(), media->mediaDateImported());
        QCOMPARE(media->mediaRating(), 0);
        QVERIFY(!media->isEmptyAttribute(QLatin1String("mediaRating")));
        QCOMPARE(media->mediaLabel(), 1);
        QCOMPARE(media->mediaNotes(), QStringLiteral("a comment"));
        QCOMPARE(media->mediaWeburl(), QStringLiteral("https://from.example/x"));
        QVERIFY(media->imageHasFrames());
        QCOMPARE(media->mediaKind(), 15);
        QCOMPARE(media->mediaWidth(), 1200.0);
        QCOMPARE(media->mediaHeight(), 800.0);
        QCOMPARE(media->imageDPI(), 144.5);
        QCOMPARE(media->imageDepth(), 8);
        QVERIFY(media->imageHasAlpha());
        QCOMPARE(media->imageColorModel(), QStringLiteral("RGB"));
        QCOMPARE(media->imageProfile(), QStringLiteral("sRGB"));
        QCOMPARE(media->mediaSoftware(), QStringLiteral("Brush 3"));
        QCOMPARE(contents(masters(fixture) + media->mediaPath()), QByteArray("12345"));
        QCOMPARE(contents(masters(fixture) + media->mediaThumbPath()),
                 QByteArray("preview of My Picture.v2.png"));
        QVERIFY(media->collections()->dateModified() >= before);
    }

    void leavesEmptyWhatTheFileDoesNotSay()
    {
        ImportFixture fixture;
        const ImportReport report = fixture.import(fixture.makeFiles(1));
        const auto media = fixture.media(report.imported.value(0));
        QVERIFY(media);
        for (const char* name :
             {"imageHasFrames", "mediaSoftware", "mediaWeburl", "mediaOtherInfo", "pdfTitle"}) {
            QVERIFY2(media->isEmptyAttribute(QLatin1String(name)), name);
        }
        for (const char* name : {"mediaCopyright", "mediaNotes", "imageProfile"}) {
            QVERIFY2(!media->isEmptyAttribute(QLatin1String(name)), name);
        }
    }

    void choosesTheAddress_data()
    {
        QTest::addColumn<QString>("whereFrom");
        QTest::addColumn<QString>("ofItem");
        QTest::addColumn<QString>("expected");
        const QString item = QStringLiteral("http://item");
        QTest::newRow("the file's wins")
            << QStringLiteral("http://file") << item << QStringLiteral("http://file");
        QTest::newRow("in capitals") << QStringLiteral("HTTP://FILE") << item
                                     << QStringLiteral("HTTP://FILE");
        QTest::newRow("mixed does not count") << QStringLiteral("Http://file") << item << item;
        QTest::newRow("another scheme") << QStringLiteral("ftp://file") << item << item;
        QTest::newRow("none of the file's") << QString() << item << item;
    }
    void choosesTheAddress()
    {
        QFETCH(QString, whereFrom);
        QFETCH(QString, ofItem);
        ImportFixture fixture;
        const QString path = fixture.makeFile(QStringLiteral("a.png"));
        fixture.index.entries[path].whereFrom = whereFrom;
        const ImportReport report = fixture.import({ImportItem{path, ofItem, MediaKind::Web, true}});
        QCOMPARE(report.imported.size(), 1);
        QTEST(fixture.media(report.imported[0])->mediaWeburl(), "expected");
    }

    void sharesTagsByExactTitle()
    {
        ImportFixture fixture;
        const auto known = fixture.library.addTag(QStringLiteral("Logo"));
        const QStringList files = fixture.makeFiles(2);
        fixture.index.entries[files[0]] = {
            {}, {}, {QStringLiteral("Logo"), QStringLiteral("logo"), QStringLiteral("Logo"), QString()}, 6};
        fixture.index.entries[files[1]] = {{}, {}, {QStringLiteral("logo"), QStringLiteral("plain")}, 0};
        const ImportReport report = fixture.import(files);
        QCOMPARE(report.imported.size(), 2);
        QCOMPARE(fixture.recordCount(store::Tags::info()), 3);
        QCOMPARE(fixture.recordCount(store::MediaTagList::info()), 4);
        const auto tag = [&fixture](const char* title) {
            return fixture.library.context().first<store::Tags>(store::Predicate::compare(
                QLatin1String("title"), store::Comparison::Equal, QString::fromLatin1(title)));
        };
        QVERIFY(
            base::colorFromString(tag("logo")->tagColor()).has_value()); // Of the label of the first file.
        QCOMPARE(tag("plain")->tagColor(), QString());
        QVERIFY(!tag("plain")->isEmptyAttribute(QLatin1String("tagColor")));
        QCOMPARE(tag("plain")->sortKey(), 7);
        QCOMPARE(tag("plain")->zoomValue(), 0.4);
        QCOMPARE(tag("Logo")->tagID(), known->tagID());
        const auto links = fixture.media(report.imported[0])->mediaTagList();
        QCOMPARE(links.size(), size_t(2));
        for (const auto& link : links) {
            QCOMPARE(link->mediaID(), report.imported[0]);
            QCOMPARE(link->tagID(), link->tags()->tagID());
        }
    }

    void keepsOneColourForEachRole()
    {
        ImportFixture fixture;
        fixture.analyse = [](const AnalysisRequest& request) {
            AnalysisResult result = sampleAnalysis(request);
            const base::ColorValue same{0.5F, 0.5F, 0.5F, 1.0F};
            result.colors = {
                {same, 0.4F}, {same, 0.3F}, {{1, 0, 0, 1}, 0.2F}, {{0, 1, 0, 1}, 0.1F}, {{0, 0, 1, 1}, 0.1F}};
            return result;
        };
        const ImportReport report = fixture.import(fixture.makeFiles(3));
        QCOMPARE(report.imported.size(), 3);
        QCOMPARE(fixture.recordCount(store::Colors::info()), 4); // The same colour in two roles is two.
        QCOMPARE(fixture.recordCount(store::ColorList::info()), 12);
        QMap<qint64, QString> byRole;
        for (const auto& link : fixture.media(report.imported[2])->colorList()) {
            byRole.insert(link->colorType(), link->colorID());
            QCOMPARE(link->colors()->colorType(), link->colorType());
            QCOMPARE(link->mediaID(), report.imported[2]);
        }
        QCOMPARE(byRole.keys(), QList<qint64>({0, 1, 2, 3}));
        QCOMPARE(byRole[0], QStringLiteral("0.500000+0.500000+0.500000+1.000000"));
        QCOMPARE(byRole[2], QStringLiteral("1.000000+0.000000+0.000000+1.000000"));
    }

    void refersInsteadOfCopying()
    {
        ImportFixture fixture;
        QStringList asked;
        fixture.askForFolder = [&asked](const QString& folder) {
            asked.append(folder);
            return folder;
        };
        const QString picture = fixture.makeFile(QStringLiteral("a.png"));
        const QString drawing = fixture.makeFile(QStringLiteral("chart.eps"));
        fixture.analyse = [](const AnalysisRequest& request) {
            AnalysisResult result = sampleAnalysis(request);
            if (request.type == DocumentType::Eps) {
                result.sideFile = "side";
                result.sideFileSuffix = QStringLiteral("_eps.png");
            }
            return result;
        };
        const ImportReport report = fixture.import(QStringList{picture, drawing}, false);
        QCOMPARE(report.imported.size(), 2);
        QCOMPARE(asked, QStringList{fixture.library.folder()}); // Once for the run.
        QVERIFY(report.accessListWritten);
        QVERIFY(
            store::AccessList::read(fixture.library.package()).entries().contains(fixture.library.folder()));
        const auto media = fixture.media(report.imported[0]);
        QCOMPARE(media->mediaPath(), QString());
        QCOMPARE(media->mediaOriginalPath(), picture);
        QVERIFY(QFileInfo::exists(masters(fixture) + media->mediaThumbPath()));
        const QString folderOfDrawing =
            masters(fixture) +
            QFileInfo(QFileInfo(fixture.media(report.imported[1])->mediaThumbPath()).path()).path();
        QCOMPARE(QDir(folderOfDrawing + QStringLiteral("/Originals")).entryList(QDir::Files),
                 QStringList{QStringLiteral("chart_eps.png")});
        QCOMPARE(fixture.media(report.imported[1])->mediaPath(), QString());
        QVERIFY(fixture.import(QStringList{picture}, false).failed.empty());
        QCOMPARE(asked.size(), 1); // The written grant holds.
    }

    void asksAgainAfterEveryRefusal()
    {
        ImportFixture fixture;
        int asked = 0;
        fixture.askForFolder = [&asked](const QString&) {
            ++asked;
            return QString();
        };
        const ImportReport refused = fixture.import(fixture.makeFiles(2), false);
        QCOMPARE(asked, 2);
        QCOMPARE(refused.failed.size(), size_t(2));
        QCOMPARE(fixture.itemFolders(), QStringList());
        fixture.askForFolder = nullptr;
        QCOMPARE(fixture.import(fixture.makeFiles(1), false).failed.size(), size_t(1));
        QVERIFY(!fixture.import(fixture.makeFiles(1)).accessListWritten);
    }

    void acceptsAGrantWithoutABookmark()
    {
        ImportFixture fixture;
        fixture.library.bookmarks().refused = {fixture.library.folder()};
        fixture.askForFolder = [](const QString& folder) { return folder; };
        QCOMPARE(fixture.import(fixture.makeFiles(1), false).imported.size(), 1);
    }

    void copiesForcedKindsInAnyMode_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("isCopied");
        for (int kind = 4; kind <= 15; ++kind) {
            QTest::addRow("%d", kind) << kind << (kind == 4 || kind == 7 || kind == 15);
        }
    }
    void copiesForcedKindsInAnyMode()
    {
        QFETCH(int, kind);
        QFETCH(bool, isCopied);
        ImportFixture fixture;
        fixture.askForFolder = [](const QString& folder) { return folder; };
        const QString path = fixture.makeFile(QStringLiteral("a.png"));
        const ImportReport report =
            fixture.import({ImportItem{path, {}, static_cast<MediaKind>(kind), true}}, false);
        QCOMPARE(report.imported.size(), 1);
        const auto media = fixture.media(report.imported[0]);
        QCOMPARE(!media->mediaPath().isEmpty(), isCopied);
        QCOMPARE(media->mediaKind(), kind);
    }

    void writesTheFieldsOfTheType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("hasSize");
        QTest::addColumn<bool>("hasResolution");
        QTest::newRow("bitmap") << 6 << true << true;
        QTest::newRow("PDF") << 0 << true << false;
        QTest::newRow("EPS") << 16 << true << false;
        QTest::newRow("design document") << 21 << false << false;
    }
    void writesTheFieldsOfTheType()
    {
        QFETCH(int, type);
        ImportFixture fixture;
        fixture.analyse = [type](const AnalysisRequest& request) {
            AnalysisResult result = sampleAnalysis(request);
            result.type = static_cast<DocumentType>(type);
            return result;
        };
        const ImportReport report = fixture.import(fixture.makeFiles(1));
        const auto media = fixture.media(report.imported.value(0));
        QVERIFY(media);
        QTEST(!media->isEmptyAttribute(QLatin1String("mediaWidth")), "hasSize");
        QTEST(!media->isEmptyAttribute(QLatin1String("imageDPI")), "hasResolution");
    }
};

QTEST_GUILESS_MAIN(ImportRecordTest)
#include "tst_importrecord.moc"
