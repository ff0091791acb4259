#include "import/ChildProcess.h"
#include "import/RendererTest.h"
#include "import/VipsSupport.h"

#include <QDataStream>

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
    QByteArray bytes("\0\0\3\0\0\0\0\0\0\0\0\0w\0h\0\x10\x08", 18);
    bytes[12] = char(size.width());
    bytes[14] = char(size.height());
    for (int pixel = 0; pixel < size.width() * size.height(); ++pixel)
        bytes += QByteArray(1, char(gray)) + char(opacity);
    return bytes;
}

/// The atoms that describe and hold the picture, the data first.
QByteArray quickTimeImage(QSize size, const QByteArray& codec, int bits, const QByteArray& data)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << quint32(8 + data.size());
    stream.writeRawData("idat", 4);
    stream.writeRawData(data.constData(), static_cast<int>(data.size()));
    stream << quint32(8 + 86);
    stream.writeRawData("idsc", 4);
    stream << quint32(86);
    stream.writeRawData(codec.constData(), 4);
    stream.writeRawData(QByteArray(24, '\0').constData(), 24);
    stream << quint16(size.width()) << quint16(size.height()) << quint32(144 << 16) << quint32(144 << 16)
           << quint32(data.size()) << quint16(1);
    stream.writeRawData(QByteArray(32, '\0').constData(), 32);
    stream << quint16(bits) << quint16(0xffff);
    return bytes;
}

QByteArray plainPixels(const QImage& image)
{
    QByteArray bytes;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            bytes += QByteArray(1, char(qRed(pixel))) + char(qGreen(pixel)) + char(qBlue(pixel));
        }
        bytes += QByteArray(image.width() % 2, '\0');
    }
    return bytes;
}

/// One row of pixels behind masks or a palette; `used` is the number of colours that the header says.
QByteArray bmp(int bits, int compression, quint32 used, const QByteArray& table, const QByteArray& row)
{
    QByteArray bytes("BM");
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint32(0) << quint32(0) << quint32(54 + table.size()) << quint32(40) << qint32(2) << qint32(1)
           << quint16(1) << quint16(bits) << quint32(compression) << quint32(0) << qint32(2835)
           << qint32(2835) << used << quint32(0);
    return bytes + table + row;
}

struct PictureRow {
    DocumentType type;
    QByteArray file;
    QSize size;
    double dpi;
    int depth = 8;
};

