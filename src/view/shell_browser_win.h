#pragma once
// The browser view: hosts one shell folder view at a time for a T-View tab and plays the
// shell's browser for it. Navigation replaces the view; columns, view mode and selection are
// carried across; the status worker keeps the counts and free space fresh.
#include <windows.h>
#include <shlobj.h>

#include <atomic>
#include <ctime>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "features/folder_size_worker_win.h"
#include "features/list_export.h"
#include "view/column_store.h"
#include "view/dir_watch_win.h"
#include "view/file_clipboard_win.h"
#include "view/follow_pace.h"
#include "view/listing_progress.h"
#include "view/navigation_history.h"
#include "view/shell_change.h"
#include "view/status_worker_win.h"
#include "win/com_ptr_win.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

class CMyShellBrowser;
struct DirChange;
struct ViewFilter;

// The bytes of an item identifier list, as history entries and selections keep them.
ItemBytes BytesOf(PCUIDLIST_RELATIVE pidl);
// The items of a shell data object's identifier array ("Shell IDList Array"), each checked.
std::vector<ItemBytes> ItemsOfIdArray(IDataObject* data);

// What a browser view tells its panel and asks of it.
class IBrowserOwner {
public:
    virtual ~IBrowserOwner() = default;
    virtual void BrowserNavigated(CMyShellBrowser& browser) = 0;
    virtual void BrowserStatus(CMyShellBrowser& browser, const std::wstring& text) = 0;
    virtual void BrowserFreeSpace(CMyShellBrowser& browser, const std::wstring& text) = 0;
    virtual void ShowBackgroundMenu(POINT screenPoint) = 0;
    virtual void ToggleFilterBox() = 0;
    virtual void BrowserFocused(CMyShellBrowser& browser) = 0;  // its list took the keyboard focus
    virtual int ViewNumber() const = 0;  // counted from 0
    // The view filter's switches that travel with the history entries.
    virtual ViewFilterState FilterState() const { return {}; }
    // The filter the view lists its folder through; null: every item is listed.
    virtual const ViewFilter* Filter() const { return nullptr; }
    // Back or forward became possible or impossible.
    virtual void HistoryChanged(CMyShellBrowser& browser) {}
    // The selection or the focused item of its list changed.
    virtual void SelectionChanged(CMyShellBrowser& browser) {}
    // F5 listed the folder again: the tree reads its levels again too.
    virtual void BrowserRefreshed(CMyShellBrowser& browser) {}
    // Other programs changed the folder shown, and the view listed it again.
    virtual void BrowserFolderChanged(CMyShellBrowser& browser) {}
    // A folder takes long to list: `text` says so, drawn at once (the GUI thread is busy).
    virtual void BrowserProgress(CMyShellBrowser& browser, const std::wstring& text) {}
    // The folder of a tab being dragged anywhere in the program; null when no tab is dragged.
    virtual PCIDLIST_ABSOLUTE DraggedTabFolder() const { return nullptr; }
};

inline constexpr UINT kMsgQueryBrowser = WM_USER + 7;
inline constexpr UINT kMsgShellChange = WM_USER + 0xCF0;
inline constexpr UINT kMsgDirectoryChange = WM_USER + 0xCF1;
inline constexpr UINT kMsgQueryItem = WM_USER + 0xE1;
inline constexpr UINT kMsgViewOwnChangeNotice = WM_USER + 0x1111;  // the change notices Wine's view registers for itself
inline constexpr UINT kMsgOpenDroppedFolder = WM_APP + 0x123;  // a tab was dropped on the list
inline constexpr UINT kMsgStatusReady = WM_APP + 0x120;
inline constexpr UINT kMsgFolderSizes = WM_APP + 0x122;  // sizes are in the cache; wParam 1: all
inline constexpr UINT_PTR kTimerFolderSizes = 10012;  // a change in the folder: measure again once it settles
inline constexpr UINT_PTR kTimerSizeCells = 10013;  // the next few size cells to draw
inline constexpr UINT_PTR kTimerFollowDisk = 10014;  // outside changes settled: list the folder again
inline constexpr UINT_PTR kTimerFitColumns = 10015;  // columns no memory sized: fit them once rows are listed
inline constexpr int kSizeCellsPerPaint = 1;
inline constexpr UINT kSizeCellsPause = 20;  // ms

