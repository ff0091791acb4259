#pragma once

#include "base/NotificationBus.h"

#include <QLatin1String>
#include <QSettings>
#include <QVariant>
#include <memory>

namespace mosaro::base {

/// The preference store: flat, per user, an INI file under the XDG configuration directory. Values keep their
/// type through a read by one of the typed getters.
class ZNUserDefaults {
public:
    /// The user's store. Made on first use from QSettings' standard place.
    static ZNUserDefaults& sharedManager();

    /// A store in a file of its own; for tests and tools.
    explicit ZNUserDefaults(const QString& file);
    ZNUserDefaults();
    ~ZNUserDefaults();

    /// Enters every missing default and removes the retired key. A default, once written, cannot be told from
    /// a choice of the user's.
    void initialize();

    [[nodiscard]] QSettings& userDefaults() { return *m_store; }

    [[nodiscard]] bool contains(QLatin1String key) const;
    [[nodiscard]] QVariant value(QLatin1String key) const;
    [[nodiscard]] bool boolean(QLatin1String key, bool missing = false) const;
    [[nodiscard]] qint64 integer(QLatin1String key, qint64 missing = 0) const;
    [[nodiscard]] QString string(QLatin1String key) const;
    [[nodiscard]] QByteArray data(QLatin1String key) const;
    void remove(QLatin1String key);

    /// Writes and synchronises at once. A missing key or an invalid value writes nothing and gives false.
    bool updateUserDefaults(QLatin1String key, const QVariant& withValue);
    /// The same, then posts the notification, when a name is given and the write happened.
    bool updateUserDefaultsWithValue(QLatin1String key, const QVariant& withValue, QLatin1String notification,
                                     const QVariant& object, NotificationBus& bus);

    [[nodiscard]] bool showGuide() const;
    [[nodiscard]] bool showReleaseNote() const;
    [[nodiscard]] bool isAddTagsToAsset() const;
    [[nodiscard]] bool isAddLabelToAsset() const;
    [[nodiscard]] QString savedApplicationVersion() const;
    [[nodiscard]] static QString applicationVersion();
    [[nodiscard]] static qint64 applicationVersionAsInteger();
    [[nodiscard]] static QString applicationBuildNumber();

private:
    std::unique_ptr<QSettings> m_store;
};

} // namespace mosaro::base
