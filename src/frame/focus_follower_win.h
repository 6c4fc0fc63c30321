#pragma once
// Tells a window whenever the keyboard focus moves to a window of this thread, whatever took it:
// a click, a key, a tab switch, a program's SetFocus. The T-View holding the focus is the one in use.
#include <windows.h>

namespace tessel {

class FocusFollower {
public:
    // Posts `message` to `target` with the window taking the focus in lParam; one per thread.
    FocusFollower(HWND target, UINT message);
    ~FocusFollower();
    FocusFollower(const FocusFollower&) = delete;
    FocusFollower& operator=(const FocusFollower&) = delete;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    HWND target_;
    UINT message_;
    HHOOK hook_ = nullptr;
};

}  // namespace tessel
