#pragma once

#include "frame/appscreen.h"

namespace sd {

/// The Writing test's two answers: the student's name, each part with its heading, a print button
/// for each (`imgPrint` the letter, `imgPrint2` the composition) and `Savetext`, which saves both
/// parts into one text file, Part 1 first.
class Examsave : public AppScreen
{
    Q_OBJECT
public:
    Examsave(ProgramState &state, Navigator &nav);

private:
    void save();
    /// A Writing test leaves its record once, when it is first saved or printed; from then on it
    /// counts as scored, as a Reading or Use of English test does after its final score.
    void keepRecord();
};

} // namespace sd
