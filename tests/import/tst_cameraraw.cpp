#include "import/RendererTest.h"

#include <QDataStream>
#include <map>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

/// One directory of a file of the TIFF form, with what its entries point to behind it.
class Directory {
public:
    explicit Directory(quint32 start) : m_data(start) {}

    /// `type` 1 bytes, 2 text, 3 shorts, 4 longs, 10 fractions; `value` as it is stored.
    void add(quint16 tag, quint16 type, const QByteArray& value) { m_entries[tag] = {type, value}; }
    void addShort(quint16 tag, quint16 value) { add(tag, 3, QByteArray(1, char(value)) + char(value >> 8)); }
    void addLong(quint16 tag, quint32 value) { add(tag, 4, stored({qint32(value)})); }
    void addFractions(quint16 tag, const std::vector<qint32>& tenThousandths)
    {
        QByteArray bytes;
        for (const qint32 number : tenThousandths)
            bytes += stored({number, 10'000});
        add(tag, 10, bytes);
    }
    /// A strip of data, behind all directories.
    void addStrip(quint32 offset, qsizetype length)
    {
        addLong(273, offset);
        addLong(279, quint32(length));
    }

    [[nodiscard]] QByteArray written(bool isLast) const
    {
        static constexpr int kUnit[] = {0, 1, 1, 2, 4, 0, 0, 0, 0, 0, 8};
        QByteArray bytes;
        QByteArray behind;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setByteOrder(QDataStream::LittleEndian);
        const auto data = quint32(m_data + 2 + m_entries.size() * 12 + 4);
        stream << quint16(m_entries.size());
        for (const auto& [tag, entry] : m_entries) {
            const auto& [type, value] = entry;
            stream << tag << type << quint32(value.size() / kUnit[type]);
            if (value.size() > 4) {
                stream << quint32(data + behind.size());
                behind += value + QByteArray(value.size() % 2, '\0');
            } else {
                stream.writeRawData(value.leftJustified(4, '\0').constData(), 4);
            }
        }
        stream << quint32(isLast ? 0 : data + behind.size());
        return bytes + behind;
    }

private:
    static QByteArray stored(const std::vector<qint32>& numbers)
    {
        return {reinterpret_cast<const char*>(numbers.data()), qsizetype(numbers.size()) * 4};
    }

    quint32 m_data;
    std::map<quint16, std::pair<quint16, QByteArray>>
        m_entries; ///< In the order of their tags, as they must be.
};

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

void addSize(Directory& directory, QSize size)
{
    directory.addLong(256, quint32(size.width()));
    directory.addLong(257, quint32(size.height()));
}

void describeSensor(Directory& raw, const Dng& dng, quint32 offset, qsizetype length)
{
    raw.addLong(254, 0);
    addSize(raw, dng.size);
    const std::pair<quint16, int> shorts[] = {{258, 16}, {259, 1},   {262, 32803}, {274, dng.orientation},
                                              {277, 1},  {50778, 21}};
    for (const auto& [tag, value] : shorts)
        raw.addShort(tag, quint16(value));
    const std::tuple<quint16, quint16, QByteArray> entries[] = {
        {271, 2, "Maker\0"_ba},          {272, 2, "Camera\0"_ba},   {305, 2, "Firmware 2.1\0"_ba},
        {50708, 2, "Maker Camera\0"_ba}, {33421, 3, "\2\0\2\0"_ba}, {33422, 1, "\0\1\1\2"_ba},
        {50706, 1, "\1\4\0\0"_ba}};
    for (const auto& [tag, type, value] : entries)
        raw.add(tag, type, value);
    raw.addLong(278, quint32(dng.size.height()));
    raw.addStrip(offset, length);
    raw.addFractions(50721, {32405, -15371, -4985, -9693, 18760, 416, 556, -2040, 10572});
    raw.addFractions(50728, {10'000, 10'000, 10'000});
}

QByteArray written(const Dng& dng)
{
    constexpr quint32 kFirst = 8;
    constexpr quint32 kStrips = 4096;
    const QByteArray jpeg = dng.preview.isNull() ? QByteArray() : test::encoded(dng.preview, "jpg");
    const QByteArray sensor = cells(dng.size);
    Directory raw(kFirst);
    describeSensor(raw, dng, kStrips, sensor.size());
    QByteArray bytes = "II*\0\10\0\0\0"_ba + raw.written(dng.preview.isNull());
    if (!dng.preview.isNull()) {
        Directory preview(quint32(bytes.size()));
        preview.addLong(254, 1);
        addSize(preview, dng.preview.size());
        preview.add(258, 3, "\10\0\10\0\10\0"_ba);
        preview.addShort(259, 7);
        preview.addShort(262, 6);
        preview.addShort(277, 3);
        preview.addStrip(kStrips + quint32(sensor.size()), jpeg.size());
        bytes += preview.written(true);
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
