#include "base/ZNUserDefaults.h"

#include "base/DefaultPreferences.h"
#include "base/PreferenceKeys.h"

namespace mosaro::base {

namespace {

/// Booleans are stored as numbers, so that a key reads alike as either.
QVariant asStored(const QVariant& value)
{
    return value.metaType().id() == QMetaType::Bool ? QVariant(value.toBool() ? 1 : 0) : value;
}

} // namespace

ZNUserDefaults& ZNUserDefaults::sharedManager()
{
    static ZNUserDefaults defaults;
    return defaults;
}

ZNUserDefaults::ZNUserDefaults(const QString& file)
    : m_store(std::make_unique<QSettings>(file, QSettings::IniFormat))
{
}

ZNUserDefaults::ZNUserDefaults()
    : m_store(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                          QStringLiteral("Mosaro"), QStringLiteral("Mosaro")))
{
    m_store->setFallbacksEnabled(false);
}

ZNUserDefaults::~ZNUserDefaults() = default;

void ZNUserDefaults::initialize()
{
    for (const DefaultPreference& preference : defaultPreferences()) {
        if (!contains(preference.key))
            m_store->setValue(preference.key, asStored(preference.value));
    }
    m_store->remove(PREFS_GENERAL_REMEMBER_SELECTED_IMAGE_IN_BROWSER);
}

bool ZNUserDefaults::contains(QLatin1String key) const
{
    return m_store->contains(key);
}

QVariant ZNUserDefaults::value(QLatin1String key) const
{
    return m_store->value(key);
}

bool ZNUserDefaults::boolean(QLatin1String key, bool missing) const
{
    return contains(key) ? value(key).toBool() : missing;
}

qint64 ZNUserDefaults::integer(QLatin1String key, qint64 missing) const
{
    bool ok = false;
    const qint64 number = value(key).toLongLong(&ok);
    return ok ? number : missing;
}

QString ZNUserDefaults::string(QLatin1String key) const
{
    return value(key).toString();
}

QByteArray ZNUserDefaults::data(QLatin1String key) const
{
    return value(key).toByteArray();
}

void ZNUserDefaults::remove(QLatin1String key)
{
    m_store->remove(key);
    m_store->sync();
}

bool ZNUserDefaults::updateUserDefaults(QLatin1String key, const QVariant& withValue)
{
    if (key.isEmpty() || !withValue.isValid())
        return false;
    m_store->setValue(key, asStored(withValue));
    m_store->sync();
    return m_store->status() == QSettings::NoError;
}

bool ZNUserDefaults::updateUserDefaultsWithValue(QLatin1String key, const QVariant& withValue,
                                                 QLatin1String notification, const QVariant& object,
                                                 NotificationBus& bus)
{
    if (!updateUserDefaults(key, withValue))
        return false;
    if (!notification.isEmpty())
        bus.post(notification, object);
    return true;
}

bool ZNUserDefaults::showGuide() const
{
    return boolean(PREFS_GLOBAL_SHOW_GUIDE);
}

bool ZNUserDefaults::showReleaseNote() const
{
    return contains(PREFS_GLOBAL_APP_VERSION) && savedApplicationVersion() != applicationVersion();
}

bool ZNUserDefaults::isAddTagsToAsset() const
{
    return boolean(PREFS_EXPORT_ADD_TAGS_TO_ASSET);
}

bool ZNUserDefaults::isAddLabelToAsset() const
{
    return boolean(PREFS_LABEL_ADD_LABEL_TO_ASSET);
}

QString ZNUserDefaults::savedApplicationVersion() const
{
    return contains(PREFS_GLOBAL_APP_VERSION) ? string(PREFS_GLOBAL_APP_VERSION) : QStringLiteral("");
}

QString ZNUserDefaults::applicationVersion()
{
    return QStringLiteral(MOSARO_VERSION);
}

qint64 ZNUserDefaults::applicationVersionAsInteger()
{
    return applicationVersion().section(QLatin1Char('.'), 0, 0).toLongLong();
}

QString ZNUserDefaults::applicationBuildNumber()
{
    return QStringLiteral(MOSARO_BUILD);
}

} // namespace mosaro::base
