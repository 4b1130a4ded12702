#pragma once

#include "appscreen.h"

namespace sd {

class RichTextBox;

/// Help screen: shows the topic in HelpTopic (DataDir & topic & ".rtf"), modal over the screen
/// that opened it; "Print text" prints the topic's ".txt" as the help-text print.
class Helpform : public AppScreen
{
    Q_OBJECT
public:
    Helpform(ProgramState &state, Navigator &nav);

private:
    RichTextBox *m_text = nullptr;
};

/// About screen: the program's name, version, licence and credits.
class About : public AppScreen
{
    Q_OBJECT
public:
    About(ProgramState &state, Navigator &nav);
};

} // namespace sd
