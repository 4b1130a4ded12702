// The program's sound clips, synthesised in-process so the data build can write them itself.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace sd::soundgen {

struct SoundClip
{
    QString fileName; ///< as the program plays it, e.g. "happychime.wav"
    QByteArray wav;   ///< a complete 16-bit mono WAVE file
};

/// The seven clips, always byte-identical.
QList<SoundClip> clips();
/// Writes every clip into the folder (created when missing).
bool writeClips(const QString &folder, QString *error = nullptr);

} // namespace sd::soundgen
