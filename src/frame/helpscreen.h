#pragma once

#include "appscreen.h"

namespace sd {

/// Help screen: shows the topic in HelpTopic, modal over the screen that opened it.
class Helpform : public AppScreen
{
    Q_OBJECT
public:
    Helpform(ProgramState &state, Navigator &nav);
};

} // namespace sd
