// The T-View in use follows the focus on every path: the follower hears of each window that
// takes the focus, whoever gave it.
#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "frame/focus_follower_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

constexpr UINT kMoved = WM_APP + 1;

TEST(FocusFollower, EveryWindowTakingTheFocusIsToldOnceAndOnlyWhileItLives) {
    std::vector<HWND> told;
    HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                 nullptr, nullptr, nullptr);
    HWND first = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, frame, nullptr, nullptr, nullptr);
    HWND second = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 30, 100, 20, frame, nullptr, nullptr, nullptr);
    auto pump = [&] {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == kMoved) told.push_back(reinterpret_cast<HWND>(message.lParam));
            DispatchMessageW(&message);
        }
    };
    {
        FocusFollower follower(frame, kMoved);
        FocusFollower second_one(frame, kMoved);  // one per thread: the second stays silent
        SetFocus(first);
        SetFocus(second);
        pump();
        ASSERT_EQ(told.size(), 2u);
        EXPECT_EQ(told[0], first);
        EXPECT_EQ(told[1], second);
    }
    told.clear();
    SetFocus(first);
    pump();
    EXPECT_TRUE(told.empty()) << "the hook went with the follower";
    DestroyWindow(frame);
}

}  // namespace
}  // namespace tessel::testing
