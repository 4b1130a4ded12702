#pragma once

#include "frame/appscreen.h"

namespace sd {

class ReadingExercise;

/// The Reading score window, modal over the exercise screen: scores the answers, shows the score,
/// the verdict with its picture and sound, and offers "Try again", "See correct answers" and
/// "Close". A perfect score leaves out "Try again"; in a test only "Close" is offered.
class rc2check : public AppScreen
{
    Q_OBJECT

public:
    rc2check(ProgramState &state, Navigator &nav, const QString &code = QStringLiteral("rc2check"));

private:
    /// The exercise screen of the current kind.
    ReadingExercise *exercise();

    QLabel *lblHead = nullptr, *lblScore = nullptr, *Label4 = nullptr, *smileys = nullptr;
};

/// The headings exercise's score window: the same window under the headings' own code.
class rchecheck : public rc2check
{
    Q_OBJECT

public:
    rchecheck(ProgramState &s, Navigator &nav) : rc2check(s, nav, QStringLiteral("rchecheck")) {}
};

} // namespace sd
