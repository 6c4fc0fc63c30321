#pragma once
// A T-View as the user sees it: its location line, filter box, optional folder tree, status
// bar with the toolbars, and the browser views of its tabs, one of them active and shown.
#include <array>
#include <functional>
#include <string>

#include <memory>

#include "nav/address_bar_win.h"
#include "nav/folder_tree_win.h"
#include "features/view_filter.h"
#include "nav/tab_view_win.h"
#include "features/quick_links.h"
#include "panel/browser_slots.h"
#include "panel/closed_tabs.h"
#include "panel/filter_switch_bar_win.h"
#include "panel/menu_icons_win.h"
#include "view/shell_browser_win.h"
#include "panel/status_highlight_win.h"
#include "panel/view_toolbars_win.h"
#include "win/com_ptr_win.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

inline constexpr int kTreeId = 4567;
inline constexpr int kFilterBoxId = 4568;
// Typing in the filter box lists the folder again once the typing pauses this long.
inline constexpr UINT_PTR kFilterPauseTimer = 4568;
inline constexpr UINT kFilterPauseMs = 300;

class CPloder : public win::Window, public IBrowserOwner, public ITabOwner {
public:
    explicit CPloder(int viewIndex);  // counted from 0
    ~CPloder() override;
    bool Create(HWND parent);

    // Navigation of the active tab (the first navigation opens the first tab); false leaves the
    // view as it was.
    bool NavigateToText(const std::wstring& path);
    bool NavigateToSpecial(int csidl);
    bool NavigateTo(win::UniquePidl folder);
    CCBrowserTabView& Tabs() { return *tabs_; }
    // Tab commands of the keyboard: a new tab on the current folder, close, next and previous.
    void NewTab();
    void OpenTab(win::UniquePidl folder);  // a new tab at the end of the strip, selected
    // The filter box shown with this text, as a search favorite reopens its folder.
    void ShowFilter(const std::wstring& text);
    const std::wstring& FilterText() const { return filterText_; }
    void CloseCurrentTab();
    void NextTab(int step);
    bool HasLocation() const;
    int ViewNumber() const override { return viewIndex_; }
    void Refresh();
    void ShowLanguage();  // the panel's own texts and the status, in the language now chosen
    // Hidden files were switched for all T-Views: the lists and the toolbar button follow.
    void HiddenFilesChanged();

    CMyShellBrowser* GetOrCreateBrowser();
    void CloseBrowser(CMyShellBrowser* browser);
    void Activate(CMyShellBrowser* browser);
    // The shown tab's browser view; a view left for later is made first.
    CMyShellBrowser* Active() {
        MakeLaterView();
        return active_;
    }
    // At start the T-Views not in use open their tabs and view just after the window shows, or as
    // soon as anything needs them; until then the T-View counts as having a location.
    void OpenLater(std::function<void()> work) { laterWork_ = std::move(work); }
    void MakeLaterView();
    int BrowserCount() const { return count_; }
    const std::wstring& SectionName() const { return sectionName_; }
    const std::wstring& ColumnSection() const { return columnSection_; }
    const ViewFilter* Filter() const override { return &filter_; }
    // Takes the filter box's text as the filter and lists the folder again when that changes
    // what is shown; an empty text is remembered nowhere.
    void ApplyFilterText();
    HWND StatusBar() const { return statusBar_; }
    int ShowTree() const { return showTree_; }
    int TreeSplit() const { return treeSplit_; }  // the tree's width in ten-thousandths
    // The tree state a folder set gives: shown or not, and its width.
    void SetTreeState(int shown, int split);
    const ViewToolbars& Toolbars() const { return toolbars_; }
    ViewToolbars& Toolbars() { return toolbars_; }

    // IBrowserOwner
    void BrowserNavigated(CMyShellBrowser& browser) override;
    void BrowserProgress(CMyShellBrowser& browser, const std::wstring& text) override;
    void BrowserRefreshed(CMyShellBrowser& browser) override;
    void BrowserFolderChanged(CMyShellBrowser& browser) override;
    void BrowserStatus(CMyShellBrowser& browser, const std::wstring& text) override;
    void BrowserFreeSpace(CMyShellBrowser& browser, const std::wstring& text) override;
    void ShowBackgroundMenu(POINT screenPoint) override;
    // The shell's menu of the folder's background with the T-View's title item at the end.
    win::UniqueMenu BuildBackgroundMenu(win::ComPtr<IContextMenu>& menu);
    void ToggleFilterBox() override;
    void BrowserFocused(CMyShellBrowser& browser) override;
    void SelectionChanged(CMyShellBrowser& browser) override;
    PCIDLIST_ABSOLUTE DraggedTabFolder() const override;
    ViewFilterState FilterState() const override {
        const FilterSwitches& s = filter_.switches;
        return {s.by_filter, s.by_negativ, s.by_dir_filter, s.show_filter};
    }
    void HistoryChanged(CMyShellBrowser& browser) override;
    // Reads "show_tree" again (the frame's tree mode changed) and lays the panel out.
    void ReloadTreeState();
    CShellTree2& FolderTree() { return folderTree_; }

