#pragma once
// The tab strip of a T-View: one tab per folder the view keeps open. Each tab owns its folder's
// item identifier list; its browser view is made the first time the tab is activated.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <memory>
#include <string>
#include <vector>

#include "win/com_ptr_win.h"
#include "win/handles_win.h"

namespace tessel {

class CMyShellBrowser;
class CCBrowserTabCtrl;
struct TabRecord;

inline constexpr int kTabStripId = 1000;

// Commands of a tab's context menu; each part of the menu has an id range of its own.
enum TabMenuId : UINT {
    kTabClose = 1, kTabRefresh, kTabDuplicate, kTabNewHere, kTabNewComputer,
    kTabReopenFirst = 20, kTabReopenLast = 29,                        // the recently closed tabs
    kTabWidthUncut = 50, kTabWidthFirst = 60, kTabWidthLast = 300,  // widths 60, 70, ... 300
    kTabFirstShellId = 1000, kTabLastShellId = 0x7FFF,                // the tab folder's shell menu
};

// What the strip asks of its panel.
class ITabOwner {
public:
    virtual ~ITabOwner() = default;
    virtual CMyShellBrowser* CreateTabBrowser(const TabRecord& tab) = 0;
    virtual void ShowTabBrowser(CMyShellBrowser* browser) = 0;
    virtual bool CloseTabBrowser(CMyShellBrowser* browser) = 0;  // false keeps the tab
    virtual void TabsChanged() = 0;  // the strip's height may have changed: lay out again
    // The user closes a tab (not a move or a folder set): its folder and history may be kept.
    virtual void TabClosing(const TabRecord& tab, int index) {}
    // The tabs closed last, newest first, and opening one of them again.
    virtual std::vector<std::wstring> ClosedTabLabels() const { return {}; }
    virtual void ReopenClosedTab(size_t position) {}
};

struct TabRecord {
    TabRecord() { ++live; }
    ~TabRecord() { --live; }
    TabRecord(const TabRecord&) = delete;
    TabRecord& operator=(const TabRecord&) = delete;
    static inline int live = 0;  // records in the program, for the leak tests

    CMyShellBrowser* browser = nullptr;
    win::UniquePidl folder;
    std::wstring position;
    // View settings and columns a folder set gave the tab, used when its browser view is made.
    bool hasSettings = false;
    FOLDERSETTINGS settings{};
    std::wstring columnKey, columnValue;
    bool labelStale = false;  // the folder changed while the strip was hidden
};

// The folder a tab shows now: its browser view's, or the one it was opened on.
PCIDLIST_ABSOLUTE CurrentFolderOf(const TabRecord& tab);
// Hands the view settings and columns a folder set gave the tab to the browser view that will
// show it, before it navigates.
void ApplyTabSettings(const TabRecord& tab, CMyShellBrowser& browser);

class CCBrowserTabView {
public:
    CCBrowserTabView(ITabOwner& owner, HWND panel);
    ~CCBrowserTabView();
    CCBrowserTabView(const CCBrowserTabView&) = delete;
    CCBrowserTabView& operator=(const CCBrowserTabView&) = delete;

    HWND Strip() const { return strip_; }
    int Count() const;
    int Selected() const;
    int InsertTab(win::UniquePidl folder, const std::wstring& position = L"");
    void UpdateTab(CMyShellBrowser* browser, PCIDLIST_ABSOLUTE folder);
    // Labels of folders that changed while the strip was hidden, made when it shows again.
    void RefreshStaleLabels();
    void Select(int index);  // selects and activates
    void ActivateTab();
    // `byUser`: the user closed it, so it can be opened again (a moved tab or a folder set's
    // replaced tabs cannot).
    bool CloseTab(int index, bool byUser = false);
    int DuplicateTab(int index, int target = -1);
    void MoveTab(int from, int to);
    TabRecord* Record(int index) const;
    int IndexOf(const CMyShellBrowser* browser) const;  // the tab showing it, or -1
    // The strip's height when shown under the current show_tabs mode, else 0.
    int Height() const;
    void ShowContextMenu(POINT screen, bool fromKeyboard);
    // Carries out a command of the context menu opened over tab `index` (-1: beside the tabs).
    void RunContextCommand(UINT command, int index, IContextMenu* shellMenu);
    // WM_NOTIFY from the strip; true when handled.
    bool OnNotify(NMHDR* header);
    static void RelayoutAll();  // every strip of the program, after show_tabs changed
    static void RelabelAll();   // every label cut again and every strip laid out, after the width options
    // A command of the width menu: 60..300 cuts labels to that width, 50 leaves them whole.
    void SetLabelWidth(int command);
    CCBrowserTabCtrl& Control() { return *control_.get(); }
    // While held, inserted tabs do not lay the panel out each; the panel is laid out once when the
    // last hold ends (a folder set opens many tabs at once).
    class LayoutHold {
    public:
        explicit LayoutHold(CCBrowserTabView& view) : view_(view) { ++view_.layoutHolds_; }
        ~LayoutHold() {
            if (--view_.layoutHolds_ == 0) view_.owner_.TabsChanged();
        }
        LayoutHold(const LayoutHold&) = delete;
        LayoutHold& operator=(const LayoutHold&) = delete;

    private:
        CCBrowserTabView& view_;
    };

private:
    static LRESULT CALLBACK StripProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    void SetLabel(int index, PCIDLIST_ABSOLUTE folder);
    void AppendWidthMenu(HMENU menu);
    void AppendClosedMenu(HMENU menu);
    void RunFolderVerb(int index, IContextMenu* menu, UINT offset);
    int TabAt(POINT client) const;

    ITabOwner& owner_;
    HWND strip_ = nullptr;
    win::ComPtr<CCBrowserTabCtrl> control_;
    CMyShellBrowser* shown_ = nullptr;
    int layoutHolds_ = 0;
};

}  // namespace tessel
