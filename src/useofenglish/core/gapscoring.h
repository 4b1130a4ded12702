#pragma once

#include "gaprules.h"

#include <QStringList>

namespace sd {

struct ProgramState;

inline constexpr int MaxGaps = 15;

/// Multiple-choice cloze: GapCount from the items (one less for each item whose key is empty),
/// keys, shuffled alternatives in GapAlternatives (one re-seeded draw per gap), answers cleared;
/// in practice the saved answers and the ever-correct flags are cleared too.
void PrepareChoiceGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items);
/// Open cloze: the accepted answers of each gap in GapAccepted, the first as the key. GapCount
/// loses one for each item that is blank or exactly "///".
void PrepareOpenGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items);
/// Error correction: the extra word of each line, in small letters, as the key; GapCount is 15.
void PrepareLineGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items);

/// Copies the answers into GapAnswer(1..15) and, for the kind, into SavedAnswer(1..15).
void TakeAnswers(ProgramState &s, int kind, const QStringList &answers);

/// The check screen's scoring of gaps 1..GapCount for a kind: normalises the answers and keys,
/// compares (the open-cloze comparison for kinds 7 and 8), sets Score, the per-gap flags and
/// VerdictIndex, grows WrongAnswerList, and marks the gaps answered correctly as ever correct.
void ScoreGaps(ProgramState &s, int kind);

/// "Score: S out of N" of an exercise screen.
QString GapScoreLine(int score, const QString &outOf);

} // namespace sd
