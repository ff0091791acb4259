#include "base/DefaultPreferences.h"
#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/ZNUserDefaults.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace mosaro::base;

namespace {

class PreferencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(QStringLiteral("test.ini"));
    }

    /// What the rest of the program counts on in a fresh store, after a way through the file.
    void defaults_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("expected");
        const auto add = [](QLatin1String key, const QVariant& expected) {
            QTest::newRow(key.data()) << QString(key) << expected;
        };
        add(PREFS_GLOBAL_SEARCH_TYPE, 0);
        add(PREFS_GLOBAL_SEARCH_TARGET, 100);
        add(PREFS_GLOBAL_SHOW_GUIDE, true);
        add(PREFS_GLOBAL_SHOW_RELEASE_NOTE, false);
        add(PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, false);
        add(PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM, 0);
        add(PREFS_GLOBAL_COLLAPSED_INSPECTOR_IN_BROWSER, true);
        add(PREFS_GLOBAL_COLLAPASED_INSPECTOR_IN_VIEWER, false);
        add(PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY,
            QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
        add(PREFS_GLOBAL_APP_VERSION, QVariant());
        add(PREFS_GLOBAL_COLLAPSED_SIDEBAR, QVariant());
        add(PREFS_GLOBAL_EXPORT_DIR, QVariant());
        add(PREFS_GLOBAL_LAST_SELECTED_PREFS_ITEM, QVariant());
        add(MOSARO_LIBRARY_LOCATION, QVariant());
        add(MR_WINDOW_FRAME, QVariant());
        add(PREFS_GENERAL_SHOW_ITEM_COUNTS, false);
        add(PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, true);
        add(PREFS_GENERAL_SHOW_RECENT_DAYS, 7);
        add(PREFS_GENERAL_DOUBLE_CLICK_ACITON, 0);
        add(PREFS_GENERAL_SHOW_REFERENCED_FILE_TYPE, false);
        add(PREFS_GENERAL_SOUND_EFFECTS, false);
        add(PREFS_GENERAL_SHOW_EXPORT_MEDIA_NOTI, true);
        add(PREFS_SHOW_COLOR_VIEW_OPTIONS, true);
        add(PREFS_SHOW_LIKE_COLORS_ONLY, false);
        add(PREFS_EXPORT_ADD_TAGS_TO_ASSET, false);
        add(PREFS_LABEL_ADD_LABEL_TO_ASSET, false);
        add(PREFS_LABEL_RED_NAME, QStringLiteral("Red"));
        add(PREFS_LABEL_GRAY_NAME, QStringLiteral("Gray"));
        add(PREFS_CAPTURE_INCLUDE_CURSOR, true);
        add(PREFS_CAPTURE_DELAY_TIME, 5);
    }
    void defaults()
    {
        QFETCH(const QString, key);
        QFETCH(const QVariant, expected);
        {
            ZNUserDefaults store(m_file);
            store.initialize();
        }
        const ZNUserDefaults store(m_file);
        const QByteArray name = key.toLatin1();
        const QLatin1String latin(name);
        QCOMPARE(store.contains(latin), expected.isValid());
        if (expected.metaType().id() == QMetaType::Bool)
            QCOMPARE(store.boolean(latin, !expected.toBool()), expected.toBool());
        else if (expected.metaType().id() == QMetaType::Int)
            QCOMPARE(store.integer(latin, -1), expected.toLongLong());
        else if (expected.isValid())
            QCOMPARE(store.string(latin), expected.toString());
    }

    void everyDefaultHasAKeyOfItsOwn()
    {
        QSet<QString> keys;
        for (const DefaultPreference& preference : defaultPreferences()) {
            QVERIFY2(preference.value.isValid(), preference.key.data());
            QVERIFY2(!keys.contains(preference.key), preference.key.data());
            keys.insert(preference.key);
        }
        QCOMPARE(keys.size(), 53);
    }

    void shortcuts_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("keyCode");
        QTest::addColumn<int>("flags");
        QTest::newRow("selection") << QString(PREFS_CAPTURE_SELECTION_SHORTCUT) << 20 << 0xc0000;
        QTest::newRow("window") << QString(PREFS_CAPTURE_WINDOW_SHORTCUT) << 21 << 0xc0000;
        QTest::newRow("timed window") << QString(PREFS_CAPTURE_TIMED_WINDOW_SHORTCUT) << 21 << 0x60000;
        QTest::newRow("full screen") << QString(PREFS_CAPTURE_FULLSCREEN_SHORTCUT) << 23 << 0xc0000;
        QTest::newRow("timed screen") << QString(PREFS_CAPTURE_TIMED_FULLSCREEN_SHORTCUT) << 23 << 0x60000;
        QTest::newRow("website") << QString(PREFS_CAPTURE_WEBSITE_SHORTCUT) << 22 << 0xc0000;
        QTest::newRow("recording") << QString(PREFS_CAPTURE_SCREENRECORD_SHORTCUT) << 26 << 0xc0000;
    }
    void shortcuts()
    {
        QFETCH(const QString, key);
        {
            ZNUserDefaults store(m_file);
            store.initialize();
        }
        const ZNUserDefaults store(m_file);
        const auto list = readPropertyList(store.data(QLatin1String(key.toLatin1())));
        QVERIFY(list.ok());
        const QVariantMap map = list.value().toMap();
        QTEST(map.value(QStringLiteral("keyCode")).toInt(), "keyCode");
        QTEST(map.value(QStringLiteral("modifierFlags")).toInt(), "flags");
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
        QTest::newRow("data") << QVariant(QByteArray("bplist00\0\xFF\"\\\n;,", 16));
        QTest::newRow("text with marks") << QVariant(QStringLiteral("/home/ü/My, \"Pictures\" @ 100%; x\\y"));
        QTest::newRow("text of @") << QVariant(QStringLiteral("@Invalid()"));
        QTest::newRow("empty text") << QVariant(QStringLiteral(""));
    }
    void keepsTypes()
    {
        QFETCH(const QVariant, value);
        {
            ZNUserDefaults store(m_file);
            QVERIFY(store.updateUserDefaults(MOSARO_LIBRARY_LOCATION, value));
        }
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
        }
        const ZNUserDefaults store(m_file);
        QCOMPARE(store.integer(PREFS_GLOBAL_SHOW_GUIDE), 1);
        QVERIFY(store.boolean(PREFS_GENERAL_SOUND_EFFECTS));
        QVERIFY(!store.boolean(PREFS_GENERAL_SHOW_COLOR_CODE, true));
    }

    void aMangledNumberCountsAsMissing()
    {
        ZNUserDefaults store(m_file);
        store.updateUserDefaults(PREFS_GENERAL_SHOW_RECENT_DAYS, QStringLiteral("seven"));
        QCOMPARE(store.integer(PREFS_GENERAL_SHOW_RECENT_DAYS, 7), 7);
    }

    void updatesPostOnlyWhenWritten_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("notification");
        QTest::addColumn<bool>("written");
        QTest::addColumn<int>("posts");
        const QString key = PREFS_GENERAL_SHOW_RECENT_DAYS;
        const QString name = MOSARO_NOTI_RECENT_DAYS_CHANGED;
        QTest::newRow("all given") << key << QVariant(14) << name << true << 1;
        QTest::newRow("no notification") << key << QVariant(14) << QString() << true << 0;
        QTest::newRow("no value") << key << QVariant() << name << false << 0;
        QTest::newRow("no key") << QString() << QVariant(14) << name << false << 0;
    }
    void updatesPostOnlyWhenWritten()
    {
        QFETCH(const QString, key);
        QFETCH(const QVariant, value);
        QFETCH(const QString, notification);
        NotificationBus bus;
        QVariantList posts;
        bus.observe(MOSARO_NOTI_RECENT_DAYS_CHANGED, this,
                    [&](const QVariant& object) { posts.append(object); });
        ZNUserDefaults store(m_file);
        const QByteArray keyBytes = key.toLatin1();
        const QByteArray nameBytes = notification.toLatin1();
        const bool written = store.updateUserDefaultsWithValue(QLatin1String(keyBytes), value,
                                                               QLatin1String(nameBytes), 14, bus);
        QTEST(written, "written");
        QTEST(int(posts.size()), "posts");
        QCOMPARE(store.userDefaults().allKeys().size(), written ? 1 : 0);
    }

    void anUnwritableStoreSaysSo()
    {
        ZNUserDefaults store(QStringLiteral("/proc/no/such/place.ini"));
        NotificationBus bus;
        int posts = 0;
        bus.observe(MOSARO_NOTI_RECENT_DAYS_CHANGED, this, [&](const QVariant&) { ++posts; });
        QVERIFY(!store.updateUserDefaultsWithValue(PREFS_GENERAL_SHOW_RECENT_DAYS, 1,
                                                   MOSARO_NOTI_RECENT_DAYS_CHANGED, 1, bus));
        QCOMPARE(posts, 0);
    }

    void releaseNote()
    {
        ZNUserDefaults store(m_file);
        QVERIFY(!store.showReleaseNote());
        QCOMPARE(store.savedApplicationVersion(), QString());
        store.updateUserDefaults(PREFS_GLOBAL_APP_VERSION, QStringLiteral("0.9"));
        QVERIFY(store.showReleaseNote());
        store.updateUserDefaults(PREFS_GLOBAL_APP_VERSION, ZNUserDefaults::applicationVersion());
        QVERIFY(!store.showReleaseNote());
        const QString version = ZNUserDefaults::applicationVersion();
        QVERIFY(version.startsWith(QString::number(ZNUserDefaults::applicationVersionAsInteger()) +
                                   QLatin1Char('.')));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

} // namespace

QTEST_GUILESS_MAIN(PreferencesTest)
#include "tst_preferences.moc"
