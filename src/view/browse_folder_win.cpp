// Navigation of a browser view: the steps that replace the shown folder's view by a new one
// and carry the view settings, columns and selection across.
#include <windows.h>
#include <commctrl.h>

#include "core/fill_in.h"
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/path_text.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "view/browser_drop_target_win.h"
#include "view/click_sound_win.h"
#include "view/location_text.h"
#include "view/shell_browser_win.h"
#include "win/clock_win.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"

namespace tessel {

void RememberListFont(HFONT font);

namespace {

constexpr UINT_PTR kTimerTick = 1005;

// The caller's flags minus the ones a browser view never wants, plus the options' choices.
UINT AdjustViewFlags(UINT flags) {
    flags &= ~(FWF_DESKTOP | FWF_NOGROUPING | FWF_HIDEFILENAMES | FWF_NOCOLUMNHEADER | FWF_NOHEADERINALLVIEWS);
    if (Options().noenumrefresh) flags |= FWF_NOENUMREFRESH; else flags &= ~FWF_NOENUMREFRESH;
    if (Options().header_in_all_views) flags &= ~FWF_NOHEADERINALLVIEWS; else flags |= FWF_NOHEADERINALLVIEWS;
    return flags;
}

// A folder of the file system that was deleted since its identifier was made still binds; such
// a target is refused like one that cannot be bound.
// The system's "show hidden files" setting, read again at most once a second: every navigation
// asks.
bool SystemListsHidden() {
    static DWORD readAt = 0;
    static bool lists = false;
    const DWORD now = GetTickCount();
    if (readAt == 0 || now - readAt > 1000) {
        SHELLSTATE state{};
        SHGetSetSettings(&state, SSF_SHOWALLOBJECTS, FALSE);
        lists = state.fShowAllObjects != 0;
        readAt = now | 1;
    }
    return lists;
}

bool StillThere(PCIDLIST_ABSOLUTE folder) {
    const std::wstring path = win::FileSystemPathOf(folder);
    if (path.empty()) return true;
    return win::IsDirectory(LongPathForm(path));
}

}  // namespace

int CMyShellBrowser::NavigateTo(win::UniquePidl pidl, bool /*fromHistory*/, bool counted) {
    // Asked for while a navigation runs (from a message served while the view is made): dropped
    // before anything is touched, so the running one records the folder its view shows.
    if (!pidl || navigating_) return 0;
    if (shown_ && view_ && win::SamePidl(pidl.get(), shown_.get())) {
        RefreshView();
        return 1;
    }
    target_ = std::move(pidl);
    return BrowseFolder(counted);
}

int CMyShellBrowser::NavigateToText(const std::wstring& text) {
    win::UniquePidl pidl = win::PidlFromPath(NormalizeLocationText(text));
    return pidl ? NavigateTo(std::move(pidl), false, true) : 0;
}

void CMyShellBrowser::NavigateUp() {
    if (!shown_ || ILIsEmpty(shown_.get())) return;
    win::UniquePidl child = win::ClonePidl(shown_.get());
    if (NavigateTo(win::ParentOf(shown_.get()), false, true)) SelectAfterUp(child.get());
}

void CMyShellBrowser::SelectAfterUp(PCIDLIST_ABSOLUTE child) {
    HWND list = GetListControl();
    if (!Options().select_last_if_navigate_up || !view_ || !child || !list) return;
    if (SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0) == 0)
        view_->SelectItem(ILFindLastID(child), SVSI_SELECT | SVSI_ENSUREVISIBLE | SVSI_FOCUSED);
}

HRESULT CMyShellBrowser::RefreshView() {
    if (navigating_) return E_PENDING;  // the navigation running makes a fresh view anyway
    if (LeaveIfGone()) return S_OK;
    owner_.BrowserRefreshed(*this);
    ListAgain();
    suppressClick_ = true;
    const ListSort sort = SortToKeep();
    HRESULT result = view_ ? view_->Refresh() : E_FAIL;
    suppressClick_ = false;
    if (SUCCEEDED(result)) ApplySort(sort);
    return result;
}

