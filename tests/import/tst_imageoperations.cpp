#include "import/ImageOperations.h"

#include "support/Pictures.h"

#include <QtTest>

using namespace mosaro;
using namespace mosaro::importing;

namespace {

class tst_ImageOperations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fillRectangle_data()
    {
        QTest::addColumn<QSize>("source");
        QTest::addColumn<QRect>("rectangle");
        QTest::newRow("square, widened to whole pixels") << QSize(1000, 1000) << QRect(0, 108, 1000, 784);
        QTest::newRow("same shape") << QSize(920, 720) << QRect(0, 0, 920, 720);
        QTest::newRow("wide") << QSize(4000, 360) << QRect(1770, 0, 460, 360);
        QTest::newRow("4 to 3") << QSize(4000, 3000) << QRect(83, 0, 3834, 3000);
        QTest::newRow("tall") << QSize(201, 5000) << QRect(0, 2421, 201, 158);
        QTest::newRow("smaller than the target") << QSize(100, 100) << QRect(0, 10, 100, 80);
    }
    void fillRectangle()
    {
        QFETCH(QSize, source);
        QFETCH(QRect, rectangle);
        QCOMPARE(fillSourceRect(source, kPreviewBox), rectangle);
        QVERIFY(QRect(QPoint(0, 0), source).contains(rectangle));
        QCOMPARE(scaleImage(test::plain(source, Qt::red), kPreviewBox).size(), kPreviewBox);
    }

    void proportionalSizes_data()
    {
        QTest::addColumn<QSize>("source");
        QTest::addColumn<QSize>("scaled");
        QTest::newRow("never larger") << QSize(100, 100) << QSize(100, 100);
        QTest::newRow("band") << QSize(5000, 150) << QSize(460, 14);
        QTest::newRow("hair") << QSize(100000, 1) << QSize(460, 1);
        QTest::newRow("tall") << QSize(150, 5000) << QSize(11, 360);
        QTest::newRow("equal") << QSize(460, 360) << QSize(460, 360);
    }
    void proportionalSizes()
    {
        QFETCH(QSize, source);
        QFETCH(QSize, scaled);
        QCOMPARE(proportionalSize(source, kPreviewBox), scaled);
        const QImage image = test::plain(source, Qt::red);
        QCOMPARE(imageByScalingProportionallyToSize(image, kPreviewBox, {}, false).size(), scaled);
        QCOMPARE(imageByScalingProportionallyToSize(image, kPreviewBox, {}, true).size(), kPreviewBox);
    }

