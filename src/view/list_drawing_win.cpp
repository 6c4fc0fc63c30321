// What the browser view decides about the items of its list: which are listed (the view
// filter) and how each is drawn (the colour rules).
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "core/fill_in.h"
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "features/list_export_win.h"
#include "features/program_colours_win.h"
#include "features/view_filter.h"
#include "view/shell_browser_win.h"
#include "res/resource.h"
#include "win/clock_win.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"

namespace tessel {

void CMyShellBrowser::ShowListingProgress() {
    const std::wstring name = win::LocationNameOf(target_ ? target_.get() : shown_.get());
    owner_.BrowserProgress(*this, FillIn(GetText(IDS_READING_FOLDER), {name, std::to_wstring(listing_.Items())}));
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

IShellFolder* CMyShellBrowser::ListedFolder() const {
    return targetFolder_ ? targetFolder_.get() : shownFolder_.get();  // the first while a view is made
}

// The view asks for every item while it lists the folder; S_FALSE leaves the item out.
STDMETHODIMP CMyShellBrowser::IncludeObject(IShellView*, PCUITEMID_CHILD item) {
    if (listing_.Step(&win::NowMs)) ShowListingProgress();
    IShellFolder* folder = ListedFolder();
    if (!folder || !item) return S_OK;
    if (!Options().show_hidden && hiddenMayArrive_) {
        SFGAOF hidden = SFGAO_HIDDEN;
        PCUITEMID_CHILD items[] = {item};
        if (SUCCEEDED(folder->GetAttributesOf(1, items, &hidden)) && (hidden & SFGAO_HIDDEN)) return S_FALSE;
    }
    const ViewFilter* filter = owner_.Filter();
    if (!filter || !filter->Acts()) return S_OK;
    bool isFolder = false;
    if (!filter->switches.by_dir_filter) {
        SFGAOF attributes = SFGAO_FOLDER;
        PCUITEMID_CHILD items[] = {item};
        isFolder = SUCCEEDED(folder->GetAttributesOf(1, items, &attributes)) && (attributes & SFGAO_FOLDER);
        if (isFolder) return S_OK;
    }
    // The file name itself, extension included, whether or not the view shows extensions.
    STRRET text{};
    wchar_t name[MAX_PATH] = {};
    if (SUCCEEDED(folder->GetDisplayNameOf(item, SHGDN_INFOLDER | SHGDN_FORPARSING, &text)))
        StrRetToBufW(&text, item, name, MAX_PATH);
    const std::wstring_view own = InFolderName({name, wcslen(name)});
    wchar_t* first = name + (own.data() - name);
    FoldLowerWin(first, own.size());
    return FilterShows(filter->switches, filter->tokens, {first, own.size()}, isFolder) ? S_OK : S_FALSE;
}

// Where the view asks (not under Wine), it is told to enumerate hidden files too; whether the
// list shows them is decided item by item above.
STDMETHODIMP CMyShellBrowser::GetViewFlags(DWORD* flags) {
    if (!flags) return E_POINTER;
    *flags = Options().show_hidden ? CDB2GVF_SHOWALLFILES : 0;
    return S_OK;
}

void CMyShellBrowser::HiddenFilesChanged(bool activeTab) {
    if (activeTab) ListAgain();
    else relistWhenShown_ = true;
}

int CMyShellBrowser::QueryItemColour(int index, int* flags) const {
    if (flags) *flags = 0;
    PITEMID_CHILD item = nullptr;
    if (!folderView_ || index < 0 || FAILED(folderView_->Item(index, &item)) || !item) return kNoColour;
    const int colour = Colours().MatchItem(shownFolder_.get(), item, flags);
    CoTaskMemFree(item);
    return colour;
}

LRESULT CMyShellBrowser::OnListCustomDraw(NMLVCUSTOMDRAW* draw) {
    switch (draw->nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
        return Options().useColor && !Colours().Index().Empty() ? CDRF_NOTIFYITEMDRAW : CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT: {
        int flags = 0;
        const int colour = QueryItemColour(static_cast<int>(draw->nmcd.dwItemSpec), &flags);
        if (colour != kNoColour) draw->clrText = static_cast<COLORREF>(colour);
        if (HFONT font = Colours().FontFor(flags, reinterpret_cast<HFONT>(SendMessageW(draw->nmcd.hdr.hwndFrom, WM_GETFONT, 0, 0)))) {
            SelectObject(draw->nmcd.hdc, font);
            return CDRF_NEWFONT;
        }
        return CDRF_DODEFAULT;
    }
    default:
        return CDRF_DODEFAULT;
    }
}

LRESULT CMyShellBrowser::ViewProc(HWND view, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* self = static_cast<CMyShellBrowser*>(data);
    if (message == WM_NOTIFY) {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header->code == NM_CUSTOMDRAW && header->hwndFrom == self->subclassedList_)
            return self->OnListCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
        if (header->code == LVN_COLUMNCLICK && header->hwndFrom == self->subclassedList_)
            self->FollowColumnClick(reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem);
        if (header->code == LVN_GETDISPINFOW && header->hwndFrom == self->subclassedList_) {
            const LRESULT result = win::CallOriginal(view, message, wParam, lParam);
            self->AnswerSizeText(reinterpret_cast<NMLVDISPINFOW*>(lParam));
            return result;
        }
    } else if (message == kMsgViewOwnChangeNotice && ShellMissesOutsideChanges()) {
        // That view renames the row of an item moved out of its folder without giving the row
        // the new identifier (the row keeps a freed one, and the next read of it faults), and
        // inserts new items unsorted and unfiltered. The directory watcher lists the folder
        // again instead.
        return 0;
    } else if (message == WM_NCDESTROY) {
        if (self->subclassedView_ == view) self->subclassedView_ = nullptr;
    }
    return win::CallOriginal(view, message, wParam, lParam);
}

ExportTable CMyShellBrowser::ListTable() const {
    HWND list = GetListControl();
    if (!list) return {};
    ExportTable table = GatherFolderList(list, folderView_.get(), shownFolder_.get());
    PutFolderSizes(table);
    return table;
}

void CMyShellBrowser::SetInUseColours(bool inUse) {
    inUse_ = inUse;
    ApplyBackground();
    PauseFolderSizes();
}

// The background follows the colour rules' "#BG-A" (the T-View in use) and "#BG" (the others).
void CMyShellBrowser::ApplyBackground() {
    HWND list = subclassedList_;
    if (!list) return;
    const COLORREF background = ViewBackground(inUse_);
    if (static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)) == background) return;
    SendMessageW(list, LVM_SETBKCOLOR, 0, background);
    SendMessageW(list, LVM_SETTEXTBKCOLOR, 0, background);
    InvalidateRect(list, nullptr, TRUE);
}

}  // namespace tessel
