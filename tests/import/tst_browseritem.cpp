#include "base/Text.h"
#include "import/MRBrowserItem.h"
#include "support/TemporaryLibrary.h"

#include <QLocale>
#include <QTest>

using namespace mosaro;
using importing::MRBrowserItem;

class BrowserItemTest : public QObject {
    Q_OBJECT

private:
    test::TemporaryLibrary m_library;
    std::shared_ptr<store::Collections> m_collection = m_library.addCollection(QStringLiteral("Logos"));

    std::shared_ptr<store::Media> add(bool files = false)
    {
        return m_library.addMedia(QStringLiteral("A title"), m_collection, files);
    }
    MRBrowserItem itemOf(const std::shared_ptr<store::Media>& media)
    {
        return {media, m_library.package().masterDirPath()};
    }

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        QLocale::setDefault(QLocale::c());
    }

    void subtitleFollowsTheSortKey_data()
    {
        QTest::addColumn<int>("sortKey");
        QTest::addColumn<QString>("expected");
        const QString date = QLocale::c().toString(QDateTime({2020, 5, 17}, {14, 30}), QLocale::ShortFormat);
        QTest::newRow("title") << 0 << QStringLiteral("640 x 480");
        QTest::newRow("size") << 1 << QStringLiteral("1 KB");
        QTest::newRow("rating") << 2 << QStringLiteral("640 x 480");
        QTest::newRow("width") << 3 << base::text("Label.Width", QStringLiteral("640"));
        QTest::newRow("height") << 4 << base::text("Label.Height", QStringLiteral("480"));
        QTest::newRow("created") << 5 << date;
        QTest::newRow("modified") << 6 << date;
        QTest::newRow("imported") << 7 << date;
        QTest::newRow("opened") << 8 << date;
        QTest::newRow("unknown") << 9 << QStringLiteral("640 x 480");
    }
    void subtitleFollowsTheSortKey()
    {
        QFETCH(int, sortKey);
        const auto media = add();
        const QDateTime date({2020, 5, 17}, {14, 30});
        media->setMediaDateCreated(date);
        media->setMediaDateModified(date);
        media->setMediaDateImported(date);
        media->setMediaDateLastOpened(date);
        MRBrowserItem item = itemOf(media);
        QCOMPARE(item.sortKey(), 7);
        item.setSortKey(sortKey);
        QTEST(item.imageSubtitle(), "expected");
    }

    void resolvesPaths()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        const QString folder =
            m_library.package().masterDirPath() +
            store::LibraryPackage::itemFolder(media->mediaDateImported().date(), media->mediaID());
        QCOMPARE(item.mediaPath(), folder + QStringLiteral("/Originals/file.png"));
        QCOMPARE(item.thumbPath(), folder + QStringLiteral("/Preivew/preview.png"));
        QCOMPARE(item.imageUID(), item.thumbPath());
        QCOMPARE(item.itemFolderPath(), folder);
        QCOMPARE(item.mediaFilterSettingPath(), folder + QStringLiteral("/filters.plist"));
        QCOMPARE(item.mediaColorTablePath(), folder + QStringLiteral("/colorTables.plist"));
        QCOMPARE(item.mediaReadablePath(), item.mediaPath());
        QCOMPARE(item.fullSizePreviewPath(), QString());
        QCOMPARE(item.mediaFilename(), QStringLiteral("file.png"));
        QCOMPARE(item.mediaExtension(), QStringLiteral("png"));
        QCOMPARE(item.mediaShareURL(), QUrl::fromLocalFile(item.mediaPath()));
        QVERIFY(!item.isReferencedMedia());
        QVERIFY(!item.isReadableMediaAtPath());
        QVERIFY(!item.mediaFileIsModified());
    }

    void drawsTheSideFile_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("suffix");
        const QStringList suffixes{QStringLiteral("11 _raw.jpg"),      QStringLiteral("12 _svg.png"),
                                   QStringLiteral("15 _ai.png"),       QStringLiteral("16 _eps.png"),
                                   QStringLiteral("17 _afdesign.png"), QStringLiteral("18 _afphoto.png"),
                                   QStringLiteral("19 _idraw.png"),    QStringLiteral("20 _pxm.png"),
                                   QStringLiteral("21 _sketch.png"),   QStringLiteral("22 _acorn.png")};
        for (const QString& row : suffixes) {
            QTest::newRow(qPrintable(row)) << row.section(u' ', 0, 0).toInt() << row.section(u' ', 1);
        }
    }
    void drawsTheSideFile()
    {
        QFETCH(int, type);
        QFETCH(QString, suffix);
        const auto media = add(true);
        media->setMediaDocumentType(type);
        const MRBrowserItem item = itemOf(media);
        QCOMPARE(item.fullSizePreviewPath(),
                 item.itemFolderPath() + QStringLiteral("/Originals/file") + suffix);
        QCOMPARE(item.mediaReadablePath(), item.thumbPath());
        test::writeFile(item.fullSizePreviewPath(), "side");
        QCOMPARE(item.mediaReadablePath(), item.fullSizePreviewPath());
        QCOMPARE(item.mediaURL(), QUrl::fromLocalFile(item.fullSizePreviewPath()));
    }

    void readsReferencesWhereTheyAre()
    {
        const auto media = add();
        const QString source = m_library.folder() + QStringLiteral("/there.eps");
        test::writeFile(source, "eps");
        media->setMediaPath(QStringLiteral(""));
        media->setMediaOriginalPath(source);
        media->setMediaDocumentType(16);
        const MRBrowserItem item = itemOf(media);
        QVERIFY(item.isReferencedMedia());
        QVERIFY(item.isReadableMediaAtPath());
        QCOMPARE(item.mediaPath(), source);
        QCOMPARE(item.fullSizePreviewPath(),
                 item.itemFolderPath() + QStringLiteral("/Originals/there_eps.png"));
        QVERIFY(item.thumbPath().startsWith(m_library.package().masterDirPath()));
    }

    void seesChangesOnTheDisk_data()
    {
        QTest::addColumn<int>("sizeOffset");
        QTest::addColumn<int>("secondsOffset");
        QTest::addColumn<bool>("isModified");
        QTest::newRow("the same") << 0 << 0 << false;
        QTest::newRow("touched") << 0 << 5 << false;
        QTest::newRow("size alone") << 1 << 0 << false;
        QTest::newRow("both") << 1 << 5 << true;
    }
    void seesChangesOnTheDisk()
    {
        QFETCH(int, sizeOffset);
        QFETCH(int, secondsOffset);
        const auto media = add(true);
        const MRBrowserItem item = itemOf(media);
        const QFileInfo file(item.mediaPath());
        media->setMediaFileSize(file.size() + sizeOffset);
        media->setMediaDateModified(file.lastModified().addSecs(secondsOffset));
        QTEST(item.mediaFileIsModified(), "isModified");
        QFile::remove(item.mediaPath());
        QVERIFY(!item.mediaFileIsModified());
    }

    void tellsOfTheDocument_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("sizeWithDocument");
        QTest::addColumn<bool>("isThirdParty");
        const char* const badges[] = {"PDF", "JPG", "JP2", "TIF", "PICT", "GIF", "PNG", "PICT", "ICNS",
                                      "BMP", "ICO", "RAW", "SVG", "TGA",  "PSD", "AI",  "EPS"};
        const QString plain = QStringLiteral("640 x 480");
        for (int type = 0; type < 17; ++type) {
            QTest::addRow("%d", type) << type << QString::fromLatin1(badges[type]) << plain << false;
        }
        QTest::newRow("17") << 17 << QStringLiteral("AffinityDesigner_icon")
                            << QStringLiteral("Affinity Designer") << true;
        QTest::newRow("18") << 18 << QStringLiteral("AffinityPhoto_icon") << QStringLiteral("Affinity Photo")
                            << true;
        QTest::newRow("19") << 19 << QStringLiteral("iDraw_icon") << QStringLiteral("iDraw") << true;
        QTest::newRow("20") << 20 << QStringLiteral("Pixelmator_icon") << QStringLiteral("Pixelmator")
                            << true;
        QTest::newRow("21") << 21 << QStringLiteral("Sketch_icon") << QStringLiteral("Sketch") << true;
        QTest::newRow("22") << 22 << QStringLiteral("Acorn_icon") << QStringLiteral("Acorn") << true;
        QTest::newRow("23") << 23 << QStringLiteral("MOV") << plain << false;
        QTest::newRow("24") << 24 << QStringLiteral("M4V") << plain << false;
        QTest::newRow("25") << 25 << QStringLiteral("MP4") << plain << false;
        QTest::newRow("26") << 26 << QString() << plain << false;
        QTest::newRow("-1") << -1 << QString() << plain << false;
    }
    void tellsOfTheDocument()
    {
        QFETCH(int, type);
        QFETCH(QString, badge);
        QFETCH(bool, isThirdParty);
        const auto media = add();
        media->setMediaDocumentType(type);
        const MRBrowserItem item = itemOf(media);
        QCOMPARE(item.docSymbolBadge(), badge);
        QCOMPARE(item.docSymbolRetinaBadge(), badge.isEmpty() ? QString() : badge + QStringLiteral("_R"));
        QTEST(item.imageSizeWithDocument(), "sizeWithDocument");
        QCOMPARE(item.isThirdPartyFormat(), isThirdParty);
        QCOMPARE(item.imageSize(), isThirdParty ? QStringLiteral("-----") : QStringLiteral("640 x 480"));
        QCOMPARE(item.imageHasAlphaAsString(),
                 isThirdParty ? QStringLiteral("-----") : base::text("Basic.NO"));
        QCOMPARE(item.isPDF(), type == 0);
        QCOMPARE(item.isMovieFile(), type >= 23 && type <= 25);
    }

    void formatsLabelsAndRatings()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        const QStringList labels{QString(),
                                 QStringLiteral("RED"),
                                 QStringLiteral("ORANGE"),
                                 QStringLiteral("YELLOW"),
                                 QStringLiteral("GREEN"),
                                 QStringLiteral("BLUE"),
                                 QStringLiteral("PURPLE"),
                                 QStringLiteral("GRAY"),
                                 QString()};
        for (int label = 0; label < labels.size(); ++label) {
            media->setMediaLabel(label);
            QCOMPARE(item.labelSymbolBadge(), labels[label]);
        }
        media->setMediaRating(0);
        QCOMPARE(item.mediaRatingAsString(), base::text("Basic.None"));
        media->setMediaRating(3);
        QCOMPARE(item.mediaRatingAsString(), QStringLiteral("★★★"));
        QCOMPARE(item.mediaRatingAsShortString(), QStringLiteral("★ 3"));
        media->setMediaRating(6);
        QCOMPARE(item.mediaRatingAsString(), QString());
        media->setImageDPI(71.9);
        QCOMPARE(item.imageDPIAsString(), QStringLiteral("71 pixel/inch"));
        media->setMediaWidth(1e300);
        QCOMPARE(item.width(), 0);
    }

    void showsOnlyWebAddresses_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isShown");
        QTest::newRow("http") << QStringLiteral("http://a") << true;
        QTest::newRow("https") << QStringLiteral("https://a") << true;
        QTest::newRow("ftp") << QStringLiteral("ftp://a") << false;
        QTest::newRow("no slashes") << QStringLiteral("http:a") << false;
    }
    void showsOnlyWebAddresses()
    {
        QFETCH(QString, address);
        QFETCH(bool, isShown);
        const auto media = add();
        QVERIFY(!itemOf(media).hasURLInfo());
        media->setMediaWeburl(address);
        QVERIFY(itemOf(media).hasURLInfo());
        QCOMPARE(itemOf(media).url(), isShown ? address : QString());
    }

    void findsRelations()
    {
        const auto media = add();
        const MRBrowserItem item = itemOf(media);
        QCOMPARE(item.backgroundColorAsString() + item.detailColorAsString(), QString());
        m_library.link(media, m_library.addTag(QStringLiteral("one")));
        m_library.link(media, m_library.addColor(QStringLiteral("c0"), 0));
        m_library.link(media, m_library.addColor(QStringLiteral("c3"), 3));
        QCOMPARE(item.tagsWithName(), QStringList{QStringLiteral("one")});
        QCOMPARE(item.backgroundColorAsString(), QStringLiteral("c0"));
        QCOMPARE(item.primaryColorAsString(), QString());
        QCOMPARE(item.detailColorAsString(), QStringLiteral("c3"));
        QCOMPARE(item.colors().size(), size_t(2));
        QCOMPARE(item.collectionTitle(), QStringLiteral("Logos"));
        QCOMPARE(item.collectionMediaCount(), m_collection->mediaCount());
        QVERIFY(!item.hasThumbBackground());
        media->setMediaOtherInfo({{QStringLiteral("BackgroundColor"), QStringLiteral("1.0+0.5+0.0+1.0")}});
        QCOMPARE(item.thumbBackgroundColor()->green, 0.5F);
    }

    void isEmptyWithoutARecord()
    {
        const MRBrowserItem item(nullptr, m_library.package().masterDirPath());
        QCOMPARE(item.mediaKindType(), 15);
        QCOMPARE(item.mediaPath() + item.thumbPath() + item.title() + item.imageSubtitle() +
                     item.imageSize() + item.docSymbolBadge() + item.fileSizeAsString() +
                     item.itemFolderPath() + item.mediaReadablePath(),
                 QString());
        QVERIFY(item.mediaURL().isEmpty());
        QVERIFY(!item.isReadableMediaAtPath());
        QVERIFY(item.tagsWithName().isEmpty());
        QVERIFY(!item.thumbBackgroundColor());
    }

    void readsNothingWithoutALibrary()
    {
        const MRBrowserItem item(add(true), QString());
        QVERIFY(QFileInfo(item.mediaPath()).isRelative());
        QVERIFY(!item.isReadableMediaAtPath());
    }
};

QTEST_GUILESS_MAIN(BrowserItemTest)
#include "tst_browseritem.moc"
