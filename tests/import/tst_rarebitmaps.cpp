#include "import/ChildProcess.h"
#include "import/RendererTest.h"
#include "import/VipsSupport.h"
#include "support/Bytes.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

QByteArray jpeg2000(const QImage& image)
{
    void* buffer = nullptr;
    std::size_t length = 0;
    const VipsPtr picture = vipsFromQImage(image);
    if (vips_jp2ksave_buffer(picture.get(), &buffer, &length, "lossless", TRUE, nullptr) != 0)
        qFatal("cannot write JPEG 2000");
    return vipsTakeBuffer(buffer, length);
}

QByteArray converted(const QImage& image, const QStringList& to)
{
    const ChildLimits limits{20, qint64(1) << 30, 32 << 20};
    return runChild(u"convert-im6"_s, QStringList(u"png:-"_s) + to, limits, test::encoded(image, "png"))
        .value();
}

QByteArray pict(const QImage& image)
{
    return converted(image, {u"pict:-"_s});
}

/// Uncompressed, gray and opacity, from the bottom.
QByteArray grayTga(QSize size, uchar gray, uchar opacity)
{
    test::Bytes bytes;
    bytes.put8(0, 0, 3).put16(0, 0).put8(0).put32(0).put16(size.width(), size.height()).put8(16, 8);
    for (int pixel = 0; pixel < size.width() * size.height(); ++pixel)
        bytes.put8(gray, opacity);
    return bytes.all();
}

/// The atoms that describe and hold the picture, the data first.
QByteArray quickTimeImage(QSize size, const QByteArray& codec, int bits, const QByteArray& data)
{
    test::Bytes bytes(QDataStream::BigEndian);
    bytes.put32(8 + data.size()).put("idat").put(data);
    bytes.put32(8 + 86).put("idsc").put32(86).put(codec).put(QByteArray(24, '\0'));
    bytes.put16(size.width(), size.height()).put32(144 << 16, 144 << 16, data.size()).put16(1);
    return bytes.put(QByteArray(32, '\0')).put16(bits, 0xffff).all();
}

QByteArray plainPixels(const QImage& image)
{
    test::Bytes bytes;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            bytes.put8(qRed(pixel), qGreen(pixel), qBlue(pixel));
        }
        bytes.put(QByteArray(image.width() % 2, '\0'));
    }
    return bytes.all();
}

/// One row of pixels behind masks or a palette; `used` is the number of colours that the header says.
QByteArray bmp(int bits, int compression, quint32 used, const QByteArray& table, const QByteArray& row)
{
    test::Bytes bytes;
    bytes.put("BM").put32(0, 0, 54 + table.size(), 40, 2, 1).put16(1, bits);
    return bytes.put32(compression, 0, 2835, 2835, used, 0).put(table).put(row).all();
}

} // namespace

