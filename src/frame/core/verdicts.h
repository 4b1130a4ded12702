#pragma once

#include <QString>

namespace sd {

struct ProgramState;

/// Practice check: thresholds truncated from T/100 x 74, 59, 49, 29. Sets *allCorrect on S = T.
int VerdictRuleA(int total, int score, bool *allCorrect = nullptr);
/// Test sentence-conversion final score.
int VerdictRuleB(int total, int score);
/// Test paper score on a percentage; verdict 5 is never chosen.
int VerdictRuleC(int percent);
/// Chooses by rule A into VerdictIndex (and AllCorrect) from QuestionCount and Score.
void ChooseVerdict(ProgramState &s);
/// Plays SoundFiles(index) from DataDir; index must be below 11.
void PlaySound(ProgramState &s, int index);
/// Plays a clip named by the caller from DataDir.
void PlayNamedSound(ProgramState &s, const QString &fileName);
/// Resource path of the picture of verdict 1..7.
QString verdictPicture(int index);

} // namespace sd
