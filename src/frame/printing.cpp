#include "printing.h"

namespace sd {

bool printRichText(ProgramState &, QWidget *, const QList<QTextDocument *> &)
{
    return true; // printing arrives with the printer device
}

} // namespace sd
