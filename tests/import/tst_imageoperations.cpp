#include "import/ImageOperations.h"

#include "support/Pictures.h"

#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

class tst_ImageOperations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fillRectangle()
    {
        for (const auto& [source, rectangle] :
             {std::pair(QSize(1000, 1000), QRect(0, 108, 1000, 784)), // widened to whole pixels
              {QSize(920, 720), QRect(0, 0, 920, 720)},
              {QSize(4000, 360), QRect(1770, 0, 460, 360)},
              {QSize(201, 5000), QRect(0, 2421, 201, 158)},
              {QSize(100, 100), QRect(0, 10, 100, 80)}}) { // smaller than the target
            QCOMPARE(fillSourceRect(source, kPreviewBox), rectangle);
            QCOMPARE(scaleImage(test::plain(source, Qt::red), kPreviewBox).size(), kPreviewBox);
        }
    }

    void proportionalSizes()
    {
        for (const auto& [source, scaled] : {std::pair(QSize(100, 100), QSize(100, 100)), // never larger
                                             {QSize(5000, 150), QSize(460, 14)},
                                             {QSize(100000, 1), QSize(460, 1)},
                                             {QSize(150, 5000), QSize(11, 360)},
                                             {QSize(460, 360), QSize(460, 360)}}) {
            QCOMPARE(proportionalSize(source, kPreviewBox), scaled);
            const QImage image = test::plain(source, Qt::red);
            QCOMPARE(imageByScalingProportionallyToSize(image, kPreviewBox, {}, false).size(), scaled);
            QCOMPARE(imageByScalingProportionallyToSize(image, kPreviewBox, {}, true).size(), kPreviewBox);
        }
    }

    void fittedPictureIsCentredUnscaled()
    {
        const QImage fitted = imageByScalingProportionallyToSize(test::plain({100, 100}, Qt::red),
                                                                 kPreviewBox, QColor(Qt::blue), true);
        const std::pair<QPoint, QColor> rows[] = {{{0, 0}, Qt::blue},           {{459, 359}, Qt::blue},
                                                  {{1, 1}, Qt::transparent},    {{179, 130}, Qt::transparent},
                                                  {{180, 130}, Qt::red},        {{279, 229}, Qt::red},
                                                  {{280, 229}, Qt::transparent}};
        for (const auto& [place, color] : rows)
            QCOMPARE(fitted.pixelColor(place), color);
        QVERIFY(imageByScalingProportionallyToSize({}, kPreviewBox, {}, true).isNull());
    }

    // A colour that is not seen must not shine through at the edge.
    void scalingMixesByAlpha()
    {
        QImage image(200, 200, QImage::Format_ARGB32);
        image.fill(QColor(0, 255, 0, 0));
        for (int y = 0; y < 200; ++y) {
            for (int x = y % 2; x < 200; x += 2)
                image.setPixelColor(x, y, QColor(255, 0, 0));
        }
        const QColor mixed = shrunk(image, {100, 100}).pixelColor(50, 50);
        QCOMPARE(mixed.red(), 255);
        QCOMPARE(mixed.green(), 0);
        QVERIFY(std::abs(mixed.alpha() - 128) <= 1);
    }

    void encodings()
    {
        const QImage source = test::quarters({64, 48});
        int number = 0;
        for (const char* format : {"tiff", "bmp", "gif", "jpeg", "png"}) {
            const auto type = static_cast<FileType>(number++);
            QImage back;
            QVERIFY2(back.loadFromData(representationForFileType(source, type, 0.9), format), format);
            QCOMPARE(back.size(), source.size());
            QVERIFY2(back.pixelColor(10, 10).red() > 230 && back.pixelColor(10, 10).blue() < 30, format);
            QVERIFY(representationForFileType({}, type, 0.9).isEmpty());
        }
    }

    void jpegIsProgressiveOnBlackAndPngInterlaced()
    {
        const QImage half = test::halfTransparent({64, 64}, Qt::white);
        const QByteArray jpeg = JPEGRepresentation(half, 0.6);
        QVERIFY(jpeg.contains("\xff\xc2") && !jpeg.contains("\xff\xc0"));
        const QImage onBlack = QImage::fromData(jpeg);
        QVERIFY(onBlack.pixelColor(8, 32).lightness() < 10 && onBlack.pixelColor(56, 32).lightness() > 245);

        const QByteArray png = PNGRepresentation(half);
        QCOMPARE(png.at(28), '\1');
        const QImage back = QImage::fromData(png);
        QCOMPARE(back.pixelColor(8, 32).alpha(), 0);
        QCOMPARE(back.pixelColor(56, 32), QColor(Qt::white));
        QVERIFY(JPEGRepresentation(test::noise({64, 64}), 0.3).size() < JPEG(test::noise({64, 64})).size());
    }

    void contentTypeGoesByTheFirstByte()
    {
        const std::pair<const char*, const char*> rows[] = {
            {"<anything", "svg"}, {"BM", "bmp"},   {"G", "gif"}, {"I", "tif"}, {"MM", "tif"},
            {"\x89", "png"},      {"\xff", "jpg"}, {"x", ""},    {"", ""}};
        for (const auto& [bytes, type] : rows)
            QCOMPARE(contentTypeForImageData(bytes), QString::fromLatin1(type));
    }

    void rotation()
    {
        const std::tuple<double, QSize, QColor> rows[] = {
            {0, {60, 40}, Qt::red},     {360, {60, 40}, Qt::red},  {90, {40, 60}, Qt::green},
            {-90, {40, 60}, Qt::blue},  {270, {40, 60}, Qt::blue}, {180, {60, 40}, Qt::white},
            {-540, {60, 40}, Qt::white}};
        for (const auto& [degrees, size, topLeft] : rows) {
            const QImage turned = imageRotated(test::quarters({60, 40}), degrees);
            QCOMPARE(turned.size(), size);
            QCOMPARE(turned.pixelColor(2, 2), topLeft);
        }
        const QImage oblique = imageRotated(test::quarters({60, 40}), 45);
        QCOMPARE(oblique.size(), QSize(80, 80));
        QCOMPARE(oblique.pixelColor(2, 2).alpha(), 0);
    }

    void averageCountsAlphaTwice()
    {
        QCOMPARE(averageColor(test::plain({30, 20}, QColor(10, 200, 30))).name(), u"#0ac81e"_s);
        const QColor half = averageColor(test::halfTransparent({100, 10}, QColor(255, 0, 0)));
        QVERIFY(qAbs(half.alphaF() - 0.5F) < 0.01F && qAbs(half.redF() - 0.25F) < 0.01F);
        QCOMPARE(averageColor(test::halfTransparent({2, 1}, Qt::transparent)).alpha(), 0);
    }

    void gridCellsAreExactMeans()
    {
        // Neither edge divides by the grid, and one is smaller than it.
        for (const QSize size : {QSize(461, 7), QSize(3, 133), QSize(10, 10), QSize(460, 360)}) {
            const QImage cells = sampledToGrid(test::plain(size, QColor(255, 1, 128)), 10);
            for (int y = 0; y < 10; ++y) {
                for (int x = 0; x < 10; ++x)
                    QCOMPARE(cells.pixelColor(x, y), QColor(255, 1, 128));
            }
        }
        // Three columns over two cells: the middle one counts half for each.
        QImage three(3, 1, QImage::Format_RGB32);
        for (const auto& [x, red] : {std::pair(0, 90), {1, 30}, {2, 0}})
            three.setPixelColor(x, 0, QColor(red, 0, 0));
        const QImage two = sampledToGrid(three, 2);
        QCOMPARE(two.pixelColor(0, 0).red(), 70);
        QCOMPARE(two.pixelColor(1, 1).red(), 10);
    }

    void swatch()
    {
        const QImage image = imageWithColor(Qt::green, {20, 10}, QColor(Qt::black), 2);
        QCOMPARE(image.size(), QSize(20, 10));
        QCOMPARE(image.pixelColor(1, 5), QColor(Qt::black));
        QCOMPARE(image.pixelColor(2, 2), QColor(Qt::green));
        QCOMPARE(image.pixelColor(18, 5), QColor(Qt::black));
    }
};

QTEST_GUILESS_MAIN(tst_ImageOperations)
#include "tst_imageoperations.moc"
