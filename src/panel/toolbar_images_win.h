#pragma once
// Pictures of the T-View toolbar buttons, drawn at the screen's scale so they stay sharp at
// any DPI: one 16-unit design grid, scaled by whole pixels.
#include <windows.h>
#include <commctrl.h>

#include <vector>

namespace tessel {

// One picture per command, in order; the caller owns the list.
HIMAGELIST DrawToolbarImages(const std::vector<int>& commands, int pixelSize);

}  // namespace tessel
