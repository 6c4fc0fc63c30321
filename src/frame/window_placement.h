#pragma once
// Where and how the main window comes back at the next start: the normal rectangle ("WinRC") and
// whether it was maximised ("WinMax"), kept apart so that a window restored from maximised
// returns to its own size.
#include <vector>

#include "core/profile_values.h"

namespace tessel {

inline constexpr int kMinimumStartWidth = 200;
inline constexpr int kMinimumStartHeight = 150;

// A kept rectangle is used only when it is big enough to work in and lies at least partly on one
// of the screens there are now (a screen unplugged since leaves none).
bool UsableStartRectangle(const RectI& rect, const std::vector<RectI>& screens);

// The show command for the first showing: a launcher's own wish (minimised, maximised, hidden)
// wins; a plain start comes back maximised when the window was maximised at exit.
int StartShowCommand(int requested, bool wasMaximized);

}  // namespace tessel
