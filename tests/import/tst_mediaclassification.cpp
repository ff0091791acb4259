#include "import/MediaClassification.h"

#include "base/Text.h"
#include "support/FakePlatform.h"
#include "support/Pictures.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace mosaro;
using importing::DocumentType;
using importing::MediaClassification;
using importing::MediaKind;

namespace {

class tst_MediaClassification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void typeOfExtension_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<int>("type"); // -1: not accepted
        const auto row = [](const char* extension, int type) {
            QTest::newRow(extension) << QString::fromLatin1(extension) << type;
        };
        row("pdf", 0);
        row("JPG", 1);
        row("jpeg", 1);
        row("jpf", 2);
        row("tiff", 3);
        row("pct", 4);
        row("Gif", 5);
        row("png", 6);
        row("qtif", 7);
        row("icns", 8);
        row("bmp", 9);
        row("ico", 10);
        for (const char* raw : {"cr2", "NEF", "arw", "dng", "orf", "rw2", "raf", "pef", "srw", "crw"})
            row(raw, 11);
        row("svg", 12);
        row("vda", 13);
        row("psd", 14);
        row("ai", 15);
        row("ps", 16);
        row("epsf", 16);
        row("heic", -1);
        row("mp4", -1);
        row("txt", -1);
        row("", -1);
        row("sketch", -1);
        row("afdesign", -1);
    }
    void typeOfExtension()
    {
        QFETCH(QString, extension);
        QFETCH(int, type);
        const auto found = m_classification.documentTypeForExtension(extension);
        QCOMPARE(found ? static_cast<int>(*found) : -1, type);
    }

    // What the fixed extensions do not know, the desktop's database may; the earlier row wins.
    void typeByDesktopDatabase()
    {
        test::FakeTypes types;
        types.mimeTypes = {{QStringLiteral("fx"), QStringLiteral("image/x-both")},
                           {QStringLiteral("newraw"), QStringLiteral("image/x-newraw")},
                           {QStringLiteral("tgb"), QStringLiteral("image/x-tga-child")},
                           {QStringLiteral("dng"), QStringLiteral("image/x-adobe-dng")}};
        types.ancestors = {
            {QStringLiteral("image/x-both"), {QStringLiteral("image/x-dcraw"), QStringLiteral("image/tiff")}},
            {QStringLiteral("image/x-newraw"), {QStringLiteral("image/x-dcraw")}},
            {QStringLiteral("image/x-tga-child"), {QStringLiteral("image/x-tga")}},
            {QStringLiteral("image/x-adobe-dng"), {QStringLiteral("image/tiff")}}};
        const MediaClassification classification(types, m_thumbnailers);
        QCOMPARE(classification.documentTypeForExtension(QStringLiteral("fx")), DocumentType::Tiff);
        QCOMPARE(classification.documentTypeForExtension(QStringLiteral("newraw")), DocumentType::Raw);
        QVERIFY(!classification.documentTypeForExtension(QStringLiteral("tgb"))); // must be the type itself
        QCOMPARE(classification.documentTypeForExtension(QStringLiteral("dng")), DocumentType::Raw);
    }

    void designDocuments_data()
    {
        QTest::addColumn<QStringList>("thumbnailers");
        QTest::addColumn<bool>("sharedType"); // the desktop gives the documents of both applications one type
        QTest::addColumn<int>("afdesign");
        QTest::addColumn<int>("afphoto");
        const QString designer = QStringLiteral("application/x-affinity-designer");
        const QString photo = QStringLiteral("application/x-affinity-photo");
        QTest::newRow("none") << QStringList() << false << -1 << -1;
        QTest::newRow("none, shared") << QStringList() << true << -1 << -1;
        QTest::newRow("designer") << QStringList{designer} << false << 17 << -1;
        QTest::newRow("photo") << QStringList{photo} << false << -1 << 18;
        QTest::newRow("designer vouches") << QStringList{designer} << true << 17 << 18;
        QTest::newRow("photo vouches") << QStringList{photo} << true << 17 << 18;
    }
    void designDocuments()
    {
        QFETCH(QStringList, thumbnailers);
        QFETCH(bool, sharedType);
        QFETCH(int, afdesign);
        QFETCH(int, afphoto);
        test::FakeTypes types;
        if (sharedType) {
            for (const char* extension : {"afdesign", "afphoto", "aftemplate"})
                types.mimeTypes[QString::fromLatin1(extension)] = QStringLiteral("application/x-affinity");
        }
        test::FakeThumbnailers lookup;
        lookup.installed = thumbnailers;
        const MediaClassification classification(types, lookup);
        const auto number = [&](const char* extension) {
            const auto type = classification.documentTypeForExtension(QString::fromLatin1(extension));
            return type ? static_cast<int>(*type) : -1;
        };
        QCOMPARE(number("afdesign"), afdesign);
        QCOMPARE(number("AFDESIGN"), afdesign);
        QCOMPARE(number("afphoto"), afphoto);
        QCOMPARE(number("aftemplate"), -1);
    }

    void allowedMediaFollowsWhatIsInstalled()
    {
        const QStringList fixed = m_classification.allowedMedia();
        QCOMPARE(fixed.size(), 32);
        QCOMPARE(fixed.mid(0, 4).join(u' '), QStringLiteral("gif GIF jpg JPG"));
        QCOMPARE(fixed.last(), QStringLiteral("TGA"));
        QVERIFY(!fixed.contains(QStringLiteral("cr2")));

        test::FakeThumbnailers lookup;
        lookup.installed =
            QStringList{QStringLiteral("application/x-sketch"), QStringLiteral("application/x-idraw")};
        const MediaClassification classification(m_types, lookup);
        QCOMPARE(classification.allowedMedia().mid(32).join(u' '),
                 QStringLiteral("idraw IDRAW sketch SKETCH"));
        QVERIFY(classification.installedSketch());
        QVERIFY(!classification.installedAcorn());
    }

    void absentFilesHaveNoType()
    {
        QTemporaryDir folder;
        const QString pdf = folder.filePath(QStringLiteral("a.PDF"));
        const QString unknown = folder.filePath(QStringLiteral("a.xyz"));
        QVERIFY(test::writeBytes(pdf, "%PDF") && test::writeBytes(unknown, "?"));
        QCOMPARE(m_classification.mediaContentType(pdf), QStringLiteral("Portable Document Format (PDF)"));
        QCOMPARE(m_classification.mediaContentTypeAsInteger(pdf), 0);
        QCOMPARE(m_classification.mediaContentType(unknown), QString());
        QCOMPARE(m_classification.mediaContentTypeAsInteger(unknown), 0);
        QCOMPARE(m_classification.mediaContentType(folder.filePath(QStringLiteral("gone.png"))), QString());
        QCOMPARE(m_classification.mediaContentType({}), QString());
    }

    void kindOfPath_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("kind");
        const auto row = [](const char* title, const char* name, QSize size, MediaKind kind) {
            QTest::newRow(title) << QString::fromLatin1(name) << size << static_cast<int>(kind);
        };
        row("wallpaper", "a.png", {2560, 1440}, MediaKind::Wallpaper);
        row("phone beats wallpaper", "a.png", {1920, 1080}, MediaKind::Phone);
        row("phone beats wallpaper, upright", "a.png", {1080, 1920}, MediaKind::Phone);
        row("tablet beats wallpaper", "a.png", {1024, 768}, MediaKind::Tablet);
        row("tablet", "a.png", {768, 1024}, MediaKind::Tablet);
        row("square phone", "a.png", {1440, 1440}, MediaKind::Phone);
        row("turned table row is another", "a.png", {1440, 2560}, MediaKind::Other);
        row("1600 by 2560", "a.png", {1600, 2560}, MediaKind::Other);
        row("1600 by 2569", "a.png", {1600, 2569}, MediaKind::Wallpaper);
        row("icon before size", "a.ico", {1024, 768}, MediaKind::Icon);
        row("icns", "a.icns", {512, 512}, MediaKind::Icon);
        row("pdf", "a.pdf", {1920, 1080}, MediaKind::Pdf);
        row("no format", "a.xyz", {1920, 1080}, MediaKind::Phone);
        row("absent", "gone/a.png", {1920, 1080}, MediaKind::Other);
    }
    void kindOfPath()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        QFETCH(int, kind);
        QTemporaryDir folder;
        const QString path = folder.filePath(name);
        if (!name.startsWith(QLatin1String("gone")))
            QVERIFY(test::writeBytes(path, "x"));
        QCOMPARE(m_classification.mediaKindOfPath(path, size), kind);
    }

    void tablesKeepTheirOddities()
    {
        QCOMPARE(MediaClassification::phoneResolutions().size(), 28);
        QCOMPARE(MediaClassification::phoneResolutions().count(QStringLiteral("{480, 800}")), 2);
        QCOMPARE(MediaClassification::tabletResolutions().size(), 6);
        QCOMPARE(MediaClassification::wallpaperResolutions().size(), 26);
        QCOMPARE(MediaClassification::wallpaperResolutions().count(QStringLiteral("{2560, 1440}")), 2);
        QCOMPARE(MediaClassification::wallpaperResolutions().at(22), QStringLiteral("{1600, 2569}"));
    }

    void textsAndKeys()
    {
        QCOMPARE(MediaClassification::documentType(QStringLiteral("jpg, jpeg")), 1);
        QCOMPARE(MediaClassification::documentType(QStringLiteral("jpg")), -1);
        QCOMPARE(MediaClassification::documentType(QStringLiteral("tiff")), -1);
        QCOMPARE(MediaClassification::documentType({}), -1);
        QCOMPARE(MediaClassification::mediaDocumentType(23), QString());
        QCOMPARE(MediaClassification::mediaDocumentType(-1), QString());
        QCOMPARE(MediaClassification::mediaKindType(3), QString());
        QCOMPARE(MediaClassification::mediaKindType(16), QString());
        QCOMPARE(MediaClassification::mediaKindType(13), QStringLiteral("Movie"));
        for (int type = 0; type <= 22; ++type) {
            const QString text = MediaClassification::mediaDocumentType(type);
            QVERIFY2(!text.isEmpty() && !text.startsWith(QLatin1String("Document.")), qPrintable(text));
        }
        const QVariantList kinds = MediaClassification::mediaKindList();
        QCOMPARE(kinds.size(), 11);
        QCOMPARE(kinds.first().toMap().value(QStringLiteral("tag")).toInt(), 4);
        for (const QVariant& kind : kinds)
            QVERIFY(kind.toMap().value(QStringLiteral("tag")).toInt() != 13);
    }

    void labelsMapBothWays()
    {
        for (int label = 0; label <= 7; ++label)
            QCOMPARE(importing::mediaLabelFromFileLabel(importing::fileLabelFromMediaLabel(label)), label);
        QCOMPARE(importing::fileLabelFromMediaLabel(1), 6);
        QCOMPARE(importing::mediaLabelFromFileLabel(2), 4);
        for (const int wrong : {-1, 8, 1000}) {
            QCOMPARE(importing::fileLabelFromMediaLabel(wrong), 0);
            QCOMPARE(importing::mediaLabelFromFileLabel(wrong), 0);
        }
    }

private:
    test::FakeTypes m_types;
    test::FakeThumbnailers m_thumbnailers;
    MediaClassification m_classification{m_types, m_thumbnailers};
};

} // namespace

QTEST_GUILESS_MAIN(tst_MediaClassification)
#include "tst_mediaclassification.moc"
