#pragma once

#include "gapexercise.h"

#include <QCheckBox>

namespace sd {

/// Error correction: fifteen numbered lines of a text file; for each line the student types the
/// extra word in the box on the left or ticks the box on the right to say the line is correct.
class ueec : public GapExerciseScreen
{
    Q_OBJECT

public:
    ueec(ProgramState &state, Navigator &nav);

protected:
    void load() override;

private:
    void tick(int n, bool on);

    QLabel *lblInstruction2 = nullptr;
    Array<QLabel *, 1, 15> lbl;
    Array<QLineEdit *, 1, 15> Text;
    Array<QCheckBox *, 1, 15> CheckBox;
    Array<bool, 1, 15> m_markedCorrect;
};

} // namespace sd