// A folder removed from outside is left for the nearest folder above it that still exists; the
// status says why until the user does something else.
bool CMyShellBrowser::LeaveIfGone() {
    if (!shown_ || navigating_) return false;
    if (StillThere(shown_.get())) {
        // Where the directory watcher runs, its handle keeps a removed folder in place until it
        // closes, and the folder looks as it was.
        if (!dirWatch_.Running()) return false;
        dirWatch_.Stop();
        if (StillThere(shown_.get())) {
            StartDirectoryWatch();
            return false;
        }
    }
    win::UniquePidl above = win::ClonePidl(shown_.get());
    do above = win::ParentOf(above.get());
    while (above && !ILIsEmpty(above.get()) && !StillThere(above.get()));
    const std::wstring gone = currentName_;
    if (!above || !NavigateTo(std::move(above), false, true)) return false;
    notice_ = FillIn(GetText(IDS_FOLDER_GONE), {gone, currentName_});
    statusText_ = notice_;
    owner_.BrowserStatus(*this, statusText_);
    return true;
}

void CMyShellBrowser::ListAgain() {
    if (navigating_ || !shown_) return;
    ScopedOption columns(Options().spalten_speichern, 1);
    suppressClick_ = true;
    target_ = win::ClonePidl(shown_.get());
    BrowseFolder(false);
    suppressClick_ = false;
}

// Where the view tells its sort columns, the next view is told them too. Otherwise the view
// keeps its sort column in the header clicks it served, and lists a refreshed folder in its own
// order: the same clicks are given again, counted from the clicks it has served.
void CMyShellBrowser::FollowColumnClick(int column) {
    sort_.ascending = column == sort_.column ? !sort_.ascending : true;
    sort_.column = column;
}

CMyShellBrowser::ListSort CMyShellBrowser::SortToKeep() const {
    ListSort sort = sort_;
    win::ComPtr<IFolderView2> view = view_.As<IFolderView2>();
    sort.byView = view && view->GetSortColumns(&sort.viewColumn, 1) == S_OK;
    return sort;
}

