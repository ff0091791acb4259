#include "base/Text.h"
#include "import/MRBrowserItem.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::MRBrowserItem;

class BrowserItemTest : public QObject {
    Q_OBJECT

private:
    test::TemporaryLibrary m_library;
    std::shared_ptr<store::Collections> m_collection = m_library.addCollection(u"Logos"_s);

    std::shared_ptr<store::Media> add(bool files = false)
    {
        return m_library.addMedia(u"A title"_s, m_collection, files);
    }
    QString masters() const { return m_library.package().masterDirPath(); }
    MRBrowserItem itemOf(const std::shared_ptr<store::Media>& media) const { return {media, masters()}; }

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        QLocale::setDefault(QLocale::c());
    }

    void subtitleFollowsTheSortKey()
    {
        const auto media = add();
        const QDateTime when({2020, 5, 17}, {14, 30});
        media->setMediaDateCreated(when);
        media->setMediaDateModified(when.addYears(1));
        media->setMediaDateImported(when.addYears(2));
        media->setMediaDateLastOpened(when.addYears(3));
        const auto date = [&when](int years) {
            return QLocale::c().toString(when.addYears(years), QLocale::ShortFormat);
        };
        const QString size = u"640 x 480"_s;
        QStringList expected{size, u"1 KB"_s, size};
        expected << base::text("Label.Width", u"640"_s) << base::text("Label.Height", u"480"_s);
        expected << date(0) << date(1) << date(2) << date(3) << size;
        MRBrowserItem item = itemOf(media);
        QCOMPARE(item.sortKey(), 7);
        for (int key = 0; key < expected.size(); ++key) {
            item.setSortKey(key);
            QCOMPARE(item.imageSubtitle(), expected[key]);
        }
    }

    void resolvesPaths()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        const QString folder = masters() + store::LibraryPackage::itemFolder(
                                               media->mediaDateImported().date(), media->mediaID());
        const QString original = folder + u"/Originals/file.png"_s;
        const QString preview = folder + u"/Preivew/preview.png"_s;
        QCOMPARE((QStringList{item.mediaPath(), item.mediaReadablePath(), item.thumbPath(), item.imageUID()}),
                 (QStringList{original, original, preview, preview}));
        QCOMPARE(item.itemFolderPath(), folder);
        QCOMPARE(item.mediaFilterSettingPath(), folder + u"/filters.plist"_s);
        QCOMPARE(item.mediaColorTablePath(), folder + u"/colorTables.plist"_s);
        QCOMPARE(item.fullSizePreviewPath(), QString());
        QCOMPARE(item.mediaFilename() + u' ' + item.mediaExtension(), u"file.png png"_s);
        QCOMPARE(item.mediaShareURL(), QUrl::fromLocalFile(original));
        QVERIFY(!item.isReferencedMedia() && !item.isReadableMediaAtPath() && !item.mediaFileIsModified());
    }

    void drawsTheSideFile()
    {
        const QString suffixes = u"11_raw.jpg 12_svg.png 15_ai.png 16_eps.png 17_afdesign.png 18_afphoto.png "
                                 "19_idraw.png 20_pxm.png 21_sketch.png 22_acorn.png"_s;
        for (const QString& row : suffixes.split(u' ')) {
            const auto media = add(true);
            media->setMediaDocumentType(row.left(2).toInt());
            const MRBrowserItem item = itemOf(media);
            QCOMPARE(item.fullSizePreviewPath(), item.itemFolderPath() + u"/Originals/file"_s + row.mid(2));
            QCOMPARE(item.mediaReadablePath(), item.thumbPath());
            test::writeFile(item.fullSizePreviewPath(), "side");
            QCOMPARE(item.mediaReadablePath(), item.fullSizePreviewPath());
            QCOMPARE(item.mediaURL(), QUrl::fromLocalFile(item.fullSizePreviewPath()));
        }
    }

    void readsReferencesWhereTheyAre()
    {
        const auto media = add();
        const QString source = m_library.folder() + u"/there.eps"_s;
        test::writeFile(source, "eps");
        media->setMediaPath(u""_s);
        media->setMediaOriginalPath(source);
        media->setMediaDocumentType(16);
        const MRBrowserItem item = itemOf(media);
        QVERIFY(item.isReferencedMedia() && item.isReadableMediaAtPath());
        QCOMPARE(item.mediaPath(), source);
        QCOMPARE(item.fullSizePreviewPath(), item.itemFolderPath() + u"/Originals/there_eps.png"_s);
        QVERIFY(item.thumbPath().startsWith(masters()));
    }

    void seesChangesOnTheDisk()
    {
        const auto media = add(true);
        const MRBrowserItem item = itemOf(media);
        const QFileInfo file(item.mediaPath());
        for (const auto& [size, seconds] : {std::pair(0, 0), {0, 5}, {1, 0}, {1, 5}}) {
            media->setMediaFileSize(file.size() + size);
            media->setMediaDateModified(file.lastModified().addSecs(seconds));
            QCOMPARE(item.mediaFileIsModified(), size == 1 && seconds == 5); // Not by one of them alone.
        }
        QFile::remove(item.mediaPath());
        QVERIFY(!item.mediaFileIsModified());
    }

    void tellsOfTheDocument()
    {
        const QStringList programs =
            u"Affinity Designer/Affinity Photo/iDraw/Pixelmator/Sketch/Acorn"_s.split(u'/');
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        for (int type = -1; type <= 26; ++type) {
            media->setMediaDocumentType(type);
            const QString program = programs.value(type - 17);
            const bool isThirdParty = !program.isEmpty();
            QCOMPARE(item.isThirdPartyFormat(), isThirdParty);
            QCOMPARE(item.isPDF(), type == 0);
            QCOMPARE(item.isMovieFile(), type >= 23 && type <= 25);
            QCOMPARE(item.imageSizeWithDocument(), isThirdParty ? program : u"640 x 480"_s);
            QCOMPARE(item.imageSize(), isThirdParty ? u"-----"_s : u"640 x 480"_s);
            QCOMPARE(item.imageHasAlphaAsString(), isThirdParty ? u"-----"_s : base::text("Basic.NO"));
            const QString badge = item.docSymbolBadge();
            QCOMPARE(badge.isEmpty(), type < 0 || type > 25);
            QCOMPARE(item.docSymbolRetinaBadge(), badge.isEmpty() ? QString() : badge + u"_R"_s);
            QVERIFY(!isThirdParty || badge == QString(program).remove(u' ') + u"_icon"_s);
        }
        for (const auto& [type, badge] :
             {std::pair(0, "PDF"_L1), {7, "PICT"_L1}, {16, "EPS"_L1}, {23, "MOV"_L1}, {25, "MP4"_L1}}) {
            media->setMediaDocumentType(type);
            QCOMPARE(item.docSymbolBadge(), badge);
        }
    }

    void formatsLabelsAndRatings()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        const QStringList labels = u"/RED/ORANGE/YELLOW/GREEN/BLUE/PURPLE/GRAY/"_s.split(u'/');
        for (int label = 0; label < labels.size(); ++label) {
            media->setMediaLabel(label);
            QCOMPARE(item.labelSymbolBadge(), labels[label]);
        }
        for (const auto& [rating, text] :
             {std::pair(0, base::text("Basic.None")), {6, QString()}, {3, u"★★★"_s}}) {
            media->setMediaRating(rating);
            QCOMPARE(item.mediaRatingAsString(), text);
        }
        QCOMPARE(item.mediaRatingAsShortString(), u"★ 3"_s);
        media->setImageDPI(71.9);
        QCOMPARE(item.imageDPIAsString(), u"71 pixel/inch"_s);
        media->setMediaWidth(1e300);
        QCOMPARE(item.width(), 0);
    }

    void showsOnlyWebAddresses()
    {
        for (const auto& [address, shown] : {std::pair(u"http://a"_s, u"http://a"_s),
                                             {u"https://a"_s, u"https://a"_s},
                                             {u"ftp://a"_s, {}},
                                             {u"http:a"_s, {}}}) {
            const auto media = add();
            QVERIFY(!itemOf(media).hasURLInfo());
            media->setMediaWeburl(address);
            QVERIFY(itemOf(media).hasURLInfo());
            QCOMPARE(itemOf(media).url(), shown);
        }
    }

    void findsRelations()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        QCOMPARE(item.backgroundColorAsString() + item.detailColorAsString(), QString());
        m_library.link(media, m_library.addTag(u"one"_s));
        m_library.link(media, m_library.addColor(u"c0"_s, 0));
        m_library.link(media, m_library.addColor(u"c3"_s, 3));
        QCOMPARE(item.tagsWithName(), QStringList{u"one"_s});
        QCOMPARE(item.backgroundColorAsString(), u"c0"_s);
        QCOMPARE(item.primaryColorAsString(), QString());
        QCOMPARE(item.detailColorAsString(), u"c3"_s);
        QCOMPARE(item.colors().size(), size_t(2));
        QCOMPARE(item.collectionTitle(), u"Logos"_s);
        QCOMPARE(item.collectionMediaCount(), m_collection->mediaCount());
        QVERIFY(!item.hasThumbBackground());
        media->setMediaOtherInfo({{u"BackgroundColor"_s, u"1.0+0.5+0.0+1.0"_s}});
        QCOMPARE(item.thumbBackgroundColor()->green, 0.5F);
    }

    void isEmptyWithoutARecordOrALibrary()
    {
        const MRBrowserItem item(nullptr, masters());
        QCOMPARE(item.mediaKindType(), 15);
        QCOMPARE(item.mediaPath() + item.thumbPath() + item.title() + item.imageSubtitle() +
                     item.imageSize() + item.docSymbolBadge() + item.fileSizeAsString() +
                     item.itemFolderPath() + item.mediaReadablePath(),
                 QString());
        QVERIFY(item.mediaURL().isEmpty() && item.tagsWithName().isEmpty() && !item.thumbBackgroundColor());
        const MRBrowserItem homeless(add(true), QString());
        QVERIFY(QFileInfo(homeless.mediaPath()).isRelative());
        QVERIFY(!item.isReadableMediaAtPath() && !homeless.isReadableMediaAtPath());
    }
};

QTEST_GUILESS_MAIN(BrowserItemTest)
#include "tst_browseritem.moc"
