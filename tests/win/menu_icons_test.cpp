// The menus' icons are found once per target off the GUI thread; a menu never waits for one.
#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>

#include "panel/menu_icons_win.h"
#include "view_host_win.h"
#include "win/handles_win.h"

namespace tessel::testing {
namespace {

constexpr UINT kFound = WM_APP + 7;

TEST(MenuIcons, FoundOnceOffTheGuiThreadAndAStuckOneHoldsNothing) {
    HWND notify = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    win::UniqueHandle release(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    win::UniqueHandle left(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    std::atomic<int> asked{0};
    auto finder = [&](const std::wstring& target) -> HICON {
        ++asked;
        if (target.rfind(L"\\\\slow", 0) == 0) {  // a network path that answers late
            WaitForSingleObject(release.get(), 10000);
            SetEvent(left.get());
        }
        return CopyIcon(LoadIconW(nullptr, IDI_APPLICATION));
    };
    {
        MenuIcons icons(notify, kFound, finder);
        // A lookup that waited for the slow one would come back with an icon ten seconds later.
        EXPECT_EQ(icons.Find(L"\\\\slow\\share\\tool.exe"), nullptr) << "a placeholder, at once";
        EXPECT_EQ(icons.Find(L"notepad.exe"), nullptr);
        SetEvent(release.get());
        EXPECT_TRUE(PumpUntil([&] { return icons.Find(L"notepad.exe") != nullptr; }));
        EXPECT_NE(icons.Find(L"\\\\slow\\share\\tool.exe"), nullptr);
        EXPECT_EQ(asked.load(), 2) << "each target is looked up once";

        ASSERT_EQ(WaitForSingleObject(left.get(), 0), WAIT_OBJECT_0);
        ResetEvent(release.get());
        icons.Find(L"\\\\slow\\share\\other.exe");  // still being looked for when the menus go
        Sleep(50);
    }
    EXPECT_EQ(WaitForSingleObject(left.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT))
        << "the menus went without waiting for the stuck lookup";
    SetEvent(release.get());  // the finder left behind ends on its own
    EXPECT_EQ(WaitForSingleObject(left.get(), 5000), WAIT_OBJECT_0);
    DestroyWindow(notify);
}

}  // namespace
}  // namespace tessel::testing
