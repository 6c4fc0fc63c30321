#include "nav/address_tree_popup_win.h"

#include <commctrl.h>

#include <algorithm>

#include "win/popup_window_win.h"
#include "win/shell_item_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr wchar_t kPopupClass[] = L"TesselTreePopup";

}  // namespace

CAdressTreePopup::~CAdressTreePopup() {
    if (window_) DestroyWindow(window_);
}

bool CAdressTreePopup::Open(HWND owner, RECT below, PCIDLIST_ABSOLUTE folder) {
    if (window_) return true;
    win::RegisterPopupClass(kPopupClass, &CAdressTreePopup::WindowProc);
    const int width = std::max<int>(below.right - below.left, win::Scaled(owner, 260));
    const int height = win::Scaled(owner, 360);
    MONITORINFO screen{sizeof(screen)};
    GetMonitorInfoW(MonitorFromPoint({below.left, below.bottom}, MONITOR_DEFAULTTONEAREST), &screen);
    const RECT& work = screen.rcWork;
    const int x = std::max<int>(work.left, std::min<int>(below.left, work.right - width));
    const int y = below.bottom + height <= work.bottom ? below.bottom : std::max<int>(work.top, below.top - height);
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kPopupClass, L"", WS_POPUP | WS_BORDER, x, y, width,
                              height, owner ? GetAncestor(owner, GA_ROOT) : nullptr, nullptr, GetModuleHandleW(nullptr),
                              nullptr);
    if (!window_) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    RECT client;
    GetClientRect(window_, &client);
    HWND tree = CreateWindowExW(0, WC_TREEVIEWW, L"",
                                WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                                    TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS,
                                0, 0, client.right, client.bottom, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!tree) return false;
    tree_.Attach(tree, [this](PCIDLIST_ABSOLUTE chosen) { Finish(chosen); }, true);
    ShowWindow(window_, SW_SHOW);
    tree_.SyncTo(folder);
    SetFocus(tree);
    return true;
}

void CAdressTreePopup::Finish(PCIDLIST_ABSOLUTE chosen) {
    if (done_) return;  // the first outcome counts: closing deactivates the window once more
    done_ = true;
    chosen_ = chosen ? win::ClonePidl(chosen) : win::UniquePidl();
}

win::UniquePidl CAdressTreePopup::Track(HWND owner, RECT below, PCIDLIST_ABSOLUTE folder) {
    done_ = false;
    chosen_.reset();
    if (!Open(owner, below, folder)) return {};
    const HWND tree = tree_.hwnd();
    win::RunPopupLoop(window_, tree, done_,
                      {[this] { Finish(nullptr); },
                       [this, tree] { Finish(CShellTree2::FolderOf(tree, TreeView_GetSelection(tree))); },
                       [this] { Finish(nullptr); }});
    if (window_) DestroyWindow(window_);  // its items are freed through the tree's notices
    window_ = nullptr;
    return std::move(chosen_);
}

LRESULT CALLBACK CAdressTreePopup::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<CAdressTreePopup*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) {
        if (message == WM_NOTIFY)
            if (LRESULT result = 0; self->tree_.OnNotify(reinterpret_cast<NMHDR*>(lParam), result)) return result;
        if (message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE) self->Finish(nullptr);  // another window took over
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessel
