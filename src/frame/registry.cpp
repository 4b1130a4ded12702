#include "registry.h"

#include "helpscreen.h"
#include "menus.h"
#include "navigator.h"

namespace sd {

template<typename T>
static void add(Navigator &nav, const char *code)
{
    nav.registerScreen(QString::fromLatin1(code), [](ProgramState &s, Navigator &n) { return new T(s, n); });
}

void registerFrameScreens(Navigator &nav)
{
    add<Introback>(nav, "Introback");
    add<Intro>(nav, "Intro");
    add<Practype>(nav, "Practype");
    add<Pracchoice>(nav, "Pracchoice");
    add<ErrorScreen>(nav, "Error");
    add<Helpform>(nav, "Helpform");
}

} // namespace sd
