#pragma once
// Finds Tessel's visible main window from another process (scripts, benchmarks, tests).
#include <windows.h>

#include <cwchar>

namespace tessel::tools {

inline constexpr wchar_t kFrameClass[] = L"TesselMainFrame";

// The visible main window of the given process, or of any process when it is 0.
inline HWND FindVisibleFrame(DWORD process) {
    struct Search {
        DWORD process;
        HWND found;
    } search{process, nullptr};
    EnumWindows(
        [](HWND window, LPARAM param) -> BOOL {
            auto* s = reinterpret_cast<Search*>(param);
            wchar_t name[64] = {};
            GetClassNameW(window, name, 64);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (wcscmp(name, kFrameClass) != 0 || !IsWindowVisible(window) || (s->process && s->process != owner))
                return TRUE;
            s->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace tessel::tools