class CMyShellBrowser : public win::Window, public IShellBrowser, public ICommDlgBrowser2 {
public:
    CMyShellBrowser(IBrowserOwner& owner, std::wstring columnSection, HWND filterBox);
    bool Create(HWND parent);

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    // IShellBrowser
    STDMETHODIMP InsertMenusSB(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenuSB(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenusSB(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusTextSB(LPCWSTR) override { return S_OK; }
    STDMETHODIMP EnableModelessSB(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAcceleratorSB(MSG*, WORD) override { return S_FALSE; }
    STDMETHODIMP BrowseObject(PCUIDLIST_RELATIVE pidl, UINT flags) override;
    STDMETHODIMP GetViewStateStream(DWORD mode, IStream** stream) override;
    STDMETHODIMP GetControlWindow(UINT id, HWND* window) override;
    STDMETHODIMP SendControlMsg(UINT id, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    STDMETHODIMP QueryActiveShellView(IShellView** view) override;
    STDMETHODIMP OnViewWindowActive(IShellView*) override { return S_OK; }
    STDMETHODIMP SetToolbarItems(LPTBBUTTONSB, UINT, UINT) override { return S_OK; }
    // ICommDlgBrowser
    STDMETHODIMP OnDefaultCommand(IShellView* view) override;
    STDMETHODIMP OnStateChange(IShellView* view, ULONG change) override;
    STDMETHODIMP IncludeObject(IShellView* view, PCUITEMID_CHILD item) override;
    // ICommDlgBrowser2: only the view flags matter, for hidden files
    STDMETHODIMP Notify(IShellView*, DWORD) override { return S_OK; }
    STDMETHODIMP GetDefaultMenuText(IShellView*, LPWSTR, int) override { return S_FALSE; }
    STDMETHODIMP GetViewFlags(DWORD* flags) override;
    // Hidden files were switched on or off: the active tab lists its folder again, the others
    // when they show.
    void HiddenFilesChanged(bool activeTab);

    // Navigation. The caller's list is taken over in every case.
    int NavigateTo(win::UniquePidl pidl, bool fromHistory, bool counted);
    int NavigateToText(const std::wstring& text);
    int BrowseFolder(bool counted);
    HRESULT RefreshView();
    // A new view of the folder shown, listed once, with columns and sort kept (a filter changed).
    void ListAgain();
    void NavigateUp();
    void SelectAfterUp(PCIDLIST_ABSOLUTE child);
    HWND GetListControl() const;

    // Column and view-mode memory.
    void LoadColumnMemory();
    void SaveColumnMemory();
    std::wstring GetEncodedViewState(std::wstring* key = nullptr);
    std::wstring ColumnKeyOf(PCIDLIST_ABSOLUTE folder, IShellFolder* shellFolder) const;
    ColumnStore& Columns() { return columns_; }

    // State for the panel and the tests.
    PCIDLIST_ABSOLUTE Current() const { return shown_.get(); }
    win::UniquePidl FocusedItem() const;  // absolute; null when no item has the focus
    std::wstring CurrentPath() const { return currentName_; }
    IShellView* View() const { return view_.get(); }
    HWND ViewWindow() const { return viewWindow_; }
    const std::wstring& StatusText() const { return statusText_; }
    const std::wstring& FreeSpaceText() const { return freeSpaceText_; }
    int HistoryIndex() const { return history_.Current(); }
    const NavigationHistory& History() const { return history_; }

    // History: jumps, back and forward, the menus of the back and forward buttons.
    int GoToEntry(int index);  // 0 when refused (a jump is running somewhere)
    void GoBack();
    void GoForward();
    void ClearHistory();
    // Nearest entry first, each with its index + 1 as command; the clear item ends it.
    win::UniqueMenu BuildHistoryMenu(bool forward) const;
    void RunHistoryCommand(UINT command);
    void ShowHistoryMenu(bool forward, POINT screenPoint);
    // Hands this view's folder to another: with its view settings and columns, its history and
    // its selection as chosen.
    void TransferTo(CMyShellBrowser& target, bool viewSettings, bool history, bool selection);
    // The other view's history, its shown folder's entry as it is now included (a tab moved here).
    void TakeHistoryOf(CMyShellBrowser& source);
    // The history with the shown folder's entry as it is now, to be kept after the view closes.
    NavigationHistory HistoryToKeep();
    void AdoptHistory(const NavigationHistory& history);  // after navigating to its current folder
    // The file-system paths of the selected items that still exist.
    std::vector<std::wstring> SelectedPaths() const;
    // Copies or moves the files into the folder shown and lists it again; false when nothing was done.
    bool TakeFiles(const ClipboardFiles& files);
    // Lists the folder again with selection, focus and scroll position kept.
    void RefreshKeepingPlace();
    // The identifiers of the selected items; empty when nothing is selected.
    std::vector<ItemBytes> SelectedItems() const;
    // The selected or all items of the view in list order, asked of the view in one call.
    void ForEachViewItem(bool selectedOnly, const std::function<void(PCUITEMID_CHILD)>& take) const;
    IShellFolder* ShownFolder() const { return shownFolder_.get(); }
    // Selects the listed ones of `items`; the first found gets `firstFlags`, the others are added.
    void SelectItems(const std::vector<ItemBytes>& items,
                     UINT firstFlags = SVSI_SELECT | SVSI_DESELECTOTHERS | SVSI_ENSUREVISIBLE | SVSI_FOCUSED);
    const ShellChange& LastShellChange() const { return lastChange_; }
    void SetActive(bool active);  // shown and given the focus, or hidden and deactivated
    // What the list shows, for an export: captions, widths and every row.
    ExportTable ListTable() const;
    IDropTarget* ListDropTarget() const;  // the target in front of the list's own; null without a list
    bool FolderSizesRunning() const { return sizeWorker_.Running(); }
    int FoldersMeasured() const { return sizeWorker_.Measured(); }  // by the latest walk
    int DiskFollows() const { return diskFollows_; }  // how often outside changes were listed
    int StatusRuns() const { return statusRuns_; }    // how often the status was worked out
    ListingProgress& Listing() { return listing_; }  // the tests ask for signs of work sooner
    // The view and list colours after the colour rules or the T-View in use changed.
    void SetInUseColours(bool inUse);
    // Its tab was closed: the view, its watchers, workers and timers end, and the folder and
    // history are let go, so that a reused slot starts as a new tab does.
    void Close();
    bool closed = false;  // kept by the panel for reuse
    bool busy = false;
    void RequestStatus() { statusRequested_ = true; }
    // The view mode and flags the next navigation uses, whatever the views before had.
    void SetOneShotSettings(const FOLDERSETTINGS& settings) {
        oneShotSettings_ = settings;
        oneShot_ = true;
    }
    FOLDERSETTINGS CurrentSettings() const;  // of the shown view; details when none
    // Later steps for callers that must let the current message finish first.
    void DelayedRenavigate(UINT milliseconds);
    void DelayedFocus(UINT milliseconds);
    void DelayedReselect(win::UniquePidl item, UINT milliseconds);  // dropped when 5 s have passed
    void Execute(int command);  // view commands of the toolbars and menus
    // A quick-link or program entry: placeholders filled in, a folder opened here, a program started.
    bool RunUserCommand(const std::wstring& command);
    std::wstring ExpandCommand(const std::wstring& command) const;  // variables and placeholders filled in
    bool OpenByAssociation(const std::wstring& filePath);  // false when no entry names the type
    // Carries out a command of a context menu built with ids from 1; false when it failed.
    bool RunMenuCommand(IContextMenu* menu, UINT offset);
    void ShowViewModeMenu(POINT screenPoint);

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    ~CMyShellBrowser() override;  // released through Release; tests derive to reach the hooks

private:
    void OnTimer(UINT_PTR id);
    void OnStatusReady(WPARAM job);
    void OnShellChange(WPARAM wParam, LPARAM lParam);
    void RegisterChangeNotify();
    void TearDownView();

    // Outside changes where the shell does not report them: the watcher and the refresh.
    void StartDirectoryWatch();
    void OnDirectoryChange(const DirChange* change);
    void FollowDisk();
    bool HarvestStreams();
    bool SwapInView(win::ComPtr<IShellFolder> folder, FOLDERSETTINGS settings, bool counted);
    FOLDERSETTINGS NextFolderSettings() const;
    void RecordOutgoingState();
    void PutDropTargetOnList(HWND list);
    std::wstring DropFolderAt(POINTL screen) const;
    void CaptureOutgoingState();  // view settings, selected count and filter text of the view
    void RecordHistoryEntry();
    std::wstring FilterText() const;
    void AfterViewCreated();
    std::wstring FolderPathForStatus() const;

    // The list's colours and fonts, drawn by the colour rules.
    static LRESULT ViewProc(HWND, UINT, WPARAM, LPARAM, void* data);
    LRESULT OnListCustomDraw(NMLVCUSTOMDRAW* draw);
    int QueryItemColour(int index, int* flags) const;
    IShellFolder* ListedFolder() const;  // the folder being listed or shown
    void ApplyBackground();

    // Folder sizes: the walk of the folder shown, its results in the size column.
    void StartFolderSizes();
    void PauseFolderSizes();
    // A change at `path`: the listed folder it lies in is measured again once changes settle.
    void NoteSizeChange(const std::wstring& path);
    void MeasureChangedSizes();
    void OnFolderSizes();
    void AnswerSizeText(NMLVDISPINFOW* info);
    std::wstring SizeTextOf(int row) const;  // the measured size of a folder's row, or ""
    void PutFolderSizes(ExportTable& table) const;
    std::wstring UpperNameOf(int row) const;  // the row's file name, upper-cased

    // Context menus, keyboard and the clipboard of the list.
    static LRESULT ListProc(HWND, UINT, WPARAM, LPARAM, void* data);
    bool OnListKey(WPARAM key);
    void OnListContextMenu(HWND list, LPARAM lParam);
    void RunItemMenu(POINT screenPoint);
    void PasteFiles();
    void NewFolder();
    void InvokeSelectionVerb(const char* verb);

    std::atomic<ULONG> references_{1};
    IBrowserOwner& owner_;
    std::wstring columnSection_;
    HWND filterBox_;

    win::ComPtr<IShellView> view_;
    HWND viewWindow_ = nullptr;
    HWND subclassedList_ = nullptr;
    HWND subclassedView_ = nullptr;
    IDropTarget* listDrop_ = nullptr;  // registered on dropList_, which holds it while registered
    HWND dropList_ = nullptr;
    win::UniquePidl droppedFolder_;    // a tab's folder dropped on the list, opened once the drop returned
    win::ComPtr<IFolderView> folderView_;  // of view_, for the items the list draws
    win::UniquePidl target_;  // the folder asked for
    win::ComPtr<IShellFolder> targetFolder_;  // bound while a navigation runs
    win::UniquePidl shown_;   // the folder the view shows
    win::ComPtr<IShellFolder> shownFolder_;
    win::UniquePidl previous_;
    win::ComPtr<IShellFolder> previousFolder_;
    std::wstring currentName_;

    const FOLDERSETTINGS* callerSettings_ = nullptr;
    bool oneShot_ = false;
    FOLDERSETTINGS oneShotSettings_{FVM_DETAILS, 0};
    struct Outgoing {
        FOLDERSETTINGS settings{FVM_DETAILS, 0};
        std::wstring filterText;
        int selectedCount = 0;
    } outgoing_;

    NavigationHistory history_;
    int jumpIndex_ = -1;         // the entry a running jump goes to
    FOLDERSETTINGS jumpSettings_{FVM_DETAILS, 0};
    bool navigating_ = false;
    bool firstNavigationDone_ = false;
    bool suppressClick_ = false;
    bool viewSaved_ = false;
    bool inUse_ = false;  // the browser view of the T-View in use
    UINT uiState_ = SVUIA_ACTIVATE_NOFOCUS;
    COLORREF colors_[4] = {};
    // The column the list is sorted by, as its header was clicked; kept while the folder stays.
    struct ListSort {
        int column = -1;  // -1: the view's own order
        bool ascending = true;
        bool byView = false;  // the view told its sort column
        SORTCOLUMN viewColumn{};
    } sort_;
    void FollowColumnClick(int column);
    ListSort SortToKeep() const;
    void ApplySort(const ListSort& want);

    std::wstring statusText_;
    ListingProgress listing_;
    void ShowListingProgress();
    std::wstring notice_;  // said before the counts until the next navigation or selection
    bool LeaveIfGone();
    std::wstring freeSpaceText_;
    ULONG notifyId_ = 0;
    ShellChange lastChange_;
    CMyReadDirectoryChanges dirWatch_;
    bool followArmed_ = false;
    FollowPace followPace_;
    bool diskStale_ = false;     // changed while hidden
    int diskFollows_ = 0;
    int statusRuns_ = 0;
    win::UniquePidl reselect_;
    time_t reselectTime_ = 0;

    ColumnStore columns_;
    struct PendingStream {
        bool history;
        int historyIndex;
        std::wstring key;
        win::ComPtr<IStream> stream;
    };
    std::vector<PendingStream> pendingStreams_;

    int tickCount_ = 0;
    int selectionMark_ = -1;
    bool statusRequested_ = false;
    StatusWorker statusWorker_;
    FolderSizeWorker sizeWorker_;
    int sizeColumn_ = -1;
    bool relistWhenShown_ = false;  // hidden files were switched while the tab was not shown
    bool hiddenMayArrive_ = true;   // the system lists hidden items, so the view may offer them
    bool columnsRemembered_ = false;  // the view read its columns from a memory or the history
    int columnFitTries_ = 0;
    std::set<std::wstring> sizesShown_;  // rows whose measured size was drawn
    std::set<std::wstring> sizesChanged_;  // listed folders to measure again
    bool sizesAllChanged_ = false;
};

// A shell change notice as the registration delivers it.
ShellChange ReadShellChange(WPARAM wParam, LPARAM lParam);

// The font of the first list shown, shared by the program.
HFONT ProgramListFont();

}  // namespace tessel
