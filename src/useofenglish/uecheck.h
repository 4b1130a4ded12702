#pragma once

#include "frame/appscreen.h"

#include <QLabel>

namespace sd {

/// The check screen of the gap exercises: scores the answers on opening, shows the score with a
/// verdict picture and comment (and in practice its sound), and offers "See correct answers",
/// "See wrong answers", "Try again" and "Close", each acting on the exercise screen of the kind.
class uecheck : public AppScreen
{
    Q_OBJECT

public:
    uecheck(ProgramState &state, Navigator &nav);

private:
    void seeCorrect();
    void seeWrong();
    void tryAgain();
    void closeCheck();

    QLabel *lblScore = nullptr, *Image1 = nullptr, *Label4 = nullptr;
};

} // namespace sd