    // The address bar follows address_bar_mod and adresbar_style (made, restyled or removed).
    void ApplyAddressBarMode();
    CAdressBar* AddressBar() const { return addressBar_.get(); }
    void SetInUse(bool inUse);  // the T-View in use: its address bar is highlighted
    // Typed text of an address bar: false when it names no folder (the view stays).
    bool NavigateToTyped(const std::wstring& text);
    void ShowLocation(CAdressBar& bar) const;  // the active tab's folder, when it has one

    // The other T-Views, for transfers: the panel of an index from 0, null when there is none.
    using PeerLookup = std::function<CPloder*(int index)>;
    void SetPeers(PeerLookup peers) { peers_ = std::move(peers); }
    // ID_TRANSFER: the header, the three choices and the T-Views; ID_COPY_TO_VIEW and
    // ID_MOVE_TO_VIEW: the T-Views only. The own T-View and empty ones are disabled.
    win::UniqueMenu BuildTransferMenu(UINT kind) const;
    void RunTransferCommand(UINT kind, UINT command);
    CPloder* UsableTarget(int index) const;
    void ShowTransferMenu(UINT kind, POINT screenPoint);
    // The quick-links (ID_QUICK_LINKS_MENU) and programs (ID_PROGRAMS_MENU) menus.
    void ShowUserMenu(UINT command, POINT screenPoint);
    // The menu behind a toolbar button's arrow (view modes, history, transfer, the user's lists);
    // false for a button without one.
    bool ShowToolbarMenu(int command, POINT screenPoint);
    void ShowHiddenButtons();  // the chevron: the buttons that have no room
    void RunUserMenuCommand(UINT command);
    void RefreshUserMenuButtons();

    // ITabOwner
    CMyShellBrowser* CreateTabBrowser(const TabRecord& tab) override;
    void ShowTabBrowser(CMyShellBrowser* browser) override { Activate(browser); }
    bool CloseTabBrowser(CMyShellBrowser* browser) override;
    void TabsChanged() override { Layout(); }
    void TabClosing(const TabRecord& tab, int index) override;
    std::vector<std::wstring> ClosedTabLabels() const override;
    void ReopenClosedTab(size_t position = 0) override;

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool OnCreate();
    void ReadFilterValues();
    void InitFilterBox();
    void OnFilterBoxChanged();
    void OnFilterBoxFocused();
    void FlipFilterSwitch(int command);
    void Layout();
    int StatusTextNeed(const std::wstring& text) const;
    void PlaceStatusParts();
    LRESULT OnNotify(NMHDR* header);
    bool MeasureUserMenuItem(MEASUREITEMSTRUCT* item);
    bool DrawUserMenuItem(DRAWITEMSTRUCT* item);

    int viewIndex_;
    std::wstring sectionName_;
    std::wstring name_;
    std::wstring columnSection_;
    std::array<win::ComPtr<CMyShellBrowser>, kBrowserSlots> browsers_;
    int count_ = 0;
    CMyShellBrowser* active_ = nullptr;
    ViewFilter filter_;
    std::wstring filterText_;  // the text the tokens were made from
    bool filterSuggestions_ = false;
    int showTree_ = 0;
    int treeSplit_ = 2500;

    HWND tree_ = nullptr;
    HWND filterBox_ = nullptr;
    HWND location_ = nullptr;    // first static: where the view is
    HWND filterLabel_ = nullptr;  // second static: the filter box's label
    HWND treeEdge_ = nullptr;     // third static: the edge between tree and list
    HWND statusBar_ = nullptr;
    FilterSwitchBar filterSwitches_;  // beside the filter box
    ClosedTabs closedTabs_;
    int statusNeed_ = 0;  // what the status text needs of the status bar's width
    ViewToolbars toolbars_;
    StatusHighlight statusHighlight_;
    std::unique_ptr<CCBrowserTabView> tabs_;
    CShellTree2 folderTree_;
    PeerLookup peers_;
    std::unique_ptr<CAdressBar> addressBar_;
    bool inUse_ = false;
    bool selectionNoticed_ = false;  // a selection change is on its way to the main frame
    std::function<void()> laterWork_;
    std::vector<QuickLinkEntry> menuEntries_;  // of the quick-links or programs menu while it is open
    std::unique_ptr<MenuIcons> menuIcons_;  // made when a menu is first drawn
    void ShowFoundMenuIcons();
    void ShowStatusText(const std::wstring& text);  // part 0, whole as its tip when cut
};

// An address bar whose choices go to the panel `target` names at the moment they are made.
std::unique_ptr<CAdressBar> MakeAddressBar(HWND parent, int id, std::function<CPloder*()> target);

// Sent to the main frame when a T-View takes the keyboard focus; wParam is its index from 0.
inline constexpr UINT kMsgViewFocused = WM_APP + 0x130;
// Sent to the main frame when a T-View's shown folder changed; wParam is its index from 0.
inline constexpr UINT kMsgViewNavigated = WM_APP + 0x131;
// Posted to the main frame when the selection of a T-View's shown list changed.
inline constexpr UINT kMsgViewSelection = WM_APP + 0x132;
// Posted to a T-View when icons of its quick-links or programs menus were found.
inline constexpr UINT kMsgMenuIconsFound = WM_APP + 0x134;
// Posted by a T-View to itself: the selection changes of one burst are told once.
inline constexpr UINT kMsgSelectionSettled = WM_APP + 0x133;

}  // namespace tessel
