#include "import/Analysis.h"

#include "base/Text.h"
#include "import/ImageOperations.h"
#include "import/PreviewRenderer.h"
#include "support/Pictures.h"

#include <QTemporaryDir>
#include <QThreadPool>
#include <QtTest>
#include <atomic>

using namespace mosaro;
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
    QVERIFY2(near(actual, expected, tolerance),                                                              \
             qPrintable((actual).name() + QStringLiteral(" for ") + (expected).name()))

class tst_Analysis : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        setUpImageLibrary("tst_analysis");
    }

    void previewPlan_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("source");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QSize>("canvas");
        const QSize box = kPreviewBox;
        const auto row = [](const char* name, QSize size, QRect source, QSize picture, QSize canvas) {
            QTest::newRow(name) << size << source << picture << canvas;
        };
        const auto whole = [](QSize size) { return QRect(QPoint(0, 0), size); };
        row("photo fills", {4000, 3000}, {83, 0, 3834, 3000}, box, box);
        row("just over the box", {461, 360}, {0, 0, 461, 360}, box, box);
        row("edge over the fill limit", {5000, 201}, {2371, 0, 258, 201}, box, box);
        row("edge at the fill limit", {5000, 200}, whole({5000, 200}), {460, 18}, box);
        row("band", {5000, 150}, whole({5000, 150}), {460, 14}, box);
        row("pillar", {200, 5000}, whole({200, 5000}), {14, 360}, box);
        row("the box itself", box, whole(box), box, box);
        row("own size in the box", {300, 200}, whole({300, 200}), {300, 200}, box);
        row("one over the canvas", {133, 132}, whole({133, 132}), {133, 132}, box);
        row("tiny", {132, 132}, whole({132, 132}), {132, 132}, {132, 132});
        row("dot", {1, 1}, whole({1, 1}), {1, 1}, {132, 132});
    }
    void previewPlan()
    {
        QFETCH(QSize, size);
        QFETCH(QRect, source);
        QFETCH(QSize, picture);
        QFETCH(QSize, canvas);
        const PreviewPlan plan = planPreview(size);
        QCOMPARE(plan.source, source);
        QCOMPARE(plan.picture, picture);
        QCOMPARE(plan.canvas, canvas);
    }

    // Every format the long way: right size, right bytes by name, corners in their places, right facts.
    void formats_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("encoding");
        QTest::addColumn<QString>("facts"); // depth, alpha, colour model, dpi
        const auto row = [](const char* name, DocumentType type, Encoding encoding, const char* facts) {
            QTest::newRow(name) << QString::fromLatin1(name) << static_cast<int>(type)
                                << static_cast<int>(encoding) << QString::fromLatin1(facts);
        };
        using T = DocumentType;
        row("plain.jpg", T::Jpeg, Encoding::Jpeg, "8 opaque RGB 72");
        row("progressive.jpg", T::Jpeg, Encoding::Jpeg, "8 opaque RGB 300");
        row("cmyk.jpg", T::Jpeg, Encoding::Jpeg, "8 opaque CMYK 72");
        row("wide-gamut.jpg", T::Jpeg, Encoding::Jpeg, "8 opaque RGB 72");
        row("plain.png", T::Png, Encoding::Png, "8 opaque RGB 72");
        row("interlaced.png", T::Png, Encoding::Png, "8 opaque RGB 300");
        row("palette.png", T::Png, Encoding::Png, "8 opaque RGB 72");
        row("sixteen.png", T::Png, Encoding::Png, "16 opaque RGB 72");
        row("alpha.png", T::Png, Encoding::Png, "8 alpha RGB 72");
        row("plain.gif", T::Gif, Encoding::Gif, "8 alpha RGB 72"); // few colours: one is marked as clear
        row("plain.tif", T::Tiff, Encoding::Png, "8 opaque RGB 150");
        row("tiled.tif", T::Tiff, Encoding::Png, "8 opaque RGB 72");
        row("sixteen.tif", T::Tiff, Encoding::Png, "16 opaque RGB 72");
        row("cmyk.tif", T::Tiff, Encoding::Png, "8 opaque CMYK 72");
        row("lab.tif", T::Tiff, Encoding::Png, "16 opaque Lab 72");
        row("plain.bmp", T::Bmp, Encoding::Png, "8 opaque RGB 300");
        row("color.tga", T::Tga, Encoding::Png, "8 opaque RGB 72");
        row("runs.tga", T::Tga, Encoding::Png, "8 opaque RGB 72");
        row("alpha.tga", T::Tga, Encoding::Png, "8 alpha RGB 72");
        row("palette.tga", T::Tga, Encoding::Png, "8 opaque RGB 72");
    }
    void formats()
    {
        QFETCH(QString, name);
        QFETCH(int, type);
        QFETCH(int, encoding);
        QFETCH(QString, facts);
        const QString path = file(name);
        QVERIFY2(writePicture(path, name, {1000, 800}), qPrintable(name));
        const AnalysisResult result = analysed(path, type);
        QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.ok() ? QString() : result.outcome.reason()));
        QCOMPARE(static_cast<int>(encodingOf(result.preview)), encoding);
        const QImage preview = QImage::fromData(result.preview);
        QCOMPARE(preview.size(), kPreviewBox);
        // Pure red, green and blue are beyond what inks can do; these are as near as they come.
        const bool inks = name.contains(QLatin1String("cmyk"));
        const int tolerance = encoding == int(Encoding::Jpeg) ? 12 : 4;
        COMPARE_COLOR(preview.pixelColor(100, 80), inks ? QColor(232, 0, 17) : QColor(255, 0, 0), tolerance);
        COMPARE_COLOR(preview.pixelColor(360, 80), inks ? QColor(191, 207, 0) : QColor(0, 255, 0),
                      std::max(tolerance, 8));
        COMPARE_COLOR(preview.pixelColor(100, 280), inks ? QColor(24, 59, 140) : QColor(0, 0, 255),
                      tolerance);
        COMPARE_COLOR(preview.pixelColor(360, 280), QColor(255, 255, 255), tolerance);
        QVERIFY(!result.colors.empty());
        QCOMPARE(QSize(result.metadata.width, result.metadata.height), QSize(1000, 800));
        QCOMPARE(QStringLiteral("%1 %2 %3 %4")
                     .arg(QString::number(result.metadata.depth),
                          result.metadata.hasAlpha ? QStringLiteral("alpha") : QStringLiteral("opaque"),
                          result.metadata.colorModel, QString::number(result.metadata.dpi)),
                 facts);
    }

    void previewSizes_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("preview");
        QTest::addColumn<QPoint>("clear"); // transparent there, or black in a JPEG
        QTest::addColumn<QPoint>("filled");
        QTest::newRow("band.png") << QString() << QSize(5000, 150) << QSize(460, 360) << QPoint(230, 170)
                                  << QPoint(230, 180);
        QTest::newRow("own size.png")
            << QString() << QSize(300, 200) << QSize(460, 360) << QPoint(79, 80) << QPoint(80, 80);
        QTest::newRow("tiny.gif") << QString() << QSize(100, 100) << QSize(132, 132) << QPoint(15, 50)
                                  << QPoint(16, 50);
        QTest::newRow("tiny.jpg") << QString() << QSize(40, 40) << QSize(132, 132) << QPoint(20, 20)
                                  << QPoint(60, 60);
        QTest::newRow("largest tiny.png")
            << QString() << QSize(132, 132) << QSize(132, 132) << QPoint() << QPoint(0, 0);
        QTest::newRow("just over.png")
            << QString() << QSize(133, 132) << QSize(460, 360) << QPoint(0, 0) << QPoint(230, 180);
        QTest::newRow("enlarged.png")
            << QString() << QSize(470, 210) << QSize(460, 360) << QPoint() << QPoint(0, 0);
        QTest::newRow("dpi does not count.tif")
            << QString() << QSize(1200, 900) << QSize(460, 360) << QPoint() << QPoint(0, 0);
    }
    void previewSizes()
    {
        QFETCH(QSize, size);
        QFETCH(QSize, preview);
        QFETCH(QPoint, clear);
        QFETCH(QPoint, filled);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        const QString path = file(name);
        const QImage image = test::plain(size, QColor(250, 250, 250));
        QVERIFY(name.endsWith(QLatin1String("gif"))   ? test::writeGif(path, {image})
                : name.endsWith(QLatin1String("jpg")) ? test::writeJpeg(path, image)
                : name.endsWith(QLatin1String("tif")) ? test::writeTiff(path, {image}, {.dpi = 300})
                                                      : test::writePng(path, image));
        const AnalysisResult result = analysed(path, typeOf(name));
        QVERIFY(result.outcome.ok());
        const QImage shown = QImage::fromData(result.preview);
        QCOMPARE(shown.size(), preview);
        QVERIFY(near(shown.pixelColor(filled), QColor(250, 250, 250), 3));
        if (!clear.isNull())
            QVERIFY(shown.pixelColor(clear).alpha() == 0 || near(shown.pixelColor(clear), Qt::black, 8));
    }

    // Upright whatever the camera noted, at full size and shrunk, cropped and fitted.
    void orientation_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QSize>("stored");
        for (int orientation = 1; orientation <= 8; ++orientation) {
            for (const QSize size : {QSize(1000, 600), QSize(4000, 3000), QSize(200, 140), QSize(90, 120)})
                QTest::addRow("%d at %d by %d", orientation, size.width(), size.height())
                    << orientation << size;
        }
    }
    void orientation()
    {
        QFETCH(int, orientation);
        QFETCH(QSize, stored);
        // What a camera stores so that the quarters come out upright: the way back of each turn.
        QImage image = test::quarters(orientation >= 5 ? stored.transposed() : stored);
        const auto turned = [&image](int degrees) { return image.transformed(QTransform().rotate(degrees)); };
        switch (orientation) {
        case 2:
            image = image.mirrored(true, false);
            break;
        case 3:
            image = image.mirrored(true, true);
            break;
        case 4:
            image = image.mirrored(false, true);
            break;
        case 5:
            image = turned(90).mirrored(true, false);
            break;
        case 6:
            image = turned(270);
            break;
        case 7:
            image = turned(270).mirrored(true, false);
            break;
        case 8:
            image = turned(90);
            break;
        default:
            break;
        }
        QCOMPARE(image.size(), stored);
        const QString path = file(QStringLiteral("turned.jpg"));
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

    // The colour as it looks, not the numbers in the file.
    void profilesAreFollowed()
    {
        const QColor green(40, 180, 60);
        const QString path = file(QStringLiteral("p3.png"));
        QVERIFY(test::writePng(path, test::plain({600, 500}, green), {.profile = QStringLiteral("p3")}));
        QVERIFY(!near(QImage(path).pixelColor(0, 0), green, 10)); // the file's own numbers differ
        const AnalysisResult result = analysed(path, DocumentType::Png);
        QVERIFY(result.outcome.ok());
        COMPARE_COLOR(QImage::fromData(result.preview).pixelColor(230, 180), green, 3);
        QVERIFY(!result.metadata.profileName.isEmpty());
    }

    void transparencyIsKeptAndScaledByWeight()
    {
        const QString path = file(QStringLiteral("half.png"));
        for (const QSize size : {QSize(920, 720), QSize(5000, 3000)}) { // in memory, and streamed
            QVERIFY(test::writePng(path, test::halfTransparent(size, QColor(200, 100, 50))));
            const QImage preview = QImage::fromData(analysed(path, DocumentType::Png).preview);
            QCOMPARE(preview.size(), kPreviewBox);
            QCOMPARE(preview.pixelColor(100, 180).alpha(), 0);
            COMPARE_COLOR(preview.pixelColor(400, 180), QColor(200, 100, 50), 2);
            QCOMPARE(preview.pixelColor(400, 180).alpha(), 255);
        }
    }

    void facts_data()
    {
        QTest::addColumn<QByteArray>("tiff");
        QTest::addColumn<double>("dpi");
        QTest::addColumn<QString>("software");
        const QImage image = test::quarters({30, 20});
        QTest::newRow("nothing said") << test::plainTiff(image, {}) << 72.0 << QString();
        QTest::newRow("inches") << test::plainTiff(image, {"Painter 4", 300, 2}) << 300.0
                                << QStringLiteral("Painter 4");
        QTest::newRow("centimetres") << test::plainTiff(image, {{}, 100, 3}) << 254.0 << QString();
        QTest::newRow("shape only") << test::plainTiff(image, {{}, 100, 1}) << 72.0 << QString();
        QTest::newRow("unit missing means inches")
            << test::plainTiff(image, {{}, 96, 0}) << 96.0 << QString();
    }
    void facts()
    {
        QFETCH(QByteArray, tiff);
        QFETCH(double, dpi);
        QFETCH(QString, software);
        const QString path = file(QStringLiteral("facts.tif"));
        QVERIFY(test::writeBytes(path, tiff));
        const AnalysisResult result = analysed(path, DocumentType::Tiff);
        QVERIFY(result.outcome.ok());
        QCOMPARE(result.metadata.dpi, dpi);
        QCOMPARE(result.metadata.software, software);
    }

    void softwareOfOtherFormats()
    {
        const QImage image = test::quarters({30, 20});
        const QString odd = QStringLiteral("Tool (beta), ASCII, 3 (x)");
        const QString jpeg = file(QStringLiteral("s.jpg"));
        QVERIFY(test::writeJpeg(jpeg, image, {.software = odd}));
        QCOMPARE(analysed(jpeg, DocumentType::Jpeg).metadata.software, odd);
        const QString png = file(QStringLiteral("s.png"));
        QVERIFY(test::writePng(png, image, {.gray = true, .software = odd}));
        const AnalysisResult result = analysed(png, DocumentType::Png);
        QCOMPARE(result.metadata.software, odd);
        QCOMPARE(result.metadata.colorModel, QStringLiteral("Gray"));
    }

    void kindsAndFrames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("pages");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("frames");
        const auto row = [](const char* title, const char* name, int pages, QSize size, MediaKind asked,
                            MediaKind kind, bool frames) {
            QTest::newRow(title) << QString::fromLatin1(name) << pages << size << static_cast<int>(asked)
                                 << static_cast<int>(kind) << frames;
        };
        using K = MediaKind;
        row("still gif", "a.gif", 1, {320, 240}, K::Unset, K::Phone, false);
        row("animated gif", "a.gif", 3, {320, 240}, K::Unset, K::AnimatedGif, true);
        row("animated gif from the web", "a.gif", 2, {50, 50}, K::Web, K::AnimatedGif, true);
        row("still gif from the web", "a.gif", 1, {50, 50}, K::Web, K::Web, false);
        row("one page", "a.tif", 1, {1280, 960}, K::Unset, K::Wallpaper, false);
        row("two pages", "a.tif", 2, {1280, 960}, K::Unset, K::Wallpaper, true);
        row("screen capture", "a.png", 1, {1280, 960}, K::Screen, K::Screen, false);
    }
    void kindsAndFrames()
    {
        QFETCH(QString, name);
        QFETCH(int, pages);
        QFETCH(QSize, size);
        QFETCH(int, asked);
        QFETCH(int, kind);
        QFETCH(bool, frames);
        std::vector<QImage> images;
        for (int page = 0; page < pages; ++page)
            images.push_back(test::plain(size, QColor::fromHsv(page * 90, 200, 200)));
        const QString path = file(name);
        QVERIFY(name.endsWith(QLatin1String("gif"))   ? test::writeGif(path, images)
                : name.endsWith(QLatin1String("tif")) ? test::writeTiff(path, images)
                                                      : test::writePng(path, images.front()));
        const AnalysisResult result = analyse({path, typeOf(name), static_cast<MediaKind>(asked)});
        QVERIFY(result.outcome.ok());
        QCOMPARE(static_cast<int>(result.kind), kind);
        QCOMPARE(result.hasFrames, frames);
        // Always the first frame, at its own height.
        QCOMPARE(QSize(result.metadata.width, result.metadata.height), size);
        const QImage preview = QImage::fromData(result.preview);
        COMPARE_COLOR(preview.pixelColor(preview.rect().center()), QColor::fromHsv(0, 200, 200), 6);
    }

    // Nothing of a damaged or hostile file gets through, and each says why.
    void hostile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("keep");
        for (const char* name : {"plain.jpg", "progressive.jpg", "plain.png", "interlaced.png", "plain.gif",
                                 "plain.tif", "plain.bmp", "color.tga", "runs.tga"}) {
            for (const double keep : {0.001, 0.3, 0.9})
                QTest::addRow("%s cut to %g", name, keep) << QString::fromLatin1(name) << keep;
        }
    }
    void hostile()
    {
        QFETCH(QString, name);
        QFETCH(double, keep);
        const QString path = file(name);
        QVERIFY(writePicture(path, QStringLiteral("noise-") + name, {400, 1200}));
        QVERIFY(analysed(path, typeOf(name)).outcome.ok());
        QVERIFY(test::cutOff(path, keep));
        const AnalysisResult result = analysed(path, typeOf(name));
        QVERIFY(!result.outcome.ok());
        QVERIFY(result.outcome.reason().size() > 20 &&
                !result.outcome.reason().startsWith(QLatin1String("Failure.")));
        QVERIFY(result.preview.isEmpty());
    }

    void refusedWithAReason_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* name, const QByteArray& bytes, DocumentType type, const char* words) {
            QTest::newRow(name) << bytes << static_cast<int>(type) << QString::fromUtf8(words);
        };
        using T = DocumentType;
        row("empty", {}, T::Png, "empty");
        row("text", "Dear diary, this is no picture.", T::Png, "does not hold a picture");
        row("markup", "<svg/>", T::Jpeg, "does not hold a picture");
        row("png named jpg", test::pngThatClaims(10, 10), T::Jpeg, "holds a “PNG Image”");
        row("jpeg named tga", "\xff\xd8\xff", T::Tga, "holds a “JPEG Image”");
        row("only a mark", "\x89PNG\r\n\x1a\n", T::Png, "damaged");
        row("only a jpeg mark", "\xff\xd8\xff", T::Jpeg, "damaged");
        row("nothing but zeros", QByteArray(4096, '\0'), T::Tga, "damaged");
        row("too many pixels", test::pngThatClaims(90000, 90000), T::Png, "90000 by 90000");
        row("too wide", test::pngThatClaims(2000000000, 1), T::Png, "2000000000 by 1");
        row("says more than it has", test::pngThatClaims(20000, 20000), T::Png, "damaged");
        row("no size", test::pngThatClaims(0, 0), T::Png, "damaged");
        row("huge bmp", hugeBmp(), T::Bmp, "by");
        row("huge tga", QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0\xff\xff\xff\xff\x18\0", 18), T::Tga,
            "65535 by 65535");
        row("no renderer", "%PDF-1.4", T::Pdf, "Portable Document Format (PDF)");
        row("no renderer for icons", "icns", T::Icns, "Icon Image");
        // The directory, at the file's end but for six bytes, names itself as the next one.
        QByteArray loop = test::plainTiff(test::quarters({20, 20}), {});
        loop.replace(loop.size() - 4 - 6, 4, loop.mid(4, 4));
        row("tiff in a loop", loop, T::Tiff, "damaged");
        row("tiff without a directory", QByteArray("II*\0\xff\xff\xff\x7f", 8), T::Tiff, "damaged");
    }
    void refusedWithAReason()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, type);
        QFETCH(QString, words);
        const QString path = file(QStringLiteral("hostile"));
        QVERIFY(test::writeBytes(path, bytes));
        const AnalysisResult result = analysed(path, type);
        QVERIFY(!result.outcome.ok());
        QVERIFY2(result.outcome.reason().contains(words), qPrintable(result.outcome.reason()));
    }

    void unreadablePaths()
    {
        QVERIFY(!analysed(file(QStringLiteral("gone.png")), DocumentType::Png).outcome.ok());
        QVERIFY(!analysed(m_folder.path(), DocumentType::Png).outcome.ok());
    }

    // Damage anywhere may spoil the picture but nothing else: no crash, no hang, an outcome either way.
    void randomDamageIsSurvived()
    {
        for (const char* tag : {"plain.jpg", "progressive.jpg", "interlaced.png", "plain.gif", "plain.tif",
                                "cmyk.tif", "plain.bmp", "runs.tga", "palette.tga", "palette.png"}) {
            const QString name = QString::fromLatin1(tag);
            const QString path = file(QStringLiteral("damaged-") + name);
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
        const QString path = file(QStringLiteral("shared.jpg"));
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
    static DocumentType typeOf(const QString& name)
    {
        const QString extension = name.section(u'.', -1);
        for (const auto& [known, type] :
             {std::pair{"jpg", DocumentType::Jpeg}, std::pair{"gif", DocumentType::Gif},
              std::pair{"tif", DocumentType::Tiff}, std::pair{"bmp", DocumentType::Bmp},
              std::pair{"tga", DocumentType::Tga}}) {
            if (extension == QLatin1String(known))
                return type;
        }
        return DocumentType::Png;
    }

    [[nodiscard]] static AnalysisResult analysed(const QString& path, DocumentType type)
    {
        return analyse({path, type, MediaKind::Unset});
    }
    [[nodiscard]] static AnalysisResult analysed(const QString& path, int type)
    {
        return analysed(path, static_cast<DocumentType>(type));
    }

    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }

    static QByteArray hugeBmp()
    {
        QByteArray bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\0\0\1\0\0\0\1\0\1\0\x18\0", 30);
        return bytes + QByteArray(100, '\0');
    }

    /// A picture of the variant that the name tells.
    static bool writePicture(const QString& path, const QString& name, QSize size)
    {
        const bool detail = name.startsWith(QLatin1String("noise-"));
        const QImage image = detail ? test::noise(size) : test::quarters(size);
        const QString kind = name.section(u'.', 0, 0).remove(QStringLiteral("noise-"));
        const QString extension = name.section(u'.', -1);
        if (extension == QLatin1String("jpg"))
            return test::writeJpeg(
                path, image,
                {.progressive = kind == QLatin1String("progressive"),
                 .cmyk = kind == QLatin1String("cmyk"),
                 .dpi = kind == QLatin1String("progressive") ? 300.0 : 0.0,
                 .profile = kind == QLatin1String("wide-gamut") ? QStringLiteral("p3") : QString()});
        if (extension == QLatin1String("png"))
            return test::writePng(
                path, kind == QLatin1String("alpha") ? image.convertToFormat(QImage::Format_ARGB32) : image,
                {.interlaced = kind == QLatin1String("interlaced"),
                 .palette = kind == QLatin1String("palette"),
                 .sixteenBit = kind == QLatin1String("sixteen"),
                 .dpi = kind == QLatin1String("interlaced") ? 300.0 : 0.0});
        if (extension == QLatin1String("gif"))
            return test::writeGif(path, {image});
        if (extension == QLatin1String("tif"))
            return test::writeTiff(path, {image},
                                   {.cmyk = kind == QLatin1String("cmyk"),
                                    .lab = kind == QLatin1String("lab"),
                                    .sixteenBit = kind == QLatin1String("sixteen"),
                                    .tiled = kind == QLatin1String("tiled"),
                                    .dpi = kind == QLatin1String("plain") ? 150.0 : 72.0});
        if (extension == QLatin1String("bmp"))
            return test::writeBmp(path, image);
        const TgaKind tga = kind == QLatin1String("runs")      ? TgaKind::RunLength
                            : kind == QLatin1String("palette") ? TgaKind::Palette
                                                               : TgaKind::TrueColor;
        return test::writeTga(
            path, kind == QLatin1String("alpha") ? image.convertToFormat(QImage::Format_ARGB32) : image, tga);
    }

    QTemporaryDir m_folder;
};

} // namespace

QTEST_GUILESS_MAIN(tst_Analysis)
#include "tst_analysis.moc"
