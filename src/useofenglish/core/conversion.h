#pragma once

#include "gaprules.h"

#include <QString>

namespace sd {

/// Expands contractions while the text holds "n't": "can't" becomes "cannot", else "won't" becomes
/// "will not", else "shan't" becomes "shall not", else the first "n't" becomes " not".
QString ExpandContractions(QString text);

/// The one-item answer normaliser of word formation and sentence conversion: trimmed, lower case,
/// contractions expanded, commas and "!" removed, " ." and " ?" closed up, runs of blanks collapsed.
QString NormaliseAnswer(const QString &text);

/// Removes every carriage return (texts from a multi-line box).
QString RemoveCarriageReturns(QString text);

/// Judges a typed answer against an item's correct answer and its alternatives (the correct
/// answer, then up to three more, in that order). Both sides are normalised first; the answer
/// is right when it equals the correct answer in capitals, or, when it is not empty, one of the
/// alternatives in lower case.
bool JudgeItemAnswer(const QString &answer, const QString &correct, const Alternatives &alternatives);

} // namespace sd
