#pragma once

#include "platform/Ports.h"

#include <map>

class QSoundEffect;

namespace mosaro::platform {

/// Plays through the default audio device; without one, or without the resource, it is silent. An effect is
/// loaded at its first play.
class EffectPlayer : public base::SoundPlayer {
public:
    EffectPlayer();
    ~EffectPlayer() override;
    EffectPlayer(const EffectPlayer&) = delete;
    EffectPlayer& operator=(const EffectPlayer&) = delete;

    void play(const QString& resource) override;

private:
    std::map<QString, std::unique_ptr<QSoundEffect>> m_effects;
};

} // namespace mosaro::platform
