// Navigation benchmark: Tessel's browser view against a bare host of the same shell view,
// alternating, into folders of 1,000, 10,000 and 100,000 files. Then the status worker in the
// largest folder with almost everything selected, watching how long the GUI thread is held.
#include <windows.h>
#include <commctrl.h>
#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bare_host_win.h"
#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "nav/address_popup_win.h"
#include "view/view_panel_win.h"
#include "win/shell_item_win.h"

using namespace tessel;

namespace {

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

// Serves the queue until it is empty; answers the longest single step in milliseconds. A step
// includes the messages other threads send, which PeekMessage serves before it returns.
double Drain() {
    double longest = 0;
    MSG message;
    for (;;) {
        const double start = Now();
        const bool got = PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
        if (got) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        longest = std::max(longest, Now() - start);
        if (!got) return longest;
    }
}

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

template <typename Navigate>
double TimeNavigation(Navigate navigate, HWND window) {
    const double start = Now();
    navigate();
    UpdateWindow(window);
    Drain();
    return Now() - start;
}

// Back then forward between an empty folder and one of 1,000 files, against the same two
// navigations made directly.
void BenchBackForward(CMyShellBrowser& browser, HWND window, PCIDLIST_ABSOLUTE empty, PCIDLIST_ABSOLUTE files) {
    std::vector<double> history, direct;
    for (int run = -1; run < 20; ++run) {  // run -1 warms the caches
        browser.NavigateTo(win::ClonePidl(empty), false, true);
        browser.NavigateTo(win::ClonePidl(files), false, true);
        Drain();
        const double jumps = TimeNavigation([&] {
            browser.GoBack();
            UpdateWindow(window);
            browser.GoForward();
        }, window);
        const double straight = TimeNavigation([&] {
            browser.NavigateTo(win::ClonePidl(empty), false, true);
            UpdateWindow(window);
            browser.NavigateTo(win::ClonePidl(files), false, true);
        }, window);
        if (run >= 0) {
            history.push_back(jumps);
            direct.push_back(straight);
        }
    }
    std::printf("back then forward with 1000 files: %.1f ms, the same two navigations made directly %.1f ms (medians of 20)\n",
                Median(history), Median(direct));
    std::printf("back-forward-1000-ms: %.1f\n", Median(history));
    std::printf("back-forward-1000-ratio: %.2f\n", Median(history) / Median(direct));
}

// The sub-folder popup of a folder with 10,000 sub-folders, read, opened and drawn as a
// segment's arrow opens it.
void BenchPopup(HWND owner, const std::wstring& root) {
    win::UniquePidl folder = win::PidlFromPath(root + L"\\folders-10000");
    if (!folder) return;
    std::vector<double> times;
    size_t count = 0;
    for (int run = -1; run < 5; ++run) {
        const double start = Now();
        CAdressBarPopup popup(folder.get());
        count = popup.Count();
        popup.Open(owner, {40, 40});
        UpdateWindow(popup.Window());
        if (run >= 0) times.push_back(Now() - start);
    }
    std::printf("sub-folder popup of %zu folders: %.1f ms (median of 5)\n", count, Median(times));
    std::printf("addressbar-popup-10000-ms: %.1f\n", Median(times));
}

// The tree following a navigation twelve levels deep, every level still unread: the desktop is
// filled again, then each level down is read, opened and the folder selected.
void BenchTreeSync(CShellTree2& tree, const std::wstring& root) {
    std::wstring deep = root + L"\\deep";
    for (int level = 1; level <= 12; ++level) deep += L"\\level" + std::to_wstring(level);  // made by the script
    win::UniquePidl folder = win::PidlFromPath(deep);
    std::vector<double> times;
    bool found = false;
    for (int run = -1; run < 9; ++run) {
        TreeView_DeleteAllItems(tree.hwnd());
        Drain();
        const double start = Now();
        found = tree.SyncTo(folder.get());
        UpdateWindow(tree.hwnd());
        if (run >= 0) times.push_back(Now() - start);
    }
    std::printf("tree following a folder 12 levels below the data folder%s: %.1f ms (median of 9)\n",
                found ? "" : " (NOT FOUND)", Median(times));
    std::printf("tree-sync-depth-12-ms: %.1f\n", Median(times));
}

// The status worker with 99,999 of 100,000 selected, then back and forward and the popup.
int BenchStatusAndHistory(CMyShellBrowser& browser, HWND window, PCIDLIST_ABSOLUTE empty, const std::wstring& root) {
    int status = 0;
    // Everything but the first entry selected: the worker reads each selected name.
    HWND list = browser.GetListControl();
    ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED);
    ListView_SetItemState(list, 0, 0, LVIS_SELECTED);
    Drain();
    const std::wstring before = browser.StatusText();
    browser.RequestStatus();
    double longest = 0;
    const double start = Now();
    while (browser.StatusText() == before && Now() - start < 120000) {
        longest = std::max(longest, Drain());
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    std::printf("status of 99,999 selected of 100,000: %.0f ms, longest GUI message %.1f ms\n", Now() - start,
                longest);
    std::printf("status-100000-ms: %.0f\n", Now() - start);
    std::printf("status-100000-ui-max-block-ms: %.1f\n", longest);
    status = browser.StatusText() == before ? 1 : 0;

    BenchBackForward(browser, window, empty, win::PidlFromPath(MakeFolder(root, 1000)).get());
    BenchPopup(window, root);
    return status;
}

}  // namespace

