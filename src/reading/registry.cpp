#include "registry.h"

#include "frame/navigator.h"

namespace sd {

void registerReadingScreens(Navigator &)
{
}

} // namespace sd
