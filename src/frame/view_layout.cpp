#include "frame/view_layout.h"

#include <algorithm>

namespace tessel {
namespace {

enum : int { kKeep = -1, kHorizontal = 0, kVertical = 1 };

struct LayoutRow {
    bool shown[4];
    int orientation[3];  // kKeep, kHorizontal or kVertical
    int singlePane[3];
};

// One row per layout, in command order.
constexpr LayoutRow kLayouts[kLayoutCount] = {
    {{1, 1, 1, 1}, {kHorizontal, kVertical, kVertical}, {-1, -1, -1}},  // 1 2 above, 3 4 below
    {{1, 0, 1, 1}, {kHorizontal, kKeep, kVertical}, {-1, 0, -1}},       // 1 across the top, 3 4 below
    {{1, 1, 1, 0}, {kHorizontal, kVertical, kKeep}, {-1, -1, 0}},       // 1 2 above, 3 across the bottom
    {{1, 1, 0, 0}, {kKeep, kVertical, kKeep}, {0, -1, -1}},             // 1 2 side by side
    {{1, 0, 1, 0}, {kHorizontal, kKeep, kKeep}, {-1, 0, 0}},            // 1 above 3
    {{1, 1, 1, 1}, {kVertical, kVertical, kVertical}, {-1, -1, -1}},    // four columns
    {{1, 1, 1, 1}, {kHorizontal, kHorizontal, kHorizontal}, {-1, -1, -1}},  // four rows
    {{1, 1, 1, 0}, {kVertical, kVertical, kVertical}, {-1, -1, 0}},     // three columns
    {{1, 1, 1, 0}, {kHorizontal, kHorizontal, kHorizontal}, {-1, -1, 0}},  // three rows
    {{1, 0, 1, 1}, {kVertical, kVertical, kHorizontal}, {-1, 0, -1}},   // 1 left, 3 above 4 right
    {{1, 1, 1, 0}, {kVertical, kHorizontal, kVertical}, {-1, -1, 0}},   // 1 above 2 left, 3 right
    {{1, 0, 0, 0}, {kKeep, kKeep, kKeep}, {0, 0, 0}},                   // T-View 1 alone
};

void SetOrientation(SplitterState& splitter, bool vertical) {
    if (splitter.vertical == vertical) return;  // keeps its pixel position
    splitter.vertical = vertical;
    splitter.pixel = -1;  // placed again from its position
}

int Length(const RectI& area, bool vertical) { return vertical ? area.right - area.left : area.bottom - area.top; }

// Splits `area` at the splitter; fills the two pane rectangles and the bar.
void Split(SplitterState& splitter, const RectI& area, int bar, RectI& first, RectI& second, RectI& barRect) {
    first = area;
    second = {};
    barRect = {};
    if (splitter.singlePane == 0) return;
    const int length = Length(area, splitter.vertical);
    if (splitter.pixel < 0 || splitter.lastLength != length) {
        splitter.pixel = PixelFromPosition(splitter.position, length);
        splitter.lastLength = length;
    }
    const int at = std::clamp(splitter.pixel, 0, std::max(0, length - bar));
    first = area;
    second = area;
    barRect = area;
    if (splitter.vertical) {
        first.right = area.left + at;
        barRect.left = first.right;
        barRect.right = barRect.left + bar;
        second.left = std::min(barRect.right, area.right);
        barRect.right = second.left;
    } else {
        first.bottom = area.top + at;
        barRect.top = first.bottom;
        barRect.bottom = barRect.top + bar;
        second.top = std::min(barRect.bottom, area.bottom);
        barRect.bottom = second.top;
    }
}

}  // namespace

void ApplyLayout(ViewLayout& state, int layout) {
    if (layout < 0 || layout >= kLayoutCount) return;
    if (layout <= 4) {
        SetOrientation(state.splitters[0], false);
        SetOrientation(state.splitters[1], true);
        SetOrientation(state.splitters[2], true);
    }
    const LayoutRow& row = kLayouts[layout];
    for (int i = 0; i < 3; ++i) {
        if (row.orientation[i] != kKeep) SetOrientation(state.splitters[i], row.orientation[i] == kVertical);
        state.splitters[i].singlePane = row.singlePane[i];
    }
    for (int i = 0; i < 4; ++i) state.visible[i] = row.shown[i];
    state.layout = layout;
}

void ResetPositionsForButton(ViewLayout& state, int layout) {
    // Which of SP0, SP1, SP2 go back to the middle, per button.
    static constexpr bool kReset[kLayoutCount][3] = {
        {1, 1, 1}, {1, 0, 1}, {1, 1, 0}, {0, 1, 1}, {1, 0, 0}, {1, 1, 1},
        {1, 1, 1}, {0, 1, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 1}, {0, 0, 0},
    };
    if (layout < 0 || layout >= kLayoutCount) return;
    for (int i = 0; i < 3; ++i) {
        if (kReset[layout][i]) {
            state.splitters[i].position = kDefaultPosition;
            state.splitters[i].pixel = -1;
        }
    }
    if (layout == 7 || layout == 8) {  // the pane with two views gets two thirds: three equal views
        state.splitters[0].position = 6600;
        state.splitters[0].pixel = -1;
    }
}

int ValidPosition(int position, int defaultValue) {
    return position >= 1 && position <= kPositionScale ? position : defaultValue;
}

int PixelFromPosition(int position, int length) {
    return static_cast<int>((static_cast<long long>(position) * length + kPositionScale / 2) / kPositionScale);
}

int PositionFromPixel(int pixel, int length) {
    if (length <= 0) return kDefaultPosition;
    const long long position = (static_cast<long long>(pixel) * kPositionScale + length / 2) / length;
    return static_cast<int>(std::clamp<long long>(position, 1, kPositionScale));
}

Arrangement Arrange(ViewLayout& state, RectI area, int bar) {
    Arrangement result;
    RectI top, bottom;
    Split(state.splitters[0], area, bar, top, bottom, result.bars[0]);
    Split(state.splitters[1], top, bar, result.views[0], result.views[1], result.bars[1]);
    result.areas = {area, top, bottom};
    // A hidden pane keeps its splitter as it was, so that it comes back where the user left it.
    if (state.splitters[0].singlePane != 0)
        Split(state.splitters[2], bottom, bar, result.views[2], result.views[3], result.bars[2]);
    for (int i = 0; i < 4; ++i)
        if (!state.visible[i]) result.views[i] = {};
    return result;
}

void MoveBar(ViewLayout& state, int splitter, int pixel) {
    if (splitter < 0 || splitter > 2) return;
    SplitterState& s = state.splitters[splitter];
    if (s.lastLength <= 0) return;
    s.pixel = std::clamp(pixel, 0, s.lastLength);
    s.position = PositionFromPixel(s.pixel, s.lastLength);
}

}  // namespace tessel
