#pragma once

namespace sd {

class Navigator;

/// Registers the test-paper menus and score screens.
void registerTestPaperScreens(Navigator &nav);

} // namespace sd
