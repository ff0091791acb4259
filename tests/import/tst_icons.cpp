#include "import/RendererTest.h"
#include "support/Bytes.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

QByteArray ico(const QList<QByteArray>& pngs)
{
    test::Bytes bytes;
    bytes.put16(0, 1, pngs.size());
    qsizetype offset = 6 + 16 * pngs.size();
    for (const QByteArray& png : pngs) {
        bytes.put32(0).put16(1, 32).put32(png.size(), offset);
        offset += png.size();
    }
    return bytes.all() + pngs.join();
}

QByteArray icns(const std::vector<std::pair<QByteArray, QByteArray>>& entries)
{
    test::Bytes content(QDataStream::BigEndian);
    for (const auto& [type, data] : entries)
        content.put(type).put32(8 + data.size()).put(data);
    test::Bytes head(QDataStream::BigEndian);
    return head.put("icns").put32(content.all().size() + 8).put(content.all()).all();
}

QByteArray square(int side, const QColor& color)
{
    return test::encoded(test::plain({side, side}, color), "png");
}

} // namespace

class tst_Icons : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void drawsTheLargest()
    {
        using enum DocumentType;
        const QByteArray red = square(32, Qt::red);
        const QByteArray blue = square(256, Qt::blue);
        const QByteArray green = test::encoded(test::plain({48, 48}, Qt::green), "ico");
        struct Row {
            DocumentType type;
            QByteArray bytes;
            int firstSide;
            bool frames;
            QColor centre = Qt::blue;
            QSize preview{460, 360};
        };
        for (const Row& row : {Row{Ico, green, 48, false, Qt::green, {132, 132}},
                               {Ico, ico({red, blue}), 32, true},
                               {Ico, ico({blue, red}), 256, true},
                               {Icns, icns({{"ic08", blue}}), 256, false},
                               {Icns, icns({{"icp5", red}, {"ic08", blue}}), 32, true},
                               // By what is in there, not by the name.
                               {Ico, blue, 256, false},
                               {Icns, ico({red, blue}), 32, true}}) {
            const Drawn icon = drawn(row.type, row.bytes);
            QCOMPARE(icon.shown.size(), row.preview);
            QCOMPARE(icon.centre(), row.centre);
            QCOMPARE(qAlpha(icon.shown.pixel(0, 0)), 0);
            QCOMPARE(icon.size, QSize(row.firstSide, row.firstSide));
            QCOMPARE(icon.hasFrames, row.frames);
            QCOMPARE(icon.kind, MediaKind::Icon);
            QVERIFY(icon.sideFile.isEmpty());
        }
    }

    void refusesBadFiles()
    {
        const QByteArray good = ico({square(32, Qt::red), square(64, Qt::red)});
        const QByteArray apple = icns({{"icp5", square(32, Qt::red)}});
        const QByteArray giant = test::pngThatClaims(30'000, 30'000);
        for (const QByteArray& bytes :
             {""_ba, "a text"_ba, "%PDF-1.4"_ba, good.left(30), good.chopped(60), ico({giant}), ico({}),
              square(2100, Qt::red), square(20, Qt::red).left(60)})
            expectRefusal(DocumentType::Ico, bytes);
        for (const QByteArray& bytes : {apple.left(60), icns({{"ic10", giant}}), icns({})})
            expectRefusal(DocumentType::Icns, bytes);
    }
};

QTEST_MAIN(tst_Icons)
#include "tst_icons.moc"
