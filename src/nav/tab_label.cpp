#include "nav/tab_label.h"

#include "core/profile_values.h"

namespace tessel {

std::wstring CutTabLabel(std::wstring_view name, int maxWidth, ITextMeasure& measure) {
    if (measure.Width(name) <= maxWidth) return std::wstring(name);
    // The cut mark is not measured: a cut label may be wider than the limit, on purpose.
    for (size_t n = 1; n < name.size(); ++n)
        if (measure.Width(name.substr(0, n)) > maxWidth) return std::wstring(name.substr(0, n - 1)) + L" ...";
    return std::wstring(name);  // every proper prefix fits: the name stays whole
}

int HoverDelayMs(int setting) {
    switch (setting) {
    case 1: return 1000;
    case 2: return 1500;
    case 3: return 2000;
    case 4: return 3000;
    case 5: return 200;
    default: return 500;
    }
}

int TabInsertIndex(std::wstring_view position, int count) {
    if (position.empty() || position[0] < L'0' || position[0] > L'9') return count;
    const int index = ParseLeadingInt(position);
    return index >= 0 ? index : count;
}

int TabSelectedAfterClose(int index, int count, int selected, bool hasBrowser) {
    if (count < 2 || index < 0 || index >= count) return -1;
    if (index != selected) return selected > index ? selected - 1 : selected;
    if (!hasBrowser) return index > 0 ? index - 1 : 0;
    return index + 1 < count ? index : index - 1;  // the right neighbour moves into this index
}

}  // namespace tessel