class tst_RareBitmaps : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void drawn()
    {
        const QImage large = test::quarters({1401, 1001});
        const QImage small = test::quarters({101, 81});
        const auto tiff = [&](QStringList how) { return converted(large, how << u"tiff:-"_s); };
        const PictureRow rows[] = {
            {DocumentType::Jpeg2000, jpeg2000(large), large.size(), 72},
            {DocumentType::Jpeg2000, jpeg2000(small), small.size(), 72},
            {DocumentType::Tiff, tiff({u"-depth"_s, u"12"_s}), large.size(), 96, 12},
            {DocumentType::Tiff, tiff({u"-colorspace"_s, u"Lab"_s, u"-depth"_s, u"8"_s}), large.size(), 96},
            {DocumentType::Tiff,
             tiff({u"-alpha"_s, u"set"_s, u"-colorspace"_s, u"Lab"_s, u"-depth"_s, u"16"_s}), large.size(),
             96, 16},
            {DocumentType::Pict, pict(large), large.size(), 96},
            {DocumentType::QuickTimeImage,
             quickTimeImage(large.size(), "jpeg", 24, test::encoded(large, "jpg")), large.size(), 144},
            {DocumentType::QuickTimeImage,
             quickTimeImage(large.size(), "png ", 32, test::encoded(large, "png")), large.size(), 144},
            {DocumentType::QuickTimeImage, quickTimeImage(small.size(), "raw ", 24, plainPixels(small)),
             small.size(), 144},
        };
        for (const PictureRow& row : rows) {
            const AnalysisResult result = analysed(row.type, row.file);
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            const bool isJpeg = row.type == DocumentType::Jpeg2000;
            const QImage preview = QImage::fromData(result.preview, isJpeg ? "jpg" : "png");
            const bool isTiny = row.size.width() <= 132;
            QCOMPARE(preview.size(), isTiny ? QSize(132, 132) : QSize(460, 360));
            const QPoint centre = preview.rect().center();
            QVERIFY(preview.pixelColor(centre - QPoint(30, 30)).red() > 200);
            QVERIFY(preview.pixelColor(centre + QPoint(30, -30)).green() > 100);
            QVERIFY(preview.pixelColor(centre - QPoint(30, -30)).blue() > 200);
            QCOMPARE(QSize(result.metadata.width, result.metadata.height), row.size);
            QCOMPARE(result.metadata.dpi, row.dpi);
            QCOMPARE(result.metadata.depth, row.depth);
            QVERIFY(!result.hasFrames && result.sideFile.isEmpty());
        }
    }

    void grayWithOpacity()
    {
        QImage white({20, 10}, QImage::Format_ARGB32);
        white.fill(QColor(255, 255, 255, 128));
        const QByteArray planes =
            converted(white, {u"-colorspace"_s, u"Gray"_s, u"-interlace"_s, u"plane"_s, u"tiff:-"_s});
        for (const auto& [type, bytes] : {std::pair(DocumentType::Tga, grayTga({20, 10}, 255, 128)),
                                          std::pair(DocumentType::Tiff, planes)}) {
            const AnalysisResult result = analysed(type, bytes);
            QVERIFY(result.outcome.ok());
            QVERIFY(result.metadata.hasAlpha);
            QCOMPARE(result.metadata.colorModel, u"Gray"_s);
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.pixelColor(preview.rect().center()), QColor(255, 255, 255, 128));
        }
    }

    /// Two gray pixels, as the highest of their bytes say, whatever the order of bytes.
    void tripleBytesOfTiff()
    {
        const std::vector<quint16> words = {256, 2, 257, 1, 258, 24, 262, 1, 273, 8};
        for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
            const bool isBig = order == QDataStream::BigEndian;
            QByteArray bytes(isBig ? "MM" : "II");
            QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
            stream.setByteOrder(order);
            stream << quint16(42) << quint32(14);
            stream.writeRawData(isBig ? "\xc8\0\0\x5a\0\0" : "\0\0\xc8\0\0\x5a", 6);
            stream << quint16(words.size() / 2);
            for (std::size_t at = 0; at < words.size(); at += 2)
                stream << words[at] << quint16(3) << quint32(1) << words[at + 1] << quint16(0);
            stream << quint32(0);
            const AnalysisResult result = analysed(DocumentType::Tiff, bytes);
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.pixelColor(65, 65), QColor(200, 200, 200));
            QCOMPARE(preview.pixelColor(66, 65), QColor(90, 90, 90));
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
            const AnalysisResult result = analysed(DocumentType::Bmp, bytes);
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            QCOMPARE(result.metadata.hasAlpha, left.alpha() < 255);
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.pixelColor(65, 65), left);
            QCOMPARE(preview.pixelColor(66, 65), QColor(Qt::green));
            expectRefusal(DocumentType::Bmp, bytes.chopped(2));
        }
    }

    void refused()
    {
        const QByteArray wavelets = jpeg2000(test::noise({600, 500}));
        const QByteArray coded =
            quickTimeImage({50, 40}, "png ", 32, test::encoded(test::noise({50, 40}), "png"));
        const std::pair<DocumentType, QByteArray> rows[] = {
            {DocumentType::Jpeg2000, wavelets.left(60)},
            {DocumentType::Jpeg2000, wavelets.left(wavelets.size() / 2)},
            {DocumentType::Jpeg2000, "no picture"},
            {DocumentType::Pict, pict(test::noise({50, 40})).left(545)},
            {DocumentType::Pict, QByteArray(600, '\0')},
            {DocumentType::QuickTimeImage, coded.left(coded.size() - 20)},
            {DocumentType::QuickTimeImage, quickTimeImage({5, 5}, "cvid", 24, "data")},
            {DocumentType::QuickTimeImage, quickTimeImage({500, 500}, "raw ", 24, "data")},
            // By another name.
            {DocumentType::Svg, coded},
            {DocumentType::Png, "<?xml version='1.0'?><!-- A drawing -->\n<svg/>"},
            {DocumentType::QuickTimeImage, quickTimeImage({65535, 65535}, "raw ", 24, "data")},
        };
        for (const auto& [type, bytes] : rows)
            expectRefusal(type, bytes);
    }
};

} // namespace

QTEST_MAIN(tst_RareBitmaps)
#include "tst_rarebitmaps.moc"
