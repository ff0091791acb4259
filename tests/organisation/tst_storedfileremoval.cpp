#include "base/PreferenceKeys.h"
#include "base/Text.h"
#include "organisation/StoredFileRemoval.h"
#include "support/TemporaryLibrary.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace mosaro;
using organisation::StoredFileRemoval;

namespace {

/// Everything that the user would see and hear, in order.
class Log : public base::ProgressSink, public base::UserNotifier, public base::SoundPlayer {
public:
    QStringList lines;

    void begin(const QString&) override { lines.append(u"begin"_s); }
    void update(const QString&, int percent) override { lines.append(QString::number(percent)); }
    void end() override { lines.append(u"end"_s); }
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
        test::writeFile(masters() + place + u"/Preivew/preview.png"_s, "x");
        return masters() + place;
    }
    void remove(const QStringList& paths)
    {
        m_log.lines.clear();
        StoredFileRemoval removal(m_log, m_utilities, m_library.defaults());
        removal.deleteMediaFiles(paths);
        QTRY_VERIFY(m_log.lines.contains(u"end"_s));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_library.defaults().initialize();
        m_utilities.setUserNotifier(&m_log);
        m_utilities.setSoundPlayer(&m_log);
    }

    void removesItemsAndTheDateFoldersThatTheyLeaveEmpty()
    {
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SOUND_EFFECTS, true);
        const QString kept = makeItem(u"/2026/2/1/KEPT.mritem"_s);
        const QStringList gone{makeItem(u"/2026/2/1/A.mritem"_s), makeItem(u"/2026/2/3/B.mritem"_s),
                               makeItem(u"/2025/12/31/C.mritem"_s)};
        remove(gone);
        QCOMPARE(m_log.lines, QStringList({u"33"_s, u"66"_s, u"100"_s, u"end"_s,
                                           base::text("Message.Remove.Completed.Items", u"3"_s),
                                           u":/sounds/DeleteItem.wav"_s}));
        QVERIFY(QFileInfo::exists(kept + u"/Preivew/preview.png"_s));
        QCOMPARE(QDir(masters()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"2026"_s));
        QCOMPARE(QDir(masters() + u"/2026/2"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList(u"1"_s));
    }

    void aLinkIsRemovedAndNotWhatItLeadsTo()
    {
        const QString target = makeItem(u"/2024/1/1/TARGET.mritem"_s);
        const QString link = masters() + u"/2024/1/1/LINK.mritem"_s;
        QVERIFY(QFile::link(target, link));
        remove({link});
        QVERIFY(!QFileInfo(link).isSymLink());
        QVERIFY(QFileInfo::exists(target + u"/Preivew/preview.png"_s));
    }

    void whatCannotBeRemovedIsCounted()
    {
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SOUND_EFFECTS, false);
        remove({masters() + u"/2020/1/1/NONE.mritem"_s});
        QCOMPARE(m_log.lines,
                 QStringList({u"100"_s, u"end"_s, base::text("Message.Remove.Completed.Item", u"1"_s)}));
        m_library.defaults().updateUserDefaults(base::PREFS_GENERAL_SHOW_REMOVE_MEDIA_NOTI, false);
        remove({masters() + u"/2020/1/1/NONE.mritem"_s});
        QCOMPARE(m_log.lines, QStringList({u"100"_s, u"end"_s}));
    }

    void nothingToRemoveOnlyHidesThePanel()
    {
        remove({});
        QCOMPARE(m_log.lines, QStringList(u"end"_s));
    }
};

QTEST_GUILESS_MAIN(TestStoredFileRemoval)
#include "tst_storedfileremoval.moc"
