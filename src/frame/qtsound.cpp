#include "qtsound.h"

#include "modules.h"

#include <QApplication>
#include <QFileInfo>

namespace sd {

QtSound::QtSound() = default;

QtSound::~QtSound() = default;

void QtSound::play(const QString &path)
{
    if (!QFileInfo::exists(path))
        return; // a missing clip: carry on in silence
    if (!m_loadTried) {
        m_loadTried = true;
        if (const auto create = reinterpret_cast<CreateSound>(moduleFunction(SoundModule, SoundFunction))) {
            m_output.reset(create());
            if (m_output && m_volume >= 0)
                m_output->setVolume(m_volume);
        }
    }
    if (m_output)
        m_output->play(path);
}

void QtSound::stop()
{
    if (m_output)
        m_output->stop();
}

void QtSound::setVolume(int volume)
{
    m_volume = volume;
    if (m_output)
        m_output->setVolume(volume);
}

void QtSound::beep()
{
    QApplication::beep();
}

} // namespace sd
