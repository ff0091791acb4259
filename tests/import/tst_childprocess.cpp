#include "base/Text.h"
#include "import/ChildProcess.h"
#include "support/Children.h"
#include "support/Parallel.h"

#include <QtTest>
#include <csignal>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::ChildLimits;
using importing::runChild;

namespace {

constexpr ChildLimits kAmple{20, qint64(512) << 20, 1 << 20};

base::Result<QByteArray> shell(const QString& script, const ChildLimits& limits = kAmple,
                               const QByteArray& input = {})
{
    return runChild(u"sh"_s, {u"-c"_s, script}, limits, input);
}

} // namespace

class tst_ChildProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void init() { m_descriptors = test::openDescriptors(); }
    /// Whatever became of the child, nothing of it is left.
    void cleanup()
    {
        QCOMPARE(test::openDescriptors(), m_descriptors);
        QVERIFY(test::hasNoChild());
    }

    void output()
    {
        const QByteArray large(300'000, 'x'); // More than a pipe holds.
        QCOMPARE(shell(u"cat"_s, kAmple, large).value(), large);
        QCOMPARE(shell(u"wc -c; echo \"$HOME\""_s).value(), "0\n/nonexistent\n");
        QCOMPARE(shell(u"exec >&-; sleep 0.2"_s).value(), QByteArray());
    }

    void failures()
    {
        const QString died = base::text("Failure.Child.Died", u"sh"_s);
        const QString slow = base::text("Failure.Image.TooSlow");
        const ChildLimits second{1, kAmple.memoryBytes, kAmple.outputBytes};
        const std::tuple<QString, ChildLimits, QString> rows[] = {
            {u"exit 3"_s, kAmple, died},
            {u"kill -SEGV $$"_s, kAmple, died},
            {u"sleep 60"_s, second, slow},
            {u"exec >&-; sleep 60"_s, second, slow},
            {u"while :; do :; done"_s, second, slow},
            {u"cat /dev/zero"_s, kAmple, base::text("Failure.Child.Output")},
            {u"cat /dev/zero > file"_s, kAmple, died},
            {u"dd if=/dev/zero of=/dev/null bs=100M count=1 && echo never"_s, {20, 64 << 20, 1000}, died},
        };
        for (const auto& [script, limits, reason] : rows) {
            QElapsedTimer timer;
            timer.start();
            const base::Result<QByteArray> result = shell(script, limits);
            QVERIFY2(!result.ok(), qPrintable(script));
            QCOMPARE(result.reason(), reason);
            QVERIFY(timer.elapsed() < 15'000);
        }
        QCOMPARE(runChild(u"no-such-program"_s, {}, kAmple).reason(),
                 base::text("Failure.Child.Missing", u"no-such-program"_s));
    }

    /// A process that the child left running holds its output open; it ends with the child.
    void leavesNoGroup()
    {
        const base::Result<QByteArray> result = shell(u"sleep 60 & echo $!"_s);
        QVERIFY(result.ok());
        const pid_t left = result.value().trimmed().toInt();
        QVERIFY(left > 0);
        QTRY_VERIFY(::kill(left, 0) != 0 || isZombie(left));
    }

    void leavesNoFolder()
    {
        const QByteArray folder = shell(u"touch a; pwd"_s).value().trimmed();
        QVERIFY(!folder.isEmpty() && folder != QDir::currentPath().toLocal8Bit());
        QVERIFY(!QFileInfo::exists(QString::fromLocal8Bit(folder)));
    }

    void severalAtOnce()
    {
        const auto comesBack = [](int number) {
            const QByteArray text = QByteArray::number(number);
            const base::Result<QByteArray> result = shell(u"cat"_s, kAmple, text);
            return result.ok() && result.value() == text;
        };
        QCOMPARE(test::rightAtOnce(24, comesBack), 24);
    }

private:
    /// Whoever adopts orphans may take its time to clear them away.
    static bool isZombie(pid_t process)
    {
        QFile state(u"/proc/%1/stat"_s.arg(process));
        return !state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ");
    }

    qsizetype m_descriptors = 0;
};

QTEST_MAIN(tst_ChildProcess)
#include "tst_childprocess.moc"
