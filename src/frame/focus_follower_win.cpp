#include "frame/focus_follower_win.h"

namespace tessel {
namespace {

thread_local FocusFollower* g_follower = nullptr;  // a hook has no data of its own

}  // namespace

FocusFollower::FocusFollower(HWND target, UINT message) : target_(target), message_(message) {
    if (g_follower) return;  // the thread has one already
    hook_ = SetWindowsHookExW(WH_CBT, &FocusFollower::Hook, nullptr, GetCurrentThreadId());
    if (!hook_) return;
    g_follower = this;
}

FocusFollower::~FocusFollower() {
    if (!hook_) return;
    UnhookWindowsHookEx(hook_);
    g_follower = nullptr;
}

// Posted, not sent: the focus is still moving while the hook runs.
LRESULT CALLBACK FocusFollower::Hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_SETFOCUS && g_follower && wParam)
        PostMessageW(g_follower->target_, g_follower->message_, 0, static_cast<LPARAM>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace tessel
