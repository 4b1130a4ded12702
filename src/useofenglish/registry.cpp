#include "registry.h"

#include "frame/navigator.h"
#include "ueca.h"
#include "uecb.h"
#include "uecheck.h"
#include "ueec.h"

namespace sd {

void registerUseOfEnglishScreens(Navigator &nav)
{
    nav.registerScreen<ueca>("ueca");
    nav.registerScreen<uecb>("uecb");
    nav.registerScreen<ueec>("ueec");
    nav.registerScreen<uecheck>("uecheck");
}

} // namespace sd
