#include "import/ImageOperations.h"
#include "import/RendererTest.h"
#include "support/Files.h"
#include "support/Parallel.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;
using test::TgaKind;

namespace {

bool near(const QColor& color, const QColor& expected, int tolerance)
{
    return std::abs(color.red() - expected.red()) <= tolerance &&
           std::abs(color.green() - expected.green()) <= tolerance &&
           std::abs(color.blue() - expected.blue()) <= tolerance;
}

#define COMPARE_COLOR(actual, expected, tolerance)                                                           \
    QVERIFY2(near(actual, expected, tolerance), qPrintable((actual).name() + u" for "_s + (expected).name()))

} // namespace

class tst_Analysis : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    // Every format the long way: right size, right bytes by name, corners in their places, right facts.
    void formats()
    {
        struct Row {
            const char* name;
            const char* facts; ///< Depth, alpha, colour model, dpi.
            const char* start = "\x89PNG";
        };
        const char* const jpeg = "\xff\xd8";
        for (const Row& row : {Row{"plain.jpg", "8 opaque RGB 72", jpeg},
                               {"progressive.jpg", "8 opaque RGB 300", jpeg},
                               {"cmyk.jpg", "8 opaque CMYK 72", jpeg},
                               {"wide-gamut.jpg", "8 opaque RGB 72", jpeg},
                               {"plain.png", "8 opaque RGB 72"},
                               {"interlaced.png", "8 opaque RGB 300"},
                               {"palette.png", "8 opaque RGB 72"},
                               {"sixteen.png", "16 opaque RGB 72"},
                               {"alpha.png", "8 alpha RGB 72"},
                               {"plain.gif", "8 alpha RGB 72", "GIF8"}, // few colours: one is marked as clear
                               {"plain.tif", "8 opaque RGB 150"},
                               {"tiled.tif", "8 opaque RGB 72"},
                               {"sixteen.tif", "16 opaque RGB 72"},
                               {"cmyk.tif", "8 opaque CMYK 72"},
                               {"lab.tif", "16 opaque Lab 72"},
                               {"plain.bmp", "8 opaque RGB 300"},
                               {"color.tga", "8 opaque RGB 72"},
                               {"runs.tga", "8 opaque RGB 72"},
                               {"alpha.tga", "8 alpha RGB 72"},
                               {"palette.tga", "8 opaque RGB 72"}}) {
            const QString name = QString::fromLatin1(row.name);
            QVERIFY2(writePicture(file(name), name, {1000, 800}), row.name);
            const AnalysisResult result = analysed(file(name), typeOf(name));
            QVERIFY2(result.outcome.ok(), qPrintable(name + result.outcome.reason()));
            QVERIFY2(result.preview.startsWith(row.start), row.name);
            const QImage preview = QImage::fromData(result.preview);
            QCOMPARE(preview.size(), kPreviewBox);
            // Pure red, green and blue are beyond what inks can do; these are as near as they come.
            const bool inks = name.contains("cmyk"_L1);
            const int tolerance = row.start == jpeg ? 12 : 4;
            const std::tuple<QPoint, QColor, int> corners[] = {
                {{100, 80}, inks ? QColor(232, 0, 17) : QColor(255, 0, 0), tolerance},
                {{360, 80}, inks ? QColor(191, 207, 0) : QColor(0, 255, 0), std::max(tolerance, 8)},
                {{100, 280}, inks ? QColor(24, 59, 140) : QColor(0, 0, 255), tolerance},
                {{360, 280}, QColor(255, 255, 255), tolerance}};
            for (const auto& [place, color, difference] : corners)
                COMPARE_COLOR(preview.pixelColor(place), color, difference);
            QVERIFY(!result.colors.empty());
            const ImageMetadata& facts = result.metadata;
            QCOMPARE(QSize(facts.width, facts.height), QSize(1000, 800));
            QCOMPARE(u"%1: %2 %3 %4 %5"_s.arg(name)
                         .arg(facts.depth)
                         .arg(facts.hasAlpha ? u"alpha" : u"opaque", facts.colorModel)
                         .arg(facts.dpi),
                     name + u": "_s + QLatin1String(row.facts));
        }
    }

    void previewSizes()
    {
        const QColor white(250, 250, 250);
        const struct {
            QString name;
            QSize size, preview;
            std::optional<QPoint> clear; ///< Transparent there, or black in a JPEG.
            QPoint filled;
        } rows[] = {
            {u"band.png"_s, {5000, 150}, kPreviewBox, QPoint(230, 170), {230, 180}},
            {u"edge over the fill limit.png"_s, {5000, 201}, kPreviewBox, {}, {0, 0}},
            {u"edge at the fill limit.png"_s, {5000, 200}, kPreviewBox, QPoint(230, 169), {230, 175}},
            {u"pillar.png"_s, {200, 5000}, kPreviewBox, QPoint(221, 180), {230, 180}},
            {u"dot.png"_s, {1, 1}, {132, 132}, QPoint(64, 64), {65, 65}},
            {u"own size.png"_s, {300, 200}, kPreviewBox, QPoint(79, 80), {80, 80}},
            {u"tiny.gif"_s, {100, 100}, {132, 132}, QPoint(15, 50), {16, 50}},
            {u"tiny.jpg"_s, {40, 40}, {132, 132}, QPoint(20, 20), {60, 60}},
            {u"largest tiny.png"_s, {132, 132}, {132, 132}, {}, {0, 0}},
            {u"just over.png"_s, {133, 132}, kPreviewBox, QPoint(0, 0), {230, 180}},
            {u"enlarged.png"_s, {470, 210}, kPreviewBox, {}, {0, 0}},
            {u"dpi does not count.tif"_s, {1200, 900}, kPreviewBox, {}, {0, 0}},
        };
        for (const auto& [name, size, expected, clear, filled] : rows) {
            QVERIFY(writePages(file(name), {test::plain(size, white)}, 300));
            const QImage shown = QImage::fromData(analysed(file(name), typeOf(name)).preview);
            QVERIFY2(shown.size() == expected, qPrintable(name));
            QVERIFY2(near(shown.pixelColor(filled), white, 3), qPrintable(name));
            const QColor margin = clear ? shown.pixelColor(*clear) : QColor(Qt::black);
            QVERIFY2(margin.alpha() == 0 || near(margin, Qt::black, 8), qPrintable(name));
        }
    }

    // Upright whatever the camera noted, at full size and shrunk, cropped and fitted.
    void orientation()
    {
        // What a camera stores so that the quarters come out upright: the way back of each turn.
        const std::tuple<int, int, bool, bool> turns[] = {
            {1, 0, false, false}, {2, 0, true, false},    {3, 0, true, true},    {4, 0, false, true},
            {5, 90, true, false}, {6, 270, false, false}, {7, 270, true, false}, {8, 90, false, false}};
        for (const auto& [orientation, degrees, horizontally, vertically] : turns) {
            for (const QSize size : {QSize(1000, 600), QSize(4000, 3000), QSize(200, 140), QSize(90, 120)}) {
                const QImage image = test::quarters(orientation >= 5 ? size.transposed() : size)
                                         .transformed(QTransform().rotate(degrees))
                                         .mirrored(horizontally, vertically);
                QCOMPARE(image.size(), size);
                expectUpright(image, orientation);
            }
        }
    }

    // The colour as it looks, not the numbers in the file.
    void profilesAreFollowed()
    {
        const QColor green(40, 180, 60);
        const QString path = file(u"p3.png"_s);
        QVERIFY(test::writePng(path, test::plain({600, 500}, green), {.profile = u"p3"_s}));
        QVERIFY(!near(QImage(path).pixelColor(0, 0), green, 10)); // the file's own numbers differ
        const AnalysisResult result = analysed(path, DocumentType::Png);
        COMPARE_COLOR(QImage::fromData(result.preview).pixelColor(230, 180), green, 3);
        QVERIFY(!result.metadata.profileName.isEmpty());
    }

    void transparencyIsKeptAndScaledByWeight()
    {
        const QString path = file(u"half.png"_s);
        for (const QSize size : {QSize(920, 720), QSize(5000, 3000)}) { // in memory, and streamed
            QVERIFY(test::writePng(path, test::halfTransparent(size, QColor(200, 100, 50))));
            const QImage preview = QImage::fromData(analysed(path, DocumentType::Png).preview);
            QCOMPARE(preview.size(), kPreviewBox);
            QCOMPARE(preview.pixelColor(100, 180).alpha(), 0);
            COMPARE_COLOR(preview.pixelColor(400, 180), QColor(200, 100, 50), 2);
            QCOMPARE(preview.pixelColor(400, 180).alpha(), 255);
        }
    }

    void facts()
    {
        const QImage image = test::quarters({30, 20});
        const std::tuple<test::PlainTiffTags, double, QString> rows[] = {
            {test::PlainTiffTags{}, 72, {}},
            {{.software = "Painter 4", .resolution = 300, .unit = 2}, 300, u"Painter 4"_s},
            {{.resolution = 100, .unit = 3}, 254, {}}, // centimetres
            {{.resolution = 100, .unit = 1}, 72, {}},  // the shape only
            {{.resolution = 96}, 96, {}}};             // a missing unit means inches
        for (const auto& [tags, dpi, software] : rows) {
            const Drawn picture = drawn(DocumentType::Tiff, test::plainTiff(image, tags));
            QCOMPARE(picture.metadata.dpi, dpi);
            QCOMPARE(picture.metadata.software, software);
        }
    }

    void softwareOfOtherFormats()
    {
        const QImage image = test::quarters({30, 20});
        const QString odd = u"Tool (beta), ASCII, 3 (x)"_s;
        const QString jpeg = file(u"s.jpg"_s);
        QVERIFY(test::writeJpeg(jpeg, image, {.software = odd}));
        QCOMPARE(analysed(jpeg, DocumentType::Jpeg).metadata.software, odd);
        const QString png = file(u"s.png"_s);
        QVERIFY(test::writePng(png, image, {.gray = true, .software = odd}));
        const ImageMetadata gray = analysed(png, DocumentType::Png).metadata;
        QCOMPARE(gray.software, odd);
        QCOMPARE(gray.colorModel, u"Gray"_s);
        QVERIFY(test::writePng(png, image));
        const QByteArray plain = test::fileContents(png);
        const std::tuple<const char*, QByteArray, QString> behindPixels[] = {
            {"tEXt", "Software\0T\xf6\xf6l"_ba, u"Tööl"_s},
            {"zTXt", "Software\0\0"_ba + qCompress("Tool").mid(4), u"Tool"_s},
            {"iTXt", "Software\0\0\0de\0Programm\0Tööl"_ba, u"Tööl"_s},
            {"iTXt", "Software\0\1\0\0\0"_ba + qCompress("Tööl").mid(4), u"Tööl"_s},
            {"zTXt", "Software\0\0"_ba + qCompress(QByteArray(1 << 20, 'x')).mid(4), {}},
            {"iTXt", "Software\0\0\0de"_ba, {}},
            {"tEXt", "Author\0Tool"_ba, {}},
        };
        for (const auto& [name, data, software] : behindPixels)
            QCOMPARE(drawn(DocumentType::Png, test::pngWithChunk(plain, name, data)).metadata.software,
                     software);
    }

    void kindsAndFrames()
    {
        using K = MediaKind;
        const struct {
            QString name;
            int pages;
            QSize size;
            K asked, kind;
            bool frames;
        } rows[] = {
            {u"a.gif"_s, 1, {320, 240}, K::Unset, K::Phone, false},
            {u"a.gif"_s, 3, {320, 240}, K::Unset, K::AnimatedGif, true},
            {u"a.gif"_s, 2, {50, 50}, K::Web, K::AnimatedGif, true}, // animated gif from the web
            {u"a.gif"_s, 1, {50, 50}, K::Web, K::Web, false},        // still gif from the web
            {u"a.tif"_s, 1, {1280, 960}, K::Unset, K::Wallpaper, false},
            {u"a.tif"_s, 2, {1280, 960}, K::Unset, K::Wallpaper, true},
            {u"a.png"_s, 1, {1280, 960}, K::Screen, K::Screen, false}, // screen capture
        };
        for (const auto& [name, pages, size, asked, kind, frames] : rows) {
            std::vector<QImage> images;
            for (int page = 0; page < pages; ++page)
                images.push_back(test::plain(size, QColor::fromHsv(page * 90, 200, 200)));
            QVERIFY(writePages(file(name), images));
            const AnalysisResult result = analyse({file(name), typeOf(name), asked});
            QVERIFY(result.outcome.ok());
            QCOMPARE(result.kind, kind);
            QCOMPARE(result.hasFrames, frames);
            // Always the first frame, at its own height.
            QCOMPARE(QSize(result.metadata.width, result.metadata.height), size);
            const QImage preview = QImage::fromData(result.preview);
            COMPARE_COLOR(preview.pixelColor(preview.rect().center()), QColor::fromHsv(0, 200, 200), 6);
        }
        const std::tuple<QByteArray, K, K> drawings[] = {
            {"1024", K::Unset, K::Tablet}, {"1024.5", K::Unset, K::Other}, {"1024", K::Web, K::Web}};
        for (const auto& [width, asked, kind] : drawings) {
            const QByteArray svg =
                "<svg xmlns='http://www.w3.org/2000/svg' height='768' width='" + width + "'/>";
            QCOMPARE(RendererTest::analysed(DocumentType::Svg, svg, asked).kind, kind);
        }
    }

    // Nothing of a damaged or hostile file gets through, and each says why.
    void cutOffFilesAreRefused()
    {
        for (const QString& name :
             {u"plain.jpg"_s, u"progressive.jpg"_s, u"plain.png"_s, u"interlaced.png"_s, u"plain.gif"_s,
              u"plain.tif"_s, u"plain.bmp"_s, u"color.tga"_s, u"runs.tga"_s}) {
            const QString path = file(name);
            QVERIFY(writePicture(path, u"noise-"_s + name, {400, 1200}));
            const QByteArray whole = test::fileContents(path);
            QVERIFY(analysed(path, typeOf(name)).outcome.ok());
            for (const double keep : {0.001, 0.3, 0.9}) {
                QVERIFY(test::writeBytes(path, whole) && test::cutOff(path, keep));
                const AnalysisResult result = analysed(path, typeOf(name));
                QVERIFY2(!result.outcome.ok(), qPrintable(name));
                QVERIFY(result.outcome.reason().size() > 20 &&
                        !result.outcome.reason().startsWith("Failure."_L1));
                QVERIFY(result.preview.isEmpty());
            }
        }
    }

    void refusedWithAReason()
    {
        using enum DocumentType;
        // The directory, at the file's end but for six bytes, names itself as the next one.
        QByteArray loop = test::plainTiff(test::quarters({20, 20}), {});
        loop.replace(loop.size() - 4 - 6, 4, loop.mid(4, 4));
        const std::tuple<QByteArray, DocumentType, const char*> rows[] = {
            {{}, Png, "empty"},
            {"Dear diary, this is no picture.", Png, "holds no picture that can be imported"},
            {"<svg/>", Jpeg, "holds a “Scalable Vector Graphics (SVG)”"},
            {test::pngThatClaims(10, 10), Jpeg, "holds a “PNG Image”"},
            {"\xff\xd8\xff", Tga, "holds a “JPEG Image”"},
            {"\0\0\1\0\1\0"_ba, Png, "holds a “Microsoft Icon Image”"},
            {test::pngThatClaims(10, 10), Photoshop, "holds a “PNG Image”"},
            {test::pngThatClaims(10, 10), Pdf, "holds a “PNG Image”"},
            {"%PDF-1.4", Eps, "holds a “Portable Document Format (PDF)”"},
            {"\x89PNG\r\n\x1a\n", Png, "damaged"},    // only a mark
            {"\xff\xd8\xff", Jpeg, "damaged"},        // only a jpeg mark
            {QByteArray(4096, '\0'), Tga, "damaged"}, // nothing but zeros
            {test::pngThatClaims(90000, 90000), Png, "90000 by 90000"},
            {test::pngThatClaims(2000000000, 1), Png, "2000000000 by 1"},
            {test::pngThatClaims(20000, 20000), Png, "damaged"}, // says more than it has
            {test::pngThatClaims(0, 0), Png, "damaged"},         // no size
            {hugeBmp(), Bmp, "by"},
            {"\0\0\2\0\0\0\0\0\0\0\0\0\xff\xff\xff\xff\x18\0"_ba, Tga, "65535 by 65535"},
            {loop, Tiff, "damaged"},
            {"II*\0\xff\xff\xff\x7f"_ba, Tiff, "damaged"},
        };
        for (const auto& [bytes, type, words] : rows) {
            const auto outcome = RendererTest::analysed(type, bytes).outcome;
            QVERIFY2(!outcome.ok(), bytes.left(60).toHex().constData());
            QVERIFY2(outcome.reason().contains(QString::fromUtf8(words)), qPrintable(outcome.reason()));
        }
        for (const QString& path : {file(u"gone.png"_s), m_folder.path()})
            QVERIFY(!analysed(path, Png).outcome.ok());
    }

    // Damage anywhere may spoil the picture but nothing else: no crash, no hang, an outcome either way.
    void randomDamageIsSurvived()
    {
        for (const QString& name :
             {u"plain.jpg"_s, u"progressive.jpg"_s, u"interlaced.png"_s, u"plain.gif"_s, u"plain.tif"_s,
              u"cmyk.tif"_s, u"plain.bmp"_s, u"runs.tga"_s, u"palette.tga"_s, u"palette.png"_s}) {
            const QString path = file(u"damaged-"_s + name);
            QVERIFY(writePicture(path, name, {150, 140}));
            const QByteArray good = test::fileContents(path);
            unsigned state = 12345;
            const auto random = [&state] { return state = state * 1664525U + 1013904223U; };
            for (int round = 0; round < 25; ++round) {
                QByteArray bad = good;
                for (int hit = 0; hit < 6; ++hit) {
                    const auto range = unsigned(hit < 3 ? std::min<qsizetype>(bad.size(), 200) : bad.size());
                    bad[qsizetype((random() >> 8) % range)] = char(random() >> 24);
                }
                QVERIFY(test::writeBytes(path, bad));
                const AnalysisResult result = analysed(path, typeOf(name));
                QVERIFY(result.outcome.ok() == !result.preview.isEmpty());
            }
        }
    }

    void severalAtOnceGiveTheSame()
    {
        const QString path = file(u"shared.jpg"_s);
        QVERIFY(test::writeJpeg(path, test::noise({1600, 1200}, 3)));
        const AnalysisResult expected = analysed(path, DocumentType::Jpeg);
        const auto isEqual = [&](int) {
            const AnalysisResult result = analysed(path, DocumentType::Jpeg);
            return result.outcome.ok() && result.preview == expected.preview;
        };
        QCOMPARE(test::rightAtOnce(16, isEqual), 16);
    }

