// The system's colour dialog with the custom colours kept in the settings file.
#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/settings_store_win.h"
#include "features/colour_picker_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

// Closes the colour dialog owned by `owner` with `button` once it shows.
std::jthread Answer(HWND owner, int button) {
    return std::jthread([owner, button] {
        for (int i = 0; i < 500; ++i, Sleep(20)) {
            HWND dialog = FindWindowW(L"#32770", nullptr);
            if (dialog && GetWindow(dialog, GW_OWNER) == owner) {
                PostMessageW(dialog, WM_COMMAND, button, 0);
                return;
            }
        }
    });
}

TEST(ColourPicker, CustomColoursComeFromTheSettingsAndGoBackEvenOnCancel) {
    ViewHost host(1);
    Settings().PutString(L"Farbwahl", L"Eigene", L"112233;damaged;-1;A0B0C0");
    int colour = 0x0000FF;
    {
        std::jthread user = Answer(host.hwnd(), IDCANCEL);
        EXPECT_FALSE(PickColour(host.hwnd(), colour));
    }
    EXPECT_EQ(colour, 0x0000FF);
    const std::wstring kept = Settings().GetString(L"Farbwahl", L"Eigene", L"");
    EXPECT_EQ(kept.substr(0, 7), L"112233;");
    EXPECT_EQ(kept.substr(21, 7), L"A0B0C0;");
    {
        std::jthread user = Answer(host.hwnd(), IDOK);
        EXPECT_TRUE(PickColour(host.hwnd(), colour));
    }
    EXPECT_EQ(colour, 0x0000FF) << "OK keeps the colour the dialog began with";
    EXPECT_EQ(Settings().GetString(L"Farbwahl", L"Eigene", L""), kept);
}

}  // namespace
}  // namespace tessel::testing
