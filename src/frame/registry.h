#pragma once

namespace sd {
class Navigator;
/// Registers the frame's own screens (start, menus, error, help).
void registerFrameScreens(Navigator &nav);
} // namespace sd
