// What an import writes of one file: record, links, files.
#include "import/ImportFixture.h"
#include "store/ColorList.h"
#include "store/MediaTagList.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;
using test::ImportFixture;

class ImportRecordTest : public QObject {
    Q_OBJECT

private:
    /// The record of an import of one file, that must succeed.
    static std::shared_ptr<store::Media> imported(ImportFixture& fixture, const ImportItem& item,
                                                  bool copyMode = true)
    {
        const ImportReport report = fixture.import({item}, copyMode);
        if (report.imported.size() != 1)
            qFatal("the import fails");
        return fixture.media(report.imported[0]);
    }

private Q_SLOTS:
    void fillsTheRecord()
    {
        ImportFixture fixture;
        const QString path = fixture.makeFile(u"My Picture.v2.png"_s, "12345");
        fixture.index.entries[path] = {u"https://from.example/x"_s, u"a comment"_s, {}, 6};
        fixture.changeAnalysis([](AnalysisResult& result) {
            result.metadata = {1200, 800, 144.5, 8, true, u"RGB"_s, u"sRGB"_s, u"Brush 3"_s};
            result.hasFrames = true;
        });
        const QDateTime before = QDateTime::currentDateTime();
        const QString id = imported(fixture, ImportItem::fromPath(path))->mediaID();
        QVERIFY(fixture.library.reopen());
        const auto media = fixture.media(id);
        QCOMPARE(id.size(), 36);
        QCOMPARE(id, id.toUpper());
        const auto collection = media->collections();
        const QString folder = store::LibraryPackage::itemFolder(before.date(), id);
        const std::pair<QString, QString> texts[] = {
            {media->mediaPID(), collection->collectionID()},
            {collection->title(), u"Target"_s},
            {media->mediaOriginalPath(), path},
            {media->mediaPath(), folder + u"/Originals/My Picture.v2.png"_s},
            {media->mediaThumbPath(), folder + u"/Preivew/preview.png"_s},
            {media->mediaTitle(), u"My Picture.v2"_s},
            {media->mediaNotes(), u"a comment"_s},
            {media->mediaWeburl(), u"https://from.example/x"_s},
            {media->imageColorModel(), u"RGB"_s},
            {media->imageProfile(), u"sRGB"_s},
            {media->mediaSoftware(), u"Brush 3"_s}};
        for (const auto& [text, expected] : texts)
            QCOMPARE(text, expected);
        const std::pair<qint64, qint64> numbers[] = {
            {media->mediaDocumentType(), 6}, {media->mediaFileSize(), 5}, {media->mediaRating(), 0},
            {media->mediaLabel(), 1},        {media->mediaKind(), 15},    {media->imageDepth(), 8}};
        for (const auto& [number, expected] : numbers)
            QCOMPARE(number, expected);
        QCOMPARE(QSizeF(media->mediaWidth(), media->mediaHeight()), QSizeF(1200, 800));
        QCOMPARE(media->imageDPI(), 144.5);
        QVERIFY(media->imageHasFrames() && media->imageHasAlpha());
        QVERIFY(!media->isEmptyAttribute("mediaRating"_L1));
        QCOMPARE(media->mediaDateModified(), QFileInfo(path).lastModified());
        QVERIFY(media->mediaDateCreated().isValid());
        QVERIFY(media->mediaDateImported() >= before && collection->dateModified() >= before);
        QCOMPARE(media->mediaDateLastOpened(), media->mediaDateImported());
        QCOMPARE(test::fileContents(fixture.masters() + media->mediaPath()), "12345"_ba);
        QCOMPARE(test::fileContents(fixture.masters() + media->mediaThumbPath()),
                 "preview of My Picture.v2.png"_ba);
    }

    void leavesEmptyWhatTheFileDoesNotSay()
    {
        ImportFixture fixture;
        const auto media = imported(fixture, ImportItem::fromPath(fixture.makeFile(u"a.png"_s)));
        for (const auto name :
             {"imageHasFrames"_L1, "mediaSoftware"_L1, "mediaWeburl"_L1, "mediaOtherInfo"_L1, "pdfTitle"_L1})
            QVERIFY2(media->isEmptyAttribute(name), name.data());
        for (const auto name : {"mediaCopyright"_L1, "mediaNotes"_L1, "imageProfile"_L1})
            QVERIFY2(!media->isEmptyAttribute(name), name.data());
    }

    void choosesTheAddress()
    {
        ImportFixture fixture;
        const QString path = fixture.makeFile(u"a.png"_s);
        const QString item = u"http://item"_s;
        const std::pair<QString, QString> rows[] = {{u"http://file"_s, u"http://file"_s},
                                                    {u"HTTP://FILE"_s, u"HTTP://FILE"_s},
                                                    {u"Http://file"_s, item},
                                                    {u"ftp://file"_s, item},
                                                    {QString(), item}};
        for (const auto& [whereFrom, expected] : rows) {
            fixture.index.entries[path].whereFrom = whereFrom;
            QCOMPARE(imported(fixture, {path, item, MediaKind::Web, true})->mediaWeburl(), expected);
        }
    }

