#pragma once

namespace sd {
class Navigator;
/// Registers the Use of English exercise and check screens.
void registerUseOfEnglishScreens(Navigator &nav);
} // namespace sd
