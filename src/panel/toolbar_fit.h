#pragma once
// How a T-View's status bar shares its width between the status text and the toolbars. The text
// gets the room it needs first; what does not fit of the toolbars goes behind a chevron button
// whose menu offers the hidden buttons. The view-mode bar goes first, then the extra bar, then
// the main bar's last buttons; the main bar's first buttons always stay.
#include <vector>

namespace tessel {

struct ToolbarWidths {
    std::vector<int> main;           // each main-bar button's width; 0 for a button the user hid
    std::vector<bool> separators;    // which of them are separators (same length as `main`)
    int extra = 0, modes = 0;        // whole bars; 0 when the user does not want them
    int chevron = 0;
    int keepMain = 3;                // buttons (not separators) of the main bar that always show
};

struct ToolbarFit {
    int mainShown = 0;  // leading main-bar buttons shown
    bool extraShown = false, modesShown = false, chevron = false;
    int toolbarsWidth = 0;  // of everything shown at the right end, chevron included
};

ToolbarFit FitToolbars(const ToolbarWidths& widths, int room, int statusNeed);

}  // namespace tessel
