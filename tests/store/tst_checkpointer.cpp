#include "store/Tags.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;

class TestCheckpointer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLogStaysSmallForAWriterThatPauses()
    {
        test::TemporaryLibrary library;
        const QString log = library.package().dbPath() + QStringLiteral("-wal");
        const QString notes(4000, u'n');
        constexpr int kRecords = 3000;
        int pauses = 0;
        qint64 largest = 0;
        for (int number = 0; number < kRecords; ++number) {
            auto tag = library.context().insert<store::Tags>();
            tag->setTagID(QString::number(number));
            tag->setTitle(notes + QString::number(number));
            QVERIFY(library.context().save().ok());
            if (library.context().isTidying()) {
                ++pauses;
                QTRY_VERIFY(!library.context().isTidying());
            }
            largest = std::max(largest, QFileInfo(log).size());
        }
        QVERIFY(pauses > 1);
        QVERIFY2(largest < 16 << 20, qPrintable(QString::number(largest)));
        QVERIFY(library.reopen());
        QCOMPARE(library.context().count(store::Tags::info(), store::Predicate::all()).value(), kRecords);
    }
};

QTEST_GUILESS_MAIN(TestCheckpointer)
#include "tst_checkpointer.moc"
