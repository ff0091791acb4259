#include "base/Text.h"
#include "shell/AccessFolders.h"
#include "shell/LibraryVersion.h"
#include "store/AccessList.h"
#include "store/LibraryPackage.h"
#include "store/LibraryState.h"
#include "support/FakePlatform.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace mosaro;
using namespace mosaro::shell;

Q_DECLARE_METATYPE(mosaro::shell::LibraryWork)

namespace {
const char* const kCopy = "Copy items to library";
const QString kNow = QStringLiteral("1.1.0");
} // namespace

class LibraryVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosaro::base::installTexts(); }
    void copyMode_data();
    void copyMode();
    void versionRecord_data();
    void versionRecord();
    void unwritableRecordIsNoFailure();
    void presets();
    void accessFolders();
};

void LibraryVersionTest::copyMode_data()
{
    QTest::addColumn<QVariantMap>("before");
    QTest::addColumn<bool>("mode");
    QTest::addColumn<QVariantMap>("after");
    const QVariantMap fresh{{QString::fromLatin1(kCopy), true}, {QStringLiteral("Version"), kNow}};
    const QVariantMap reference{{QString::fromLatin1(kCopy), false}, {QStringLiteral("Version"), kNow}};
    QTest::newRow("no record") << QVariantMap() << true << fresh;
    QTest::newRow("copies") << fresh << true << fresh;
    QTest::newRow("references") << reference << false << reference;
    QTest::newRow("mode missing") << QVariantMap{{QStringLiteral("Version"), QStringLiteral("0.9")}} << true
                                  << fresh;
    QTest::newRow("unknown key kept") << QVariantMap{{QStringLiteral("Other"), QStringLiteral("x")}} << true
                                      << QVariantMap{{QString::fromLatin1(kCopy), true},
                                                     {QStringLiteral("Version"), kNow},
                                                     {QStringLiteral("Other"), QStringLiteral("x")}};
}

void LibraryVersionTest::copyMode()
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

void LibraryVersionTest::versionRecord_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<LibraryWork>("work");
    QTest::addColumn<QString>("after");
    QTest::newRow("current") << kNow << LibraryWork::None << kNow;
    QTest::newRow("older") << QStringLiteral("1.0.0") << LibraryWork::None << kNow;
    QTest::newRow("newer") << QStringLiteral("9.0") << LibraryWork::None << kNow;
    QTest::newRow("old JPEG previews")
        << QStringLiteral("1.0.1") << LibraryWork::JpegPreviews << QStringLiteral("1.0.1");
    QTest::newRow("none") << QString() << LibraryWork::AllPreviews << QString();
}

void LibraryVersionTest::versionRecord()
{
    QFETCH(QString, version);
    QTemporaryDir folder;
    const store::LibraryPackage package(folder.path());
    QVariantMap record{{QStringLiteral("Other"), QStringLiteral("kept")}};
    if (!version.isEmpty()) {
        record.insert(QStringLiteral("Version"), version);
    }
    QVERIFY(package.writeVersionRecord(record).ok());
    QTEST(updateVersionRecord(package, kNow), "work");
    const QVariantMap after = package.versionRecord();
    QTEST(after.value(QStringLiteral("Version")).toString(), "after");
    QCOMPARE(after.value(QStringLiteral("Other")).toString(), QStringLiteral("kept"));
}

void LibraryVersionTest::unwritableRecordIsNoFailure()
{
    const store::LibraryPackage package(QStringLiteral("/proc/no such place"));
    QVERIFY(imageCopyMode(package, kNow));
    QCOMPARE(updateVersionRecord(package, kNow), LibraryWork::AllPreviews);
}

void LibraryVersionTest::presets()
{
    store::LibraryState state;
    const QVariantMap old{{QStringLiteral("PRESET_NAME"), QStringLiteral("Old")}};
    const QVariantMap off{{QStringLiteral("PRESET_IS_USED"), false}};
    state.saveExportPresets({old, off});
    QVERIFY(markExportPresetsUsed(state));
    const QVariantList presets = state.exportPresets();
    QVERIFY(presets.at(0).toMap().value(QStringLiteral("PRESET_IS_USED")).toBool());
    QVERIFY(!presets.at(1).toMap().value(QStringLiteral("PRESET_IS_USED")).toBool());
    QVERIFY(!markExportPresetsUsed(state));
}

void LibraryVersionTest::accessFolders()
{
    QTemporaryDir library;
    QTemporaryDir granted;
    const store::LibraryPackage package(library.path());
    store::AccessList list;
    list.enter(granted.path(), granted.path().toUtf8());
    list.enter(QStringLiteral("/no such folder"), QByteArrayLiteral("/no such folder"));
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

QTEST_MAIN(LibraryVersionTest)
#include "tst_libraryversion.moc"
