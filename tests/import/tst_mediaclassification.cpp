#include "import/MediaClassification.h"

#include "base/Text.h"
#include "support/FakePlatform.h"
#include "support/Pictures.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::MediaClassification;
using importing::MediaKind;

namespace {

class tst_MediaClassification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void typeOfExtension()
    {
        const std::vector<std::pair<const char*, int>> rows{
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
        struct Row {
            QStringList thumbnailers;
            bool sharedType; ///< The desktop gives the documents of both applications one type.
            int afdesign, afphoto;
        };
        for (const Row& row : {Row{{}, false, -1, -1},
                               {{}, true, -1, -1},
                               {{designer}, false, 17, -1},
                               {{photo}, false, -1, 18},
                               {{designer}, true, 17, 18},
                               {{photo}, true, 17, 18}}) {
            test::FakeTypes types;
            if (row.sharedType) {
                for (const QString& extension : {u"afdesign"_s, u"afphoto"_s, u"aftemplate"_s})
                    types.mimeTypes[extension] = u"application/x-affinity"_s;
            }
            test::FakeThumbnailers lookup;
            lookup.installed = row.thumbnailers;
            const MediaClassification classification(types, lookup);
            QCOMPARE(number(classification, u"afdesign"_s), row.afdesign);
            QCOMPARE(number(classification, u"AFDESIGN"_s), row.afdesign);
            QCOMPARE(number(classification, u"afphoto"_s), row.afphoto);
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
        QVERIFY(classification.installedSketch());
        QVERIFY(!classification.installedAcorn());
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
        struct Row {
            const char* name;
            QSize size;
            MediaKind kind;
        };
        for (const Row& row :
             {Row{"a.png", {2560, 1440}, MediaKind::Wallpaper},
              {"a.png", {1920, 1080}, MediaKind::Phone}, // wallpapers too, but phones come first
              {"a.png", {1080, 1920}, MediaKind::Phone},
              {"a.png", {1024, 768}, MediaKind::Tablet},
              {"a.png", {768, 1024}, MediaKind::Tablet},
              {"a.png", {1440, 1440}, MediaKind::Phone},
              {"a.png", {1440, 2560}, MediaKind::Other}, // a table's row, but turned
              {"a.png", {1600, 2560}, MediaKind::Other},
              {"a.png", {1600, 2569}, MediaKind::Wallpaper},
              {"a.ico", {1024, 768}, MediaKind::Icon}, // the format before the size
              {"a.icns", {512, 512}, MediaKind::Icon},
              {"a.pdf", {1920, 1080}, MediaKind::Pdf},
              {"a.xyz", {1920, 1080}, MediaKind::Phone},
              {"gone/a.png", {1920, 1080}, MediaKind::Other}}) {
            const QString path = folder.filePath(QString::fromLatin1(row.name));
            QVERIFY(path.endsWith(u"gone/a.png") || test::writeBytes(path, "x"));
            const QString shown = u"%1 %2x%3"_s.arg(path).arg(row.size.width()).arg(row.size.height());
            QVERIFY2(m_classification.mediaKindOfPath(path, row.size) == int(row.kind), qPrintable(shown));
        }
    }

    void textsAndKeys()
    {
        QCOMPARE(MediaClassification::documentType(u"jpg, jpeg"_s), 1);
        for (const QString& key : {u"jpg"_s, u"tiff"_s, QString()})
            QCOMPARE(MediaClassification::documentType(key), -1);
        for (const int none : {-1, 23})
            QCOMPARE(MediaClassification::mediaDocumentType(none), QString());
        for (const int none : {3, 16})
            QCOMPARE(MediaClassification::mediaKindType(none), QString());
        QCOMPARE(MediaClassification::mediaKindType(13), u"Movie"_s);
        for (int type = 0; type <= 22; ++type) {
            const QString text = MediaClassification::mediaDocumentType(type);
            QVERIFY2(!text.isEmpty() && !text.startsWith(u"Document."), qPrintable(text));
        }
        QList<int> kinds;
        for (const QVariant& kind : MediaClassification::mediaKindList())
            kinds.append(kind.toMap().value(u"tag"_s).toInt());
        QCOMPARE(kinds.size(), 11);
        QCOMPARE(kinds.first(), 4);
        QVERIFY(!kinds.contains(13));
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

} // namespace

QTEST_GUILESS_MAIN(tst_MediaClassification)
#include "tst_mediaclassification.moc"
