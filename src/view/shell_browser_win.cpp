#include "view/shell_browser_win.h"

#include <commctrl.h>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "res/resource.h"
#include "view/column_fit_win.h"
#include "view/status_text.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"

namespace tessel {
namespace {

constexpr UINT_PTR kTimerTick = 1005;
constexpr UINT_PTR kTimerFreeSpace = 101123;
constexpr UINT_PTR kTimerRenavigate = 10010;
constexpr UINT_PTR kTimerFocus = 10011;
constexpr UINT_PTR kTimerReselect = 10000;

// A copy of the first list's font: the list and its font go with their view, the copy stays.
win::UniqueFont g_listFont;

}  // namespace

HFONT ProgramListFont() { return g_listFont.get(); }
void RememberListFont(HFONT font) {
    LOGFONTW description{};
    if (!g_listFont && font && GetObjectW(font, sizeof(description), &description))
        g_listFont.reset(CreateFontIndirectW(&description));
}

CMyShellBrowser::CMyShellBrowser(IBrowserOwner& owner, std::wstring columnSection, HWND filterBox)
    : owner_(owner), columnSection_(std::move(columnSection)), filterBox_(filterBox) {}

CMyShellBrowser::~CMyShellBrowser() { TearDownView(); }

bool CMyShellBrowser::Create(HWND parent) {
    return CreateWindowOf(L"TesselBrowserView", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
                          WS_EX_CONTROLPARENT, L"", 0, 0, 0, 0, parent, nullptr, 0) != nullptr;
}

STDMETHODIMP CMyShellBrowser::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (riid == IID_IUnknown || riid == IID_IOleWindow || riid == IID_IShellBrowser)
        *object = static_cast<IShellBrowser*>(this);
    else if (riid == IID_ICommDlgBrowser || riid == IID_ICommDlgBrowser2)
        *object = static_cast<ICommDlgBrowser2*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) CMyShellBrowser::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) CMyShellBrowser::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP CMyShellBrowser::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = hwnd();
    return S_OK;
}

STDMETHODIMP CMyShellBrowser::BrowseObject(PCUIDLIST_RELATIVE pidl, UINT flags) {
    if (flags & SBSP_PARENT) {
        NavigateUp();
        return S_OK;
    }
    win::UniquePidl target;
    if (flags & SBSP_RELATIVE)
        target.reset(shown_ ? ILCombine(shown_.get(), pidl) : nullptr);
    else
        target = win::ClonePidl(reinterpret_cast<PCIDLIST_ABSOLUTE>(pidl));
    if (!target) return E_FAIL;
    return NavigateTo(std::move(target), false, true) ? S_OK : E_FAIL;
}

