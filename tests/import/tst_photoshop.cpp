#include "import/RendererTest.h"

#include <QColorSpace>
#include <QDataStream>

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

struct Psd {
    int mode = 3;
    int depth = 8;
    QSize size{600, 500};
    std::vector<int> samples = {255, 0, 0}; ///< One plain value a channel.
    int dpi = 0;
    bool isTransparent = false; ///< The channel behind the colours is the transparency of the whole.
    QByteArray deepBlock = {};  ///< Name of the block that says so for more than 8 bits.
    QByteArray profile = {};
    QByteArray xmp = {};
    QByteArray palette = ""; ///< Not a null one, whose length is written as -1.
    int transparentColor = -1;
    QByteArray pixels = {}; ///< With how they are packed in front; empty for plain values.
};

void addResource(QDataStream& stream, quint16 number, const QByteArray& data)
{
    stream.writeRawData("8BIM", 4);
    stream << number << quint16(0) << quint32(data.size());
    stream.writeRawData(data.constData(), static_cast<int>(data.size()));
    if (data.size() % 2)
        stream << quint8(0);
}

QByteArray resources(const Psd& psd)
{
    QByteArray bytes("");
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (psd.dpi > 0)
        addResource(stream, 1005,
                    QByteArray(1, char(psd.dpi >> 8)) + char(psd.dpi & 255) + QByteArray(14, '\0'));
    stream.writeRawData("AgHg\4\x25\0\0\0\0\0\0", 12); // Of another program.
    if (!psd.profile.isEmpty())
        addResource(stream, 1039, psd.profile);
    if (!psd.xmp.isEmpty())
        addResource(stream, 1060, psd.xmp);
    if (psd.transparentColor >= 0)
        addResource(stream, 1047, QByteArray(1, '\0') + char(psd.transparentColor));
    return bytes;
}

QByteArray written(const Psd& psd)
{
    QByteArray bytes("8BPS\0\1\0\0\0\0\0\0", 12);
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream << quint16(psd.samples.size()) << quint32(psd.size.height()) << quint32(psd.size.width())
           << quint16(psd.depth) << quint16(psd.mode);
    stream << psd.palette << resources(psd); // With their lengths in front.
    if (!psd.deepBlock.isEmpty()) {
        stream << quint32(20 + 2) << quint32(0) << quint32(0);
        stream.writeRawData("8BIM" + psd.deepBlock, 8);
        stream << quint32(2) << qint16(-1);
    } else if (psd.isTransparent) {
        // One layer of no size; the sign of their number tells of the transparency.
        const QByteArray layer = QByteArray(18, '\0') + "8BIMnorm\xff" + QByteArray(3, '\0') +
                                 QByteArray(3, '\0') + '\x0c' + QByteArray(12, '\0');
        stream << quint32(10 + layer.size()) << quint32(2 + layer.size()) << qint16(-1);
        stream.writeRawData(layer.constData(), static_cast<int>(layer.size()));
        stream << quint32(0);
    } else {
        stream << quint32(0);
    }
    if (!psd.pixels.isEmpty())
        return bytes + psd.pixels;
    stream << quint16(0);
    for (const int sample : psd.samples) {
        const QByteArray plane(qsizetype(psd.size.width()) * psd.size.height() * psd.depth / 8, char(sample));
        stream.writeRawData(plane.constData(), static_cast<int>(plane.size()));
    }
    return bytes;
}

/// Colour 1 is red, 2 is blue.
QByteArray redAndBlue()
{
    QByteArray palette(768, '\0');
    palette[1] = palette[512 + 2] = '\xff';
    return palette;
}

/// Rows of 300 pixels, red on the left third.
QByteArray packedRows(int rows)
{
    const QByteArray row("\x9d\x01\x02\x01\x01\x01\x80\x9d\x02\x9d\x02", 11); // 3 of the reds as they are.
    QByteArray bytes("\0\1", 2);
    bytes += QByteArray("\0\x0b", 2).repeated(rows) + row.repeated(rows);
    return bytes;
}

