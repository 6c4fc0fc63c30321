// The table of replaced window procedures: handlers see the messages first, default handling
// reaches the original procedure, and a window leaves the table however it goes.
#include <windows.h>

#include <gtest/gtest.h>

#include "win/subclass_win.h"

namespace tessel::testing {
namespace {

struct Seen {
    int messages = 0;
    bool destroyed = false;
};

LRESULT Counting(HWND window, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* seen = static_cast<Seen*>(data);
    if (message == WM_USER + 1) return ++seen->messages;
    if (message == WM_NCDESTROY) seen->destroyed = true;
    return win::CallOriginal(window, message, wParam, lParam);
}

HWND MakeStatic() {
    return CreateWindowExW(0, L"STATIC", L"text", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, GetModuleHandleW(nullptr),
                           nullptr);
}

WNDPROC g_inFront = nullptr;  // the procedure another part put in front of ours
LRESULT CALLBACK InFront(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(g_inFront, window, message, wParam, lParam);
}

TEST(Subclass, HandlersComeFirstAndTheOriginalStaysReachable) {
    const int before = win::SubclassedCount();
    HWND window = MakeStatic();
    const auto original = GetWindowLongPtrW(window, GWLP_WNDPROC);
    Seen seen;
    ASSERT_TRUE(win::Subclass(window, &Counting, &seen));
    EXPECT_FALSE(win::Subclass(window, &Counting, &seen)) << "once per window";
    EXPECT_EQ(SendMessageW(window, WM_USER + 1, 0, 0), 1);
    wchar_t text[16] = {};
    GetWindowTextW(window, text, 16);
    EXPECT_STREQ(text, L"text") << "default handling reaches the static's own procedure";
    win::Unsubclass(window);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_WNDPROC), original);
    EXPECT_EQ(SendMessageW(window, WM_USER + 1, 0, 0), 0);
    EXPECT_EQ(win::SubclassedCount(), before);
    DestroyWindow(window);

    // Destroyed while subclassed: the handler hears of it and the entry goes.
    window = MakeStatic();
    Seen gone;
    ASSERT_TRUE(win::Subclass(window, &Counting, &gone));
    DestroyWindow(window);
    EXPECT_TRUE(gone.destroyed);
    EXPECT_EQ(win::SubclassedCount(), before);

    // Another procedure in front: unsubclassing leaves a pass-through until the window goes.
    window = MakeStatic();
    Seen behind;
    ASSERT_TRUE(win::Subclass(window, &Counting, &behind));
    g_inFront = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&InFront)));
    win::Unsubclass(window);
    EXPECT_EQ(SendMessageW(window, WM_USER + 1, 0, 0), 0) << "no longer handled";
    GetWindowTextW(window, text, 16);
    EXPECT_STREQ(text, L"text") << "the chain still reaches the original";
    DestroyWindow(window);
    EXPECT_EQ(win::SubclassedCount(), before);
}

}  // namespace
}  // namespace tessel::testing