STDMETHODIMP CMyShellBrowser::GetControlWindow(UINT, HWND* window) {
    if (window) *window = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP CMyShellBrowser::SendControlMsg(UINT, UINT, WPARAM, LPARAM, LRESULT* result) {
    if (result) *result = 0;
    return E_NOTIMPL;
}

STDMETHODIMP CMyShellBrowser::QueryActiveShellView(IShellView** view) {
    if (!view) return E_POINTER;
    *view = view_.get();
    if (!*view) return E_FAIL;
    (*view)->AddRef();
    return S_OK;
}

// A double-click or Enter on a folder: the host navigates; files are left to the view.
STDMETHODIMP CMyShellBrowser::OnDefaultCommand(IShellView* view) {
    win::ComPtr<IFolderView> folderView = win::ComPtr<IShellView>(view).As<IFolderView>();
    int focused = -1;
    PITEMID_CHILD child = nullptr;
    if (!folderView || !shownFolder_ || FAILED(folderView->GetFocusedItem(&focused)) || focused < 0 ||
        FAILED(folderView->Item(focused, &child)))
        return S_FALSE;
    SFGAOF attributes = SFGAO_FOLDER | SFGAO_BROWSABLE | SFGAO_STREAM;
    PCUITEMID_CHILD children[] = {child};
    const bool isFolder = SUCCEEDED(shownFolder_->GetAttributesOf(1, children, &attributes)) &&
                          (attributes & (SFGAO_FOLDER | SFGAO_BROWSABLE)) && !(attributes & SFGAO_STREAM);
    win::UniquePidl target(ILCombine(shown_.get(), child));
    CoTaskMemFree(child);
    if (target && !isFolder) {
        const std::wstring path = win::FileSystemPathOf(target.get());
        return !path.empty() && OpenByAssociation(path) ? S_OK : S_FALSE;
    }
    if (!target) return S_FALSE;
    NavigateTo(std::move(target), false, true);
    return S_OK;
}

STDMETHODIMP CMyShellBrowser::OnStateChange(IShellView*, ULONG change) {
    if (change == CDBOSC_SELCHANGE) {
        statusRequested_ = true;
        notice_.clear();
        owner_.SelectionChanged(*this);
    }
    return S_OK;
}

win::UniquePidl CMyShellBrowser::FocusedItem() const {
    win::ComPtr<IFolderView> folderView = view_.As<IFolderView>();
    int focused = -1;
    PITEMID_CHILD child = nullptr;
    if (!folderView || !shown_ || FAILED(folderView->GetFocusedItem(&focused)) || focused < 0 ||
        FAILED(folderView->Item(focused, &child)))
        return {};
    win::UniquePidl item(ILCombine(shown_.get(), child));
    CoTaskMemFree(child);
    return item;
}

void CMyShellBrowser::SetActive(bool active) {
    ShowWindow(hwnd(), active ? SW_SHOW : SW_HIDE);
    if (!view_) return;
    if (active) {
        view_->UIActivate(SVUIA_ACTIVATE_FOCUS);
        SetFocus(viewWindow_);
        statusRequested_ = true;
        if (std::exchange(relistWhenShown_, false)) ListAgain();
        else if (diskStale_) FollowDisk();
    } else {
        view_->UIActivate(SVUIA_DEACTIVATE);
    }
}

LRESULT CMyShellBrowser::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        SetClassLongPtrW(hwnd(), GCL_STYLE, 0);
        break;
    case kMsgDirectoryChange:  // a change the watcher read, valid during this message
        OnDirectoryChange(reinterpret_cast<const DirChange*>(wParam));
        return 0;
    case kMsgFolderSizes:
        OnFolderSizes();
        if (sizeColumn_ >= 0) FitColumnsToContent(subclassedList_, true, sizeColumn_);
        return 0;
    case kMsgOpenDroppedFolder:
        if (droppedFolder_) NavigateTo(std::move(droppedFolder_), false, true);
        return 0;
    case kMsgShellChange:
        OnShellChange(wParam, lParam);
        return 0;
    case kMsgQueryItem:  // the colour of the list's item wParam; lParam receives its style flags
        return QueryItemColour(static_cast<int>(wParam), reinterpret_cast<int*>(lParam));
    case WM_SIZE:
        if (viewWindow_)
            SetWindowPos(viewWindow_, nullptr, 0, 0, LOWORD(lParam), HIWORD(lParam), SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    case kMsgQueryBrowser:
        return reinterpret_cast<LRESULT>(static_cast<IShellBrowser*>(this));
    case WM_COMMAND:
        Execute(LOWORD(wParam));
        return 0;
    case WM_TIMER:
        OnTimer(wParam);
        return 0;
    case kMsgStatusReady:
        OnStatusReady(wParam);
        return 0;
    case kMsgSelectionBatch:
        return statusWorker_.AnswerSelectionBatch(wParam, GetListControl(), view_.As<IFolderView>().get(),
                                                  shownFolder_.get());
    case WM_SETFOCUS:
        if (viewWindow_) SetFocus(viewWindow_);
        return 0;
    case WM_DESTROY:
        TearDownView();
        break;
    }
    return Default(message, wParam, lParam);
}

void CMyShellBrowser::OnTimer(UINT_PTR id) {
    KillTimer(hwnd(), id);
    switch (id) {
    case kTimerFitColumns:
        if (!FitColumnsToContent(GetListControl(), true) && --columnFitTries_ > 0)
            SetTimer(hwnd(), kTimerFitColumns, 50, nullptr);  // the view lists in the background
        break;
    case kTimerTick:
        ++tickCount_;
        if (statusRequested_ && IsWindowVisible(hwnd()) &&
            statusWorker_.Start(GetListControl(), FolderPathForStatus(), hwnd(), kMsgStatusReady)) {
            statusRequested_ = false;  // the worker's result re-arms the tick
            return;
        }
        SetTimer(hwnd(), kTimerTick, 100, nullptr);
        break;
    case kTimerFolderSizes:
        MeasureChangedSizes();
        break;
    case kTimerSizeCells:
        OnFolderSizes();
        break;
    case kTimerFreeSpace:
        statusRequested_ = true;
        break;
    case kTimerFollowDisk:
        FollowDisk();
        break;
    case kTimerRenavigate:
        if (shown_ && !navigating_) {
            target_ = win::ClonePidl(shown_.get());
            BrowseFolder(false);
        }
        break;
    case kTimerFocus:
        if (viewWindow_) SetFocus(viewWindow_);
        break;
    case kTimerReselect:
        if (reselect_ && view_ && std::labs(static_cast<long>(time(nullptr) - reselectTime_)) < 5)
            view_->SelectItem(ILFindLastID(reselect_.get()), SVSI_SELECT | SVSI_DESELECTOTHERS | SVSI_ENSUREVISIBLE |
                                                                 SVSI_FOCUSED);
        break;
    }
}

FOLDERSETTINGS CMyShellBrowser::CurrentSettings() const {
    FOLDERSETTINGS settings{FVM_DETAILS, FWF_SHOWSELALWAYS};
    if (view_) view_->GetCurrentInfo(&settings);
    return settings;
}

void CMyShellBrowser::DelayedRenavigate(UINT milliseconds) { SetTimer(hwnd(), kTimerRenavigate, milliseconds, nullptr); }

void CMyShellBrowser::DelayedFocus(UINT milliseconds) { SetTimer(hwnd(), kTimerFocus, milliseconds, nullptr); }

