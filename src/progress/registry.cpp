#include "registry.h"

#include "frame/navigator.h"
#include "progressscreens.h"

namespace sd {

void registerProgressScreens(Navigator &nav)
{
    nav.registerScreen<Progress>("Progress");
    nav.registerScreen<Mistakes>("Mistakes");
}

} // namespace sd
