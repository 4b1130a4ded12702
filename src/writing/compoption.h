#pragma once

#include "writingscreen.h"

namespace sd {

/// "SELECT THE TYPE OF COMPOSITION": the seven types. A type opens its titles (the letter topics
/// for the Transactional letter), or its samples when the samples flag is set.
class compoption : public WritingScreen
{
    Q_OBJECT

public:
    compoption(ProgramState &state, Navigator &nav);

protected:
    compoption(const QString &code, ProgramState &state, Navigator &nav);

private:
    void choose(int n);
    QList<ui::MenuLabel *> m_types;
};

/// The same choice under the heading "SAMPLES", reached from the writing help screen.
class compoptionsample : public compoption
{
    Q_OBJECT

public:
    compoptionsample(ProgramState &state, Navigator &nav);
};

} // namespace sd
