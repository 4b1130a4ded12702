#include "rche.h"

#include "frame/core/state.h"

namespace sd {

rche::rche(ProgramState &s, Navigator &nav) : ReadingScreen(QStringLiteral("rche"), s, nav, 1, DataFile::Rche, 8)
{
    layOutWithSheet(8);
}

QString rche::instruction() const
{
    return QStringLiteral("Choose the most suitable heading from the list for each numbered paragraph of the text. ")
           + u'\r' + QStringLiteral("Write the letter of the heading in the box with the paragraph's number.");
}

QString rche::extraLine() const
{
    return QStringLiteral("There is one extra heading which you do not need.");
}

} // namespace sd
