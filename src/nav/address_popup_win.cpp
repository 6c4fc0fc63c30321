#include "nav/address_popup_win.h"

#include <commctrl.h>
#include <shlobj.h>

#include <algorithm>

#include "win/com_ptr_win.h"
#include "win/shell_item_win.h"
#include "win/popup_window_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr wchar_t kPopupClass[] = L"TesselFolderPopup";
constexpr int kVisibleRows = 24;
constexpr int kMeasuredNames = 2000;  // the widest of these sets the width

}  // namespace

// Names come from the enumeration's own folder: no icon and no file-system access per item.
CAdressBarPopup::CAdressBarPopup(PCIDLIST_ABSOLUTE folder) : folder_(win::ClonePidl(folder)) {
    win::ComPtr<IShellFolder> shellFolder = folder_ ? win::BindFolder(folder_.get()) : nullptr;
    win::ComPtr<IEnumIDList> items;
    SHELLSTATEW state{};
    SHGetSetSettings(&state, SSF_SHOWALLOBJECTS, FALSE);
    const SHCONTF flags = SHCONTF_FOLDERS | (state.fShowAllObjects ? SHCONTF_INCLUDEHIDDEN : 0);
    if (!shellFolder || shellFolder->EnumObjects(nullptr, flags, items.put()) != S_OK || !items) return;
    PITEMID_CHILD child = nullptr;
    while (items->Next(1, &child, nullptr) == S_OK) {
        std::wstring name = win::NameInFolder(shellFolder.get(), child);
        children_.emplace_back(reinterpret_cast<PIDLIST_ABSOLUTE>(child));  // owned from here
        names_.push_back(name.empty() ? L"?" : std::move(name));
    }
}

CAdressBarPopup::~CAdressBarPopup() {
    if (window_) DestroyWindow(window_);
}

win::UniquePidl CAdressBarPopup::Child(size_t index) const {
    if (index >= children_.size()) return {};
    return win::UniquePidl(ILCombine(folder_.get(), reinterpret_cast<PCUIDLIST_RELATIVE>(children_[index].get())));
}

// As wide as the widest of the first names (within limits), as high as the rows up to a scroll.
SIZE CAdressBarPopup::WantedSize() const {
    HDC dc = GetDC(list_);
    HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list_, WM_GETFONT, 0, 0)));
    int widest = 0;
    for (size_t i = 0; i < names_.size() && i < kMeasuredNames; ++i) {
        SIZE text{};
        GetTextExtentPoint32W(dc, names_[i].c_str(), static_cast<int>(names_[i].size()), &text);
        widest = std::max<int>(widest, text.cx);
    }
    SelectObject(dc, old);
    ReleaseDC(list_, dc);
    RECT row{LVIR_BOUNDS};
    SendMessageW(list_, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    const int rowHeight = std::max<int>(row.bottom - row.top, win::Scaled(list_, 18));
    const int rows = static_cast<int>(std::min<size_t>(names_.size(), kVisibleRows));
    const int frame = 2 * GetSystemMetrics(SM_CXBORDER) + 4;
    const int width = widest + win::Scaled(list_, 16 + 24) + GetSystemMetrics(SM_CXVSCROLL);
    return {std::clamp(width, win::Scaled(list_, 160), win::Scaled(list_, 480)) + frame, rows * rowHeight + frame};
}

