// A thousand navigations between two folders leave the process's handles, GDI objects and
// window-manager objects where they were: views, streams, lists and threads are all let go.
#include <windows.h>

#include <gtest/gtest.h>

#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <cstdio>

#include "nav/drop_target_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

struct Counts {
    DWORD handles = 0, gdi = 0, user = 0, windows = 0, threads = 0;
    size_t privateBytes = 0;
};

// Wine answers 0 for the handle and object counts. New kernel handles take the lowest free
// slot there, so the highest of 100 fresh handles shows how far the table is filled.
DWORD HandleHighWater() {
    HANDLE events[100];
    uintptr_t highest = 0;
    for (HANDLE& event : events) {
        event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
        highest = std::max(highest, reinterpret_cast<uintptr_t>(event));
    }
    for (HANDLE event : events) CloseHandle(event);
    return static_cast<DWORD>(highest / 4);
}

BOOL CALLBACK CountWindow(HWND window, LPARAM counter) {
    ++*reinterpret_cast<DWORD*>(counter);
    EnumChildWindows(window, CountWindow, counter);
    return TRUE;
}

Counts Measure() {
    Counts counts;
    GetProcessHandleCount(GetCurrentProcess(), &counts.handles);
    if (counts.handles == 0) counts.handles = HandleHighWater();
    counts.gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    counts.user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&counts.windows));
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{sizeof(entry)};
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++counts.threads;
    CloseHandle(snapshot);
    PROCESS_MEMORY_COUNTERS memory{sizeof(memory)};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof(memory));
    counts.privateBytes = memory.PagefileUsage;
    return counts;
}

TEST(BrowserLeaks, AThousandNavigationsStayFlat) {
    ViewHost host(1);
    TempFolder one, two;
    for (int i = 0; i < 20; ++i) WriteBytes(one / (L"f" + std::to_wstring(i) + L".txt"), "data");
    CPloder& panel = host.Panel();
    // Warm up: the first navigations load the shell's icons and caches for good.
    for (int i = 0; i < 20; ++i) ASSERT_TRUE(panel.NavigateToText(i % 2 ? one.path() : two.path()));
    Pump(300);
    const Counts before = Measure();
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(panel.NavigateToText(i % 2 ? one.path() : two.path()));
        if (i % 50 == 0) Pump(20);  // let status workers run and finish now and then
    }
    Pump(500);
    const Counts after = Measure();
    std::printf("leak-check handles %lu -> %lu, gdi %lu -> %lu, user %lu -> %lu, windows %lu -> %lu, threads %lu -> %lu, "
                "private MB %.1f -> %.1f\n",
                before.handles, after.handles, before.gdi, after.gdi, before.user, after.user, before.windows,
                after.windows, before.threads, after.threads, before.privateBytes / 1048576.0,
                after.privateBytes / 1048576.0);
    EXPECT_LE(after.handles, before.handles + 10);
    EXPECT_LE(after.gdi, before.gdi + 10);
    EXPECT_LE(after.user, before.user + 10);
    EXPECT_EQ(after.windows, before.windows) << "every replaced view window is gone";
    EXPECT_LE(after.threads, before.threads) << "status workers end";
    EXPECT_LE(after.privateBytes, before.privateBytes + (16u << 20)) << "views and folders are released";
}

// Tabs and drop targets are freed however their T-View goes: its object first (the window follows), or its
// window first (as when the main window closes and the objects end later).
TEST(BrowserLeaks, ViewsClosedWithTabsFreeTheirRecordsAndDropTargets) {
    const int records = TabRecord::live, targets = CIDropTargetPlus::live;
    {
        ViewHost host(2);
        TempFolder folder;
        for (int p = 0; p < 2; ++p) {
            ASSERT_TRUE(host.Panel(p).NavigateToText(folder.path()));
            host.Panel(p).SetTreeState(1, 3000);  // a shown tree takes drops
            host.Panel(p).NewTab();
            host.Panel(p).NewTab();
        }
        EXPECT_EQ(TabRecord::live, records + 6);
        EXPECT_EQ(CIDropTargetPlus::live, targets + 4) << "each T-View's tab strip and folder tree";
        DestroyWindow(host.Panel(1).hwnd());  // the window before the object
        EXPECT_EQ(TabRecord::live, records + 3);
        EXPECT_EQ(CIDropTargetPlus::live, targets + 2) << "the strip's and the tree's drop targets are revoked";
    }
    EXPECT_EQ(TabRecord::live, records);
    EXPECT_EQ(CIDropTargetPlus::live, targets);
}

}  // namespace
}  // namespace tessel::testing
