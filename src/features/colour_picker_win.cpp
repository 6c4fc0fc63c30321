#include "features/colour_picker_win.h"

#include <commdlg.h>

#include "core/settings_store_win.h"
#include "features/colour_rules.h"

namespace tessel {
namespace {

constexpr wchar_t kSection[] = L"Farbwahl";
constexpr wchar_t kKey[] = L"Eigene";

}  // namespace

bool PickColour(HWND owner, int& colour) {
    const auto kept = ParseCustomColours(Settings().GetString(kSection, kKey, L""));
    COLORREF custom[kCustomColourCount];
    for (int i = 0; i < kCustomColourCount; ++i)
        custom[i] = kept[static_cast<size_t>(i)] == kNoColour ? RGB(255, 255, 255) : static_cast<COLORREF>(kept[static_cast<size_t>(i)]);
    CHOOSECOLORW choose{sizeof(choose)};
    choose.hwndOwner = owner;
    choose.rgbResult = colour < 0 ? 0 : static_cast<COLORREF>(colour);
    choose.lpCustColors = custom;
    choose.Flags = CC_RGBINIT | CC_FULLOPEN;
    const bool chosen = ChooseColorW(&choose) != FALSE;
    // The custom colours are the user's work even when the dialog is cancelled.
    std::array<int, kCustomColourCount> now{};
    for (int i = 0; i < kCustomColourCount; ++i) now[static_cast<size_t>(i)] = static_cast<int>(custom[i] & 0xFFFFFF);
    if (now != kept) Settings().PutString(kSection, kKey, FormatCustomColours(now));
    if (chosen) colour = static_cast<int>(choose.rgbResult & 0xFFFFFF);
    return chosen;
}

}  // namespace tessel
