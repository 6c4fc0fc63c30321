#pragma once
// Small popup windows that live until a choice: one class registration per name, and the
// message loop that runs while the popup is open (like a menu's): Escape and Enter on the popup
// or its control and a click anywhere else are reported, and the loop ends once `done` is set.
#include <windows.h>

#include <functional>

namespace tessel::win {

// Drop shadow, arrow cursor; registered at the first call for a name.
void RegisterPopupClass(const wchar_t* name, WNDPROC procedure);

struct PopupEvents {
    std::function<void()> escape;   // Escape
    std::function<void()> enter;    // Enter
    std::function<void()> outside;  // a mouse button pressed outside the popup (the click still goes there)
};
// Runs until `done`, the popup is gone or the program quits (the quit is passed on).
void RunPopupLoop(HWND popup, HWND control, const bool& done, const PopupEvents& events);

}  // namespace tessel::win
