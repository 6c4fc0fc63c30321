#pragma once
// Rules of the tab strip that need no window: how long a label may be, how long a dragged-over
// tab waits before it opens, and where a new tab goes.
#include <string>
#include <string_view>

namespace tessel {

class ITextMeasure {
public:
    virtual ~ITextMeasure() = default;
    virtual int Width(std::wstring_view text) = 0;  // pixels
};

// With tab_width_mode 1 a name wider than maxWidth keeps its longest prefix that fits, plus " ...".
std::wstring CutTabLabel(std::wstring_view name, int maxWidth, ITextMeasure& measure);

inline int ClampTabMaxWidth(int width) { return width < 60 ? 60 : width > 300 ? 300 : width; }

// tabs_hover_time and tree_hover_time: 0 = 0.5 s, 1 = 1.0 s, 2 = 1.5 s, 3 = 2.0 s, 4 = 3.0 s,
// 5 = 0.2 s, anything else 0.5 s.
int HoverDelayMs(int setting);

// The index a new tab takes: the position text when it is a non-negative number, else the end.
int TabInsertIndex(std::wstring_view position, int count);

// Which tab is selected after closing tab `index` of `count` (the selected one when `selected`):
// for a tab with a browser view the right neighbour first, else the left one; for a tab without
// one only the left neighbour (the first tab, which has none, hands over to the one after it).
// -1 when the tab may not be closed (the last one).
int TabSelectedAfterClose(int index, int count, int selected, bool hasBrowser = true);

}  // namespace tessel
