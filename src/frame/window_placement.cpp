#include "frame/window_placement.h"

namespace tessel {

namespace {
// The values of the platform's show commands, kept here so that the decision is platform-free.
constexpr int kShowNormal = 1, kShowMaximized = 3, kShowDefault = 10;
}  // namespace

bool UsableStartRectangle(const RectI& rect, const std::vector<RectI>& screens) {
    if (rect.right - rect.left < kMinimumStartWidth || rect.bottom - rect.top < kMinimumStartHeight) return false;
    for (const RectI& screen : screens)
        if (rect.left < screen.right && screen.left < rect.right && rect.top < screen.bottom && screen.top < rect.bottom)
            return true;
    return false;
}

int StartShowCommand(int requested, bool wasMaximized) {
    const bool plain = requested == kShowNormal || requested == kShowDefault;
    return plain && wasMaximized ? kShowMaximized : requested;
}

}  // namespace tessel
