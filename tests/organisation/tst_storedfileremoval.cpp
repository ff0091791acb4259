#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "organisation/StoredFileRemoval.h"
#include "support/FakePlatform.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace mosaro;
using organisation::StoredFileRemoval;

namespace {

/// Everything that the user would see and hear, in order.
class Log : public base::ProgressSink, public base::UserNotifier, public base::SoundPlayer {
public:
    QStringList lines;

    void begin(const QString&) override { lines.append(QStringLiteral("begin")); }
    void update(const QString&, int percent) override { lines.append(QString::number(percent)); }
    void end() override { lines.append(QStringLiteral("end")); }
    void notify(const QString&, const QString&, const QString& content) override { lines.append(content); }
    void play(const QString& resource) override { lines.append(resource); }
};

} // namespace

class TestStoredFileRemoval : public QObject {
    Q_OBJECT

private:
    test::TemporaryLibrary m_library;
    base::ZNUtilities m_utilities;
    Log m_log;

    [[nodiscard]] QString masters() const { return m_library.package().masterDirPath(); }
    QString makeItem(const QString& place)
    {
        test::writeFile(masters() + place + QStringLiteral("/Preivew/preview.png"), "x");
        return masters() + place;
    }
    void remove(const QStringList& paths)
    {
        m_log.lines.clear();
        StoredFileRemoval removal(m_log, m_utilities, m_library.defaults());
        removal.deleteMediaFiles(paths);
        QTRY_VERIFY(m_log.lines.contains(QStringLiteral("end")));
    }

private Q_SLOTS:
    void initTestCase()
    {
        base::installTexts();
        m_library.defaults().initialize();
        m_utilities.setUserNotifier(&m_log);
        m_utilities.setSoundPlayer(&m_log);
    }

    void removesItemsAndTheDateFoldersThatTheyLeaveEmpty()
    {
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SOUND_EFFECTS, true);
        const QString kept = makeItem(QStringLiteral("/2026/2/1/KEPT.mritem"));
        const QStringList gone{makeItem(QStringLiteral("/2026/2/1/A.mritem")),
                               makeItem(QStringLiteral("/2026/2/3/B.mritem")),
                               makeItem(QStringLiteral("/2025/12/31/C.mritem"))};
        remove(gone);
        QCOMPARE(m_log.lines, QStringList({QStringLiteral("33"), QStringLiteral("66"), QStringLiteral("100"),
                                           QStringLiteral("end"),
                                           base::text("Message.Remove.Completed.Items", QStringLiteral("3")),
                                           QStringLiteral(":/sounds/DeleteItem.wav")}));
        QVERIFY(QFileInfo::exists(kept + QStringLiteral("/Preivew/preview.png")));
        QCOMPARE(QDir(masters()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("2026")));
        QCOMPARE(QDir(masters() + QStringLiteral("/2026/2")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("1")));
    }

    void aLinkIsRemovedAndNotWhatItLeadsTo()
    {
        const QString target = makeItem(QStringLiteral("/2024/1/1/TARGET.mritem"));
        const QString link = masters() + QStringLiteral("/2024/1/1/LINK.mritem");
        QVERIFY(QFile::link(target, link));
        remove({link});
        QVERIFY(!QFileInfo(link).isSymLink());
        QVERIFY(QFileInfo::exists(target + QStringLiteral("/Preivew/preview.png")));
    }

    void whatCannotBeRemovedIsCounted()
    {
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SOUND_EFFECTS, false);
        remove({masters() + QStringLiteral("/2020/1/1/NONE.mritem")});
        QCOMPARE(m_log.lines,
                 QStringList({QStringLiteral("100"), QStringLiteral("end"),
                              base::text("Message.Remove.Completed.Item", QStringLiteral("1"))}));
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_REMOVE_MEDIA_NOTI, false);
        remove({masters() + QStringLiteral("/2020/1/1/NONE.mritem")});
        QCOMPARE(m_log.lines, QStringList({QStringLiteral("100"), QStringLiteral("end")}));
    }

    void nothingToRemoveOnlyHidesThePanel()
    {
        remove({});
        QCOMPARE(m_log.lines, QStringList(QStringLiteral("end")));
    }
};

QTEST_GUILESS_MAIN(TestStoredFileRemoval)
#include "tst_storedfileremoval.moc"
