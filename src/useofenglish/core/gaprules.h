#pragma once

#include "frame/core/checked.h"

#include <QString>
#include <QStringList>

#include <array>

namespace sd {

struct ProgramState;

/// The four alternatives (or accepted answers) of one gap, in item order or in shown order.
using Alternatives = std::array<QString, 4>;

/// Splits an item "key/b/c/d" into four texts. An empty item or one that begins "///" gives four
/// empty texts. The scan takes three runs up to a "/"; when no "/" is left, the run is empty and
/// the remaining text loses its first character. The fourth text is whatever remains.
Alternatives SplitAlternatives(const QString &item);

/// Item places (1-based) shown at positions 1..4 for a draw k of 1..12. Twelve of the 24 orders.
std::array<int, 4> ShuffleFourOrder(int k);
/// Item places shown at positions 1..3 for a draw k of 1..12; each of the six orders for two k.
std::array<int, 3> ShuffleThreeOrder(int k);
/// Rearranges four alternatives by the order of draw k.
Alternatives ShuffleFour(int k, const Alternatives &a);
/// Rearranges the first three alternatives by the order of draw k; the fourth stays where it is.
Alternatives ShuffleThree(int k, const Alternatives &a);
/// Re-seeds the generator from the clock and draws k = Int(Rnd x 12) + 1.
int DrawShuffle(ProgramState &s);
/// Shuffles a gap's alternatives: three when the fourth is blank, otherwise four; one draw.
Alternatives ShuffleGap(ProgramState &s, const Alternatives &a);

/// Replaces the first pair of adjacent spaces by one space until there is none.
QString CollapseSpaces(QString text);
/// Deletes the first comma until there is none.
QString RemoveCommas(QString text);

/// The comparison of the choice and error-correction gaps: equal in capitals.
bool SameAnswer(const QString &answer, const QString &key);
/// The open-cloze comparison: how many of the four accepted answers equal the answer in capitals.
/// An empty answer matches nothing. A repeated accepted answer counts once per repetition.
int OpenClozeMatches(const QString &answer, const Alternatives &accepted);

/// Verdict 1..7 of a check of n gaps with s correct: 1 when s = n, 2 when s = n - 1, then by the
/// thresholds Int(n x 0.74), Int(n x 0.59), Int(n x 0.49), Int(n x 0.29).
int GapVerdict(int score, int gapCount);

/// Lines of an error-correction text: "c. line" for line c, blank lines kept empty. Throws
/// ProgramError when the file `name` of the data directory cannot be read or holds more than 20 lines.
QStringList ReadNumberedLines(const QString &dataDir, const QString &name);

} // namespace sd
