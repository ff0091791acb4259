#include "import/RendererTest.h"

#include <QDataStream>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

QByteArray ico(const std::vector<QByteArray>& pngs)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(pngs.size());
    quint32 offset = 6 + 16 * static_cast<quint32>(pngs.size());
    for (const QByteArray& png : pngs) {
        stream << quint32(0) << quint16(1) << quint16(32) << quint32(png.size()) << offset;
        offset += static_cast<quint32>(png.size());
    }
    for (const QByteArray& png : pngs)
        stream.writeRawData(png.constData(), static_cast<int>(png.size()));
    return bytes;
}

QByteArray icns(const std::vector<std::pair<QByteArray, QByteArray>>& entries)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    for (const auto& [type, data] : entries) {
        stream.writeRawData(type.constData(), 4);
        stream << quint32(8 + data.size());
        stream.writeRawData(data.constData(), static_cast<int>(data.size()));
    }
    QByteArray head("icns\0\0\0\0", 8);
    qToBigEndian(quint32(content.size() + 8), head.data() + 4);
    return head + content;
}

QByteArray square(int side, const QColor& color)
{
    return test::encoded(test::plain({side, side}, color), "png");
}

struct IconRow {
    DocumentType type;
    QByteArray file;
    QSize preview;
    QRgb centre;
    int firstSide;
    bool frames;
};

class tst_Icons : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void drawsTheLargest()
    {
        const QByteArray red = square(32, Qt::red);
        const QByteArray blue = square(256, Qt::blue);
        const QByteArray tiny = test::encoded(test::plain({48, 48}, Qt::green), "ico");
        const IconRow rows[] = {
            {DocumentType::Ico, tiny, {132, 132}, qRgb(0, 255, 0), 48, false},
            {DocumentType::Ico, ico({red, blue}), {460, 360}, qRgb(0, 0, 255), 32, true},
            {DocumentType::Ico, ico({blue, red}), {460, 360}, qRgb(0, 0, 255), 256, true},
            {DocumentType::Icns, icns({{"ic08", blue}}), {460, 360}, qRgb(0, 0, 255), 256, false},
            {DocumentType::Icns,
             icns({{"icp5", red}, {"ic08", blue}}),
             {460, 360},
             qRgb(0, 0, 255),
             32,
             true},
            // By what is in there, not by the name.
            {DocumentType::Ico, blue, {460, 360}, qRgb(0, 0, 255), 256, false},
            {DocumentType::Icns, ico({red, blue}), {460, 360}, qRgb(0, 0, 255), 32, true},
        };
        for (const IconRow& row : rows) {
            const AnalysisResult result = analysed(row.type, row.file);
            QVERIFY2(result.outcome.ok(),
                     qPrintable(result.outcome.ok() ? QString() : result.outcome.reason()));
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.size(), row.preview);
            QCOMPARE(preview.pixel(preview.rect().center()), row.centre);
            QCOMPARE(qAlpha(preview.pixel(0, 0)), 0);
            QCOMPARE(QSize(result.metadata.width, result.metadata.height),
                     QSize(row.firstSide, row.firstSide));
            QCOMPARE(result.hasFrames, row.frames);
            QCOMPARE(result.kind, MediaKind::Icon);
            QVERIFY(result.sideFile.isEmpty());
        }
    }

    void refusesBadFiles()
    {
        const QByteArray good = ico({square(32, Qt::red), square(64, Qt::red)});
        const QByteArray apple = icns({{"icp5", square(32, Qt::red)}});
        const std::pair<DocumentType, QByteArray> rows[] = {
            {DocumentType::Ico, ""},
            {DocumentType::Ico, "a text"},
            {DocumentType::Ico, good.left(30)},
            {DocumentType::Ico, good.left(good.size() - 60)},
            {DocumentType::Ico, ico({test::pngThatClaims(30'000, 30'000)})},
            {DocumentType::Ico, ico({})},
            {DocumentType::Icns, apple.left(60)},
            {DocumentType::Icns, icns({{"ic10", test::pngThatClaims(30'000, 30'000)}})},
            {DocumentType::Icns, icns({})},
            {DocumentType::Ico, square(2100, Qt::red)},
            {DocumentType::Ico, square(20, Qt::red).left(60)},
            {DocumentType::Ico, "%PDF-1.4"},
        };
        for (const auto& [type, bytes] : rows)
            expectRefusal(type, bytes);
    }
};

} // namespace

QTEST_MAIN(tst_Icons)
#include "tst_icons.moc"
