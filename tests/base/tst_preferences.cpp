#include "base/DefaultPreferences.h"
#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/ZNUserDefaults.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

namespace {

class PreferencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(u"test.ini"_s);
    }

    /// What stands in a fresh store after a way through the file: each type, and what must not be there.
    void defaults()
    {
        ZNUserDefaults(m_file).initialize();
        const ZNUserDefaults store(m_file);
        QVERIFY(store.boolean(PREFS_GLOBAL_SHOW_GUIDE, false));
        QVERIFY(!store.boolean(PREFS_GLOBAL_SHOW_RELEASE_NOTE, true));
        QCOMPARE(store.integer(PREFS_GLOBAL_SEARCH_TARGET, -1), 100);
        QCOMPARE(store.string(PREFS_LABEL_GRAY_NAME), u"Gray"_s);
        QCOMPARE(store.string(PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY),
                 QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
        const auto shortcut = readPropertyList(store.data(PREFS_CAPTURE_TIMED_WINDOW_SHORTCUT));
        QVERIFY(shortcut.ok());
        QCOMPARE(shortcut.value().toMap().value(u"keyCode"_s).toInt(), 21);
        QCOMPARE(shortcut.value().toMap().value(u"modifierFlags"_s).toInt(), 0x60000);
        for (const QLatin1String key :
             {PREFS_GLOBAL_APP_VERSION, PREFS_GLOBAL_COLLAPSED_SIDEBAR, PREFS_GLOBAL_EXPORT_DIR,
              PREFS_GLOBAL_LAST_SELECTED_PREFS_ITEM, MOSARO_LIBRARY_LOCATION, MR_WINDOW_FRAME})
            QVERIFY2(!store.contains(key), key.data());
        QSet<QString> keys;
        for (const DefaultPreference& preference : defaultPreferences()) {
            QVERIFY2(store.contains(preference.key), preference.key.data());
            QVERIFY2(!keys.contains(preference.key), preference.key.data());
            keys.insert(preference.key);
        }
        QCOMPARE(keys.size(), 53);
    }

    void keepsChoicesAndDropsTheRetiredKey()
    {
        ZNUserDefaults store(m_file);
        QVERIFY(store.updateUserDefaults(PREFS_GLOBAL_SHOW_GUIDE, false));
        QVERIFY(store.updateUserDefaults(PREFS_GENERAL_SHOW_RECENT_DAYS, 30));
        QVERIFY(store.updateUserDefaults(PREFS_GENERAL_REMEMBER_SELECTED_IMAGE_IN_BROWSER, true));
        store.initialize();
        QVERIFY(!store.showGuide());
        QCOMPARE(store.integer(PREFS_GENERAL_SHOW_RECENT_DAYS), 30);
        QVERIFY(!store.contains(PREFS_GENERAL_REMEMBER_SELECTED_IMAGE_IN_BROWSER));
    }

    void keepsTypes_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("data") << QVariant("bplist00\0\xFF\"\\\n;,"_ba);
        QTest::newRow("text with marks") << QVariant(u"/home/ü/My, \"Pictures\" @ 100%; x\\y"_s);
        QTest::newRow("text of @") << QVariant(u"@Invalid()"_s);
        QTest::newRow("empty text") << QVariant(u""_s);
    }
    void keepsTypes()
    {
        QFETCH(const QVariant, value);
        QVERIFY(ZNUserDefaults(m_file).updateUserDefaults(MOSARO_LIBRARY_LOCATION, value));
        const ZNUserDefaults store(m_file);
        QVERIFY(store.contains(MOSARO_LIBRARY_LOCATION));
        if (value.metaType().id() == QMetaType::QByteArray)
            QCOMPARE(store.data(MOSARO_LIBRARY_LOCATION), value.toByteArray());
        else
            QCOMPARE(store.string(MOSARO_LIBRARY_LOCATION), value.toString());
    }

    /// Panes write a control's state, as a truth value or as a number, and others read it the other way.
    void truthValuesAreNumbers()
    {
        {
            ZNUserDefaults store(m_file);
            store.updateUserDefaults(PREFS_GLOBAL_SHOW_GUIDE, true);
            store.updateUserDefaults(PREFS_GENERAL_SOUND_EFFECTS, 2);
            store.updateUserDefaults(PREFS_GENERAL_SHOW_COLOR_CODE, 0);
            store.updateUserDefaults(PREFS_GENERAL_SHOW_RECENT_DAYS, u"seven"_s);
        }
        const ZNUserDefaults store(m_file);
        QCOMPARE(store.integer(PREFS_GLOBAL_SHOW_GUIDE), 1);
        QVERIFY(store.boolean(PREFS_GENERAL_SOUND_EFFECTS));
        QVERIFY(!store.boolean(PREFS_GENERAL_SHOW_COLOR_CODE, true));
        QCOMPARE(store.integer(PREFS_GENERAL_SHOW_RECENT_DAYS, 7), 7); // Mangled counts as missing.
    }

    void updatesPostOnlyWhenWritten_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QByteArray>("notification");
        QTest::addColumn<bool>("isWritable");
        QTest::addColumn<bool>("written");
        QTest::addColumn<int>("posts");
        const QByteArray key(PREFS_GENERAL_SHOW_RECENT_DAYS.data());
        const QByteArray name(MOSARO_NOTI_RECENT_DAYS_CHANGED.data());
        QTest::newRow("all given") << key << QVariant(14) << name << true << true << 1;
        QTest::newRow("no notification") << key << QVariant(14) << ""_ba << true << true << 0;
        QTest::newRow("no value") << key << QVariant() << name << true << false << 0;
        QTest::newRow("no key") << ""_ba << QVariant(14) << name << true << false << 0;
        QTest::newRow("no room") << key << QVariant(14) << name << false << false << 0;
    }
    void updatesPostOnlyWhenWritten()
    {
        QFETCH(const QByteArray, key);
        QFETCH(const QVariant, value);
        QFETCH(const QByteArray, notification);
        QFETCH(const bool, isWritable);
        QFETCH(const bool, written);
        NotificationBus bus;
        QVariantList posts;
        bus.observe(MOSARO_NOTI_RECENT_DAYS_CHANGED, this,
                    [&](const QVariant& object) { posts.append(object); });
        ZNUserDefaults store(isWritable ? m_file : u"/proc/no/such/place.ini"_s);
        QCOMPARE(store.updateUserDefaultsWithValue(QLatin1String(key), value, QLatin1String(notification), 14,
                                                   bus),
                 written);
        QTEST(int(posts.size()), "posts");
        if (isWritable)
            QCOMPARE(store.userDefaults().allKeys().size(), written ? 1 : 0);
    }

    void releaseNote()
    {
        ZNUserDefaults store(m_file);
        QVERIFY(!store.showReleaseNote());
        QCOMPARE(store.savedApplicationVersion(), QString());
        store.updateUserDefaults(PREFS_GLOBAL_APP_VERSION, u"0.9"_s);
        QVERIFY(store.showReleaseNote());
        const QString version = ZNUserDefaults::applicationVersion();
        store.updateUserDefaults(PREFS_GLOBAL_APP_VERSION, version);
        QVERIFY(!store.showReleaseNote());
        QVERIFY(version.startsWith(QString::number(ZNUserDefaults::applicationVersionAsInteger()) + u'.'));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

} // namespace

QTEST_GUILESS_MAIN(PreferencesTest)
#include "tst_preferences.moc"