    void fittedPictureIsCentredUnscaled()
    {
        const QImage fitted = imageByScalingProportionallyToSize(test::plain({100, 100}, Qt::red),
                                                                 kPreviewBox, QColor(Qt::blue), true);
        QCOMPARE(fitted.pixelColor(0, 0), QColor(Qt::blue));
        QCOMPARE(fitted.pixelColor(459, 359), QColor(Qt::blue));
        QCOMPARE(fitted.pixelColor(1, 1).alpha(), 0);
        QCOMPARE(fitted.pixelColor(179, 130).alpha(), 0);
        QCOMPARE(fitted.pixelColor(180, 130), QColor(Qt::red));
        QCOMPARE(fitted.pixelColor(279, 229), QColor(Qt::red));
        QCOMPARE(fitted.pixelColor(280, 229).alpha(), 0);
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

    void encodings_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("tiff") << 0 << QByteArray("tiff");
        QTest::newRow("bmp") << 1 << QByteArray("bmp");
        QTest::newRow("gif") << 2 << QByteArray("gif");
        QTest::newRow("jpeg") << 3 << QByteArray("jpeg");
        QTest::newRow("png") << 4 << QByteArray("png");
    }
    void encodings()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, format);
        const QImage source = test::quarters({64, 48});
        const QByteArray bytes = representationForFileType(source, static_cast<FileType>(type), 0.9);
        QImage back;
        QVERIFY(back.loadFromData(bytes, format.constData()));
        QCOMPARE(back.size(), source.size());
        QVERIFY(back.pixelColor(10, 10).red() > 230 && back.pixelColor(10, 10).blue() < 30);
        QVERIFY(representationForFileType({}, static_cast<FileType>(type), 0.9).isEmpty());
    }

    void jpegIsProgressiveOnBlackAndPngInterlaced()
    {
        const QImage half = test::halfTransparent({64, 64}, Qt::white);
        const QByteArray jpeg = JPEGRepresentation(half, 0.6);
        QVERIFY(jpeg.contains("\xff\xc2"));
        QVERIFY(!jpeg.contains("\xff\xc0"));
        const QImage onBlack = QImage::fromData(jpeg);
        QVERIFY(onBlack.pixelColor(8, 32).lightness() < 10);
        QVERIFY(onBlack.pixelColor(56, 32).lightness() > 245);

        const QByteArray png = PNGRepresentation(half);
        QCOMPARE(png.at(28), '\1');
        const QImage back = QImage::fromData(png);
        QCOMPARE(back.pixelColor(8, 32).alpha(), 0);
        QCOMPARE(back.pixelColor(56, 32), QColor(Qt::white));
        QVERIFY(JPEGRepresentation(test::noise({64, 64}), 0.3).size() < JPEG(test::noise({64, 64})).size());
    }

    void contentTypeGoesByTheFirstByte()
    {
        QCOMPARE(contentTypeForImageData("<anything"), QStringLiteral("svg"));
        QCOMPARE(contentTypeForImageData("BM"), QStringLiteral("bmp"));
        QCOMPARE(contentTypeForImageData("G"), QStringLiteral("gif"));
        QCOMPARE(contentTypeForImageData("I"), QStringLiteral("tif"));
        QCOMPARE(contentTypeForImageData("MM"), QStringLiteral("tif"));
        QCOMPARE(contentTypeForImageData("\x89"), QStringLiteral("png"));
        QCOMPARE(contentTypeForImageData("\xff"), QStringLiteral("jpg"));
        QCOMPARE(contentTypeForImageData("x"), QString());
        QCOMPARE(contentTypeForImageData({}), QString());
    }

    void rotation_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QColor>("topLeft"); // invalid: transparent
        QTest::newRow("none") << 0.0 << QSize(60, 40) << QColor(Qt::red);
        QTest::newRow("full turn") << 360.0 << QSize(60, 40) << QColor(Qt::red);
        QTest::newRow("quarter") << 90.0 << QSize(40, 60) << QColor(0, 255, 0);
        QTest::newRow("back") << -90.0 << QSize(40, 60) << QColor(0, 0, 255);
        QTest::newRow("three quarters") << 270.0 << QSize(40, 60) << QColor(0, 0, 255);
        QTest::newRow("half") << 180.0 << QSize(60, 40) << QColor(Qt::white);
        QTest::newRow("turn and a half") << -540.0 << QSize(60, 40) << QColor(Qt::white);
        QTest::newRow("oblique") << 45.0 << QSize(80, 80) << QColor();
    }
    void rotation()
    {
        QFETCH(double, degrees);
        QFETCH(QSize, size);
        QFETCH(QColor, topLeft);
        const QImage turned = imageRotated(test::quarters({60, 40}), degrees);
        QCOMPARE(turned.size(), size);
        if (topLeft.isValid())
            QCOMPARE(turned.pixelColor(2, 2), topLeft);
        else
            QCOMPARE(turned.pixelColor(2, 2).alpha(), 0);
    }

    void averageCountsAlphaTwice()
    {
        QCOMPARE(averageColor(test::plain({30, 20}, QColor(10, 200, 30))).name(), QStringLiteral("#0ac81e"));
        const QColor half = averageColor(test::halfTransparent({100, 10}, QColor(255, 0, 0)));
        QVERIFY(qAbs(half.alphaF() - 0.5F) < 0.01F);
        QVERIFY(qAbs(half.redF() - 0.25F) < 0.01F);
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
        three.setPixelColor(0, 0, QColor(90, 0, 0));
        three.setPixelColor(1, 0, QColor(30, 0, 0));
        three.setPixelColor(2, 0, QColor(0, 0, 0));
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

} // namespace

QTEST_GUILESS_MAIN(tst_ImageOperations)
#include "tst_imageoperations.moc"
