#include "import/RendererTest.h"
#include "support/Bytes.h"

#include <QColorSpace>

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
    QByteArray palette = {};
    int transparentColor = -1;
    QByteArray pixels = {}; ///< With how they are packed in front; empty for plain values.
};

constexpr auto kOrder = QDataStream::BigEndian;

QByteArray resources(const Psd& psd)
{
    test::Bytes bytes(kOrder);
    const auto add = [&bytes](int number, const QByteArray& data) {
        bytes.put("8BIM")
            .put16(number, 0)
            .put32(data.size())
            .put(data)
            .put(QByteArray(data.size() % 2, '\0'));
    };
    if (psd.dpi > 0)
        add(1005, test::Bytes(kOrder).put16(psd.dpi).put(QByteArray(14, '\0')).all());
    bytes.put("AgHg\4\x25\0\0\0\0\0\0"_ba); // Of another program.
    if (!psd.profile.isEmpty())
        add(1039, psd.profile);
    if (!psd.xmp.isEmpty())
        add(1060, psd.xmp);
    if (psd.transparentColor >= 0)
        add(1047, test::Bytes(kOrder).put16(psd.transparentColor).all());
    return bytes.all();
}

QByteArray layers(const Psd& psd)
{
    test::Bytes bytes(kOrder);
    if (!psd.deepBlock.isEmpty())
        return bytes.put32(0, 0).put("8BIM" + psd.deepBlock).put32(2).put16(-1).all();
    if (!psd.isTransparent)
        return {};
    // One layer of no size; the sign of their number tells of the transparency.
    const QByteArray layer =
        QByteArray(18, '\0') + "8BIMnorm\xff" + QByteArray(6, '\0') + '\x0c' + QByteArray(12, '\0');
    return bytes.put32(2 + layer.size()).put16(-1).put(layer).put32(0).all();
}

QByteArray written(const Psd& psd)
{
    test::Bytes bytes(kOrder);
    bytes.put("8BPS\0\1\0\0\0\0\0\0"_ba).put16(psd.samples.size());
    bytes.put32(psd.size.height(), psd.size.width()).put16(psd.depth, psd.mode);
    for (const QByteArray& section : {psd.palette, resources(psd), layers(psd)})
        bytes.put32(section.size()).put(section);
    if (!psd.pixels.isEmpty())
        return bytes.put(psd.pixels).all();
    bytes.put16(0);
    for (const int sample : psd.samples)
        bytes.put(QByteArray(qsizetype(psd.size.width()) * psd.size.height() * psd.depth / 8, char(sample)));
    return bytes.all();
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

} // namespace

