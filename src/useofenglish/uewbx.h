#pragma once

#include "gapexercise.h"

namespace sd {

/// Word formation in a test: the whole text with ten numbered gaps, an answer box for each with
/// its base word beside it, scored out of 10 by `uecheck`.
class uewbx : public GapExerciseScreen
{
    Q_OBJECT

public:
    uewbx(ProgramState &state, Navigator &nav);

protected:
    void load() override;

private:
    Array<QLineEdit *, 1, 15> Text;
};

} // namespace sd
