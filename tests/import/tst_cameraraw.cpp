#include "import/RendererTest.h"
#include "support/Bytes.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

struct Dng {
    QSize size{1000, 800};
    int orientation = 1;
    QImage preview = {};
};

/// Sensor cells behind a red, two green and a blue filter: red above, blue below.
QByteArray cells(QSize size)
{
    std::vector<quint16> numbers;
    for (int y = 0; y < size.height(); ++y) {
        const int bright = y < size.height() / 2 ? 0 : 1; // The filter's column and row of that colour.
        for (int x = 0; x < size.width(); ++x)
            numbers.push_back(x % 2 == bright && y % 2 == bright ? 50'000 : 4'000);
    }
    return {reinterpret_cast<const char*>(numbers.data()), qsizetype(numbers.size()) * 2};
}

/// A directory's entries on size and place.
std::vector<test::TiffTag> placed(QSize size, qsizetype offset, qsizetype length)
{
    return {{256, 4, {size.width()}}, {257, 4, {size.height()}}, {273, 4, {offset}}, {279, 4, {length}}};
}

std::vector<test::TiffTag> sensorTags(const Dng& dng, qsizetype offset, qsizetype length)
{
    std::vector<test::TiffTag> tags = placed(dng.size, offset, length);
    const std::vector<test::TiffTag> others = {{254, 4, {0}},
                                               {258, 3, {16}},
                                               {259, 3, {1}},
                                               {262, 3, {32803}},
                                               {271, 2, {}, "Maker\0"_ba},
                                               {272, 2, {}, "Camera\0"_ba},
                                               {274, 3, {dng.orientation}},
                                               {277, 3, {1}},
                                               {278, 4, {dng.size.height()}},
                                               {305, 2, {}, "Firmware 2.1\0"_ba},
                                               {33421, 3, {2, 2}},
                                               {33422, 1, {}, "\0\1\1\2"_ba},
                                               {50706, 1, {}, "\1\4\0\0"_ba},
                                               {50708, 2, {}, "Maker Camera\0"_ba},
                                               {50778, 3, {21}}};
    tags.insert(tags.end(), others.begin(), others.end());
    for (const auto& [tag, tenThousandths] :
         {std::pair(50721, std::vector{32405, -15371, -4985, -9693, 18760, 416, 556, -2040, 10572}),
          {50728, {10'000, 10'000, 10'000}}}) {
        test::TiffTag& fractions = tags.emplace_back(test::TiffTag{tag, 10, {}});
        for (const int number : tenThousandths)
            fractions.numbers.insert(fractions.numbers.end(), {number, 10'000});
    }
    return tags;
}

QByteArray written(const Dng& dng)
{
    constexpr qsizetype kStrips = 4096;
    const QByteArray jpeg = dng.preview.isNull() ? QByteArray() : test::encoded(dng.preview, "jpg");
    const QByteArray sensor = cells(dng.size);
    QByteArray bytes = "II*\0\10\0\0\0"_ba +
                       test::tiffDirectory(sensorTags(dng, kStrips, sensor.size()), 8, dng.preview.isNull());
    if (!dng.preview.isNull()) {
        std::vector<test::TiffTag> tags = placed(dng.preview.size(), kStrips + sensor.size(), jpeg.size());
        for (const test::TiffTag& tag : std::vector<test::TiffTag>{
                 {254, 4, {1}}, {258, 3, {8, 8, 8}}, {259, 3, {7}}, {262, 3, {6}}, {277, 3, {3}}})
            tags.push_back(tag);
        bytes += test::tiffDirectory(tags, bytes.size());
    }
    return bytes.leftJustified(kStrips, '\0') + sensor + jpeg;
}

} // namespace

class tst_CameraRaw : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void develops()
    {
        struct Row {
            Dng dng;
            QSize whole; ///< Of the side file.
            QPoint red, blue;
        };
        for (const Row& row : {Row{{}, {500, 400}, {230, 60}, {230, 300}},
                               {{.orientation = 3}, {500, 400}, {230, 300}, {230, 60}},
                               {{.orientation = 6}, {400, 500}, {400, 180}, {60, 180}},
                               {{.orientation = 8}, {400, 500}, {60, 180}, {400, 180}},
                               {{.size = {600, 500}}, {600, 500}, {230, 60}, {230, 300}}}) {
            const Drawn photo = drawn(DocumentType::Raw, written(row.dng), "jpg");
            QCOMPARE(photo.side.size(), row.whole);
            QCOMPARE(photo.sideFileSuffix, u"_raw.jpg"_s);
            QCOMPARE(photo.shown.size(), QSize(460, 360));
            const QColor red = photo.shown.pixelColor(row.red);
            const QColor blue = photo.shown.pixelColor(row.blue);
            QVERIFY2(red.red() > red.blue() + 60, qPrintable(red.name()));
            QVERIFY2(blue.blue() > blue.red() + 60, qPrintable(blue.name()));
            QCOMPARE(photo.size, row.dng.size);
            QCOMPARE(photo.metadata.depth, 16);
            QCOMPARE(photo.metadata.software, u"Firmware 2.1"_s);
        }
    }

    /// What the camera has drawn itself goes first, unless it is smaller than the preview. When it is turned
    /// already it is not turned again.
    void takesThePreviewOfTheCamera()
    {
        const std::tuple<int, QSize, QSize> rows[] = {
            {1, {640, 480}, {640, 480}}, {1, {160, 120}, {500, 400}}, {6, {480, 640}, {480, 640}}};
        for (const auto& [orientation, preview, side] : rows) {
            const Dng dng{.orientation = orientation, .preview = test::plain(preview, Qt::green)};
            const Drawn photo = drawn(DocumentType::Raw, written(dng), "jpg");
            QCOMPARE(photo.side.size(), side);
            QCOMPARE(photo.shown.pixelColor(230, 60).green() > 200, side == preview);
        }
    }

    void refused()
    {
        const QByteArray good = written({});
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("no picture"), good.left(100), good.left(3000), good.left(300'000)})
            expectRefusal(DocumentType::Raw, bytes);
    }
};

QTEST_MAIN(tst_CameraRaw)
#include "tst_cameraraw.moc"
