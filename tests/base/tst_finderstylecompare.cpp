#include "base/FinderStyleCompare.h"

#include <QStringList>
#include <QTest>
#include <thread>

using namespace mosaro::base;

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

int compareUtf8(const QString& left, const QString& right)
{
    const QByteArray a = left.toUtf8();
    const QByteArray b = right.toUtf8();
    return finderStyleCompareUtf8(a.constData(), int(a.size()), b.constData(), int(b.size()));
}

class FinderStyleCompareTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void compares_data()
    {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::addColumn<int>("expected");
        const auto add = [](const char* name, const QString& left, const QString& right, int expected) {
            QTest::newRow(name) << left << right << expected;
        };
        add("equal", QStringLiteral("icon"), QStringLiteral("icon"), 0);
        add("empty first", QString(), QStringLiteral("a"), -1);
        add("both empty", QString(), QStringLiteral(""), 0);
        add("numbers by value", QStringLiteral("a2"), QStringLiteral("a10"), -1);
        add("numbers within", QStringLiteral("IMG_9 final"), QStringLiteral("IMG_10"), -1);
        add("leading zeros", QStringLiteral("a007"), QStringLiteral("a7"), 0);
        add("very long numbers", QStringLiteral("a123456789012345678901234567890"),
            QStringLiteral("a123456789012345678901234567891"), -1);
        add("case folded", QStringLiteral("LOGO"), QStringLiteral("logo"), 0);
        add("case does not outweigh", QStringLiteral("apple"), QStringLiteral("Banana"), -1);
        add("width folded", QStringLiteral("ＡＢＣ１"), QStringLiteral("abc1"), 0);
        add("composition folded", QStringLiteral("\u00E9"), QStringLiteral("e\u0301"), 0);
        add("diacritics differ", QStringLiteral("resume"), QStringLiteral("résumé"), -1);
        add("diacritics after letters", QStringLiteral("résumé"), QStringLiteral("resumf"), -1);
        add("punctuation counts", QStringLiteral("ab"), QStringLiteral("a-b"), 1);
        add("kinds of punctuation", QStringLiteral("a-b"), QStringLiteral("a_b"), 1);
        add("blank before letters", QStringLiteral("a b"), QStringLiteral("ab"), -1);
        add("digits before letters", QStringLiteral("1"), QStringLiteral("a"), -1);
        add("beyond the first plane", QStringLiteral("\U0001F3A8"), QStringLiteral("\U0001F3A8"), 0);
    }
    void compares()
    {
        QFETCH(const QString, left);
        QFETCH(const QString, right);
        QFETCH(const int, expected);
        QCOMPARE(sign(finderStyleCompare(left, right)), expected);
        QCOMPARE(sign(finderStyleCompare(right, left)), -expected);
        QCOMPARE(sign(compareUtf8(left, right)), expected);
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
        struct Item {
            QString title;
            int number;
        };
        std::vector<Item> items{{QStringLiteral("b"), 1},  {QStringLiteral("A"), 2},
                                {QStringLiteral("B"), 3},  {QStringLiteral("a10"), 4},
                                {QStringLiteral("a9"), 5}, {QStringLiteral("a"), 6}};
        sortedArray(items, [](const Item& item) { return item.title; });
        QList<int> order;
        for (const Item& item : items)
            order.append(item.number);
        QCOMPARE(order, (QList<int>{2, 6, 5, 4, 1, 3}));
    }

    void everyThreadComparesAlike()
    {
        std::vector<std::thread> threads;
        std::atomic<int> wrong{0};
        threads.reserve(4);
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&wrong] {
                for (int number = 0; number < 2000; ++number) {
                    const QString left = QStringLiteral("Item %1").arg(number);
                    const QString right = QStringLiteral("item %1").arg(number + 1);
                    wrong += finderStyleCompare(left, right) < 0 ? 0 : 1;
                }
            });
        }
        for (auto& thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);
    }
};

} // namespace

QTEST_GUILESS_MAIN(FinderStyleCompareTest)
#include "tst_finderstylecompare.moc"
