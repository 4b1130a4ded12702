#include "rcmc.h"

#include "frame/core/state.h"

namespace sd {

rcmc::rcmc(ProgramState &s, Navigator &nav) : ReadingScreen(QStringLiteral("rcmc"), s, nav, 2, DataFile::Rcmc, 7)
{
    layOutWithSheet(7);
}

QString rcmc::legacyNumberLabel(int i)
{
    if (i <= 3)
        return QStringLiteral("Label%1").arg(i);
    return i == 4 ? QStringLiteral("Label5") : QStringLiteral("Answerlbl%1").arg(i);
}

QString rcmc::instruction() const
{
    return QStringLiteral("Choose the best answer for each question.");
}

} // namespace sd
