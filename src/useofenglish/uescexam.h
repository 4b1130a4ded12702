#pragma once

#include "core/itemrun.h"
#include "frame/appscreen.h"
#include "frame/exercisescreen.h"

#include <QLineEdit>

namespace sd {

/// Sentence conversion in a test: the ten items of the test on one screen, an answer box under
/// each (`Text1`..`Text10`) and the clock. Leaving keeps the answers, marks the section done and
/// scores it without a window or a sound; once the test is scored the answers show against the
/// keys with `uescexamcheck` over them.
class uescexam : public ExerciseScreen
{
    Q_OBJECT

public:
    uescexam(ProgramState &state, Navigator &nav);
    /// "See correct answers" of the check window.
    void showCorrectAnswers();

protected:
    void load() override;
    void onQuit() override;

private:
    int section() const { return ProgramState::sectionOfKind(kind()); }
    /// Judges the answers in the boxes: score out of 10 and the right/wrong flag of each item.
    int scoreAnswers();

    QList<OneItem> m_items;
    Array<QLabel *, 1, 10> lblFirst, lblSecond, lblKey, Image;
    Array<QLineEdit *, 1, 10> Text;
};

/// The score of the sentence-conversion section once the test is scored: rule B's verdict with its
/// picture, no sound.
class uescexamcheck : public AppScreen
{
    Q_OBJECT
public:
    uescexamcheck(ProgramState &state, Navigator &nav);
};

/// The section's result as the test paper shows it: "S out of 10".
class uescfinalscore : public AppScreen
{
    Q_OBJECT
public:
    uescfinalscore(ProgramState &state, Navigator &nav);
};

/// The maximum of the sentence-conversion section of a test, whatever its number of items.
inline constexpr int ConversionTestMaximum = 10;

} // namespace sd
