#include "registry.h"

#include "frame/navigator.h"
#include "ueca.h"
#include "uecb.h"
#include "uecheck.h"
#include "ueec.h"
#include "oneitem.h"
#include "uescexam.h"
#include "uewbx.h"

namespace sd {

void registerUseOfEnglishScreens(Navigator &nav)
{
    nav.registerScreen<ueca>("ueca");
    nav.registerScreen<uecb>("uecb");
    nav.registerScreen<ueec>("ueec");
    nav.registerScreen<uecheck>("uecheck");
    nav.registerScreen<uewbchoice>("uewbchoice");
    nav.registerScreen<uescchoice>("uescchoice");
    nav.registerScreen<uewb>("uewb");
    nav.registerScreen<uesc>("uesc");
    nav.registerScreen<uesccheck>("uesccheck");
    nav.registerScreen<uescscore>("uescscore");
    nav.registerScreen<uewbreview>("uewbreview");
    nav.registerScreen<uescreview>("uescreview");
    nav.registerScreen<uewbx>("uewbx");
    nav.registerScreen<uescexam>("uescexam");
    nav.registerScreen<uescexamcheck>("uescexamcheck");
    nav.registerScreen<uescfinalscore>("uescfinalscore");
}

} // namespace sd
