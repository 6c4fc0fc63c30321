// winctl: drives Tessel from scripts under Wine.
//   winctl wait [timeout-ms]          waits until a main window is visible
//   winctl close [timeout-ms]         asks every main window to close and waits until they are gone
//   winctl launch exe [arguments...]  starts exe, waits for its main window, prints "window-ms: N"
//                                     and "working-set-mb: N", and leaves it running
//   winctl command id                 sends the menu command `id` to the main window
//   winctl post id                    posts it, for commands that open a dialog and wait
//   winctl page n                     shows page n of the open options dialog, prints its geometry
//   winctl dismiss                    closes the open options dialog
//   winctl dialog                     prints the geometry of the dialog the main window shows
//   winctl menu letter                opens the main menu whose name has this underlined letter
//   winctl key vk                     presses the key `vk` in the window that has the focus
#include <windows.h>
#include <psapi.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "frame_search_win.h"

namespace {

using tessel::tools::kFrameClass;

HWND VisibleFrame(DWORD process) { return tessel::tools::FindVisibleFrame(process); }

HWND AnyFrame() { return FindWindowW(kFrameClass, nullptr); }

constexpr int kOptionsPageList = 1110;  // the page list of the options dialog

// The options dialog once it shows: a dialog holding the page list.
HWND OptionsDialog(DWORD timeout) {
    for (DWORD start = GetTickCount(); GetTickCount() - start < timeout; Sleep(20))
        for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
            if (IsWindowVisible(d) && GetDlgItem(d, kOptionsPageList)) return d;
    return nullptr;
}

int ShowOptionsPage(int index) {
    HWND dialog = OptionsDialog(5000);
    if (!dialog) return 1;
    HWND list = GetDlgItem(dialog, kOptionsPageList);
    if (SendMessageW(list, LB_SETCURSEL, index, 0) == LB_ERR) return 1;
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(kOptionsPageList, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    RECT r{};
    GetWindowRect(dialog, &r);  // for cropping a screenshot to the dialog
    std::printf("dialog: %ldx%ld+%ld+%ld\n", r.right - r.left, r.bottom - r.top, r.left, r.top);
    std::fflush(stdout);
    return 0;
}

int PrintDialog() {
    HWND frame = AnyFrame();
    for (DWORD start = GetTickCount(); frame && GetTickCount() - start < 5000; Sleep(20))
        for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
            if (IsWindowVisible(d) && GetWindow(d, GW_OWNER) == frame) {
                RECT r{};
                GetWindowRect(d, &r);
                std::printf("dialog: %ldx%ld+%ld+%ld\n", r.right - r.left, r.bottom - r.top, r.left, r.top);
                return 0;
            }
    return 1;
}

int PressKey(WPARAM key) {
    HWND frame = AnyFrame();
    GUITHREADINFO gui{sizeof(gui)};
    if (!frame || !GetGUIThreadInfo(GetWindowThreadProcessId(frame, nullptr), &gui) || !gui.hwndFocus) return 1;
    PostMessageW(gui.hwndFocus, WM_KEYDOWN, key, 1);
    PostMessageW(gui.hwndFocus, WM_KEYUP, key, 0xC0000001);
    return 0;
}

int Wait(DWORD timeout) {
    DWORD start = GetTickCount();
    while (!VisibleFrame(0)) {
        if (GetTickCount() - start > timeout) return 1;
        Sleep(20);
    }
    return 0;
}

int Close(DWORD timeout) {
    DWORD start = GetTickCount();
    while (HWND frame = AnyFrame()) {
        PostMessageW(frame, WM_CLOSE, 0, 0);
        if (GetTickCount() - start > timeout) return 1;
        Sleep(50);
    }
    return 0;
}

int Launch(int argc, wchar_t** argv) {
    std::wstring line = L"\"" + std::wstring(argv[2]) + L"\"";
    for (int i = 3; i < argc; ++i) line += L" \"" + std::wstring(argv[i]) + L"\"";
    // The child gets its own null output, so that a caller reading ours does not wait for it.
    SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
    HANDLE nul = CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                             OPEN_EXISTING, 0, nullptr);
    STARTUPINFOW startup{sizeof(startup)};
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = startup.hStdOutput = startup.hStdError = nul;
    PROCESS_INFORMATION info{};
    LARGE_INTEGER frequency, begin, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    BOOL started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &info);
    CloseHandle(nul);
    if (!started) return 2;
    int code = 1;
    for (int i = 0; i < 3000; ++i) {
        if (VisibleFrame(info.dwProcessId)) {
            code = 0;
            break;
        }
        if (WaitForSingleObject(info.hProcess, 5) == WAIT_OBJECT_0) break;
    }
    QueryPerformanceCounter(&end);
    if (code == 0) {
        std::printf("window-ms: %.0f\n", (end.QuadPart - begin.QuadPart) * 1000.0 / frequency.QuadPart);
        PROCESS_MEMORY_COUNTERS memory{sizeof(memory)};
        if (GetProcessMemoryInfo(info.hProcess, &memory, sizeof(memory))) {
            std::printf("working-set-mb: %.1f\n", memory.WorkingSetSize / 1048576.0);
            std::printf("peak-working-set-mb: %.1f\n", memory.PeakWorkingSetSize / 1048576.0);
        }
    }
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
    return code;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 2) return 2;
    std::wstring verb = argv[1];
    DWORD timeout = argc > 2 ? static_cast<DWORD>(_wtoi(argv[2])) : 30000;
    if (verb == L"wait") return Wait(timeout);
    if (verb == L"close") return Close(timeout);
    if (verb == L"launch" && argc > 2) return Launch(argc, argv);
    if (verb == L"command" && argc > 2) {
        HWND frame = AnyFrame();
        return frame && SendMessageW(frame, WM_COMMAND, static_cast<WPARAM>(_wtoi(argv[2])), 0) == 0 ? 0 : 1;
    }
    if (verb == L"post" && argc > 2) {
        HWND frame = AnyFrame();
        return frame && PostMessageW(frame, WM_COMMAND, static_cast<WPARAM>(_wtoi(argv[2])), 0) ? 0 : 1;
    }
    if (verb == L"dialog") return PrintDialog();
    if (verb == L"menu" && argc > 2) {
        HWND frame = AnyFrame();
        return frame && PostMessageW(frame, WM_SYSCOMMAND, SC_KEYMENU, argv[2][0]) ? 0 : 1;
    }
    if (verb == L"key" && argc > 2) return PressKey(static_cast<WPARAM>(_wtoi(argv[2])));
    if (verb == L"page" && argc > 2) return ShowOptionsPage(_wtoi(argv[2]));
    if (verb == L"dismiss") {
        HWND dialog = OptionsDialog(5000);
        return dialog && PostMessageW(dialog, WM_COMMAND, IDOK, 0) ? 0 : 1;
    }
    return 2;
}
