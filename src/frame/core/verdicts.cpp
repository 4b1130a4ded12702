#include "verdicts.h"

#include "services.h"
#include "state.h"
#include "ui/files/datapath.h"

#include <QFile>
#include <QFileInfo>

namespace sd {

namespace {
int truncatedShare(int total, int percent)
{
    return int(double(total) / 100.0 * percent);
}
} // namespace

int VerdictRuleA(int total, int score, bool *allCorrect)
{
    if (score == total) {
        if (allCorrect)
            *allCorrect = true;
        return 1;
    }
    if (score == total - 1)
        return 2;
    if (score > truncatedShare(total, 74))
        return 3;
    if (score > truncatedShare(total, 59))
        return 4;
    if (score > truncatedShare(total, 49))
        return 5;
    if (score > truncatedShare(total, 29))
        return 6;
    return 7;
}

int VerdictRuleB(int total, int score)
{
    if (score == total)
        return 1;
    if (score == total - 1)
        return 2;
    if (score > total - 3)
        return 3;
    if (score > total - 5)
        return 4;
    if (score > total - 6)
        return 5;
    if (score > 2)
        return 6;
    return 7;
}

int VerdictRuleC(int percent)
{
    if (percent >= 90)
        return 1;
    if (percent >= 80)
        return 2;
    if (percent >= 70)
        return 3;
    if (percent >= 60)
        return 4;
    if (percent >= 50)
        return 6; // verdict 5 is deliberately never chosen here
    return 7;
}

void ChooseVerdict(ProgramState &s)
{
    bool all = false;
    s.VerdictIndex = VerdictRuleA(s.QuestionCount, s.Score, &all);
    if (all)
        s.AllCorrect = true;
}

void PlaySound(ProgramState &s, int index)
{
    if (index >= 11)
        throw RangeError(QStringLiteral("Subscript out of range: sound %1").arg(index));
    PlayNamedSound(s, s.SoundFiles[index]);
}

void PlayNamedSound(ProgramState &s, const QString &fileName)
{
    s.Sound.stop();
    // Sounds turned off play nothing at all, not even a report of what would have played.
    if (!s.SoundOn)
        return;
    s.Sound.setVolume(s.Volume);
    // Only a wave file of the data directory within its size limit is handed to the sound output.
    const DataPath p = resolveDataFile(s.DataDir, fileName);
    bool playable = p.ok() && QFileInfo(p.path).size() <= MaxSoundBytes;
    if (playable) {
        QFile f(p.path);
        const QByteArray head = f.open(QIODevice::ReadOnly) ? f.read(12) : QByteArray();
        playable = head.size() == 12 && head.startsWith("RIFF") && head.endsWith("WAVE");
    }
    if (playable)
        s.Sound.play(p.path);
    else
        s.Sound.missing(fileName);
}

QString verdictPicture(int index)
{
    return QStringLiteral(":/pictures/verdict%1.svg").arg(index);
}

} // namespace sd
