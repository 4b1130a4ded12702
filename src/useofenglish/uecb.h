#pragma once

#include "gapexercise.h"

namespace sd {

/// Open cloze: a passage with up to fifteen gaps, one typed word each, up to four accepted answers.
class uecb : public GapExerciseScreen
{
    Q_OBJECT

public:
    uecb(ProgramState &state, Navigator &nav);

protected:
    void load() override;
    void showAnswerExtras() override;

private:
    Array<QLineEdit *, 1, 15> Text;
    QLabel *lblNote = nullptr;
};

} // namespace sd