// The folders are made under the folder named on the command line (the script makes them from the
// host side, which is much faster), else under the temporary folder. A second argument "tree",
// "popup" or "status" runs only that part.
int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    wchar_t temp[MAX_PATH];
    GetTempPathW(MAX_PATH, temp);
    const std::wstring root = argc > 1 ? std::wstring(argv[1]) : std::wstring(temp) + L"tessel-bench";
    CreateDirectoryW(root.c_str(), nullptr);
    CreateDirectoryW((root + L"\\empty").c_str(), nullptr);
    HANDLE ini = CreateFileW((root + L"\\Tessel.ini").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(ini, "\xFF\xFE", 2, &written, nullptr);
    CloseHandle(ini);
    CreateSettings(root + L"\\Tessel.exe");

    WNDCLASSW wc{};
    wc.lpfnWndProc = DefWindowProcW;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = L"TesselBenchFrame";
    RegisterClassW(&wc);
    HWND frame = CreateWindowExW(0, L"TesselBenchFrame", L"bench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1040,
                                 680, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(frame, SW_SHOW);
    int status = 0;
    {
        CPloder panel(0);
        panel.Create(frame);
        SetWindowPos(panel.hwnd(), nullptr, 0, 0, 500, 640, SWP_NOZORDER);
        bench::BareHost bare(frame);
        SetWindowPos(bare.hwnd(), nullptr, 510, 0, 500, 640, SWP_NOZORDER);
        panel.NavigateToText(root + L"\\empty");
        CMyShellBrowser& browser = *panel.Active();
        win::UniquePidl empty = win::PidlFromPath(root + L"\\empty");
        bare.Navigate(empty.get());

        const std::wstring only = argc > 2 ? argv[2] : L"";
        for (int files : {1000, 10000, 100000}) {
            if (!only.empty()) break;
            const double madeStart = Now();
            win::UniquePidl folder = win::PidlFromPath(MakeFolder(root, files));
            std::printf("folder of %d files ready in %.0f ms\n", files, Now() - madeStart);
            const int runs = files == 100000 ? 5 : 20;
            std::vector<double> tessel, host;
            for (int run = -1; run < runs; ++run) {  // run -1 warms the caches
                browser.NavigateTo(win::ClonePidl(empty.get()), false, true);
                Drain();
                const double t = TimeNavigation(
                    [&] { browser.NavigateTo(win::ClonePidl(folder.get()), false, true); }, panel.hwnd());
                bare.Navigate(empty.get());
                Drain();
                const double b = TimeNavigation([&] { bare.Navigate(folder.get()); }, bare.hwnd());
                if (run >= 0) {
                    tessel.push_back(t);
                    host.push_back(b);
                }
            }
            std::printf("navigate into %d files: Tessel %.1f ms, bare host %.1f ms (medians of %d)\n", files,
                        Median(tessel), Median(host), runs);
            std::printf("navigate-%d-ms: %.1f\n", files, Median(tessel));
            std::printf("navigate-%d-ratio: %.2f\n", files, Median(tessel) / Median(host));
        }
        if (only == L"status") browser.NavigateTo(win::PidlFromPath(MakeFolder(root, 100000)), false, true);
        if (only.empty() || only == L"status") status = BenchStatusAndHistory(browser, panel.hwnd(), empty.get(), root);
        if (only == L"popup") BenchPopup(frame, root);
        if (only.empty() || only == L"tree") {
            panel.SetTreeState(1, 3000);
            BenchTreeSync(panel.FolderTree(), root);
            panel.SetTreeState(0, 3000);
        }
    }
    DestroyWindow(frame);
    DestroySettings();
    OleUninitialize();
    return status;
}
