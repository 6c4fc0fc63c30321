#include "bench_support_win.h"

#include <windows.h>
#include <commctrl.h>
#include <ole2.h>

#include <algorithm>
#include <cwchar>

#include "core/settings_store_win.h"

namespace tessel::bench {

double Now() {
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    return counter.QuadPart * 1000.0 / frequency.QuadPart;
}

namespace {

double DrainCounting(bool painting) {
    double longest = 0;
    MSG message;
    for (;;) {
        const double start = Now();
        const bool got = PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
        if (got) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (painting || !got || (message.message != WM_PAINT && message.message != WM_NCPAINT))
            longest = std::max(longest, Now() - start);
        if (!got) return longest;
    }
}

}  // namespace

double Drain() { return DrainCounting(true); }

double DrainUnpainted() { return DrainCounting(false); }

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

std::wstring MakeFolder(const std::wstring& root, int files) {
    const std::wstring folder = root + L"\\files-" + std::to_wstring(files);
    const std::wstring marker = root + L"\\complete-" + std::to_wstring(files);
    CreateDirectoryW(folder.c_str(), nullptr);
    if (GetFileAttributesW(marker.c_str()) != INVALID_FILE_ATTRIBUTES) return folder;
    for (int i = 0; i < files; ++i) {
        wchar_t name[32];
        swprintf(name, 32, L"\\f%06d.txt", i);
        HANDLE file = CreateFileW((folder + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    }
    CloseHandle(CreateFileW(marker.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return folder;
}

std::wstring StartBench(int argc, wchar_t** argv, const std::wstring& settingsFolder) {
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    const std::wstring root = argc > 1 ? std::wstring(argv[1]) : std::wstring(temp) + L"tessel-bench";
    CreateDirectoryW(root.c_str(), nullptr);
    const std::wstring settings = settingsFolder.empty() ? root : root + L"\\" + settingsFolder;
    CreateDirectoryW(settings.c_str(), nullptr);
    HANDLE ini = CreateFileW((settings + L"\\Tessel.ini").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(ini, "\xFF\xFE", 2, &written, nullptr);
    CloseHandle(ini);
    CreateSettings(settings + L"\\Tessel.exe");
    return root;
}

HWND MakeBenchFrame(int width, int height) {
    WNDCLASSW wc{};
    wc.lpfnWndProc = DefWindowProcW;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = L"TesselBenchFrame";
    RegisterClassW(&wc);
    HWND frame = CreateWindowExW(0, wc.lpszClassName, L"bench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, width,
                                 height, nullptr, nullptr, wc.hInstance, nullptr);
    ShowWindow(frame, SW_SHOW);
    return frame;
}

}  // namespace tessel::bench
