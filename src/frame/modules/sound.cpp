// The sound module: clips played through Qt Multimedia. Loaded by QtSound at the first clip.
#include "frame/modules.h"

#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include <memory>

namespace {

class MultimediaSound final : public sd::SoundOutput
{
public:
    MultimediaSound()
    {
        if (!QMediaDevices::audioOutputs().isEmpty())
            m_effect = std::make_unique<QSoundEffect>();
    }

    void play(const QString &path) override
    {
        if (!m_effect || !QFileInfo::exists(path))
            return; // no sound device: carry on in silence
        m_effect->setSource(QUrl::fromLocalFile(path));
        m_effect->play();
    }

    void stop() override
    {
        if (m_effect)
            m_effect->stop();
    }

    void setVolume(int volume) override
    {
        if (m_effect)
            m_effect->setVolume(float(volume) / 100.0f);
    }

    void beep() override {}

private:
    std::unique_ptr<QSoundEffect> m_effect;
};

} // namespace

extern "C" Q_DECL_EXPORT sd::SoundOutput *studydesk_create_sound()
{
    return new MultimediaSound;
}
