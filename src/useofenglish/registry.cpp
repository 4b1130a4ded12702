#include "registry.h"

#include "frame/navigator.h"

namespace sd {

void registerUseOfEnglishScreens(Navigator &)
{
}

} // namespace sd
