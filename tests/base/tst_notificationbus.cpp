#include "base/NotificationBus.h"

#include <QtTest>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1String kName{"NAME"};
constexpr QLatin1String kOther{"OTHER"};

} // namespace

class NotificationBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsObserversInOrderWithTheValue()
    {
        NotificationBus bus;
        QObject leaving;
        QStringList calls;
        for (const QString& name : {u"a"_s, u"b"_s})
            bus.observe(kName, this, [&, name](const QVariant& value) { calls << name + value.toString(); });
        bus.observe(kOther, this, [&](const QVariant&) { calls << u"other"_s; });
        for (const QLatin1String name : {kName, kOther})
            bus.observe(name, &leaving, [&](const QVariant&) { calls << u"left"_s; });
        bus.post(kName, 7);
        bus.post("NOBODY"_L1);
        QCOMPARE(calls.join(u' '), u"a7 b7 left"_s);
        bus.removeObserver(&leaving); // Of all its names.
        bus.post(kName, 8);
        bus.post(kOther);
        QCOMPARE(calls.join(u' '), u"a7 b7 left a8 b8 other"_s);
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
        QCOMPARE(calls.join(u", "_s), u"first, first, first ends, 0, first ends, 1"_s);
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

    void observersRemovedDuringAPostEndWithItAndTheDeadHearNothing()
    {
        NotificationBus bus;
        QObject second;
        auto dying = std::make_unique<QObject>();
        QStringList calls;
        bus.observe(kName, this, [&](const QVariant&) {
            bus.removeObserver(&second);
            dying.reset();
        });
        bus.observe(kName, &second, [&](const QVariant&) { calls << u"second"_s; });
        bus.observe(kName, dying.get(), [&](const QVariant&) { calls << u"dead"_s; });
        bus.post(kName);
        QCOMPARE(calls, QStringList{u"second"_s});
        bus.post(kName);
        QCOMPARE(calls, QStringList{u"second"_s});
    }
};

QTEST_GUILESS_MAIN(NotificationBusTest)
#include "tst_notificationbus.moc"