class tst_Photoshop : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void colors()
    {
        const QByteArray p3 = QColorSpace(QColorSpace::DisplayP3).iccProfile();
        const std::tuple<Psd, QString, QColor> rows[] = {
            {{}, u"RGB"_s, QColor(255, 0, 0)},
            {{.depth = 16, .samples = {255, 255, 0}}, u"RGB"_s, QColor(255, 255, 0)},
            {{.mode = 1, .samples = {128}}, u"Gray"_s, QColor(128, 128, 128)},
            // Stored the other way round: none of cyan, all of magenta and yellow.
            {{.mode = 4, .samples = {255, 0, 0, 255}}, u"CMYK"_s, QColor(232, 0, 17)},
            {{.mode = 9, .samples = {136, 208, 195}}, u"Lab"_s, QColor(252, 0, 5)},
            {{.samples = {128, 64, 64}, .profile = p3}, u"RGB"_s, QColor(138, 60, 62)},
        };
        for (const auto& [psd, model, color] : rows) {
            const Drawn document = drawn(psd);
            QCOMPARE(document.shown.size(), QSize(460, 360));
            const QColor seen = document.centre();
            QVERIFY2(distance(seen, color) <= 24, qPrintable(model + u' ' + seen.name()));
            QCOMPARE(document.metadata.colorModel, model);
            QCOMPARE(document.metadata.depth, psd.depth);
            QCOMPARE(document.metadata.profileName.isEmpty(), psd.profile.isEmpty());
            QVERIFY(!document.metadata.hasAlpha);
        }
    }

    void transparency()
    {
        const Drawn clear = drawn({.samples = {255, 0, 0, 0},
                                   .isTransparent = true,
                                   .xmp = "<xmp:CreatorTool>A program 1.0</xmp:CreatorTool>"});
        QVERIFY(clear.metadata.hasAlpha);
        QCOMPARE(clear.metadata.software, u"A program 1.0"_s);
        QCOMPARE(clear.centre().alpha(), 0);
        // Half there, merged onto white, in each model; stored numbers, and what they are without the white.
        const std::tuple<Psd, QColor> rows[] = {
            {{.samples = {255, 127, 127, 128}, .isTransparent = true}, QColor(255, 0, 0)},
            {{.depth = 16, .samples = {255, 127, 127, 128}, .deepBlock = "Lr16"}, QColor(255, 0, 0)},
            {{.mode = 1, .depth = 16, .samples = {127, 128}, .deepBlock = "Mt16"}, QColor(0, 0, 0)},
            {{.mode = 9, .samples = {195, 168, 162, 128}, .isTransparent = true}, QColor(252, 0, 5)},
            {{.mode = 4, .samples = {255, 127, 127, 255, 128}, .isTransparent = true}, QColor(232, 0, 17)},
        };
        for (const auto& [psd, color] : rows) {
            const Drawn half = drawn(psd);
            QVERIFY(half.metadata.hasAlpha);
            const QColor seen = half.centre();
            QVERIFY2(seen.alpha() >= 127 && seen.alpha() <= 129, qPrintable(seen.name(QColor::HexArgb)));
            QVERIFY2(distance(seen, color) <= 45, qPrintable(seen.name()));
        }
        // A channel for something else hides nothing, and many of them harm nothing.
        Psd many{.samples = std::vector<int>(57, 0)};
        many.samples[1] = 255;
        QCOMPARE(drawn(many).centre(), QColor(0, 255, 0));
        const Drawn mask = drawn({.samples = {255, 0, 0, 0}});
        QVERIFY(!mask.metadata.hasAlpha);
        QCOMPARE(mask.centre(), QColor(255, 0, 0));
    }

    void palettes()
    {
        const Psd plain{.mode = 2, .samples = {1}, .palette = redAndBlue()};
        Psd clear = packed();
        clear.transparentColor = 2;
        Psd large = plain;
        large.size = {5000, 3000};
        const std::tuple<Psd, QColor, int> rows[] = {
            {plain, Qt::red, 255}, {large, Qt::red, 255}, {packed(), Qt::blue, 255}, {clear, Qt::blue, 0}};
        for (const auto& [psd, right, alpha] : rows) {
            const Drawn document = drawn(psd);
            QCOMPARE(document.shown.pixelColor(100, 180), QColor(Qt::red));
            QCOMPARE(document.shown.pixelColor(360, 180).alpha(), alpha);
            QVERIFY(alpha == 0 || document.shown.pixelColor(360, 180) == right);
            QCOMPARE(document.metadata.hasAlpha, alpha == 0);
        }
    }

    /// The preview goes by the size in points.
    void sizes()
    {
        const std::tuple<QSize, int, QSize, int> rows[] = {{{100, 80}, 0, {132, 132}, 100},
                                                           {{600, 400}, 300, {460, 360}, 144},
                                                           {{400, 300}, 300, {132, 132}, 96},
                                                           {{2000, 1500}, 300, {460, 360}, 460}};
        for (const auto& [size, dpi, preview, drawnWidth] : rows) {
            const Drawn document = drawn({.size = size, .dpi = dpi});
            QCOMPARE(document.size, size);
            QCOMPARE(document.metadata.dpi, dpi > 0 ? dpi : 72.0);
            QCOMPARE(document.shown.size(), preview);
            int across = 0;
            for (int x = 0; x < preview.width(); ++x)
                across += qAlpha(document.shown.pixel(x, preview.height() / 2)) > 127;
            QCOMPARE(across, drawnWidth);
            QVERIFY(document.sideFile.isEmpty());
        }
    }

    void refused()
    {
        const QByteArray good = written({});
        const auto with = [](QByteArray bytes, qsizetype at, const QByteArray& other) {
            return bytes.replace(at, other.size(), other);
        };
        const QByteArray rows = written(packed());
        const qsizetype firstRow = rows.size() - 400 * 13;
        for (const QByteArray& bytes :
             {QByteArray(), "8BPS"_ba, good.left(28), good.left(50),
              with(good, 26, "\x7f\xff\xff\xff"),    // a section longer than the file
              with(good, 14, "\0\1\0\0\0\1\0\0"_ba), // a giant
              rows.chopped(3), rows.chopped(5000),
              with(rows, firstRow, "\xff\xff"),    // a row longer than the file
              with(rows, firstRow - 2, "\0\2"_ba), // packed in no known way
              written({.mode = 2, .samples = {1}}),
              written({.mode = 2, .samples = {1}, .palette = redAndBlue()}).chopped(1)})
            expectRefusal(DocumentType::Photoshop, bytes);
    }

private:
    /// A palette's rows, packed.
    static Psd packed()
    {
        return {.mode = 2,
                .size = {300, 400},
                .samples = {0},
                .palette = redAndBlue(),
                .pixels = packedRows(400)};
    }
    [[nodiscard]] Drawn drawn(const Psd& psd) const
    {
        return RendererTest::drawn(DocumentType::Photoshop, written(psd));
    }
};

QTEST_MAIN(tst_Photoshop)
#include "tst_photoshop.moc"
