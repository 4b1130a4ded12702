#include "registry.h"

#include "examsave.h"
#include "examscore.h"
#include "frame/navigator.h"
#include "menus.h"

namespace sd {

void registerTestPaperScreens(Navigator &nav)
{
    nav.registerScreen<Examtype>("Examtype");
    nav.registerScreen<Examnumber>("Examnumber");
    nav.registerScreen<Examsection>("Examsection");
    nav.registerScreen<Examscore>("Examscore");
    nav.registerScreen<Examexit>("Examexit");
    nav.registerScreen<Examsave>("Examsave");
    nav.registerScreen<continuetest>("continuetest");
}

} // namespace sd
