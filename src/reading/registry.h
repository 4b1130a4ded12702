#pragma once

namespace sd {
class Navigator;
/// Registers the Reading paper's exercise and score screens.
void registerReadingScreens(Navigator &nav);
} // namespace sd
