#include "win/subclass_win.h"

#include <vector>

namespace tessel::win {
namespace {

struct Entry {
    HWND window;
    WNDPROC original;
    SubclassProc procedure;  // null once unsubclassed behind another procedure
    void* data;
};
std::vector<Entry> g_entries;  // the GUI thread's windows; a handful at a time

Entry* Find(HWND window) {
    for (Entry& entry : g_entries)
        if (entry.window == window) return &entry;
    return nullptr;
}

void Erase(HWND window) {
    std::erase_if(g_entries, [window](const Entry& entry) { return entry.window == window; });
}

LRESULT CALLBACK Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Entry* found = Find(window);
    if (!found) return DefWindowProcW(window, message, wParam, lParam);
    const Entry entry = *found;  // the handler may change the table
    if (message == WM_NCDESTROY) {
        if (entry.procedure) entry.procedure(window, message, wParam, lParam, entry.data);
        if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) == &Dispatch)
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(entry.original));
        Erase(window);
        return CallWindowProcW(entry.original, window, message, wParam, lParam);
    }
    if (entry.procedure) return entry.procedure(window, message, wParam, lParam, entry.data);
    return CallWindowProcW(entry.original, window, message, wParam, lParam);
}

}  // namespace

bool Subclass(HWND window, SubclassProc procedure, void* data) {
    if (!window || !procedure || Find(window)) return false;
    g_entries.push_back({window, nullptr, procedure, data});
    const auto original = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Dispatch)));
    if (!original) {
        Erase(window);
        return false;
    }
    Find(window)->original = original;
    return true;
}

void Unsubclass(HWND window) {
    Entry* entry = Find(window);
    if (!entry) return;
    if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) == &Dispatch) {
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(entry->original));
        Erase(window);
    } else {
        entry->procedure = nullptr;
    }
}

LRESULT CallOriginal(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Entry* entry = Find(window);
    return entry ? CallWindowProcW(entry->original, window, message, wParam, lParam)
                 : DefWindowProcW(window, message, wParam, lParam);
}

int SubclassedCount() { return static_cast<int>(g_entries.size()); }

}  // namespace tessel::win
