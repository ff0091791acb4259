#include "platform/linux/EffectPlayer.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace mosaro::platform {

EffectPlayer::EffectPlayer() = default;
EffectPlayer::~EffectPlayer() = default;

void EffectPlayer::play(const QString& resource)
{
    if (!QFile::exists(resource) || QMediaDevices::defaultAudioOutput().isNull())
        return;
    auto& effect = m_effects[resource];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl(QStringLiteral("qrc") + resource));
    }
    effect->play();
}

} // namespace mosaro::platform
