#include "base/ColorText.h"

#include "support/CommaLocale.h"

#include <QTest>
#include <limits>

using namespace mosaro::base;
using namespace Qt::StringLiterals;
using Color = std::optional<ColorValue>;
Q_DECLARE_METATYPE(Color)

namespace {

class ColorTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writes_data()
    {
        QTest::addColumn<Color>("color");
        QTest::addColumn<QString>("text");
        QTest::newRow("black") << Color({0, 0, 0, 1}) << u"0.000000+0.000000+0.000000+1.000000"_s;
        QTest::newRow("rounded") << Color({1.0F / 3, 2.0F / 3, 0.0000004F, 0.5F})
                                 << u"0.333333+0.666667+0.000000+0.500000"_s;
        QTest::newRow("beyond white")
            << Color({1.35F, 12, 0.15F, 1}) << u"1.350000+12.000000+0.150000+1.000000"_s;
        QTest::newRow("negative") << Color({-0.25F, 0, 0, 0}) << u"-0.250000+0.000000+0.000000+0.000000"_s;
    }
    void writes()
    {
        QFETCH(const Color, color);
        QTEST(colorAsString(*color), "text");
        QCOMPARE(colorAsString(*colorFromString(colorAsString(*color))), colorAsString(*color));
    }

    void reads_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Color>("color");
        QTest::newRow("short numbers") << u"1+0.5+0+1"_s << Color({1, 0.5F, 0, 1});
        QTest::newRow("more parts") << u"1+0+0+1+9"_s << Color({1, 0, 0, 1});
        QTest::newRow("no numbers") << u"a+0,5++1"_s << Color({0, 0, 0, 1});
        QTest::newRow("not finite") << u"nan+inf+0+1"_s << Color({0, 0, 0, 1});
        QTest::newRow("three parts") << u"1+0.5+0"_s << Color();
        QTest::newRow("empty") << QString() << Color();
    }
    void reads()
    {
        QFETCH(const QString, text);
        QFETCH(const Color, color);
        QVERIFY(colorFromString(text) == color);
    }

    void everyByteOfAColorComesBack()
    {
        for (int byte = 0; byte < 256; ++byte) {
            const QColor color(byte, 255 - byte, byte / 2, byte);
            const Color read = colorFromString(colorAsString(ColorValue::fromColor(color)));
            QCOMPARE(read->toColor().rgba(), color.rgba());
        }
    }

    void aPointInEveryLocale()
    {
        const mosaro::test::CommaLocale comma;
        if (!comma.isActive())
            QSKIP("no locale with a decimal comma can be made on this machine");
        QCOMPARE(colorAsString({0.5F, 0, 0, 1}), u"0.500000+0.000000+0.000000+1.000000"_s);
        QVERIFY(colorFromString(u"0.5+0+0+1"_s) == Color({0.5F, 0, 0, 1}));
    }

    void showsWithinBounds()
    {
        const float none = std::numeric_limits<float>::quiet_NaN();
        const QColor shown = ColorValue{1.5F, -1, none, 2}.toColor();
        QCOMPARE(shown.rgba(), qRgba(255, 0, 0, 255));
        QCOMPARE(ColorValue::fromColor(QColor::fromHsv(120, 255, 255)).toColor().rgba(), qRgb(0, 255, 0));
    }
};

} // namespace

QTEST_GUILESS_MAIN(ColorTextTest)
#include "tst_colortext.moc"