class tst_RareBitmaps : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void formats()
    {
        using enum DocumentType;
        const QImage large = test::quarters({1401, 1001});
        const QImage small = test::quarters({101, 81});
        const auto tiff = [&](const char* how) {
            return converted(large, QString::fromLatin1(how).split(u' ') << u"tiff:-"_s);
        };
        const auto quickTime = [](const char* codec, const QImage& image, int bits, const QByteArray& data) {
            return quickTimeImage(image.size(), codec, bits, data);
        };
        struct Row {
            DocumentType type;
            QByteArray bytes;
            const QImage& image;
            double dpi;
            int depth = 8;
        };
        for (const Row& row :
             {Row{Jpeg2000, jpeg2000(large), large, 72},
              {Jpeg2000, jpeg2000(small), small, 72},
              {Tiff, tiff("-depth 12"), large, 96, 12},
              {Tiff, tiff("-colorspace Lab -depth 8"), large, 96},
              {Tiff, tiff("-alpha set -colorspace Lab -depth 16"), large, 96, 16},
              {Pict, pict(large), large, 96},
              {QuickTimeImage, quickTime("jpeg", large, 24, test::encoded(large, "jpg")), large, 144},
              {QuickTimeImage, quickTime("png ", large, 32, test::encoded(large, "png")), large, 144},
              {QuickTimeImage, quickTime("raw ", small, 24, plainPixels(small)), small, 144}}) {
            const Drawn picture = drawn(row.type, row.bytes, row.type == Jpeg2000 ? "jpg" : "png");
            QCOMPARE(picture.shown.size(), row.image.width() <= 132 ? QSize(132, 132) : QSize(460, 360));
            const QPoint centre = picture.shown.rect().center();
            QVERIFY(picture.shown.pixelColor(centre - QPoint(30, 30)).red() > 200);
            QVERIFY(picture.shown.pixelColor(centre + QPoint(30, -30)).green() > 100);
            QVERIFY(picture.shown.pixelColor(centre - QPoint(30, -30)).blue() > 200);
            QCOMPARE(picture.size, row.image.size());
            QCOMPARE(picture.metadata.dpi, row.dpi);
            QCOMPARE(picture.metadata.depth, row.depth);
            QVERIFY(!picture.hasFrames && picture.sideFile.isEmpty());
        }
    }

    void grayWithOpacity()
    {
        const QColor color(255, 255, 255, 128);
        QImage white({20, 10}, QImage::Format_ARGB32);
        white.fill(color);
        const QByteArray planes =
            converted(white, {u"-colorspace"_s, u"Gray"_s, u"-interlace"_s, u"plane"_s, u"tiff:-"_s});
        for (const auto& [type, bytes] : {std::pair(DocumentType::Tga, grayTga({20, 10}, 255, 128)),
                                          std::pair(DocumentType::Tiff, planes)}) {
            const Drawn picture = drawn(type, bytes);
            QVERIFY(picture.metadata.hasAlpha);
            QCOMPARE(picture.metadata.colorModel, u"Gray"_s);
            QCOMPARE(picture.centre(), color);
        }
    }

    /// Two gray pixels, as the highest of their bytes say, whatever the order of bytes.
    void tripleBytesOfTiff()
    {
        const std::vector<test::TiffTag> tags = {
            {256, 3, {2}}, {257, 3, {1}}, {258, 3, {24}}, {262, 3, {1}}, {273, 3, {8}}};
        for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
            const bool isBig = order == QDataStream::BigEndian;
            test::Bytes bytes(order);
            bytes.put(isBig ? "MM" : "II").put16(42).put32(14);
            bytes.put(isBig ? "\xc8\0\0\x5a\0\0"_ba : "\0\0\xc8\0\0\x5a"_ba);
            bytes.put(test::tiffDirectory(tags, 14, true, order));
            const QImage shown = drawn(DocumentType::Tiff, bytes.all()).shown;
            QCOMPARE(shown.pixelColor(65, 65), QColor(200, 200, 200));
            QCOMPARE(shown.pixelColor(66, 65), QColor(90, 90, 90));
        }
    }

    /// Blue or half red on the left, green on the right.
    void packedBmp()
    {
        const QByteArray palette("\xff\0\0\0\0\xff\0\0", 8);
        const QByteArray tens("\0\0\xf0\x3f\0\xfc\x0f\0\xff\3\0\0", 12);
        const QByteArray fours("\0\x0f\0\0\xf0\0\0\0\x0f\0\0\0\0\xf0\0\0", 16);
        const std::pair<QByteArray, QColor> rows[] = {
            {bmp(32, 3, 0, tens, QByteArray("\xff\3\0\0\0\xfc\x0f\0", 8)), Qt::blue},
            {bmp(16, 6, 0, fours, QByteArray("\0\x8f\xf0\xf0", 4)), QColor(255, 0, 0, 136)},
            {bmp(16, 6, 0, fours, QByteArray("\x0f\0\xf0\0", 4)), Qt::blue}, // No opacity at all.
            {bmp(2, 0, 4, palette + QByteArray(8, '\0'), QByteArray("\x10\0\0\0", 4)), Qt::blue},
            {bmp(8, 0, 0x7fffffff, palette, QByteArray("\0\1\0\0", 4)), Qt::blue},
        };
        for (const auto& [bytes, left] : rows) {
            const Drawn picture = drawn(DocumentType::Bmp, bytes);
            QCOMPARE(picture.metadata.hasAlpha, left.alpha() < 255);
            QCOMPARE(picture.shown.pixelColor(65, 65), left);
            QCOMPARE(picture.shown.pixelColor(66, 65), QColor(Qt::green));
            expectRefusal(DocumentType::Bmp, bytes.chopped(2));
        }
    }

    void refused()
    {
        using enum DocumentType;
        const QByteArray wavelets = jpeg2000(test::noise({600, 500}));
        const QByteArray coded =
            quickTimeImage({50, 40}, "png ", 32, test::encoded(test::noise({50, 40}), "png"));
        const std::pair<DocumentType, QByteArray> rows[] = {
            {Jpeg2000, wavelets.left(60)},
            {Jpeg2000, wavelets.left(wavelets.size() / 2)},
            {Jpeg2000, "no picture"},
            {Pict, pict(test::noise({50, 40})).left(545)},
            {Pict, QByteArray(600, '\0')},
            {QuickTimeImage, coded.left(coded.size() - 20)},
            {QuickTimeImage, quickTimeImage({5, 5}, "cvid", 24, "data")},
            {QuickTimeImage, quickTimeImage({500, 500}, "raw ", 24, "data")},
            {QuickTimeImage, quickTimeImage({65535, 65535}, "raw ", 24, "data")},
            // By another name.
            {Svg, coded},
            {Png, "<?xml version='1.0'?><!-- A drawing -->\n<svg/>"},
        };
        for (const auto& [type, bytes] : rows)
            expectRefusal(type, bytes);
    }
};

QTEST_MAIN(tst_RareBitmaps)
#include "tst_rarebitmaps.moc"