void CMyShellBrowser::DelayedReselect(win::UniquePidl item, UINT milliseconds) {
    reselect_ = std::move(item);
    reselectTime_ = time(nullptr);
    SetTimer(hwnd(), kTimerReselect, milliseconds, nullptr);
}

std::wstring CMyShellBrowser::FolderPathForStatus() const { return win::FileSystemPathOf(shown_.get()); }

void CMyShellBrowser::OnStatusReady(WPARAM job) {
    StatusResult result;
    if (!statusWorker_.TakeResult(job, result)) return;  // of a job left behind
    ++statusRuns_;
    const StatusWords words{GetText(IDS_STATUS_ITEMS), GetText(IDS_STATUS_SELECTED), GetText(IDS_STATUS_FOLDERS),
                            GetText(IDS_STATUS_FILES), GetText(108), GetText(IDS_STATUS_ITEM),
                            GetText(IDS_STATUS_FOLDER), GetText(IDS_STATUS_FILE)};
    statusText_ = FormatStatusText(result.counts, Options().status_selection_type, Options().status_no_selection_type,
                                   words);
    if (!notice_.empty()) statusText_ = notice_ + L" " + statusText_;
    freeSpaceText_ = result.freeKnown
                         ? FormatFreeSpace(result.freeBytes, result.driveBytes, GetText(108), GetText(109))
                         : std::wstring();
    owner_.BrowserStatus(*this, statusText_);
    owner_.BrowserFreeSpace(*this, freeSpaceText_);
    SetTimer(hwnd(), kTimerTick, 100, nullptr);
}

// The registration asks for the old delivery form: wParam points to the two item identifier
// lists of the notice and lParam is the event.
ShellChange ReadShellChange(WPARAM wParam, LPARAM lParam) {
    ShellChange change;
    change.event = static_cast<long>(lParam);
    if (const auto* items = reinterpret_cast<const PCIDLIST_ABSOLUTE*>(wParam)) {
        change.first = items[0] ? win::FileSystemPathOf(items[0]) : std::wstring();
        change.second = items[1] ? win::FileSystemPathOf(items[1]) : std::wstring();
    }
    return change;
}

void CMyShellBrowser::OnShellChange(WPARAM wParam, LPARAM lParam) {
    lastChange_ = ReadShellChange(wParam, lParam);  // the folder sizes take their path from here
    if (ChangeAffectsFreeSpace(lastChange_.event)) SetTimer(hwnd(), kTimerFreeSpace, 200, nullptr);
    if (const std::wstring path = PathForFolderSizes(lastChange_); !path.empty()) NoteSizeChange(path);
    if (ChangeRemovesFolder(lastChange_, currentName_)) SetTimer(hwnd(), kTimerFollowDisk, 150, nullptr);
}

void CMyShellBrowser::RegisterChangeNotify() {
    if (notifyId_) SHChangeNotifyDeregister(notifyId_);
    notifyId_ = 0;
    if (!shown_) return;
    SHChangeNotifyEntry entry{shown_.get(), FALSE};
    notifyId_ = SHChangeNotifyRegister(hwnd(), SHCNRF_InterruptLevel | SHCNRF_ShellLevel, kRegisteredEvents,
                                       kMsgShellChange, 1, &entry);
}

void CMyShellBrowser::Close() {
    TearDownView();
    for (UINT_PTR timer : {kTimerTick, kTimerFreeSpace, kTimerRenavigate, kTimerFocus, kTimerReselect,
                           kTimerFolderSizes, kTimerSizeCells, kTimerFollowDisk})
        KillTimer(hwnd(), timer);
    history_.Clear();
    shown_.reset();
    shownFolder_.reset();
    previous_.reset();
    previousFolder_.reset();
    target_.reset();
    currentName_.clear();
    statusText_.clear();
    notice_.clear();
    sort_ = ListSort{};
    reselect_.reset();
    droppedFolder_.reset();
    statusRequested_ = false;
    diskStale_ = false;
    sizesShown_.clear();
    ShowWindow(hwnd(), SW_HIDE);
}

void CMyShellBrowser::TearDownView() {
    dirWatch_.Stop();
    followArmed_ = false;
    KillTimer(hwnd(), kTimerFollowDisk);
    statusWorker_.Stop();
    sizeWorker_.Stop();  // leaving the folder ends its walk at once
    KillTimer(hwnd(), kTimerFolderSizes);
    if (notifyId_) SHChangeNotifyDeregister(notifyId_);
    notifyId_ = 0;
    if (dropList_ && IsWindow(dropList_)) RevokeDragDrop(dropList_);
    dropList_ = nullptr;
    listDrop_ = nullptr;
    if (subclassedList_) win::Unsubclass(subclassedList_);
    subclassedList_ = nullptr;
    if (subclassedView_) win::Unsubclass(subclassedView_);
    subclassedView_ = nullptr;
    folderView_.reset();
    if (view_) {
        view_->UIActivate(SVUIA_DEACTIVATE);
        view_->DestroyViewWindow();
        view_.reset();
    }
    viewWindow_ = nullptr;
    pendingStreams_.clear();
}

}  // namespace tessel
