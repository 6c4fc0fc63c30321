// The kept buttons of a toolbar, as a hand-edited settings file may hold them: never an id the
// toolbar does not offer, never one twice, never a separator at an end.
#include <algorithm>

#include "fuzz_text.h"
#include "view/toolbar_buttons.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<int> offered = {32861, 32862, 42860, 42861, 7};
    const std::vector<int> buttons = ParseToolbarButtons(fuzz::WideOf(data, size), offered);
    if (!buttons.empty()) fuzz::Check(buttons.front() != 0 && buttons.back() != 0);
    for (size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i] == 0) continue;
        fuzz::Check(std::count(offered.begin(), offered.end(), buttons[i]) == 1);
        fuzz::Check(std::count(buttons.begin(), buttons.end(), buttons[i]) == 1);
    }
    fuzz::Check(ParseToolbarButtons(FormatToolbarButtons(buttons), offered) == buttons);
    return 0;
}
