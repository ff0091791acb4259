#include "base/ColorText.h"

#include "support/CommaLocale.h"

#include <QTest>
#include <limits>

using namespace mosaro::base;
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
        QTest::newRow("black") << Color({0, 0, 0, 1})
                               << QStringLiteral("0.000000+0.000000+0.000000+1.000000");
        QTest::newRow("rounded") << Color({1.0F / 3, 2.0F / 3, 0.0000004F, 0.5F})
                                 << QStringLiteral("0.333333+0.666667+0.000000+0.500000");
        QTest::newRow("beyond white")
            << Color({1.35F, 12, 0.15F, 1}) << QStringLiteral("1.350000+12.000000+0.150000+1.000000");
        QTest::newRow("negative") << Color({-0.25F, 0, 0, 0})
                                  << QStringLiteral("-0.250000+0.000000+0.000000+0.000000");
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
        QTest::newRow("short numbers") << QStringLiteral("1+0.5+0+1") << Color({1, 0.5F, 0, 1});
        QTest::newRow("more parts") << QStringLiteral("1+0+0+1+9") << Color({1, 0, 0, 1});
        QTest::newRow("no numbers") << QStringLiteral("a+0,5++1") << Color({0, 0, 0, 1});
        QTest::newRow("not finite") << QStringLiteral("nan+inf+0+1") << Color({0, 0, 0, 1});
        QTest::newRow("three parts") << QStringLiteral("1+0.5+0") << Color();
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
        QCOMPARE(colorAsString({0.5F, 0, 0, 1}), QStringLiteral("0.500000+0.000000+0.000000+1.000000"));
        QVERIFY(colorFromString(QStringLiteral("0.5+0+0+1")) == Color({0.5F, 0, 0, 1}));
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
