#include "base/ColorText.h"

#include "support/CommaLocale.h"

#include <QtTest>
#include <limits>

using namespace mosaro::base;
using namespace Qt::StringLiterals;
using Color = std::optional<ColorValue>;

class ColorTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writes()
    {
        const std::pair<ColorValue, QString> rows[] = {
            {{0, 0, 0, 1}, u"0.000000+0.000000+0.000000+1.000000"_s},
            {{1.0F / 3, 2.0F / 3, 0.0000004F, 0.5F}, u"0.333333+0.666667+0.000000+0.500000"_s},
            {{1.35F, 12, 0.15F, 1}, u"1.350000+12.000000+0.150000+1.000000"_s},
            {{-0.25F, 0, 0, 0}, u"-0.250000+0.000000+0.000000+0.000000"_s}};
        for (const auto& [color, text] : rows) {
            QCOMPARE(colorAsString(color), text);
            QCOMPARE(colorAsString(*colorFromString(text)), text);
        }
    }

    void reads()
    {
        const std::pair<QString, Color> rows[] = {{u"1+0.5+0+1"_s, {{1, 0.5F, 0, 1}}},
                                                  {u"1+0+0+1+9"_s, {{1, 0, 0, 1}}},
                                                  {u"a+0,5++1"_s, {{0, 0, 0, 1}}},
                                                  {u"nan+inf+0+1"_s, {{0, 0, 0, 1}}},
                                                  {u"1+0.5+0"_s, {}},
                                                  {u""_s, {}}};
        for (const auto& [text, color] : rows)
            QVERIFY2(colorFromString(text) == color, qPrintable(text));
    }

    void everyByteOfAColorComesBack()
    {
        for (int byte = 0; byte < 256; ++byte) {
            const QColor color(byte, 255 - byte, byte / 2, byte);
            const Color read = colorFromString(colorAsString(ColorValue::fromColor(color)));
            QCOMPARE(read->toColor().rgba(), color.rgba());
        }
        QCOMPARE(ColorValue::fromColor(QColor::fromHsv(120, 255, 255)).toColor().rgba(), qRgb(0, 255, 0));
        const QColor outside = ColorValue{1.5F, -1, std::numeric_limits<float>::quiet_NaN(), 2}.toColor();
        QCOMPARE(outside.rgba(), qRgba(255, 0, 0, 255));
    }

    void aPointInEveryLocale()
    {
        const mosaro::test::CommaLocale comma;
        if (!comma.isActive())
            QSKIP("no locale with a decimal comma can be made on this machine");
        QCOMPARE(colorAsString({0.5F, 0, 0, 1}), u"0.500000+0.000000+0.000000+1.000000"_s);
        QVERIFY(colorFromString(u"0.5+0+0+1"_s) == Color({0.5F, 0, 0, 1}));
    }
};

QTEST_GUILESS_MAIN(ColorTextTest)
#include "tst_colortext.moc"
