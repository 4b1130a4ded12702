#include "qtsound.h"

#include <QApplication>
#include <QAudioDevice>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace sd {

QtSound::QtSound()
{
    m_hasOutput = !QMediaDevices::audioOutputs().isEmpty();
    if (m_hasOutput)
        m_effect = std::make_unique<QSoundEffect>();
}

QtSound::~QtSound() = default;

void QtSound::play(const QString &path)
{
    if (!m_effect || !QFileInfo::exists(path))
        return; // a missing clip or no sound device: carry on in silence
    m_effect->setSource(QUrl::fromLocalFile(path));
    m_effect->play();
}

void QtSound::stop()
{
    if (m_effect)
        m_effect->stop();
}

void QtSound::setVolume(int volume)
{
    if (m_effect)
        m_effect->setVolume(float(volume) / 100.0f);
}

void QtSound::beep()
{
    QApplication::beep();
}

} // namespace sd