    void sharesTagsByExactTitle()
    {
        ImportFixture fixture;
        const auto known = fixture.library.addTag(u"Logo"_s);
        const QStringList files = fixture.makeFiles(2);
        fixture.index.entries[files[0]] = {{}, {}, {u"Logo"_s, u"logo"_s, u"Logo"_s, QString()}, 6};
        fixture.index.entries[files[1]] = {{}, {}, {u"logo"_s, u"plain"_s}, 0};
        const ImportReport report = fixture.import(files);
        QCOMPARE(report.imported.size(), 2);
        QCOMPARE(fixture.recordCount(store::Tags::info()), 3);
        QCOMPARE(fixture.recordCount(store::MediaTagList::info()), 4);
        const auto tag = [&fixture](const char* title) {
            return fixture.library.context().first<store::Tags>(
                store::Predicate::compare("title"_L1, store::Comparison::Equal, QString::fromLatin1(title)));
        };
        QVERIFY(base::colorFromString(tag("logo")->tagColor())); // Of the label of the first file.
        QCOMPARE(tag("plain")->tagColor(), QString());
        QVERIFY(!tag("plain")->isEmptyAttribute("tagColor"_L1));
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
        fixture.changeAnalysis([](AnalysisResult& result) {
            const base::ColorValue same{0.5F, 0.5F, 0.5F, 1.0F};
            result.colors = {
                {same, 0.4F}, {same, 0.3F}, {{1, 0, 0, 1}, 0.2F}, {{0, 1, 0, 1}, 0.1F}, {{0, 0, 1, 1}, 0.1F}};
        });
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
        QCOMPARE(byRole[0], u"0.500000+0.500000+0.500000+1.000000"_s);
        QCOMPARE(byRole[2], u"1.000000+0.000000+0.000000+1.000000"_s);
    }

    void refersInsteadOfCopying()
    {
        ImportFixture fixture;
        QStringList asked;
        fixture.askForFolder = [&asked](const QString& folder) {
            asked.append(folder);
            return folder;
        };
        const QString picture = fixture.makeFile(u"a.png"_s);
        const QString drawing = fixture.makeFile(u"chart.eps"_s);
        fixture.changeAnalysis([](AnalysisResult& result) {
            if (result.type == DocumentType::Eps) {
                result.sideFile = "side";
                result.sideFileSuffix = u"_eps.png"_s;
            }
        });
        const ImportReport report = fixture.import(QStringList{picture, drawing}, false);
        QCOMPARE(report.imported.size(), 2);
        QCOMPARE(asked, QStringList{fixture.library.folder()}); // Once for the run.
        QVERIFY(report.accessListWritten);
        const auto grants = store::AccessList::read(fixture.library.package());
        QVERIFY(grants.entries().contains(fixture.library.folder()));
        const auto first = fixture.media(report.imported[0]);
        const auto second = fixture.media(report.imported[1]);
        QCOMPARE(first->mediaOriginalPath(), picture);
        QVERIFY(first->mediaPath().isEmpty() && second->mediaPath().isEmpty());
        QVERIFY(QFileInfo::exists(fixture.masters() + first->mediaThumbPath()));
        const QDir previews = QFileInfo(fixture.masters() + second->mediaThumbPath()).dir();
        QCOMPARE(QDir(previews.filePath(u"../Originals"_s)).entryList(QDir::Files),
                 QStringList{u"chart_eps.png"_s});
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
        fixture.library.bookmarks().refused = {
            fixture.library.folder()}; // A grant without a bookmark will do.
        fixture.askForFolder = [](const QString& folder) { return folder; };
        QCOMPARE(fixture.import(fixture.makeFiles(1), false).imported.size(), 1);
    }

    void copiesForcedKindsInAnyMode()
    {
        ImportFixture fixture;
        fixture.askForFolder = [](const QString& folder) { return folder; };
        const QString path = fixture.makeFile(u"a.png"_s);
        for (int kind = 4; kind <= 15; ++kind) {
            const auto media = imported(fixture, {path, {}, static_cast<MediaKind>(kind), true}, false);
            QVERIFY2(media->mediaPath().isEmpty() == (kind != 4 && kind != 7 && kind != 15),
                     qPrintable(QString::number(kind)));
            QCOMPARE(media->mediaKind(), kind);
        }
    }

    void writesTheFieldsOfTheType()
    {
        ImportFixture fixture;
        const QString path = fixture.makeFile(u"a.png"_s);
        using enum DocumentType;
        // Whether there is a size, and a resolution.
        const std::tuple<DocumentType, bool, bool> rows[] = {
            {Png, true, true}, {Pdf, true, false}, {Eps, true, false}, {Sketch, false, false}};
        for (const auto& [type, hasSize, hasResolution] : rows) {
            fixture.changeAnalysis([type = type](AnalysisResult& result) { result.type = type; });
            const auto media = imported(fixture, ImportItem::fromPath(path));
            QCOMPARE(!media->isEmptyAttribute("mediaWidth"_L1), hasSize);
            QCOMPARE(!media->isEmptyAttribute("imageDPI"_L1), hasResolution);
        }
    }
};

QTEST_GUILESS_MAIN(ImportRecordTest)
#include "tst_importrecord.moc"
