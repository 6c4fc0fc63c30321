// The directory watch and the command placeholders under Wine: how often a shown folder is listed
// again while 10,000 files are copied into it, how soon a new file shows, and how long
// "%sel_files%" takes over 100,000 selected files.
#include <windows.h>
#include <commctrl.h>
#include <ole2.h>

#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "bench_support_win.h"
#include "core/settings_store_win.h"
#include "panel/view_panel_win.h"

using namespace tessel;
using namespace tessel::bench;

namespace {

int ListCount(CMyShellBrowser& browser) {
    HWND list = browser.GetListControl();
    return list ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : -1;
}

// Serves the queue until the list shows `count` items; false after `timeoutMs`.
bool PumpUntilCount(CMyShellBrowser& browser, int count, double timeoutMs) {
    const double start = Now();
    while (ListCount(browser) != count) {
        if (Now() - start > timeoutMs) return false;
        Drain();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    return true;
}

void EmptyFolder(const std::wstring& folder) {
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return;
    do {
        if (!(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) DeleteFileW((folder + L"\\" + data.cFileName).c_str());
    } while (FindNextFileW(find, &data));
    FindClose(find);
}

// Milliseconds from a file made in the folder to the list showing it, median of 7.
double Latency(CMyShellBrowser& browser, const std::wstring& folder) {
    std::vector<double> latency;
    for (int run = 0; run < 7; ++run) {
        Drain();
        Sleep(2500);  // apart from each other, as single changes come
        const int count = ListCount(browser);
        const double made = Now();
        const std::wstring path = folder + L"\\new" + std::to_wstring(run) + L".txt";
        CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        if (PumpUntilCount(browser, count + 1, 10000)) latency.push_back(Now() - made);
        DeleteFileW(path.c_str());
        PumpUntilCount(browser, count, 10000);
    }
    return latency.empty() ? -1.0 : Median(latency);
}

// Files copied by another thread, as a copy made by any program reaches the folder.
void BenchWatch(CPloder& panel, const std::wstring& root) {
    const std::wstring source = MakeFolder(root, 10000);
    const std::wstring target = root + L"\\watched";
    CreateDirectoryW(target.c_str(), nullptr);
    EmptyFolder(target);
    panel.NavigateToText(target);
    CMyShellBrowser& browser = *panel.Active();
    PumpUntilCount(browser, 0, 5000);
    const int before = browser.DiskFollows();
    const double start = Now();
    std::jthread copy([&] {
        for (int i = 0; i < 10000; ++i) {
            wchar_t name[32];
            swprintf(name, 32, L"\\f%06d.txt", i);
            CopyFileW((source + name).c_str(), (target + name).c_str(), FALSE);
        }
    });
    const bool shown = PumpUntilCount(browser, 10000, 120000);
    copy.join();
    std::printf("10,000 files copied into a shown folder: all shown after %.0f ms (%s), %d listings\n", Now() - start,
                shown ? "complete" : "incomplete", browser.DiskFollows() - before);
    std::printf("watch-burst-10000-refreshes: %d\n", browser.DiskFollows() - before);

    const double large = Latency(browser, target);
    panel.NavigateToText(MakeFolder(root, 100));
    const double small = Latency(*panel.Active(), root + L"\\files-100");
    std::printf("a new file shows after %.0f ms in a folder of 100 files, %.0f ms in one of 10,000\n", small, large);
    std::printf("watch-latency-ms: %.0f\n", small);
}

void BenchPlaceholders(CPloder& panel, const std::wstring& root) {
    panel.NavigateToText(MakeFolder(root, 100000));
    CMyShellBrowser& browser = *panel.Active();
    ListView_SetItemState(browser.GetListControl(), -1, LVIS_SELECTED, LVIS_SELECTED);
    Drain();
    std::vector<double> times;
    size_t length = 0;
    for (int run = 0; run < 3; ++run) {
        const double start = Now();
        length = browser.ExpandCommand(L"compare.exe %sel_files%").size();
        times.push_back(Now() - start);
    }
    const double itemsStart = Now();
    size_t items = 0;
    browser.ForEachViewItem(true, [&](PCUITEMID_CHILD) { ++items; });
    std::printf("\"%%sel_files%%\" over 100,000 selected files: %zu characters (the %zu items alone %.0f ms)\n", length,
                items, Now() - itemsStart);
    std::printf("placeholders-100000-ms: %.0f\n", Median(times));
}

}  // namespace

// The folders are made under the folder named on the command line; a second argument "watch" or
// "placeholders" runs only that part.
int wmain(int argc, wchar_t** argv) {
    const std::wstring root = StartBench(argc, argv, L"commands-settings");
    HWND frame = MakeBenchFrame(800, 600);
    {
        CPloder panel(0);
        panel.Create(frame);
        SetWindowPos(panel.hwnd(), nullptr, 0, 0, 780, 560, SWP_NOZORDER);
        const std::wstring only = argc > 2 ? argv[2] : L"";
        if (only.empty() || only == L"watch") BenchWatch(panel, root);
        if (only.empty() || only == L"placeholders") BenchPlaceholders(panel, root);
    }
    DestroyWindow(frame);
    DestroySettings();
    OleUninitialize();
    return 0;
}
