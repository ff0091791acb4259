#include "import/MediaClassification.h"

#include "base/Text.h"
#include "support/FakePlatform.h"
#include "support/Pictures.h"

#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::MediaClassification;
using importing::MediaKind;

class tst_MediaClassification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void typeOfExtension()
    {
        const std::pair<const char*, int> rows[] = {
            {"pdf", 0},  {"JPG jpeg", 1}, {"jpf", 2},
            {"tiff", 3}, {"pct", 4},      {"Gif", 5},
            {"png", 6},  {"qtif", 7},     {"icns", 8},
            {"bmp", 9},  {"ico", 10},     {"cr2 NEF arw dng orf rw2 raf pef srw crw", 11},
            {"svg", 12}, {"vda", 13},     {"psd", 14},
            {"ai", 15},  {"ps epsf", 16}, {"heic mp4 txt sketch afdesign", -1}};
        for (const auto& [extensions, type] : rows) {
            for (const QString& extension : QString::fromLatin1(extensions).split(u' '))
                QVERIFY2(number(m_classification, extension) == type, qPrintable(extension));
        }
        QCOMPARE(number(m_classification, {}), -1);
    }

    // What the fixed extensions do not know, the desktop's database may; the earlier row wins.
    void typeByDesktopDatabase()
    {
        test::FakeTypes types;
        types.mimeTypes = {{u"fx"_s, u"image/x-both"_s},
                           {u"newraw"_s, u"image/x-newraw"_s},
                           {u"tgb"_s, u"image/x-tga-child"_s},
                           {u"dng"_s, u"image/x-adobe-dng"_s}};
        types.ancestors = {{u"image/x-both"_s, {u"image/x-dcraw"_s, u"image/tiff"_s}},
                           {u"image/x-newraw"_s, {u"image/x-dcraw"_s}},
                           {u"image/x-tga-child"_s, {u"image/x-tga"_s}},
                           {u"image/x-adobe-dng"_s, {u"image/tiff"_s}}};
        const MediaClassification classification(types, m_thumbnailers);
        QCOMPARE(number(classification, u"fx"_s), 3);
        QCOMPARE(number(classification, u"newraw"_s), 11);
        QCOMPARE(number(classification, u"tgb"_s), -1); // must be the type itself
        QCOMPARE(number(classification, u"dng"_s), 11);
    }

    void designDocuments()
    {
        const QString designer = u"application/x-affinity-designer"_s;
        const QString photo = u"application/x-affinity-photo"_s;
        // What is installed, and whether the desktop gives the documents of both applications one type.
        const std::tuple<QStringList, bool, int, int> rows[] = {
            {{}, false, -1, -1},      {{}, true, -1, -1},         {{designer}, false, 17, -1},
            {{photo}, false, -1, 18}, {{designer}, true, 17, 18}, {{photo}, true, 17, 18}};
        for (const auto& [installed, hasSharedType, afdesign, afphoto] : rows) {
            test::FakeTypes types;
            if (hasSharedType) {
                for (const QString& extension : {u"afdesign"_s, u"afphoto"_s, u"aftemplate"_s})
                    types.mimeTypes[extension] = u"application/x-affinity"_s;
            }
            test::FakeThumbnailers lookup;
            lookup.installed = installed;
            const MediaClassification classification(types, lookup);
            QCOMPARE(number(classification, u"afdesign"_s), afdesign);
            QCOMPARE(number(classification, u"AFDESIGN"_s), afdesign);
            QCOMPARE(number(classification, u"afphoto"_s), afphoto);
            QCOMPARE(number(classification, u"aftemplate"_s), -1);
        }
    }

    void allowedMediaFollowsWhatIsInstalled()
    {
        const QStringList fixed = m_classification.allowedMedia();
        QCOMPARE(fixed.size(), 32);
        QCOMPARE(fixed.mid(0, 4).join(u' '), u"gif GIF jpg JPG"_s);
        QCOMPARE(fixed.last(), u"TGA"_s);
        QVERIFY(!fixed.contains(u"cr2"_s));

        test::FakeThumbnailers lookup;
        lookup.installed = QStringList{u"application/x-sketch"_s, u"application/x-idraw"_s};
        const MediaClassification classification(m_types, lookup);
        QCOMPARE(classification.allowedMedia().mid(32).join(u' '), u"idraw IDRAW sketch SKETCH"_s);
        QVERIFY(classification.installedSketch() && !classification.installedAcorn());
    }

    void absentFilesHaveNoType()
    {
        QTemporaryDir folder;
        const QString pdf = folder.filePath(u"a.PDF"_s);
        const QString unknown = folder.filePath(u"a.xyz"_s);
        QVERIFY(test::writeBytes(pdf, "%PDF") && test::writeBytes(unknown, "?"));
        QCOMPARE(m_classification.mediaContentType(pdf), u"Portable Document Format (PDF)"_s);
        QCOMPARE(m_classification.mediaContentTypeAsInteger(pdf), 0);
        QCOMPARE(m_classification.mediaContentType(unknown), QString());
        QCOMPARE(m_classification.mediaContentTypeAsInteger(unknown), 0);
        QCOMPARE(m_classification.mediaContentType(folder.filePath(u"gone.png"_s)), QString());
        QCOMPARE(m_classification.mediaContentType({}), QString());
    }

    void kindOfPath()
    {
        QTemporaryDir folder;
        using K = MediaKind;
        const std::tuple<const char*, QSize, K> rows[] = {
            {"a.png", {2560, 1440}, K::Wallpaper},
            {"a.png", {1920, 1080}, K::Phone}, // wallpapers too, but phones come first
            {"a.png", {1080, 1920}, K::Phone},
            {"a.png", {1024, 768}, K::Tablet},
            {"a.png", {768, 1024}, K::Tablet},
            {"a.png", {1440, 1440}, K::Phone},
            {"a.png", {1440, 2560}, K::Other}, // a table's row, but turned
            {"a.png", {1600, 2560}, K::Other},
            {"a.png", {1600, 2569}, K::Wallpaper},
            {"a.ico", {1024, 768}, K::Icon}, // the format before the size
            {"a.icns", {512, 512}, K::Icon},
            {"a.pdf", {1920, 1080}, K::Pdf},
            {"a.xyz", {1920, 1080}, K::Phone},
            {"gone/a.png", {1920, 1080}, K::Other}};
        for (const auto& [name, size, kind] : rows) {
            const QString path = folder.filePath(QString::fromLatin1(name));
            QVERIFY(path.endsWith(u"gone/a.png") || test::writeBytes(path, "x"));
            const QString shown = u"%1 %2x%3"_s.arg(path).arg(size.width()).arg(size.height());
            QVERIFY2(m_classification.mediaKindOfPath(path, size) == int(kind), qPrintable(shown));
        }
    }

    void textsAndKeys()
    {
        QCOMPARE(MediaClassification::documentType(u"jpg, jpeg"_s), 1);
        for (const QString& key : {u"jpg"_s, u"tiff"_s, QString()})
            QCOMPARE(MediaClassification::documentType(key), -1);
        for (const int type : {-1, 23})
            QCOMPARE(MediaClassification::mediaDocumentType(type), QString());
        for (int type = 0; type <= 22; ++type) {
            const QString text = MediaClassification::mediaDocumentType(type);
            QVERIFY2(!text.isEmpty() && !text.startsWith(u"Document."), qPrintable(text));
        }
        for (const auto& [kind, text] : {std::pair(3, u""_s), {13, u"Movie"_s}, {16, u""_s}})
            QCOMPARE(MediaClassification::mediaKindType(kind), text);
        QStringList kinds;
        for (const QVariant& kind : MediaClassification::mediaKindList())
            kinds.append(kind.toMap().value(u"tag"_s).toString());
        QCOMPARE(kinds.join(u' '), u"4 5 6 7 8 9 10 11 12 14 15"_s);
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
    /// The type's number, -1 when the extension is not accepted.
    static int number(const MediaClassification& classification, const QString& extension)
    {
        const auto type = classification.documentTypeForExtension(extension);
        return type ? static_cast<int>(*type) : -1;
    }

    test::FakeTypes m_types;
    test::FakeThumbnailers m_thumbnailers;
    MediaClassification m_classification{m_types, m_thumbnailers};
};

QTEST_GUILESS_MAIN(tst_MediaClassification)
#include "tst_mediaclassification.moc"
