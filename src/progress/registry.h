#pragma once

namespace sd {

class Navigator;

/// Registers the progress screens: `Progress` and `Mistakes`.
void registerProgressScreens(Navigator &nav);

} // namespace sd
