#include "base/Text.h"
#include "shell/AccessFolders.h"
#include "shell/LibraryVersion.h"
#include "store/AccessList.h"
#include "store/LibraryPackage.h"
#include "store/LibraryState.h"
#include "support/FakePlatform.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::shell;

Q_DECLARE_METATYPE(mosaro::shell::LibraryWork)

namespace {
const QString kCopy = u"Copy items to library"_s;
const QString kNow = u"1.1.0"_s;
} // namespace

class LibraryVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosaro::base::installTexts(); }
    void copyMode_data()
    {
        QTest::addColumn<QVariantMap>("before");
        QTest::addColumn<bool>("mode");
        QTest::addColumn<QVariantMap>("after");
        const QVariantMap fresh{{kCopy, true}, {u"Version"_s, kNow}};
        const QVariantMap reference{{kCopy, false}, {u"Version"_s, kNow}};
        QTest::newRow("no record") << QVariantMap() << true << fresh;
        QTest::newRow("references") << reference << false << reference;
        QTest::newRow("mode missing, unknown key kept")
            << QVariantMap{{u"Version"_s, u"0.9"_s}, {u"Other"_s, u"x"_s}} << true
            << QVariantMap{{kCopy, true}, {u"Version"_s, kNow}, {u"Other"_s, u"x"_s}};
    }

    void copyMode()
    {
        QFETCH(QVariantMap, before);
        QTemporaryDir folder;
        const store::LibraryPackage package(folder.path());
        if (!before.isEmpty()) {
            QVERIFY(package.writeVersionRecord(before).ok());
        }
        QTEST(imageCopyMode(package, kNow), "mode");
        QTEST(package.versionRecord(), "after");
    }

    void versionRecord_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<LibraryWork>("work");
        QTest::addColumn<QString>("after");
        QTest::newRow("older") << u"1.0.0"_s << LibraryWork::None << kNow;
        QTest::newRow("newer") << u"9.0"_s << LibraryWork::None << kNow;
        QTest::newRow("old JPEG previews") << u"1.0.1"_s << LibraryWork::JpegPreviews << u"1.0.1"_s;
        QTest::newRow("none") << QString() << LibraryWork::AllPreviews << QString();
    }

    void versionRecord()
    {
        QFETCH(QString, version);
        QTemporaryDir folder;
        const store::LibraryPackage package(folder.path());
        QVariantMap record{{u"Other"_s, u"kept"_s}};
        if (!version.isEmpty()) {
            record.insert(u"Version"_s, version);
        }
        QVERIFY(package.writeVersionRecord(record).ok());
        QTEST(updateVersionRecord(package, kNow), "work");
        const QVariantMap after = package.versionRecord();
        QTEST(after.value(u"Version"_s).toString(), "after");
        QCOMPARE(after.value(u"Other"_s).toString(), u"kept"_s);
    }

    void unwritableRecordIsNoFailure()
    {
        const store::LibraryPackage package(u"/proc/no such place"_s);
        QVERIFY(imageCopyMode(package, kNow));
        QCOMPARE(updateVersionRecord(package, kNow), LibraryWork::AllPreviews);
    }

    void presets()
    {
        store::LibraryState state;
        state.saveExportPresets(
            {QVariantMap{{u"PRESET_NAME"_s, u"Old"_s}}, QVariantMap{{u"PRESET_IS_USED"_s, false}}});
        QVERIFY(markExportPresetsUsed(state));
        const QVariantList presets = state.exportPresets();
        QVERIFY(presets.at(0).toMap().value(u"PRESET_IS_USED"_s).toBool());
        QVERIFY(!presets.at(1).toMap().value(u"PRESET_IS_USED"_s).toBool());
        QVERIFY(!markExportPresetsUsed(state));
    }

    void accessFolders()
    {
        QTemporaryDir library;
        QTemporaryDir granted;
        const store::LibraryPackage package(library.path());
        store::AccessList list;
        list.enter(granted.path(), granted.path().toUtf8());
        list.enter(u"/no such folder"_s, QByteArrayLiteral("/no such folder"));
        list.enter(library.path(), {});
        QVERIFY(list.write(package).ok());

        AccessFolders folders;
        folders.start(package, test::FakeBookmarks());
        QCOMPARE(folders.folders(), QStringList{granted.path()});
        folders.start(package, test::FakeBookmarks());
        QCOMPARE(folders.folders().size(), 1);
        folders.stop();
        QVERIFY(folders.folders().isEmpty());
    }
};

QTEST_MAIN(LibraryVersionTest)
#include "tst_libraryversion.moc"
