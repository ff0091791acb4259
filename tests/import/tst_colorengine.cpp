#include "import/ColorEngine.h"

#include "support/Pictures.h"

#include <QPainter>
#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::DominantColor;
using importing::ZNColorEngine;

namespace {

/// One pixel for each cell of the middle grid, row by row; the rest keeps `field`.
QImage cells(const QColor& field, const QList<std::pair<QColor, int>>& marks)
{
    QImage image = test::plain({10, 10}, field);
    int cell = 0;
    for (const auto& [color, count] : marks) {
        for (int i = 0; i < count; ++i, ++cell)
            image.setPixelColor(cell % 10, cell / 10, color);
    }
    return image;
}

QString described(const std::vector<DominantColor>& colors)
{
    QStringList lines;
    for (const auto& [color, percent] : colors)
        lines << u"%1,%2,%3 %4"_s.arg(qRound(color.red * 255))
                     .arg(qRound(color.green * 255))
                     .arg(qRound(color.blue * 255))
                     .arg(double(percent), 0, 'f', 3);
    return lines.join(u"; "_s);
}

} // namespace

class tst_ColorEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A cell reaches from two below its red to the red itself; zeros and what is below them count together.
    void colors()
    {
        const QColor gray(100, 100, 100);
        const QColor light(200, 200, 200);
        const std::tuple<const char*, QImage, QString> rows[] = {
            {"one colour", cells(gray, {}), u"98,98,98 1.000"_s},
            {"black", cells(Qt::black, {}), u"0,0,0 1.000"_s},
            {"backdrop drops out", cells(Qt::red, {{Qt::white, 16}}), u"253,253,253 0.021"_s},
            {"half and half, first seen first", cells(light, {{gray, 50}}),
             u"98,98,98 0.500; 198,198,198 0.500"_s},
            // All votes of the second cloud lie within 60 of the first one's best vote, or the nearest that
            // does not.
            {"clouds within reach are one", cells(QColor(100, 100, 156), {{gray, 60}}), u"98,98,98 1.000"_s},
            {"clouds one step out of reach are two", cells(QColor(100, 100, 157), {{gray, 60}}),
             u"98,98,98 0.600; 98,98,159 0.400"_s},
            {"clouds reach less far up in red", cells(QColor(158, 100, 100), {{gray, 60}}),
             u"98,98,98 1.000"_s},
            {"not cut off above 255", cells(QColor(100, 100, 255), {{QColor(100, 100, 197), 60}}),
             u"98,98,195 0.600; 98,98,256 0.400"_s},
            {"backdrop at exactly 94 percent", cells(gray, {{light, 6}}), u"198,198,198 0.060"_s},
            {"backdrop below 94 percent", cells(gray, {{light, 7}}), u"98,98,98 0.930; 198,198,198 0.070"_s}};
        for (const auto& [name, image, colors] : rows) {
            QVERIFY2(described(ZNColorEngine(image, 1).results()) == colors, name);
            // The size of the picture does not matter, only what falls into a cell.
            QVERIFY2(described(ZNColorEngine(image.scaled(460, 360), 1).results()) == colors, name);
        }
    }

    void transparencyVotesForBlack()
    {
        QImage image = cells(QColor(200, 200, 200), {}).convertToFormat(QImage::Format_ARGB32);
        for (int cell = 0; cell < 20; ++cell)
            image.setPixelColor(cell % 10, cell / 10, Qt::transparent);
        // 27 votes of each black cell agree, one of each gray cell.
        QCOMPARE(described(ZNColorEngine(image, 1).results()), u"0,0,0 0.871; 198,198,198 0.129"_s);
    }

    void detailChoosesTheGrid()
    {
        for (const int detail : {0, 1, 2})
            QCOMPARE(ZNColorEngine(test::quarters({400, 400}), detail).results().size(), std::size_t(4));
    }

    void resultsRepeatAndFall()
    {
        const QImage image = test::noise({460, 360}, 7);
        const auto first = ZNColorEngine(image, 1).results();
        QCOMPARE(described(first), described(ZNColorEngine(image, 1).results()));
        float sum = 0;
        for (std::size_t i = 0; i < first.size(); ++i) {
            QVERIFY(i == 0 || first[i - 1].percent >= first[i].percent);
            sum += first[i].percent;
        }
        QVERIFY(qAbs(sum - 1) < 0.001F);
        QVERIFY(ZNColorEngine(QImage(), 1).results().empty());
    }
};

QTEST_GUILESS_MAIN(tst_ColorEngine)
#include "tst_colorengine.moc"
