#include "registry.h"

#include "helpscreen.h"
#include "menus.h"
#include "navigator.h"

namespace sd {

void registerFrameScreens(Navigator &nav)
{
    nav.registerScreen<Introback>("Introback");
    nav.registerScreen<Intro>("Intro");
    nav.registerScreen<Practype>("Practype");
    nav.registerScreen<Pracchoice>("Pracchoice");
    nav.registerScreen<ErrorScreen>("Error");
    nav.registerScreen<MessageBox>("MessageBox");
    nav.registerScreen<Settings>("Settings");
    nav.registerScreen<Helpform>("Helpform");
    nav.registerScreen<About>("About");
}

} // namespace sd
