#include "platform/LinuxPlatform.h"

#include <QTest>

using namespace mosaro::platform;
using namespace Qt::StringLiterals;

namespace {

/// A session without a bus, as over a plain remote login: nothing fails, every start is the first.
class NoBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); }

    void everyStartIsTheFirst()
    {
        SingleInstance one;
        SingleInstance two;
        QVERIFY(one.claim());
        QVERIFY(two.claim());
    }

    void servicesKeepQuiet()
    {
        const Platform platform = makeLinuxPlatform(true);
        platform.notifier->notify(u"Title"_s, {}, u"Content"_s);
        platform.badge->setPercent(10);
        platform.badge->clear();
        platform.revealer->reveal(QString());
        platform.sounds->play(u":/sounds/None.wav"_s);
        QCoreApplication::processEvents();
    }
};

} // namespace

QTEST_GUILESS_MAIN(NoBusTest)
#include "tst_nobus.moc"
