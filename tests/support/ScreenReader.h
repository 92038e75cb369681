#pragma once

/// Somebody who listens to what assistive technology is told.
namespace ScreenReader {

/// Whether there is one. Without one Qt tells nobody anything.
void setPresent(bool present);

} // namespace ScreenReader
