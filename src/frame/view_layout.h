#pragma once
// The arrangement of the four T-Views: three two-pane splitters (SP0 holds SP1 and SP2; SP1
// holds T-Views 1 and 2, SP2 holds 3 and 4) and the twelve layouts that set them.
#include <array>

#include "core/profile_values.h"

namespace tessel {

inline constexpr int kLayoutCount = 12;
inline constexpr int kFirstLayoutCommand = 32761;
inline constexpr int kPositionScale = 10000;  // splitter positions are ten-thousandths
inline constexpr int kDefaultPosition = 5000;

struct SplitterState {
    bool vertical = true;  // a vertical bar: panes left and right
    int position = kDefaultPosition;
    int singlePane = -1;  // -1 both panes, 0 the first only
    int pixel = -1;       // where the bar is, in pixels from the pane start; -1 until laid out
    int lastLength = -1;  // the length the pixel was worked out for
};

struct ViewLayout {
    std::array<SplitterState, 3> splitters;  // SP0, SP1, SP2
    std::array<bool, 4> visible{true, true, true, true};
    int layout = 0;
};

inline bool IsLayoutCommand(int command) {
    return command >= kFirstLayoutCommand && command < kFirstLayoutCommand + kLayoutCount;
}

// The layout command's table: visibility, orientations and single panes. Other numbers change nothing.
void ApplyLayout(ViewLayout& state, int layout);
// A click on a layout button also resets positions (layouts 7 and 8 give SP0 6600).
void ResetPositionsForButton(ViewLayout& state, int layout);
// Values outside 1..10000 become the default.
int ValidPosition(int position, int defaultValue);

// Multiply-then-divide with rounding, both ways.
int PixelFromPosition(int position, int length);
int PositionFromPixel(int pixel, int length);

// Where the panes and the bars go inside `area`; bars are `bar` pixels wide. A splitter keeps its
// pixel position while its length does not change; otherwise it is placed from its position.
struct Arrangement {
    std::array<RectI, 4> views{};      // empty rectangles for hidden T-Views
    std::array<RectI, 3> bars{};       // empty for splitters showing one pane
    std::array<RectI, 3> areas{};      // what each splitter divides
};
Arrangement Arrange(ViewLayout& state, RectI area, int bar);

// Drags bar `splitter` to `pixel` (from its pane start); the position follows.
void MoveBar(ViewLayout& state, int splitter, int pixel);

}  // namespace tessel
