#include "rcre.h"

#include "frame/core/state.h"
#include "rcmc.h"

namespace sd {

rcre::rcre(ProgramState &s, Navigator &nav) : ReadingScreen(QStringLiteral("rcre"), s, nav, 3, DataFile::Rcre, 7)
{
    layOutWithSheet(7);
}

QString rcre::numberLabelName(int i) const
{
    return rcmc::legacyNumberLabel(i);
}

QString rcre::instruction() const
{
    return QStringLiteral("Some sections of the following text have been removed. ") + u'\r'
           + QStringLiteral("Indicate the correct position of each section ") + u'\r'
           + QStringLiteral("by writing the appropriate letter in the box.");
}

QString rcre::extraLine() const
{
    return QStringLiteral("There is one extra section which you do not need.");
}

} // namespace sd
