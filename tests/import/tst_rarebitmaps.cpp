#include "base/Text.h"
#include "import/Analysis.h"
#include "import/ChildProcess.h"
#include "import/VipsSupport.h"
#include "support/Pictures.h"

#include <QBuffer>
#include <QDataStream>
#include <QTemporaryDir>
#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 95);
    return buffer.data();
}

QByteArray jpeg2000(const QImage& image)
{
    void* buffer = nullptr;
    std::size_t length = 0;
    const VipsPtr picture = vipsFromQImage(image);
    if (vips_jp2ksave_buffer(picture.get(), &buffer, &length, "lossless", TRUE, nullptr) != 0)
        qFatal("cannot write JPEG 2000");
    return vipsTakeBuffer(buffer, length);
}

QByteArray pict(const QImage& image)
{
    const ChildLimits limits{20, qint64(1) << 30, 32 << 20};
    return runChild(u"convert-im6"_s, {u"png:-"_s, u"pict:-"_s}, limits, encoded(image, "png")).value();
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

struct PictureRow {
    DocumentType type;
    QByteArray file;
    QSize size;
    double dpi;
};

class tst_RareBitmaps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        setUpImageLibrary("test");
    }

    void drawn()
    {
        const QImage large = test::quarters({1401, 1001});
        const QImage small = test::quarters({101, 81});
        const PictureRow rows[] = {
            {DocumentType::Jpeg2000, jpeg2000(large), large.size(), 72},
            {DocumentType::Jpeg2000, jpeg2000(small), small.size(), 72},
            {DocumentType::Pict, pict(large), large.size(), 96},
            {DocumentType::QuickTimeImage, quickTimeImage(large.size(), "jpeg", 24, encoded(large, "jpg")),
             large.size(), 144},
            {DocumentType::QuickTimeImage, quickTimeImage(large.size(), "png ", 32, encoded(large, "png")),
             large.size(), 144},
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
            QCOMPARE(result.metadata.depth, 8);
            QVERIFY(!result.hasFrames && result.sideFile.isEmpty());
        }
    }

    void refused()
    {
        const QByteArray wavelets = jpeg2000(test::noise({600, 500}));
        const QByteArray coded = quickTimeImage({50, 40}, "png ", 32, encoded(test::noise({50, 40}), "png"));
        const std::pair<DocumentType, QByteArray> rows[] = {
            {DocumentType::Jpeg2000, wavelets.left(60)},
            {DocumentType::Jpeg2000, wavelets.left(wavelets.size() / 2)},
            {DocumentType::Jpeg2000, "no picture"},
            {DocumentType::Pict, pict(test::noise({50, 40})).left(545)},
            {DocumentType::Pict, QByteArray(600, '\0')},
            {DocumentType::QuickTimeImage, coded.left(coded.size() - 20)},
            {DocumentType::QuickTimeImage, quickTimeImage({5, 5}, "cvid", 24, "data")},
            {DocumentType::QuickTimeImage, quickTimeImage({500, 500}, "raw ", 24, "data")},
            {DocumentType::QuickTimeImage, quickTimeImage({65535, 65535}, "raw ", 24, "data")},
        };
        for (const auto& [type, bytes] : rows) {
            const AnalysisResult result = analysed(type, bytes);
            QVERIFY2(!result.outcome.ok(), bytes.left(60).toHex().constData());
            QVERIFY(!result.outcome.reason().isEmpty());
        }
    }

private:
    AnalysisResult analysed(DocumentType type, const QByteArray& bytes)
    {
        const QString path = m_folder.filePath(u"picture"_s);
        test::writeBytes(path, bytes);
        return analyse({.path = path, .type = type});
    }

    QTemporaryDir m_folder;
};

} // namespace

QTEST_MAIN(tst_RareBitmaps)
#include "tst_rarebitmaps.moc"
