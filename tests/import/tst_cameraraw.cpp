#include "import/RendererTest.h"

#include <QDataStream>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

/// One directory of a file of the TIFF form, with what its entries point to behind it.
class Directory {
public:
    explicit Directory(quint32 start) : m_data(start) {}

    /// `type` 1 bytes, 2 text, 3 shorts, 4 longs, 5 and 10 fractions; `value` as it is stored.
    void add(quint16 tag, quint16 type, const QByteArray& value)
    {
        static constexpr int kUnit[] = {0, 1, 1, 2, 4, 8, 0, 0, 0, 0, 8};
        m_entries.push_back({tag, type, quint32(value.size() / kUnit[type]), value});
    }
    void addShort(quint16 tag, quint16 value) { add(tag, 3, QByteArray(1, char(value)) + char(value >> 8)); }
    void addLong(quint16 tag, quint32 value)
    {
        QByteArray bytes(4, '\0');
        qToLittleEndian(value, bytes.data());
        add(tag, 4, bytes);
    }
    void addFractions(quint16 tag, const std::vector<int>& tenThousandths)
    {
        QByteArray bytes(qsizetype(tenThousandths.size()) * 8, '\0');
        for (std::size_t number = 0; number < tenThousandths.size(); ++number) {
            qToLittleEndian(tenThousandths[number], bytes.data() + number * 8);
            qToLittleEndian(10'000, bytes.data() + number * 8 + 4);
        }
        add(tag, 10, bytes);
    }
    /// A strip of data, behind all directories.
    void addStrip(quint32 offset, qsizetype length)
    {
        addLong(273, offset);
        addLong(279, quint32(length));
    }

    [[nodiscard]] QByteArray written(bool isLast)
    {
        std::sort(m_entries.begin(), m_entries.end(),
                  [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
        QByteArray bytes;
        QByteArray behind;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setByteOrder(QDataStream::LittleEndian);
        const auto data = quint32(m_data + 2 + m_entries.size() * 12 + 4);
        stream << quint16(m_entries.size());
        for (const Entry& entry : m_entries) {
            stream << entry.tag << entry.type << entry.count;
            if (entry.value.size() > 4) {
                stream << quint32(data + behind.size());
                behind += entry.value + QByteArray(entry.value.size() % 2, '\0');
            } else {
                stream.writeRawData(entry.value.leftJustified(4, '\0').constData(), 4);
            }
        }
        stream << quint32(isLast ? 0 : data + behind.size());
        return bytes + behind;
    }

private:
    struct Entry {
        quint16 tag, type;
        quint32 count;
        QByteArray value;
    };
    quint32 m_data;
    std::vector<Entry> m_entries;
};

struct Dng {
    QSize size{1000, 800};
    int orientation = 1;
    QImage preview = {};
};

/// Sensor cells behind a red, two green and a blue filter: red above, blue below.
QByteArray cells(QSize size)
{
    QByteArray bytes(qsizetype(size.width()) * size.height() * 2, '\0');
    for (int y = 0; y < size.height(); ++y) {
        const bool isAbove = y < size.height() / 2;
        for (int x = 0; x < size.width(); ++x) {
            const bool isRed = x % 2 == 0 && y % 2 == 0;
            const bool isBlue = x % 2 == 1 && y % 2 == 1;
            const bool isBright = isAbove ? isRed : isBlue;
            qToLittleEndian(quint16(isBright ? 50'000 : 4'000),
                            bytes.data() + (qsizetype(y) * size.width() + x) * 2);
        }
    }
    return bytes;
}

void describeSensor(Directory& raw, const Dng& dng, quint32 offset, qsizetype length)
{
    raw.addLong(254, 0);
    raw.addLong(256, quint32(dng.size.width()));
    raw.addLong(257, quint32(dng.size.height()));
    raw.addShort(258, 16);
    raw.addShort(259, 1);
    raw.addShort(262, 32803);
    raw.add(271, 2, QByteArray("Maker\0", 6));
    raw.add(272, 2, QByteArray("Camera\0", 7));
    raw.addShort(274, quint16(dng.orientation));
    raw.addShort(277, 1);
    raw.addLong(278, quint32(dng.size.height()));
    raw.addStrip(offset, length);
    raw.add(305, 2, QByteArray("Firmware 2.1\0", 13));
    raw.add(33421, 3, QByteArray("\2\0\2\0", 4));
    raw.add(33422, 1, QByteArray("\0\1\1\2", 4));
    raw.add(50706, 1, QByteArray("\1\4\0\0", 4));
    raw.add(50708, 2, QByteArray("Maker Camera\0", 13));
    raw.addFractions(50721, {32405, -15371, -4985, -9693, 18760, 416, 556, -2040, 10572});
    raw.addFractions(50728, {10'000, 10'000, 10'000});
    raw.addShort(50778, 21);
}

QByteArray written(const Dng& dng)
{
    constexpr quint32 kFirst = 8;
    constexpr quint32 kStrips = 4096;
    const QByteArray jpeg = dng.preview.isNull() ? QByteArray() : test::encoded(dng.preview, "jpg");
    const QByteArray sensor = cells(dng.size);
    Directory raw(kFirst);
    describeSensor(raw, dng, kStrips, sensor.size());
    QByteArray bytes = QByteArray("II*\0\10\0\0\0", 8) + raw.written(dng.preview.isNull());
    if (!dng.preview.isNull()) {
        Directory preview(quint32(bytes.size()));
        preview.addLong(254, 1);
        preview.addLong(256, quint32(dng.preview.width()));
        preview.addLong(257, quint32(dng.preview.height()));
        preview.add(258, 3, QByteArray("\10\0\10\0\10\0", 6));
        preview.addShort(259, 7);
        preview.addShort(262, 6);
        preview.addShort(277, 3);
        preview.addStrip(kStrips + quint32(sensor.size()), jpeg.size());
        bytes += preview.written(true);
    }
    return bytes.leftJustified(kStrips, '\0') + sensor + jpeg;
}

struct TurnRow {
    Dng dng;
    QSize whole; ///< Of the side file.
    QPoint red, blue;
};

class tst_CameraRaw : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void develops()
    {
        const TurnRow rows[] = {
            {{}, {500, 400}, {230, 60}, {230, 300}},
            {{.orientation = 3}, {500, 400}, {230, 300}, {230, 60}},
            {{.orientation = 6}, {400, 500}, {400, 180}, {60, 180}},
            {{.orientation = 8}, {400, 500}, {60, 180}, {400, 180}},
            {{.size = {600, 500}}, {600, 500}, {230, 60}, {230, 300}},
        };
        for (const TurnRow& row : rows) {
            const AnalysisResult result = analysed(DocumentType::Raw, written(row.dng));
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            QCOMPARE(QImage::fromData(result.sideFile, "jpg").size(), row.whole);
            QCOMPARE(result.sideFileSuffix, u"_raw.jpg"_s);
            const QImage preview = QImage::fromData(result.preview, "jpg");
            QCOMPARE(preview.size(), QSize(460, 360));
            const QColor red = preview.pixelColor(row.red);
            const QColor blue = preview.pixelColor(row.blue);
            QVERIFY2(red.red() > red.blue() + 60, qPrintable(red.name()));
            QVERIFY2(blue.blue() > blue.red() + 60, qPrintable(blue.name()));
            QCOMPARE(QSize(result.metadata.width, result.metadata.height), row.dng.size);
            QCOMPARE(result.metadata.depth, 16);
            QCOMPARE(result.metadata.software, u"Firmware 2.1"_s);
        }
    }

    /// What the camera has drawn itself goes first, unless it is smaller than the preview.
    void takesThePreviewOfTheCamera()
    {
        const AnalysisResult large =
            analysed(DocumentType::Raw, written({.preview = test::plain({640, 480}, Qt::green)}));
        QVERIFY2(large.outcome.ok(), qPrintable(large.outcome.reason()));
        QCOMPARE(QImage::fromData(large.sideFile).size(), QSize(640, 480));
        QVERIFY(QImage::fromData(large.preview).pixelColor(230, 60).green() > 200);
        const AnalysisResult small =
            analysed(DocumentType::Raw, written({.preview = test::plain({160, 120}, Qt::green)}));
        QCOMPARE(QImage::fromData(small.sideFile).size(), QSize(500, 400));
        // A preview that the camera has turned already is not turned again.
        const AnalysisResult turned = analysed(
            DocumentType::Raw, written({.orientation = 6, .preview = test::plain({480, 640}, Qt::green)}));
        QCOMPARE(QImage::fromData(turned.sideFile).size(), QSize(480, 640));
    }

    void refused()
    {
        const QByteArray good = written({});
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("no picture"), good.left(100), good.left(3000), good.left(300'000)})
            expectRefusal(DocumentType::Raw, bytes);
    }
};

} // namespace

QTEST_MAIN(tst_CameraRaw)
#include "tst_cameraraw.moc"
