#pragma once

#include "gapexercise.h"

#include <QComboBox>

namespace sd {

/// Multiple-choice cloze: a passage with up to fifteen gaps, a drop-down list of three or four
/// shuffled alternatives for each.
class ueca : public GapExerciseScreen
{
    Q_OBJECT

public:
    ueca(ProgramState &state, Navigator &nav);

protected:
    void load() override;

private:
    void choose(int n, const QString &text);

    Array<QComboBox *, 1, 15> Combo;
};

} // namespace sd