private:
    void expectUpright(const QImage& stored, int orientation) const
    {
        const QString path = file(u"turned.jpg"_s);
        QVERIFY(test::writeJpeg(path, stored, {.orientation = orientation}));
        const AnalysisResult result = analysed(path, DocumentType::Jpeg);
        const QImage preview = QImage::fromData(result.preview);
        QCOMPARE(preview.size(), stored.width() <= 132 ? QSize(132, 132) : kPreviewBox);
        const QPoint centre(preview.width() / 2, preview.height() / 2);
        const std::pair<QPoint, QColor> quarters[] = {
            {{-20, -20}, Qt::red}, {{20, -20}, Qt::green}, {{-20, 20}, Qt::blue}, {{20, 20}, Qt::white}};
        for (const auto& [offset, color] : quarters)
            COMPARE_COLOR(preview.pixelColor(centre + offset), color, 20);
        // The facts are those of the file as it is stored.
        QCOMPARE(QSize(result.metadata.width, result.metadata.height), stored.size());
    }

    static DocumentType typeOf(const QString& name)
    {
        static const QHash<QString, DocumentType> types{{u"jpg"_s, DocumentType::Jpeg},
                                                        {u"gif"_s, DocumentType::Gif},
                                                        {u"tif"_s, DocumentType::Tiff},
                                                        {u"bmp"_s, DocumentType::Bmp},
                                                        {u"tga"_s, DocumentType::Tga}};
        return types.value(name.section(u'.', -1), DocumentType::Png);
    }

    [[nodiscard]] static AnalysisResult analysed(const QString& path, DocumentType type)
    {
        return analyse({path, type, MediaKind::Unset});
    }
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }

    static QByteArray hugeBmp()
    {
        QByteArray bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\0\0\1\0\0\0\1\0\1\0\x18\0", 30);
        return bytes + QByteArray(100, '\0');
    }

    /// Pages in the format of the path's extension.
    static bool writePages(const QString& path, const std::vector<QImage>& pages, double tiffDpi = 0)
    {
        switch (typeOf(path)) {
        case DocumentType::Gif:
            return test::writeGif(path, pages);
        case DocumentType::Jpeg:
            return test::writeJpeg(path, pages.front());
        case DocumentType::Tiff:
            return test::writeTiff(path, pages, {.dpi = tiffDpi});
        default:
            return test::writePng(path, pages.front());
        }
    }

    /// A picture of the variant that the name tells.
    static bool writePicture(const QString& path, const QString& name, QSize size)
    {
        QImage image = name.startsWith(u"noise-") ? test::noise(size) : test::quarters(size);
        const auto is = [&name](QLatin1String kind) { return name.section(u'.', 0, 0).endsWith(kind); };
        if (is("alpha"_L1))
            image.convertTo(QImage::Format_ARGB32);
        switch (typeOf(name)) {
        case DocumentType::Jpeg:
            return test::writeJpeg(path, image,
                                   {.progressive = is("progressive"_L1),
                                    .cmyk = is("cmyk"_L1),
                                    .dpi = is("progressive"_L1) ? 300.0 : 0.0,
                                    .profile = is("wide-gamut"_L1) ? u"p3"_s : QString()});
        case DocumentType::Gif:
            return test::writeGif(path, {image});
        case DocumentType::Tiff:
            return test::writeTiff(path, {image},
                                   {.cmyk = is("cmyk"_L1),
                                    .lab = is("lab"_L1),
                                    .sixteenBit = is("sixteen"_L1),
                                    .tiled = is("tiled"_L1),
                                    .dpi = is("plain"_L1) ? 150.0 : 72.0});
        case DocumentType::Bmp:
            return test::writeBmp(path, image);
        case DocumentType::Tga:
            return test::writeTga(path, image,
                                  is("runs"_L1)      ? TgaKind::RunLength
                                  : is("palette"_L1) ? TgaKind::Palette
                                                     : TgaKind::TrueColor);
        default:
            return test::writePng(path, image,
                                  {.interlaced = is("interlaced"_L1),
                                   .palette = is("palette"_L1),
                                   .sixteenBit = is("sixteen"_L1),
                                   .dpi = is("interlaced"_L1) ? 300.0 : 0.0});
        }
    }
};

QTEST_GUILESS_MAIN(tst_Analysis)
#include "tst_analysis.moc"