void CMyShellBrowser::ApplySort(const ListSort& want) {
    HWND list = GetListControl();
    if (!list || !viewWindow_) return;
    win::ComPtr<IFolderView2> view = view_.As<IFolderView2>();
    if (want.byView && view && view->SetSortColumns(&want.viewColumn, 1) == S_OK) return;
    if (want.column < 0) return;
    int clicks = want.ascending ? 1 : 2;
    if (want.column == sort_.column) clicks = want.ascending == sort_.ascending ? 2 : 1;
    NMLISTVIEW click{};
    click.hdr = {list, static_cast<UINT_PTR>(GetDlgCtrlID(list)), LVN_COLUMNCLICK};
    click.iItem = -1;
    click.iSubItem = want.column;
    for (; clicks > 0; --clicks) SendMessageW(viewWindow_, WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

namespace {

BOOL CALLBACK FindListBelow(HWND window, LPARAM found) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (wcscmp(name, WC_LISTVIEWW) != 0) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

}  // namespace

// Only lists of this view: a list of the view window, its thumbnail list, else a list deeper
// inside the view window. Never a window of another view or another program.
HWND CMyShellBrowser::GetListControl() const {
    if (!viewWindow_) return nullptr;
    HWND list = FindWindowExW(viewWindow_, nullptr, WC_LISTVIEWW, nullptr);
    if (!list) list = FindWindowExW(viewWindow_, nullptr, L"ThumbnailVwExtWnd32", nullptr);
    if (!list) EnumChildWindows(viewWindow_, &FindListBelow, reinterpret_cast<LPARAM>(&list));
    return list;
}

void CMyShellBrowser::CaptureOutgoingState() {
    if (!view_) return;
    view_->GetCurrentInfo(&outgoing_.settings);
    HWND list = GetListControl();
    outgoing_.selectedCount = list ? static_cast<int>(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0)) : 0;
    outgoing_.filterText = FilterText();
}

void CMyShellBrowser::RecordOutgoingState() {
    if (!view_) return;
    if (Options().spalten_speichern && !viewSaved_) {
        view_->SaveViewState();
        if (HarvestStreams()) columns_.Save(Settings(), columnSection_);  // written only when it changed
    }
    CaptureOutgoingState();
    RecordHistoryEntry();
    if (Options().audio_click && !suppressClick_) PlayNavigationClick();
}

FOLDERSETTINGS CMyShellBrowser::NextFolderSettings() const {
    FOLDERSETTINGS settings{FVM_DETAILS, FWF_SHOWSELALWAYS};
    if (callerSettings_)
        settings = *callerSettings_;
    else if (view_)
        settings = outgoing_.settings;
    if (oneShot_) settings = oneShotSettings_;
    settings.fFlags = AdjustViewFlags(settings.fFlags);
    return settings;
}

int CMyShellBrowser::BrowseFolder(bool counted) {
    if (!target_ || !hwnd()) return 0;
    navigating_ = true;
    const int savedMark = std::exchange(selectionMark_, -2);
    const bool savedRequest = std::exchange(statusRequested_, true);
    static const int kColorIds[4] = {COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, COLOR_BTNFACE, COLOR_WINDOWTEXT};
    for (int i = 0; i < 4; ++i) colors_[i] = GetSysColor(kColorIds[i]);
    win::ComPtr<IShellFolder> folder = StillThere(target_.get()) ? win::BindFolder(target_.get()) : nullptr;
    targetFolder_ = folder;  // the view asks for its columns while it is made
    statusText_.clear();
    notice_.clear();
    Sleep(0);
    bool ok = false;
    const ListSort sort = shown_ && win::SamePidl(target_.get(), shown_.get()) ? SortToKeep() : ListSort{};
    if (folder) {
        RecordOutgoingState();
        // Hidden items reach the list only where the system lists them: then each is looked at.
        hiddenMayArrive_ = SystemListsHidden();
        listing_.Begin(win::NowMs());
        ok = SwapInView(folder, NextFolderSettings(), counted);
        listing_.End();
    }
    if (ok) {
        sort_ = ListSort{};  // the new view has served no clicks yet
        ApplySort(sort);
    } else {
        selectionMark_ = savedMark;
        statusRequested_ = savedRequest;
        target_ = win::ClonePidl(shown_.get());  // back to what is shown
    }
    callerSettings_ = nullptr;
    oneShot_ = false;
    targetFolder_.reset();
    navigating_ = false;
    return ok ? 1 : 0;
}

bool CMyShellBrowser::SwapInView(win::ComPtr<IShellFolder> folder, FOLDERSETTINGS settings, bool counted) {
    win::ComPtr<IShellView> view;
    if (FAILED(folder->CreateViewObject(hwnd(), IID_IShellView, view.put_void()))) {
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        return false;
    }
    RECT client;
    GetClientRect(hwnd(), &client);
    HWND window = nullptr;
    columnsRemembered_ = false;
    if (FAILED(view->CreateViewWindow(view_.get(), &settings, this, &client, &window)) || !window) {
        statusText_ = GetText(134) + L": " + win::LocationNameOf(target_.get());
        owner_.BrowserStatus(*this, statusText_);
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        return false;
    }
    const bool leftAFolder = static_cast<bool>(shown_);
    TearDownView();
    view_ = view;
    viewWindow_ = window;
    viewSaved_ = false;
    if (counted && leftAFolder) history_.Advance();  // the first folder of a view is entry 0
    previous_ = std::move(shown_);
    previousFolder_ = std::move(shownFolder_);
    shown_ = win::ClonePidl(target_.get());
    shownFolder_ = folder;
    currentName_ = win::LocationNameOf(shown_.get());
    AfterViewCreated();
    return true;
}

// Whatever the list had as its drop target (the view's own, where it offers one) goes behind
// ours, so that a dragged tab never reaches it.
void CMyShellBrowser::PutDropTargetOnList(HWND list) {
    ListDropHooks hooks;
    hooks.owner = hwnd();
    hooks.draggedTab = [this] { return owner_.DraggedTabFolder(); };
    hooks.openFolder = [this](PCIDLIST_ABSOLUTE folder) {
        droppedFolder_ = win::ClonePidl(folder);
        PostMessageW(hwnd(), kMsgOpenDroppedFolder, 0, 0);
    };
    hooks.folderAt = [this](POINTL screen) { return DropFolderAt(screen); };
    hooks.filesArrived = [this] { RefreshKeepingPlace(); };
    auto* wrapper = new CMyBrowser_IDropTargetPlus(view_.As<IDropTarget>(), std::move(hooks));
    RevokeDragDrop(list);
    if (SUCCEEDED(RegisterDragDrop(list, wrapper))) {
        listDrop_ = wrapper;
        dropList_ = list;
    }
    wrapper->Release();  // the registration holds it
}

// A folder row under the pointer takes the files; elsewhere the folder shown does.
std::wstring CMyShellBrowser::DropFolderAt(POINTL screen) const {
    HWND list = GetListControl();
    const std::wstring shown = win::FileSystemPathOf(shown_.get());
    if (!list || !folderView_) return shown;
    LVHITTESTINFO hit{};
    hit.pt = {screen.x, screen.y};
    ScreenToClient(list, &hit.pt);
    const int row = static_cast<int>(SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    PITEMID_CHILD child = nullptr;
    if (row < 0 || FAILED(folderView_->Item(row, &child)) || !child) return shown;
    win::UniquePidl item(ILCombine(shown_.get(), child));
    CoTaskMemFree(child);
    const std::wstring path = item ? win::FileSystemPathOf(item.get()) : std::wstring();
    return !path.empty() && win::IsDirectory(path) ? path : shown;
}

IDropTarget* CMyShellBrowser::ListDropTarget() const { return dropList_ ? listDrop_ : nullptr; }

void CMyShellBrowser::AfterViewCreated() {
    HWND list = GetListControl();
    if (list && IsChild(viewWindow_, list)) {
        if (win::Subclass(list, &CMyShellBrowser::ListProc, this)) subclassedList_ = list;
        if (win::Subclass(viewWindow_, &CMyShellBrowser::ViewProc, this)) subclassedView_ = viewWindow_;
        folderView_ = view_.As<IFolderView>();
        PutDropTargetOnList(list);
        ApplyBackground();
        if (Options().no_keep_grouping) {
            SendMessageW(list, LVM_ENABLEGROUPVIEW, FALSE, 0);
            SendMessageW(list, LVM_REMOVEALLGROUPS, 0, 0);
        }
        if (Options().fullrow_sel) SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
        if (Options().show_linie) SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES, LVS_EX_GRIDLINES);
        if (Options().disable_column_hl) SendMessageW(list, LVM_SETSELECTEDCOLUMN, static_cast<WPARAM>(-1), 0);
        RememberListFont(reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    }
    RECT client;
    GetClientRect(hwnd(), &client);
    SetWindowPos(viewWindow_, nullptr, 0, 0, client.right, client.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
    view_->UIActivate(IsWindowVisible(hwnd()) ? uiState_ : static_cast<UINT>(SVUIA_ACTIVATE_NOFOCUS));
    if (uiState_ == SVUIA_ACTIVATE_FOCUS && IsWindowVisible(hwnd())) SetFocus(viewWindow_);
    uiState_ = SVUIA_ACTIVATE_FOCUS;
    firstNavigationDone_ = true;
    owner_.BrowserNavigated(*this);
    RegisterChangeNotify();
    StartDirectoryWatch();
    StartFolderSizes();
    if (!columnsRemembered_) {
        columnFitTries_ = 40;
        SetTimer(hwnd(), kTimerFitColumns, 1, nullptr);
    }
    statusRequested_ = true;
    SetTimer(hwnd(), kTimerTick, 5, nullptr);
}

}  // namespace tessel
