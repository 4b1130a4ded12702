#pragma once

#include "frame/appscreen.h"

namespace sd {

/// The final score of a test: a row per section, the percentage, the verdict and the cup.
class Examscore : public AppScreen
{
    Q_OBJECT
public:
    Examscore(ProgramState &state, Navigator &nav);
};

/// "Are you sure you want to exit this test?": "Exit test" wipes the test, "Return to test" does not.
class Examexit : public AppScreen
{
    Q_OBJECT
public:
    Examexit(ProgramState &state, Navigator &nav);
};

} // namespace sd
