#pragma once

#include "core/services.h"

#include <QObject>
#include <memory>

class QSoundEffect;

namespace sd {

/// Plays clips through QSoundEffect. A machine without an audio output plays nothing, silently.
class QtSound final : public QObject, public SoundOutput
{
    Q_OBJECT
public:
    QtSound();
    ~QtSound() override;
    void play(const QString &path) override;
    void stop() override;
    void beep() override;
    void setVolume(int volume) override;

private:
    std::unique_ptr<QSoundEffect> m_effect;
    bool m_hasOutput = false;
};

} // namespace sd
