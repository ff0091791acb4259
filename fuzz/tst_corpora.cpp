#include "FuzzInput.h"
#include "base/Text.h"
#include "support/Files.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QtTest>

using namespace mosaro;

namespace {

constexpr long kMostKilobytes = 1'000'000;   ///< Of the whole program.
constexpr qint64 kMostMilliseconds = 20'000; ///< For one input, on a busy machine under the sanitizers.

/// What is wrong with the parser, given this input; empty for nothing. A crash ends the test.
QByteArray complaint(const fuzz::Target& target, const QByteArray& input)
{
    QElapsedTimer timer;
    timer.start();
    try {
        target.run(input);
    } catch (const std::exception& broken) {
        return broken.what();
    }
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    if (used.ru_maxrss > kMostKilobytes)
        return "takes too much memory";
    return timer.elapsed() > kMostMilliseconds ? "takes too long" : QByteArray();
}

class tst_Corpora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }

    void everyInput_data()
    {
        QTest::addColumn<const fuzz::Target*>("target");
        QTest::addColumn<QString>("path");
        QStringList folders = folder().entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const fuzz::Target* target : fuzz::targets()) {
            const QString name = QString::fromLatin1(target->name);
            QVERIFY2(folders.removeOne(name), qPrintable(QStringLiteral("no corpus for ") + name));
            QDirIterator files(folder().filePath(name), QDir::Files);
            QVERIFY2(files.hasNext(), qPrintable(QStringLiteral("an empty corpus for ") + name));
            while (files.hasNext()) {
                const QString path = files.next();
                QTest::newRow(qPrintable(name + QLatin1Char('/') + files.fileName())) << target << path;
            }
        }
        QVERIFY2(folders.isEmpty(), qPrintable(QStringLiteral("no target for ") + folders.join(u' ')));
    }
    void everyInput()
    {
        QFETCH(const fuzz::Target*, target);
        QFETCH(QString, path);
        const QByteArray wrong = complaint(*target, test::fileContents(path));
        QVERIFY2(wrong.isEmpty(), wrong.constData());
    }

    // Else a parser that breaks its promise would pass for a good one.
    void brokenPromiseIsNoticed()
    {
        const fuzz::Target bad("Bad", [](const QByteArray& bytes) { fuzz::require(bytes.isEmpty(), "bad"); });
        fuzz::targets().pop_back();
        QVERIFY(complaint(bad, {}).isEmpty());
        QCOMPARE(complaint(bad, "x"), QByteArray("bad"));
    }

private:
    static QDir folder() { return QDir(QStringLiteral(MOSARO_SOURCE_DIR "/fuzz/corpora")); }
};

} // namespace

QTEST_GUILESS_MAIN(tst_Corpora)
#include "tst_corpora.moc"
