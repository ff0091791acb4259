#include "base/ZNUtilities.h"

#include "base/PreferenceKeys.h"
#include "base/ZNUserDefaults.h"

#include <array>

namespace mosaro::base {

ZNUtilities& ZNUtilities::sharedManager()
{
    static ZNUtilities utilities;
    return utilities;
}

void ZNUtilities::postNotification(QLatin1String name, const QVariant& withValue)
{
    m_bus.post(name, withValue);
}

void ZNUtilities::postUserNotification(const QString& title, const QString& subtitle, const QString& content)
{
    if (m_notifier != nullptr && !title.isEmpty() && !content.isEmpty())
        m_notifier->notify(title, subtitle, content);
}

int ZNUtilities::alertWithMessageText(const QString& message, const QString& defaultButton,
                                      const QString& alternateButton, const QString& informativeText)
{
    if (m_prompts == nullptr)
        return 0;
    return m_prompts->alert({message, defaultButton, alternateButton, informativeText});
}

void ZNUtilities::playSoundEffect(int effect, ZNUserDefaults& defaults)
{
    if (!defaults.contains(PREFS_GENERAL_SOUND_EFFECTS))
        defaults.updateUserDefaults(PREFS_GENERAL_SOUND_EFFECTS, true);
    else if (!defaults.boolean(PREFS_GENERAL_SOUND_EFFECTS))
        return;
    constexpr std::array kNames{"MoveItem", "DeleteItem", "RemoveTags", "Snap"};
    if (m_sounds == nullptr || effect < 0 || effect >= int(kNames.size()))
        return;
    m_sounds->play(QStringLiteral(":/sounds/%1.wav").arg(QLatin1String(kNames[size_t(effect)])));
}

} // namespace mosaro::base
