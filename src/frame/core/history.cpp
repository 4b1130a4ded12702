#include "history.h"

namespace sd {

namespace {
const char *const kindNames[] = {"rche", "rcmc", "rcre", "rcma", "comp", "ueca", "uecb", "uesc", "ueec", "uewb"};
} // namespace

QString historyPaperName(int paper)
{
    switch (paper) {
    case 1: return QStringLiteral("reading");
    case 2: return QStringLiteral("writing");
    case 3: return QStringLiteral("useofenglish");
    default: return {};
    }
}

int historyPaperNumber(const QString &name)
{
    for (int paper = 1; paper <= 3; ++paper)
        if (name == historyPaperName(paper))
            return paper;
    return 0;
}

QString historyKindName(int kind)
{
    return kind >= 1 && kind <= 10 ? QString::fromLatin1(kindNames[kind - 1]) : QString();
}

int historyKindNumber(const QString &name)
{
    for (int k = 1; k <= 10; ++k)
        if (name == QLatin1String(kindNames[k - 1]))
            return k;
    return 0;
}

int paperOfKind(int kind)
{
    return kind <= 4 ? 1 : kind == 5 ? 2 : 3;
}

} // namespace sd