int distance(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

struct ColorRow {
    Psd psd;
    QString model;
    QColor color;
};

struct SizeRow {
    QSize size;
    int dpi;
    QSize preview, drawn;
};

class tst_Photoshop : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void colors()
    {
        const QByteArray p3 = QColorSpace(QColorSpace::DisplayP3).iccProfile();
        const ColorRow rows[] = {
            {{}, u"RGB"_s, QColor(255, 0, 0)},
            {{.depth = 16, .samples = {255, 255, 0}}, u"RGB"_s, QColor(255, 255, 0)},
            {{.mode = 1, .samples = {128}}, u"Gray"_s, QColor(128, 128, 128)},
            // Stored the other way round: none of cyan, all of magenta and yellow.
            {{.mode = 4, .samples = {255, 0, 0, 255}}, u"CMYK"_s, QColor(232, 0, 17)},
            {{.mode = 9, .samples = {136, 208, 195}}, u"Lab"_s, QColor(252, 0, 5)},
            {{.samples = {128, 64, 64}, .profile = p3}, u"RGB"_s, QColor(138, 60, 62)},
        };
        for (const ColorRow& row : rows) {
            const AnalysisResult result = analysed(DocumentType::Photoshop, written(row.psd));
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.size(), QSize(460, 360));
            const QColor seen = preview.pixelColor(230, 180);
            QVERIFY2(distance(seen, row.color) <= 24, qPrintable(row.model + u' ' + seen.name()));
            QCOMPARE(result.metadata.colorModel, row.model);
            QCOMPARE(result.metadata.depth, row.psd.depth);
            QCOMPARE(result.metadata.profileName.isEmpty(), row.psd.profile.isEmpty());
            QVERIFY(!result.metadata.hasAlpha);
        }
    }

    void transparency()
    {
        const Psd clear{.samples = {255, 0, 0, 0},
                        .isTransparent = true,
                        .xmp = "<xmp:CreatorTool>A program 1.0</xmp:CreatorTool>"};
        const AnalysisResult result = analysed(DocumentType::Photoshop, written(clear));
        QVERIFY(result.outcome.ok() && result.metadata.hasAlpha);
        QCOMPARE(result.metadata.software, u"A program 1.0"_s);
        QCOMPARE(QImage::fromData(result.preview).pixelColor(230, 180).alpha(), 0);
        // Half there, merged onto white, in each model; stored numbers, and what they are without the white.
        const std::tuple<Psd, QColor> rows[] = {
            {{.samples = {255, 127, 127, 128}, .isTransparent = true}, QColor(255, 0, 0)},
            {{.depth = 16, .samples = {255, 127, 127, 128}, .deepBlock = "Lr16"}, QColor(255, 0, 0)},
            {{.mode = 1, .depth = 16, .samples = {127, 128}, .deepBlock = "Mt16"}, QColor(0, 0, 0)},
            {{.mode = 9, .samples = {195, 168, 162, 128}, .isTransparent = true}, QColor(252, 0, 5)},
            {{.mode = 4, .samples = {255, 127, 127, 255, 128}, .isTransparent = true}, QColor(232, 0, 17)},
        };
        for (const auto& [psd, color] : rows) {
            const AnalysisResult half = analysed(DocumentType::Photoshop, written(psd));
            QVERIFY(half.outcome.ok() && half.metadata.hasAlpha);
            const QColor seen = QImage::fromData(half.preview).pixelColor(230, 180);
            QVERIFY2(seen.alpha() >= 127 && seen.alpha() <= 129, qPrintable(seen.name(QColor::HexArgb)));
            QVERIFY2(distance(seen, color) <= 45, qPrintable(seen.name()));
        }
        // A channel for something else hides nothing, and many of them harm nothing.
        Psd many{.samples = std::vector<int>(57, 0)};
        many.samples[1] = 255;
        const AnalysisResult spots = analysed(DocumentType::Photoshop, written(many));
        QCOMPARE(QImage::fromData(spots.preview).pixelColor(230, 180), QColor(0, 255, 0));
        const AnalysisResult mask = analysed(DocumentType::Photoshop, written({.samples = {255, 0, 0, 0}}));
        QVERIFY(mask.outcome.ok() && !mask.metadata.hasAlpha);
        QCOMPARE(QImage::fromData(mask.preview).pixelColor(230, 180), QColor(255, 0, 0));
    }

    void palettes()
    {
        const Psd plain{.mode = 2, .samples = {1}, .palette = redAndBlue()};
        const Psd packed{.mode = 2,
                         .size = {300, 400},
                         .samples = {0},
                         .palette = redAndBlue(),
                         .pixels = packedRows(400)};
        Psd clear = packed;
        clear.transparentColor = 2;
        Psd large = plain;
        large.size = {5000, 3000};
        const std::tuple<Psd, QColor, int> rows[] = {
            {plain, Qt::red, 255}, {large, Qt::red, 255}, {packed, Qt::blue, 255}, {clear, Qt::blue, 0}};
        for (const auto& [psd, right, alpha] : rows) {
            const AnalysisResult result = analysed(DocumentType::Photoshop, written(psd));
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.pixelColor(100, 180), QColor(Qt::red));
            QCOMPARE(preview.pixelColor(360, 180).alpha(), alpha);
            QVERIFY(alpha == 0 || preview.pixelColor(360, 180) == right);
            QCOMPARE(result.metadata.hasAlpha, alpha == 0);
        }
    }

    /// The preview goes by the size in points.
    void sizes()
    {
        const SizeRow rows[] = {
            {{100, 80}, 0, {132, 132}, {100, 80}},
            {{600, 400}, 300, {460, 360}, {144, 96}},
            {{400, 300}, 300, {132, 132}, {96, 72}},
            {{2000, 1500}, 300, {460, 360}, {460, 360}},
        };
        for (const SizeRow& row : rows) {
            const AnalysisResult result =
                analysed(DocumentType::Photoshop, written({.size = row.size, .dpi = row.dpi}));
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            QCOMPARE(QSize(result.metadata.width, result.metadata.height), row.size);
            QCOMPARE(result.metadata.dpi, row.dpi > 0 ? row.dpi : 72.0);
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.size(), row.preview);
            int across = 0;
            for (int x = 0; x < preview.width(); ++x)
                across += qAlpha(preview.pixel(x, preview.height() / 2)) > 127;
            QCOMPARE(across, row.drawn.width());
            QVERIFY(result.sideFile.isEmpty());
        }
    }

    void refused()
    {
        const QByteArray good = written({});
        QByteArray longSection = good;
        longSection.replace(26, 4, "\x7f\xff\xff\xff");
        QByteArray giant = good;
        giant.replace(14, 8, QByteArray("\0\1\0\0\0\1\0\0", 8));
        const Psd indexed{.mode = 2,
                          .size = {300, 400},
                          .samples = {0},
                          .palette = redAndBlue(),
                          .pixels = packedRows(400)};
        const QByteArray packed = written(indexed);
        QByteArray longRow = packed;
        longRow.replace(packed.size() - 400 * 13, 2, "\xff\xff");
        QByteArray unknown = packed;
        unknown.replace(packed.size() - 400 * 13 - 2, 2, QByteArray("\0\2", 2));
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("8BPS"), good.left(28), good.left(50), longSection, giant,
              packed.chopped(3), packed.chopped(5000), longRow, unknown, written({.mode = 2, .samples = {1}}),
              written({.mode = 2, .samples = {1}, .palette = redAndBlue()}).chopped(1)})
            expectRefusal(DocumentType::Photoshop, bytes);
    }
};

} // namespace

QTEST_MAIN(tst_Photoshop)
#include "tst_photoshop.moc"
