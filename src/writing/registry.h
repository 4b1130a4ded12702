#pragma once

namespace sd {
class Navigator;
/// Registers the Writing screens: types, titles, task sheets, the editors and the samples.
void registerWritingScreens(Navigator &nav);
} // namespace sd
