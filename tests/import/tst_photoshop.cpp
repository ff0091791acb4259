#include "base/Text.h"
#include "import/Analysis.h"
#include "support/Pictures.h"

#include <QColorSpace>
#include <QDataStream>
#include <QTemporaryDir>
#include <QtTest>

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
    bool isTransparent = false; ///< The last channel is the transparency of the whole.
    QByteArray profile = {};
    QByteArray xmp = {};
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
    QByteArray bytes(""); // Not a null one, whose length is written as -1.
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (psd.dpi > 0)
        addResource(stream, 1005,
                    QByteArray(1, char(psd.dpi >> 8)) + char(psd.dpi & 255) + QByteArray(14, '\0'));
    if (!psd.profile.isEmpty())
        addResource(stream, 1039, psd.profile);
    if (!psd.xmp.isEmpty())
        addResource(stream, 1060, psd.xmp);
    return bytes;
}

QByteArray written(const Psd& psd)
{
    QByteArray bytes("8BPS\0\1\0\0\0\0\0\0", 12);
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream << quint16(psd.samples.size()) << quint32(psd.size.height()) << quint32(psd.size.width())
           << quint16(psd.depth) << quint16(psd.mode) << quint32(0);
    stream << resources(psd); // With its length in front.
    if (psd.isTransparent) {
        // One layer of no size; the sign of their number tells of the transparency.
        const QByteArray layer = QByteArray(18, '\0') + "8BIMnorm\xff" + QByteArray(3, '\0') +
                                 QByteArray(3, '\0') + '\x0c' + QByteArray(12, '\0');
        stream << quint32(10 + layer.size()) << quint32(2 + layer.size()) << qint16(-1);
        stream.writeRawData(layer.constData(), static_cast<int>(layer.size()));
        stream << quint32(0);
    } else {
        stream << quint32(0);
    }
    stream << quint16(0);
    for (const int sample : psd.samples) {
        const QByteArray plane(qsizetype(psd.size.width()) * psd.size.height() * psd.depth / 8, char(sample));
        stream.writeRawData(plane.constData(), static_cast<int>(plane.size()));
    }
    return bytes;
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

class tst_Photoshop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

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
            const AnalysisResult result = analysed(written(row.psd));
            QVERIFY2(result.outcome.ok(), qPrintable(result.outcome.reason()));
            const QImage preview = QImage::fromData(result.preview, "png");
            QCOMPARE(preview.size(), QSize(460, 360));
            const QColor seen = preview.pixelColor(230, 180);
            const int off = std::abs(seen.red() - row.color.red()) +
                            std::abs(seen.green() - row.color.green()) +
                            std::abs(seen.blue() - row.color.blue());
            QVERIFY2(off <= 24, qPrintable(row.model + u' ' + seen.name()));
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
        const AnalysisResult result = analysed(written(clear));
        QVERIFY(result.outcome.ok() && result.metadata.hasAlpha);
        QCOMPARE(result.metadata.software, u"A program 1.0"_s);
        QCOMPARE(QImage::fromData(result.preview).pixelColor(230, 180).alpha(), 0);
        // A channel for something else hides nothing.
        const AnalysisResult mask = analysed(written({.samples = {255, 0, 0, 0}}));
        QVERIFY(mask.outcome.ok() && !mask.metadata.hasAlpha);
        QCOMPARE(QImage::fromData(mask.preview).pixelColor(230, 180), QColor(255, 0, 0));
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
            const AnalysisResult result = analysed(written({.size = row.size, .dpi = row.dpi}));
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
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("8BPS"), good.left(28), good.left(50), longSection, giant}) {
            const AnalysisResult result = analysed(bytes);
            QVERIFY2(!result.outcome.ok(), bytes.left(40).toHex().constData());
        }
    }

private:
    AnalysisResult analysed(const QByteArray& bytes)
    {
        const QString path = m_folder.filePath(u"a [1] %d*.psd"_s);
        test::writeBytes(path, bytes);
        return analyse({.path = path, .type = DocumentType::Photoshop});
    }

    QTemporaryDir m_folder;
};

} // namespace

QTEST_MAIN(tst_Photoshop)
#include "tst_photoshop.moc"
