#include "base/NotificationBus.h"

#include <QTest>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1String kName{"NAME"};
constexpr QLatin1String kOther{"OTHER"};

class NotificationBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsObserversInOrderWithTheValue()
    {
        NotificationBus bus;
        QStringList calls;
        for (const QString& name : {u"a"_s, u"b"_s})
            bus.observe(kName, this, [&, name](const QVariant& value) { calls << name + value.toString(); });
        bus.observe(kOther, this, [&](const QVariant&) { calls << u"other"_s; });
        bus.post(kName, 7);
        bus.post("NOBODY"_L1);
        QCOMPARE(calls, (QStringList{u"a7"_s, u"b7"_s}));
    }

    void postsWithinPostsGoDeepFirst()
    {
        NotificationBus bus;
        QStringList calls;
        bus.observe(kName, this, [&](const QVariant& value) {
            calls << u"first"_s;
            if (value.toInt() > 0)
                bus.post(kName, value.toInt() - 1);
            calls << u"first ends"_s;
        });
        bus.observe(kName, this, [&](const QVariant& value) { calls << value.toString(); });
        bus.post(kName, 1);
        const QStringList expected{u"first"_s, u"first"_s, u"first ends"_s, u"0"_s, u"first ends"_s, u"1"_s};
        QCOMPARE(calls, expected);
    }

    void observersAddedDuringAPostWaitForTheNext()
    {
        NotificationBus bus;
        int late = 0;
        bool added = false;
        bus.observe(kName, this, [&](const QVariant&) {
            if (!std::exchange(added, true)) {
                // Enough of them to move the list in memory.
                for (int i = 0; i < 100; ++i)
                    bus.observe(kName, this, [&](const QVariant&) { ++late; });
            }
        });
        bus.post(kName);
        QCOMPARE(late, 0);
        bus.post(kName);
        QCOMPARE(late, 100);
    }

    void observersRemovedDuringAPostEndWithIt()
    {
        NotificationBus bus;
        QObject second;
        int calls = 0;
        bus.observe(kName, this, [&](const QVariant&) { bus.removeObserver(&second); });
        bus.observe(kName, &second, [&](const QVariant&) { ++calls; });
        bus.post(kName);
        QCOMPARE(calls, 1);
        bus.post(kName);
        QCOMPARE(calls, 1);
    }

    void theDeadHearNothing()
    {
        NotificationBus bus;
        int calls = 0;
        auto second = std::make_unique<QObject>();
        bus.observe(kName, this, [&](const QVariant&) { second.reset(); });
        bus.observe(kName, second.get(), [&](const QVariant&) { ++calls; });
        bus.post(kName);
        bus.post(kName);
        QCOMPARE(calls, 0);
    }

    void removalTakesAllNamesOfOneObserver()
    {
        NotificationBus bus;
        QObject leaving;
        int stayed = 0;
        int left = 0;
        for (const QLatin1String name : {kName, kOther}) {
            bus.observe(name, &leaving, [&](const QVariant&) { ++left; });
            bus.observe(name, this, [&](const QVariant&) { ++stayed; });
        }
        bus.removeObserver(&leaving);
        bus.post(kName);
        bus.post(kOther);
        QCOMPARE(left, 0);
        QCOMPARE(stayed, 2);
    }
};

} // namespace

QTEST_GUILESS_MAIN(NotificationBusTest)
#include "tst_notificationbus.moc"
