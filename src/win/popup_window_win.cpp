#include "win/popup_window_win.h"

#include <set>
#include <string>

namespace tessel::win {

void RegisterPopupClass(const wchar_t* name, WNDPROC procedure) {
    static std::set<std::wstring> registered;  // GUI thread only
    if (!registered.insert(name).second) return;
    WNDCLASSEXW type{sizeof(type)};
    type.style = CS_DROPSHADOW;
    type.lpfnWndProc = procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    type.lpszClassName = name;
    RegisterClassExW(&type);
}

void RunPopupLoop(HWND popup, HWND control, const bool& done, const PopupEvents& events) {
    MSG message;
    while (!done && IsWindow(popup)) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside
            return;
        }
        const bool ours = message.hwnd == control || message.hwnd == popup;
        if (message.message == WM_KEYDOWN && ours && message.wParam == VK_ESCAPE && events.escape) events.escape();
        else if (message.message == WM_KEYDOWN && ours && message.wParam == VK_RETURN && events.enter) events.enter();
        else if ((message.message == WM_LBUTTONDOWN || message.message == WM_RBUTTONDOWN ||
                  message.message == WM_NCLBUTTONDOWN) && !ours && events.outside)
            events.outside();
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace tessel::win
