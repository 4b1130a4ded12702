#pragma once

#include "core/services.h"

#include <memory>

namespace sd {

/// Plays clips through the sound module (Qt Multimedia), which is loaded when the first clip
/// plays. A machine without an audio output, or without the module, plays nothing, silently.
class QtSound final : public SoundOutput
{
public:
    QtSound();
    ~QtSound() override;
    void play(const QString &path) override;
    void stop() override;
    void beep() override;
    void setVolume(int volume) override;

private:
    std::unique_ptr<SoundOutput> m_output;
    bool m_loadTried = false;
    int m_volume = -1; ///< the last volume asked for, given to the output once it is there
};

} // namespace sd
