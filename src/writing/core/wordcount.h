#pragma once

#include <QString>

namespace sd {

/// The word count of a composition box. It counts blanks, so a contraction counts as two words
/// ("don't" is "do" and "n't"), a run of blanks counts once, and a line break separates two words
/// only after a full stop: a word at the end of a line without one runs into the next line's first
/// word. Line breaks may be CR LF or LF.
int CountWords(const QString &box);

/// The live count under the box: "Words: 134 (120-180 words)".
QString liveCountText(int words);

} // namespace sd
