#pragma once

#include "base/NotificationBus.h"
#include "base/Ports.h"

namespace mosaro::base {

class ZNUserDefaults;

/// Posting, alerts, user notifications and sounds: a thin face over the bus and the ports that the program
/// puts in at start. A port that was not put in does nothing.
class ZNUtilities {
public:
    static ZNUtilities& sharedManager();

    void setPrompts(Prompts* prompts) { m_prompts = prompts; }
    void setUserNotifier(UserNotifier* notifier) { m_notifier = notifier; }
    void setSoundPlayer(SoundPlayer* player) { m_sounds = player; }

    [[nodiscard]] NotificationBus& bus() { return m_bus; }
    void postNotification(QLatin1String name, const QVariant& withValue = {});

    /// Needs a title and a content; does nothing without either.
    void postUserNotification(const QString& title, const QString& subtitle, const QString& content);

    /// 1 for the default button, 0 otherwise. The informative text is shown as given.
    int alertWithMessageText(const QString& message, const QString& defaultButton,
                             const QString& alternateButton, const QString& informativeText);

    /// 0 "MoveItem", 1 "DeleteItem", 2 "RemoveTags", 3 "Snap"; others nothing. Gated by
    /// PREFS_GENERAL_SOUND_EFFECTS; a missing preference is written as true.
    void playSoundEffect(int effect, ZNUserDefaults& defaults);

private:
    NotificationBus m_bus;
    Prompts* m_prompts = nullptr;
    UserNotifier* m_notifier = nullptr;
    SoundPlayer* m_sounds = nullptr;
};

} // namespace mosaro::base
