// The browser view follows changes that other programs make in its folder where the shell does
// not tell it of them: the directory watcher reports each change, and the view lists its folder
// again once the changes settle, keeping the selection, the focus and the scroll position.
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>


#include "features/folder_size_worker_win.h"
#include "view/dir_change_records.h"
#include "view/dir_watch_win.h"
#include "view/shell_browser_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

struct ListPlace {
    int topIndex = -1;
    POINT origin{};
    bool hasOrigin = false;
};

ListPlace PlaceOf(HWND list) {
    ListPlace place;
    place.topIndex = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    place.hasOrigin = SendMessageW(list, LVM_GETORIGIN, 0, reinterpret_cast<LPARAM>(&place.origin)) &&
                      SendMessageW(list, LVM_GETVIEW, 0, 0) != LV_VIEW_DETAILS;
    return place;
}

void RestorePlace(HWND list, const ListPlace& place) {
    if (place.hasOrigin) {
        POINT now{};
        SendMessageW(list, LVM_GETORIGIN, 0, reinterpret_cast<LPARAM>(&now));
        SendMessageW(list, LVM_SCROLL, place.origin.x - now.x, place.origin.y - now.y);
        return;
    }
    const int top = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    if (place.topIndex <= 0 || top == place.topIndex) return;
    RECT row{LVIR_BOUNDS};
    if (!SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row))) return;
    SendMessageW(list, LVM_SCROLL, 0, (place.topIndex - top) * (row.bottom - row.top));
}

}  // namespace

void CMyShellBrowser::StartDirectoryWatch() {
    KillTimer(hwnd(), kTimerFollowDisk);
    followArmed_ = false;  // whoever starts the watch lists the folder next
    if (!ShellMissesOutsideChanges()) return;
    const std::wstring path = shown_ ? win::FileSystemPathOf(shown_.get()) : std::wstring();
    dirWatch_.Start(path, hwnd(), kMsgDirectoryChange, 0);  // an empty path ends the old watch
}

void CMyShellBrowser::OnDirectoryChange(const DirChange* change) {
    if (!change) return;
    NoteSizeChange(change->fullPath);
    if (!ShellMissesOutsideChanges()) return;
    followPace_.NoteChange(GetTickCount());
    if (followArmed_) return;  // the listing asked for already comes
    followArmed_ = true;
    SetTimer(hwnd(), kTimerFollowDisk, followPace_.DelayMs(), nullptr);
}

void CMyShellBrowser::FollowDisk() {
    followArmed_ = false;
    if (!IsWindowVisible(hwnd())) {  // a hidden tab or T-View is listed again when it shows
        diskStale_ = true;
        return;
    }
    diskStale_ = false;
    if (LeaveIfGone()) return;
    RefreshKeepingPlace();
    owner_.BrowserFolderChanged(*this);
    ++diskFollows_;
    followPace_.Listed();
}

void CMyShellBrowser::RefreshKeepingPlace() {
    HWND list = GetListControl();
    if (!view_ || !list || navigating_) return;
    const std::vector<ItemBytes> selected = SelectedItems();
    ItemBytes focused;
    const int focusIndex = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    PITEMID_CHILD child = nullptr;
    if (focusIndex >= 0 && folderView_ && SUCCEEDED(folderView_->Item(focusIndex, &child)) && child)
        focused = BytesOf(child);
    CoTaskMemFree(child);
    const ListPlace place = PlaceOf(list);
    const bool hadFocus = GetFocus() == list;

    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    view_->Refresh();
    list = GetListControl();  // the same list, unless the view made a new one
    if (list) {
        // The focus first: the view's focus request also sets the item's selected state.
        UINT flags = SVSI_DESELECTOTHERS;
        if (IsItemList(focused) && SUCCEEDED(view_->SelectItem(reinterpret_cast<PCUITEMID_CHILD>(focused.data()),
                                                                SVSI_FOCUSED | SVSI_DESELECTOTHERS)))
            flags = 0;
        SelectItems(selected, SVSI_SELECT | flags);
        RestorePlace(list, place);
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(list, nullptr, TRUE);
        if (hadFocus) SetFocus(list);
    }
    statusRequested_ = true;
}

}  // namespace tessel
