#include "base/FinderStyleCompare.h"

#include <QtTest>
#include <future>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

class FinderStyleCompareTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void compares()
    {
        const struct {
            const char* name;
            QString left, right;
            int expected;
        } rows[] = {{"equal", u"icon"_s, u"icon"_s, 0},
                    {"empty first", {}, u"a"_s, -1},
                    {"both empty", {}, u""_s, 0},
                    {"numbers by value", u"a2"_s, u"a10"_s, -1},
                    {"numbers within", u"IMG_9 final"_s, u"IMG_10"_s, -1},
                    {"leading zeros", u"a007"_s, u"a7"_s, 0},
                    {"very long numbers", u"a123456789012345678901234567890"_s,
                     u"a123456789012345678901234567891"_s, -1},
                    {"case folded", u"LOGO"_s, u"logo"_s, 0},
                    {"case does not outweigh", u"apple"_s, u"Banana"_s, -1},
                    {"width folded", u"ＡＢＣ１"_s, u"abc1"_s, 0},
                    {"composition folded", u"\u00E9"_s, u"e\u0301"_s, 0},
                    {"diacritics differ", u"resume"_s, u"résumé"_s, -1},
                    {"diacritics after letters", u"résumé"_s, u"resumf"_s, -1},
                    {"punctuation counts", u"ab"_s, u"a-b"_s, 1},
                    {"kinds of punctuation", u"a-b"_s, u"a_b"_s, 1},
                    {"blank before letters", u"a b"_s, u"ab"_s, -1},
                    {"digits before letters", u"1"_s, u"a"_s, -1},
                    {"beyond the first plane", u"\U0001F3A8"_s, u"\U0001F3A8"_s, 0}};
        for (const auto& [name, left, right, expected] : rows) {
            QVERIFY2(sign(finderStyleCompare(left, right)) == expected, name);
            QVERIFY2(sign(finderStyleCompare(right, left)) == -expected, name);
            const QByteArray a = left.toUtf8();
            const QByteArray b = right.toUtf8();
            const int bytes =
                finderStyleCompareUtf8(a.constData(), int(a.size()), b.constData(), int(b.size()));
            QVERIFY2(sign(bytes) == expected, name);
        }
    }

    /// SQLite hands over what stands in the file: not all of it need be UTF-8.
    void survivesBrokenBytes()
    {
        const char broken[] = "\xFF\xC3";
        QCOMPARE(finderStyleCompareUtf8(broken, 2, broken, 2), 0);
        QCOMPARE(sign(finderStyleCompareUtf8("a", 1, "b\xF0\x9F", 3)), -1);
        QCOMPARE(finderStyleCompareUtf8("", 0, "", 0), 0);
    }

    void sortsAndKeepsTheOrderOfEqualOnes()
    {
        QStringList titles{u"b"_s, u"A"_s, u"B"_s, u"a10"_s, u"a9"_s, u"a"_s};
        sortedArray(titles, [](const QString& title) { return title; });
        QCOMPARE(titles, (QStringList{u"A"_s, u"a"_s, u"a9"_s, u"a10"_s, u"b"_s, u"B"_s}));
    }

    void everyThreadComparesAlike()
    {
        std::vector<std::future<int>> threads;
        for (int i = 0; i < 4; ++i) {
            threads.push_back(std::async(std::launch::async, [] {
                int wrong = 0;
                for (int number = 0; number < 2000; ++number)
                    wrong += finderStyleCompare(u"Item %1"_s.arg(number), u"item %1"_s.arg(number + 1)) >= 0;
                return wrong;
            }));
        }
        for (auto& thread : threads)
            QCOMPARE(thread.get(), 0);
    }
};

QTEST_GUILESS_MAIN(FinderStyleCompareTest)
#include "tst_finderstylecompare.moc"
