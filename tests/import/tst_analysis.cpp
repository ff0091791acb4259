#include "import/ImageOperations.h"
#include "import/RendererTest.h"

#include <QThreadPool>
#include <atomic>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;
using test::TgaKind;

namespace {

enum class Encoding { Png, Jpeg, Gif };

Encoding encodingOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\x89PNG"))
        return Encoding::Png;
    return bytes.startsWith("GIF8") ? Encoding::Gif : Encoding::Jpeg;
}

bool near(const QColor& color, const QColor& expected, int tolerance)
{
    return std::abs(color.red() - expected.red()) <= tolerance &&
           std::abs(color.green() - expected.green()) <= tolerance &&
           std::abs(color.blue() - expected.blue()) <= tolerance;
}

#define COMPARE_COLOR(actual, expected, tolerance)                                                           \
    QVERIFY2(near(actual, expected, tolerance), qPrintable((actual).name() + u" for "_s + (expected).name()))

struct SizeRow {
    QString name;
    QSize size, preview;
    std::optional<QPoint> clear; ///< Transparent there, or black in a JPEG.
    QPoint filled;
};

struct FramesRow {
    QString name;
    int pages;
    QSize size;
    MediaKind asked, kind;
    bool frames;
};

class tst_Analysis : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    // Every format the long way: right size, right bytes by name, corners in their places, right facts.
    void formats_data()
    {
        QTest::addColumn<Encoding>("encoding");
        QTest::addColumn<QString>("facts"); // depth, alpha, colour model, dpi
        const auto row = [](const char* name, Encoding encoding, const char* facts) {
            QTest::newRow(name) << encoding << QString::fromLatin1(facts);
        };
        row("plain.jpg", Encoding::Jpeg, "8 opaque RGB 72");
        row("progressive.jpg", Encoding::Jpeg, "8 opaque RGB 300");
        row("cmyk.jpg", Encoding::Jpeg, "8 opaque CMYK 72");
        row("wide-gamut.jpg", Encoding::Jpeg, "8 opaque RGB 72");
        row("plain.png", Encoding::Png, "8 opaque RGB 72");
        row("interlaced.png", Encoding::Png, "8 opaque RGB 300");
        row("palette.png", Encoding::Png, "8 opaque RGB 72");
        row("sixteen.png", Encoding::Png, "16 opaque RGB 72");
        row("alpha.png", Encoding::Png, "8 alpha RGB 72");
        row("plain.gif", Encoding::Gif, "8 alpha RGB 72"); // few colours: one is marked as clear
        row("plain.tif", Encoding::Png, "8 opaque RGB 150");
        row("tiled.tif", Encoding::Png, "8 opaque RGB 72");
        row("sixteen.tif", Encoding::Png, "16 opaque RGB 72");
        row("cmyk.tif", Encoding::Png, "8 opaque CMYK 72");
        row("lab.tif", Encoding::Png, "16 opaque Lab 72");
        row("plain.bmp", Encoding::Png, "8 opaque RGB 300");
        row("color.tga", Encoding::Png, "8 opaque RGB 72");
        row("runs.tga", Encoding::Png, "8 opaque RGB 72");
        row("alpha.tga", Encoding::Png, "8 alpha RGB 72");
        row("palette.tga", Encoding::Png, "8 opaque RGB 72");
    }
    void formats()
    {
        QFETCH(Encoding, encoding);
        QFETCH(QString, facts);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        const QString path = file(name);
        QVERIFY2(writePicture(path, name, {1000, 800}), qPrintable(name));
        const AnalysisResult result = analysed(path, typeOf(name));
        QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.ok() ? QString() : result.outcome.reason()));
        QCOMPARE(encodingOf(result.preview), encoding);
        const QImage preview = QImage::fromData(result.preview);
        QCOMPARE(preview.size(), kPreviewBox);
        // Pure red, green and blue are beyond what inks can do; these are as near as they come.
        const bool inks = name.contains("cmyk"_L1);
        const int tolerance = encoding == Encoding::Jpeg ? 12 : 4;
        COMPARE_COLOR(preview.pixelColor(100, 80), inks ? QColor(232, 0, 17) : QColor(255, 0, 0), tolerance);
        COMPARE_COLOR(preview.pixelColor(360, 80), inks ? QColor(191, 207, 0) : QColor(0, 255, 0),
                      std::max(tolerance, 8));
        COMPARE_COLOR(preview.pixelColor(100, 280), inks ? QColor(24, 59, 140) : QColor(0, 0, 255),
                      tolerance);
        COMPARE_COLOR(preview.pixelColor(360, 280), QColor(255, 255, 255), tolerance);
        QVERIFY(!result.colors.empty());
        QCOMPARE(QSize(result.metadata.width, result.metadata.height), QSize(1000, 800));
        QCOMPARE(u"%1 %2 %3 %4"_s.arg(result.metadata.depth)
                     .arg(result.metadata.hasAlpha ? u"alpha"_s : u"opaque"_s, result.metadata.colorModel)
                     .arg(result.metadata.dpi),
                 facts);
    }

    void previewSizes()
    {
        const SizeRow rows[] = {
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
        for (const SizeRow& row : rows)
            expectPreview(row);
    }

    // Upright whatever the camera noted, at full size and shrunk, cropped and fitted.
    void orientation()
    {
        for (int orientation = 1; orientation <= 8; ++orientation) {
            for (const QSize size : {QSize(1000, 600), QSize(4000, 3000), QSize(200, 140), QSize(90, 120)})
                expectUpright(orientation, size);
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
        QVERIFY(result.outcome.ok());
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
        const QString path = file(u"facts.tif"_s);
        struct Row {
            test::PlainTiffTags tags;
            double dpi;
            QString software;
        };
        const Row rows[] = {{{}, 72, {}},
                            {{.software = "Painter 4", .resolution = 300, .unit = 2}, 300, u"Painter 4"_s},
                            {{.software = {}, .resolution = 100, .unit = 3}, 254, {}}, // centimetres
                            {{.software = {}, .resolution = 100, .unit = 1}, 72, {}},  // the shape only
                            {{.software = {}, .resolution = 96}, 96, {}}}; // a missing unit means inches
        for (const auto& [tags, dpi, software] : rows) {
            QVERIFY(test::writeBytes(path, test::plainTiff(image, tags)));
            const AnalysisResult result = analysed(path, DocumentType::Tiff);
            QVERIFY(result.outcome.ok());
            QCOMPARE(result.metadata.dpi, dpi);
            QCOMPARE(result.metadata.software, software);
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
        const AnalysisResult result = analysed(png, DocumentType::Png);
        QCOMPARE(result.metadata.software, odd);
        QCOMPARE(result.metadata.colorModel, u"Gray"_s);
        const QByteArray bomb = qCompress(QByteArray(1 << 20, 'x')).mid(4);
        const QByteArray packed = qCompress("Tööl").mid(4);
        const std::tuple<const char*, QByteArray, QString> behindPixels[] = {
            {"tEXt", QByteArray("Software\0T\xf6\xf6l", 13), u"Tööl"_s},
            {"zTXt", QByteArray("Software\0\0", 10) + qCompress("Tool").mid(4), u"Tool"_s},
            {"iTXt", QByteArray("Software\0\0\0de\0Programm\0Tööl", 29), u"Tööl"_s},
            {"iTXt", QByteArray("Software\0\1\0\0\0", 13) + packed, u"Tööl"_s},
            {"zTXt", QByteArray("Software\0\0", 10) + bomb, {}},
            {"iTXt", QByteArray("Software\0\0\0de", 13), {}},
            {"tEXt", QByteArray("Author\0Tool", 11), {}},
        };
        for (const auto& [name, data, software] : behindPixels) {
            QVERIFY(test::writePng(png, image));
            test::writeBytes(png, test::pngWithChunk(test::fileBytes(png), name, data));
            QCOMPARE(analysed(png, DocumentType::Png).metadata.software, software);
        }
    }

    void kindsAndFrames()
    {
        using K = MediaKind;
        const FramesRow rows[] = {
            {u"a.gif"_s, 1, {320, 240}, K::Unset, K::Phone, false},
            {u"a.gif"_s, 3, {320, 240}, K::Unset, K::AnimatedGif, true},
            {u"a.gif"_s, 2, {50, 50}, K::Web, K::AnimatedGif, true}, // animated gif from the web
            {u"a.gif"_s, 1, {50, 50}, K::Web, K::Web, false},        // still gif from the web
            {u"a.tif"_s, 1, {1280, 960}, K::Unset, K::Wallpaper, false},
            {u"a.tif"_s, 2, {1280, 960}, K::Unset, K::Wallpaper, true},
            {u"a.png"_s, 1, {1280, 960}, K::Screen, K::Screen, false}, // screen capture
        };
        for (const FramesRow& row : rows) {
            std::vector<QImage> images;
            for (int page = 0; page < row.pages; ++page)
                images.push_back(test::plain(row.size, QColor::fromHsv(page * 90, 200, 200)));
            const QString path = file(row.name);
            QVERIFY(writePages(path, images));
            const AnalysisResult result = analyse({path, typeOf(row.name), row.asked});
            QVERIFY(result.outcome.ok());
            QCOMPARE(result.kind, row.kind);
            QCOMPARE(result.hasFrames, row.frames);
            // Always the first frame, at its own height.
            QCOMPARE(QSize(result.metadata.width, result.metadata.height), row.size);
            const QImage preview = QImage::fromData(result.preview);
            COMPARE_COLOR(preview.pixelColor(preview.rect().center()), QColor::fromHsv(0, 200, 200), 6);
        }
    }

    void kindsOfDrawings()
    {
        using K = MediaKind;
        const std::tuple<const char*, K, K> rows[] = {
            {"1024", K::Unset, K::Tablet}, {"1024.5", K::Unset, K::Other}, {"1024", K::Web, K::Web}};
        for (const auto& [width, asked, kind] : rows) {
            const QByteArray svg =
                QByteArray("<svg xmlns='http://www.w3.org/2000/svg' height='768' width='") + width;
            QVERIFY(test::writeBytes(file(u"a.svg"_s), svg + "'/>"));
            QCOMPARE(analyse({file(u"a.svg"_s), DocumentType::Svg, asked}).kind, kind);
        }
    }

    // Nothing of a damaged or hostile file gets through, and each says why.
    void hostile()
    {
        for (const char* tag : {"plain.jpg", "progressive.jpg", "plain.png", "interlaced.png", "plain.gif",
                                "plain.tif", "plain.bmp", "color.tga", "runs.tga"}) {
            for (const double keep : {0.001, 0.3, 0.9})
                expectCutOffIsRefused(QString::fromLatin1(tag), keep);
        }
    }

    void refusedWithAReason()
    {
        using T = DocumentType;
        // The directory, at the file's end but for six bytes, names itself as the next one.
        QByteArray loop = test::plainTiff(test::quarters({20, 20}), {});
        loop.replace(loop.size() - 4 - 6, 4, loop.mid(4, 4));
        const std::tuple<QByteArray, T, const char*> rows[] = {
            {{}, T::Png, "empty"},
            {"Dear diary, this is no picture.", T::Png, "holds no picture that can be imported"},
            {"<svg/>", T::Jpeg, "holds a “Scalable Vector Graphics (SVG)”"},
            {test::pngThatClaims(10, 10), T::Jpeg, "holds a “PNG Image”"},
            {"\xff\xd8\xff", T::Tga, "holds a “JPEG Image”"},
            {QByteArray("\0\0\1\0\1\0", 6), T::Png, "holds a “Microsoft Icon Image”"},
            {test::pngThatClaims(10, 10), T::Photoshop, "holds a “PNG Image”"},
            {test::pngThatClaims(10, 10), T::Pdf, "holds a “PNG Image”"},
            {"%PDF-1.4", T::Eps, "holds a “Portable Document Format (PDF)”"},
            {"\x89PNG\r\n\x1a\n", T::Png, "damaged"},    // only a mark
            {"\xff\xd8\xff", T::Jpeg, "damaged"},        // only a jpeg mark
            {QByteArray(4096, '\0'), T::Tga, "damaged"}, // nothing but zeros
            {test::pngThatClaims(90000, 90000), T::Png, "90000 by 90000"},
            {test::pngThatClaims(2000000000, 1), T::Png, "2000000000 by 1"},
            {test::pngThatClaims(20000, 20000), T::Png, "damaged"}, // says more than it has
            {test::pngThatClaims(0, 0), T::Png, "damaged"},         // no size
            {hugeBmp(), T::Bmp, "by"},
            {QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0\xff\xff\xff\xff\x18\0", 18), T::Tga, "65535 by 65535"},
            {loop, T::Tiff, "damaged"},
            {QByteArray("II*\0\xff\xff\xff\x7f", 8), T::Tiff, "damaged"},
        };
        for (const auto& [bytes, type, words] : rows) {
            const AnalysisResult result = RendererTest::analysed(type, bytes);
            QVERIFY2(!result.outcome.ok(), bytes.left(60).toHex().constData());
            QVERIFY2(result.outcome.reason().contains(QString::fromUtf8(words)),
                     qPrintable(result.outcome.reason()));
        }
    }

    void unreadablePaths()
    {
        QVERIFY(!analysed(file(u"gone.png"_s), DocumentType::Png).outcome.ok());
        QVERIFY(!analysed(m_folder.path(), DocumentType::Png).outcome.ok());
    }

    // Damage anywhere may spoil the picture but nothing else: no crash, no hang, an outcome either way.
    void randomDamageIsSurvived()
    {
        for (const char* tag : {"plain.jpg", "progressive.jpg", "interlaced.png", "plain.gif", "plain.tif",
                                "cmyk.tif", "plain.bmp", "runs.tga", "palette.tga", "palette.png"}) {
            const QString name = QString::fromLatin1(tag);
            const QString path = file(u"damaged-"_s + name);
            QVERIFY(writePicture(path, name, {150, 140}));
            const QByteArray good = test::fileBytes(path);
            unsigned state = 12345;
            const auto random = [&state] { return state = state * 1664525U + 1013904223U; };
            for (int round = 0; round < 25; ++round) {
                QByteArray bad = good;
                for (int hit = 0; hit < 6; ++hit) {
                    const auto range =
                        static_cast<unsigned>(hit < 3 ? std::min<qsizetype>(bad.size(), 200) : bad.size());
                    bad[static_cast<qsizetype>((random() >> 8) % range)] = static_cast<char>(random() >> 24);
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
        std::atomic<int> equal = 0;
        QThreadPool pool;
        pool.setMaxThreadCount(4);
        for (int i = 0; i < 16; ++i) {
            pool.start([&] {
                const AnalysisResult result = analyse({path, DocumentType::Jpeg, MediaKind::Unset});
                equal += result.outcome.ok() && result.preview == expected.preview;
            });
        }
        pool.waitForDone();
        QCOMPARE(equal.load(), 16);
    }

private:
    void expectPreview(const SizeRow& row) const
    {
        const QString path = file(row.name);
        QVERIFY(writePages(path, {test::plain(row.size, QColor(250, 250, 250))}, 300));
        const AnalysisResult result = analysed(path, typeOf(row.name));
        QVERIFY2(result.outcome.ok(), qPrintable(row.name));
        const QImage shown = QImage::fromData(result.preview);
        QVERIFY2(shown.size() == row.preview, qPrintable(row.name));
        QVERIFY2(near(shown.pixelColor(row.filled), QColor(250, 250, 250), 3), qPrintable(row.name));
        if (row.clear) {
            const QColor clear = shown.pixelColor(*row.clear);
            QVERIFY2(clear.alpha() == 0 || near(clear, Qt::black, 8), qPrintable(row.name));
        }
    }

    void expectUpright(int orientation, QSize stored) const
    {
        // What a camera stores so that the quarters come out upright: the way back of each turn.
        struct Turn {
            int degrees;
            bool horizontally, vertically;
        };
        static const Turn turns[] = {{0, false, false},  {0, true, false},  {0, true, true},
                                     {0, false, true},   {90, true, false}, {270, false, false},
                                     {270, true, false}, {90, false, false}};
        const Turn& turn = turns[orientation - 1];
        const QImage image = test::quarters(orientation >= 5 ? stored.transposed() : stored)
                                 .transformed(QTransform().rotate(turn.degrees))
                                 .mirrored(turn.horizontally, turn.vertically);
        QCOMPARE(image.size(), stored);
        const QString path = file(u"turned.jpg"_s);
        QVERIFY(test::writeJpeg(path, image, {.orientation = orientation}));
        const AnalysisResult result = analysed(path, DocumentType::Jpeg);
        QVERIFY(result.outcome.ok());
        const QImage preview = QImage::fromData(result.preview);
        QCOMPARE(preview.size(), stored.width() <= 132 ? QSize(132, 132) : kPreviewBox);
        const int x = preview.width() / 2;
        const int y = preview.height() / 2;
        COMPARE_COLOR(preview.pixelColor(x - 20, y - 20), QColor(255, 0, 0), 20);
        COMPARE_COLOR(preview.pixelColor(x + 20, y - 20), QColor(0, 255, 0), 20);
        COMPARE_COLOR(preview.pixelColor(x - 20, y + 20), QColor(0, 0, 255), 20);
        COMPARE_COLOR(preview.pixelColor(x + 20, y + 20), QColor(255, 255, 255), 20);
        // The facts are those of the file as it is stored.
        QCOMPARE(QSize(result.metadata.width, result.metadata.height), stored);
    }

    void expectCutOffIsRefused(const QString& name, double keep) const
    {
        const QString path = file(name);
        QVERIFY(writePicture(path, u"noise-"_s + name, {400, 1200}));
        QVERIFY(analysed(path, typeOf(name)).outcome.ok());
        QVERIFY(test::cutOff(path, keep));
        const AnalysisResult result = analysed(path, typeOf(name));
        QVERIFY(!result.outcome.ok());
        QVERIFY(result.outcome.reason().size() > 20 && !result.outcome.reason().startsWith("Failure."_L1));
        QVERIFY(result.preview.isEmpty());
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

} // namespace

QTEST_GUILESS_MAIN(tst_Analysis)
#include "tst_analysis.moc"
