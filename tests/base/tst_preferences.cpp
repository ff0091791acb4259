#include "base/DefaultPreferences.h"
#include "base/Notifications.h"
#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"
#include "base/ZNUserDefaults.h"

#include <QtTest>

using namespace mosaro::base;
using namespace Qt::StringLiterals;

class PreferencesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = at("test.ini");
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

    void keepsTypes()
    {
        const auto data = "bplist00\0\xFF\"\\\n;,"_ba;
        QVERIFY(ZNUserDefaults(m_file).updateUserDefaults(MOSARO_LIBRARY_LOCATION, data));
        QCOMPARE(ZNUserDefaults(m_file).data(MOSARO_LIBRARY_LOCATION), data);
        for (const QString& text : {u"/home/ü/My, \"Pictures\" @ 100%; x\\y"_s, u"@Invalid()"_s, u""_s}) {
            QVERIFY(ZNUserDefaults(m_file).updateUserDefaults(MOSARO_LIBRARY_LOCATION, text));
            const ZNUserDefaults store(m_file);
            QVERIFY(store.contains(MOSARO_LIBRARY_LOCATION));
            QCOMPARE(store.string(MOSARO_LIBRARY_LOCATION), text);
        }
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

    void updatesPostOnlyWhenWritten()
    {
        constexpr QLatin1String kKey = PREFS_GENERAL_SHOW_RECENT_DAYS;
        constexpr QLatin1String kName = MOSARO_NOTI_RECENT_DAYS_CHANGED;
        const QString nowhere = u"/proc/no/such/place.ini"_s;
        const struct {
            QString file;
            QLatin1String key;
            QVariant value;
            QLatin1String notification;
            bool written;
            int posts;
        } rows[] = {{at("1"), kKey, 14, kName, true, 1},
                    {at("2"), kKey, 14, {}, true, 0},
                    {at("3"), kKey, {}, kName, false, 0},
                    {at("4"), {}, 14, kName, false, 0},
                    {nowhere, kKey, 14, kName, false, 0}};
        for (const auto& row : rows) {
            NotificationBus bus;
            QVariantList posts;
            bus.observe(kName, this, [&posts](const QVariant& object) { posts.append(object); });
            ZNUserDefaults store(row.file);
            QVERIFY2(store.updateUserDefaultsWithValue(row.key, row.value, row.notification, 14, bus) ==
                         row.written,
                     qPrintable(row.file));
            QCOMPARE(posts.size(), row.posts);
            QVERIFY(row.file == nowhere || store.userDefaults().allKeys().size() == int(row.written));
        }
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
    [[nodiscard]] QString at(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

QTEST_GUILESS_MAIN(PreferencesTest)
#include "tst_preferences.moc"
