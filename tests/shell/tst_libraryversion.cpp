#include "base/Text.h"
#include "shell/AccessFolders.h"
#include "shell/LibraryVersion.h"
#include "store/AccessList.h"
#include "store/LibraryPackage.h"
#include "store/LibraryState.h"
#include "support/FakePlatform.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using namespace mosaro::shell;

namespace {
const QString kCopy = u"Copy items to library"_s;
const QString kVersion = u"Version"_s;
const QString kNow = u"1.1.0"_s;
} // namespace

class LibraryVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosaro::base::installTexts(); }
    void copyMode()
    {
        const QVariantMap fresh{{kCopy, true}, {kVersion, kNow}};
        const QVariantMap reference{{kCopy, false}, {kVersion, kNow}};
        // The record before, the mode, and the record after; a missing mode is added, an unknown key kept.
        const std::tuple<QVariantMap, bool, QVariantMap> rows[] = {
            {{}, true, fresh},
            {reference, false, reference},
            {{{kVersion, u"0.9"_s}, {u"Other"_s, u"x"_s}},
             true,
             {{kCopy, true}, {kVersion, kNow}, {u"Other"_s, u"x"_s}}}};
        for (const auto& [before, mode, after] : rows) {
            const QTemporaryDir folder;
            const store::LibraryPackage package(folder.path());
            QVERIFY(before.isEmpty() || package.writeVersionRecord(before).ok());
            QCOMPARE(imageCopyMode(package, kNow), mode);
            QCOMPARE(package.versionRecord(), after);
        }
    }

    void versionRecord()
    {
        // The version before, what is to be done, and the version after.
        const std::tuple<QVariant, LibraryWork, QVariant> rows[] = {
            {u"1.0.0"_s, LibraryWork::None, kNow},
            {u"9.0"_s, LibraryWork::None, kNow},
            {u"1.0.1"_s, LibraryWork::JpegPreviews, u"1.0.1"_s},
            {QVariant(), LibraryWork::AllPreviews, QVariant()}};
        for (const auto& [version, work, after] : rows) {
            const QTemporaryDir folder;
            const store::LibraryPackage package(folder.path());
            QVariantMap record{{u"Other"_s, u"kept"_s}};
            if (version.isValid())
                record.insert(kVersion, version);
            QVERIFY(package.writeVersionRecord(record).ok());
            QCOMPARE(updateVersionRecord(package, kNow), work);
            QCOMPARE(package.versionRecord().value(kVersion), after);
            QCOMPARE(package.versionRecord().value(u"Other"_s).toString(), u"kept"_s);
        }
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
        for (const int preset : {0, 1})
            QCOMPARE(presets.at(preset).toMap().value(u"PRESET_IS_USED"_s).toBool(), preset == 0);
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
        for (int time = 0; time < 2; ++time) {
            folders.start(package, test::FakeBookmarks());
            QCOMPARE(folders.folders(), QStringList{granted.path()});
        }
        folders.stop();
        QVERIFY(folders.folders().isEmpty());
    }
};

QTEST_MAIN(LibraryVersionTest)
#include "tst_libraryversion.moc"