bool CAdressBarPopup::Open(HWND owner, POINT at) {
    if (children_.empty()) return false;
    if (window_) return true;
    win::RegisterPopupClass(kPopupClass, &CAdressBarPopup::WindowProc);
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kPopupClass, L"", WS_POPUP | WS_BORDER, at.x, at.y, 10,
                              10, owner ? GetAncestor(owner, GA_ROOT) : nullptr, nullptr, GetModuleHandleW(nullptr),
                              nullptr);
    if (!window_) return false;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_OWNERDATA | LVS_SINGLESEL |
                                LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS,
                            0, 0, 10, 10, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!list_) return false;
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    ListView_SetImageList(list_, win::SystemSmallIcons(), LVSIL_SMALL);  // the system's: not ours to free
    LVCOLUMNW column{LVCF_WIDTH};
    column.cx = 100;
    ListView_InsertColumn(list_, 0, &column);
    ListView_SetItemCountEx(list_, static_cast<int>(children_.size()), LVSICF_NOINVALIDATEALL);
    const SIZE size = WantedSize();
    // Below the point, moved up or left as far as needed to stay on its screen.
    MONITORINFO screen{sizeof(screen)};
    GetMonitorInfoW(MonitorFromPoint(at, MONITOR_DEFAULTTONEAREST), &screen);
    const RECT& work = screen.rcWork;
    const int x = std::max<int>(work.left, std::min<int>(at.x, work.right - size.cx));
    const int y = at.y + size.cy <= work.bottom ? at.y : std::max<int>(work.top, work.bottom - size.cy);
    SetWindowPos(window_, HWND_TOPMOST, x, y, size.cx, size.cy, SWP_NOACTIVATE);
    RECT client;
    GetClientRect(window_, &client);
    SetWindowPos(list_, nullptr, 0, 0, client.right, client.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
    ListView_SetColumnWidth(list_, 0, client.right - GetSystemMetrics(SM_CXVSCROLL));
    ListView_SetItemState(list_, 0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    ShowWindow(window_, SW_SHOW);
    SetFocus(list_);
    return true;
}

// The first outcome counts: closing the window deactivates it once more.
void CAdressBarPopup::Finish(int chosen) {
    if (done_) return;
    chosen_ = chosen;
    done_ = true;
}

win::UniquePidl CAdressBarPopup::Track(HWND owner, POINT at) {
    if (!Open(owner, at)) return {};
    done_ = false;
    chosen_ = -1;
    win::RunPopupLoop(window_, list_, done_,
                      {[this] { Finish(-1); }, [this] { Finish(ListView_GetNextItem(list_, -1, LVNI_FOCUSED)); },
                       [this] { Finish(-1); }});
    DestroyWindow(window_);
    window_ = list_ = nullptr;
    return chosen_ >= 0 ? Child(static_cast<size_t>(chosen_)) : win::UniquePidl();
}

LRESULT CAdressBarPopup::OnNotify(NMHDR* header) {
    if (header->hwndFrom != list_) return 0;
    switch (header->code) {
    case LVN_GETDISPINFOW: {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
        if (item.iItem < 0 || static_cast<size_t>(item.iItem) >= names_.size()) return 0;
        if (item.mask & LVIF_TEXT) lstrcpynW(item.pszText, names_[item.iItem].c_str(), item.cchTextMax);
        if (item.mask & LVIF_IMAGE) item.iImage = win::PlainFolderIcon(false);
        return 0;
    }
    case LVN_ODFINDITEMW: {  // typing a name's start goes to it
        const auto* find = reinterpret_cast<NMLVFINDITEMW*>(header);
        if (!(find->lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !find->lvfi.psz) return -1;
        const size_t length = wcslen(find->lvfi.psz);
        const size_t start = find->iStart >= 0 ? static_cast<size_t>(find->iStart) : 0;
        for (size_t n = 0; n < names_.size(); ++n) {
            const size_t i = (start + n) % names_.size();
            if (CompareStringOrdinal(names_[i].c_str(), static_cast<int>(std::min(length, names_[i].size())),
                                     find->lvfi.psz, static_cast<int>(length), TRUE) == CSTR_EQUAL)
                return static_cast<LRESULT>(i);
        }
        return -1;
    }
    case NM_CLICK:
        if (const int item = reinterpret_cast<NMITEMACTIVATE*>(header)->iItem; item >= 0) Finish(item);
        return 0;
    }
    return 0;
}

LRESULT CALLBACK CAdressBarPopup::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<CAdressBarPopup*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) {
        if (message == WM_NOTIFY) return self->OnNotify(reinterpret_cast<NMHDR*>(lParam));
        if (message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE) self->Finish(-1);  // another window took over
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessel
