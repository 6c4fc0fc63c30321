#include "panel/toolbar_fit.h"

#include <cstddef>
#include <numeric>
#include <utility>

namespace tessel {
namespace {

using std::size_t;

// The longest run of leading main-bar buttons within `room`, never fewer than the kept ones and
// never ending in a separator. Its count and width.
std::pair<size_t, int> MainPrefix(const ToolbarWidths& w, int room) {
    const auto isButton = [&](size_t i) { return !w.separators[i] && w.main[i] > 0; };
    size_t shown = 0;
    for (int used = 0, kept = 0; shown < w.main.size(); ++shown) {
        if (used + w.main[shown] > room && kept >= w.keepMain) break;
        used += w.main[shown];
        kept += isButton(shown) ? 1 : 0;
    }
    while (shown > 0 && !isButton(shown - 1)) --shown;
    return {shown, std::accumulate(w.main.begin(), w.main.begin() + static_cast<long>(shown), 0)};
}

}  // namespace

ToolbarFit FitToolbars(const ToolbarWidths& w, int room, int statusNeed) {
    ToolbarFit fit;
    const int mainWidth = std::accumulate(w.main.begin(), w.main.end(), 0);
    const int available = room - statusNeed;
    if (mainWidth + w.extra + w.modes <= available) {
        fit = {static_cast<int>(w.main.size()), w.extra > 0, w.modes > 0, false, mainWidth + w.extra + w.modes};
        return fit;
    }
    fit.extraShown = w.extra > 0 && mainWidth + w.extra + w.chevron <= available;
    const int extra = fit.extraShown ? w.extra : 0;
    const auto [shown, width] = MainPrefix(w, available - extra - w.chevron);
    fit.mainShown = static_cast<int>(shown);
    bool behind = w.modes > 0 || (w.extra > 0 && !fit.extraShown);
    for (size_t i = shown; i < w.main.size(); ++i) behind |= !w.separators[i] && w.main[i] > 0;
    fit.chevron = behind;
    fit.toolbarsWidth = width + extra + (behind ? w.chevron : 0);
    return fit;
}

}  // namespace tessel
