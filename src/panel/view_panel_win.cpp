#include "panel/view_panel_win.h"

#include <commctrl.h>
#include <shlobj.h>
#include <windowsx.h>

#include <cwchar>
#include <utility>

#include "core/fill_in.h"
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/path_text.h"
#include "core/settings_store_win.h"
#include "nav/address_input_win.h"
#include "nav/tab_ctrl_win.h"
#include "res/resource.h"
#include "view/column_memory.h"
#include "view/location_text.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"
#include "win/shell_menu_win.h"

namespace tessel {
namespace {

constexpr int kLocationId = 4569;
constexpr int kFilterLabelId = 4570;
constexpr int kTreeEdgeId = 4571;
constexpr int kStatusBarId = 4572;
constexpr int kAddressBarId = 4573;
constexpr UINT kFirstMenuId = 1;
constexpr UINT kLastMenuId = 32767;

// The system version that names the column sections; ntdll tells the truth where the
// version functions are shimmed.
void SystemVersion(int& major, int& minor) {
    major = 10;
    minor = 0;
    using RtlGetVersionFn = LONG(WINAPI*)(OSVERSIONINFOW*);
    auto getVersion = reinterpret_cast<RtlGetVersionFn>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    OSVERSIONINFOW info{sizeof(info)};
    if (getVersion && getVersion(&info) == 0) {
        major = static_cast<int>(info.dwMajorVersion);
        minor = static_cast<int>(info.dwMinorVersion);
    }
}

HWND Child(const wchar_t* className, DWORD style, DWORD exStyle, HWND parent, int id, const wchar_t* text = L"") {
    return CreateWindowExW(exStyle, className, text, WS_CHILD | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

}  // namespace

CPloder::CPloder(int viewIndex) : viewIndex_(viewIndex) {
    wchar_t text[64];
    std::swprintf(text, 64, L"T_View_%d", viewIndex_);
    sectionName_ = text;
    std::swprintf(text, 64, L"TView%d", viewIndex_ + 1);
    name_ = text;
    int major = 0, minor = 0;
    SystemVersion(major, minor);
    columnSection_ = ColumnSectionName(major, minor, name_);
}

CPloder::~CPloder() {
    // The browser windows are children: they go with the panel's window, the objects with the slots.
    if (hwnd()) DestroyWindow(hwnd());
}

bool CPloder::Create(HWND parent) {
    return CreateWindowOf(L"TesselViewPanel", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, L"", 0, 0, 0,
                          0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(1000 + viewIndex_ + 1))) != nullptr;
}

bool CPloder::OnCreate() {
    // No item tooltips: each is a popup window of its own, costly to make for a mostly hidden tree.
    tree_ = Child(WC_TREEVIEWW, WS_CLIPSIBLINGS | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS,
                  WS_EX_CLIENTEDGE, hwnd(), kTreeId);
    filterBox_ = Child(L"EDIT", WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, hwnd(), kFilterBoxId);
    ReadFilterValues();
    InitFilterBox();
    filterSwitches_.Create(hwnd());
    filterSwitches_.Show(filter_.switches);
    location_ = Child(L"STATIC", WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS | SS_CENTERIMAGE, 0, hwnd(),
                      kLocationId);
    filterLabel_ = Child(L"STATIC", SS_LEFT | SS_CENTERIMAGE, 0, hwnd(), kFilterLabelId,
                         GetText(IDS_FILTER_LABEL).c_str());
    treeEdge_ = Child(L"STATIC", SS_ETCHEDVERT, 0, hwnd(), kTreeEdgeId);
    // The toolbars leave the text little room: a cut text shows whole as the part's tip.
    statusBar_ = Child(STATUSCLASSNAMEW, WS_VISIBLE | WS_CLIPCHILDREN | CCS_NOPARENTALIGN | CCS_NORESIZE | SBARS_TOOLTIPS,
                       0, hwnd(), kStatusBarId);
    toolbars_.Create(hwnd(), statusBar_);
    statusHighlight_.Attach(statusBar_);
    RefreshUserMenuButtons();
    tabs_ = std::make_unique<CCBrowserTabView>(*this, hwnd());
    folderTree_.Attach(tree_, [this](PCIDLIST_ABSOLUTE folder) { NavigateTo(win::ClonePidl(folder)); });
    HFONT font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    for (HWND child : {filterBox_, location_, filterLabel_})
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    ApplyAddressBarMode();
    return true;
}

void CPloder::ReadFilterValues() {
    ISettingsStore& settings = Settings();
    ReadFilterSwitches(settings, sectionName_, filter_.switches);
    showTree_ = settings.GetInt(sectionName_, L"show_tree", showTree_);
}

CMyShellBrowser* CPloder::GetOrCreateBrowser() {
    std::array<bool, kBrowserSlots> closed{};
    for (int i = 0; i < count_; ++i) closed[i] = browsers_[i]->closed;
    const SlotChoice choice = ChooseBrowserSlot(closed, count_);
    if (choice.kind == SlotChoice::kRefused) {
        MessageBoxW(hwnd(), L"Max=16", GetText(60000).c_str(), MB_OK | MB_ICONINFORMATION);
        return nullptr;
    }
    if (choice.kind == SlotChoice::kReuse) {
        browsers_[choice.slot]->closed = false;
        browsers_[choice.slot]->busy = false;
        return browsers_[choice.slot].get();
    }
    auto* browser = new CMyShellBrowser(*this, columnSection_, filterBox_);
    win::ComPtr<CMyShellBrowser> held;
    *held.put() = browser;  // takes the creation reference
    if (!browser->Create(hwnd())) return nullptr;
    ShowWindow(browser->hwnd(), SW_HIDE);
    browser->LoadColumnMemory();
    browser->SetInUseColours(inUse_);
    browsers_[choice.slot] = held;
    ++count_;
    return browser;
}

void CPloder::CloseBrowser(CMyShellBrowser* browser) {
    if (!browser) return;
    browser->closed = true;
    browser->busy = true;
    browser->Close();
    if (active_ == browser) active_ = nullptr;
}

void CPloder::MakeLaterView() {
    if (std::function<void()> work = std::exchange(laterWork_, nullptr)) work();
}

void CPloder::Activate(CMyShellBrowser* browser) {
    if (active_ && active_ != browser) active_->SetActive(false);
    active_ = browser;
    Layout();
    if (active_) {
        active_->SetActive(true);
        BrowserNavigated(*active_);
    }
}


bool CPloder::NavigateToText(const std::wstring& path) {
    if (tabs_->Count() > 0 && active_) return active_->NavigateToText(path);
    return NavigateTo(win::PidlFromPath(NormalizeLocationText(path)));
}

// A typed location that leads nowhere leaves the view where it was; the status says why.
bool CPloder::NavigateToTyped(const std::wstring& text) {
    win::UniquePidl folder = ResolveTypedAddress(text);
    if (folder && NavigateTo(std::move(folder)) && HasLocation()) return true;
    constexpr size_t kShownChars = 260;
    const std::wstring shown = text.size() > kShownChars ? text.substr(0, kShownChars) + L"..." : text;
    // A folder the shell refuses for the length of its path is told apart from one not there.
    const bool tooLong = text.size() >= MAX_PATH && win::PathExists(LongPathForm(text));
    const std::wstring why = FillIn(GetText(tooLong ? IDS_FOLDER_PATH_TOO_LONG : IDS_LOCATION_NOT_OPENED), {shown});
    ShowStatusText(why);
    return false;
}

std::unique_ptr<CAdressBar> MakeAddressBar(HWND parent, int id, std::function<CPloder*()> target) {
    auto bar = std::make_unique<CAdressBar>(
        [target](win::UniquePidl folder) {
            CPloder* panel = target();
            if (panel && panel->NavigateTo(std::move(folder)) && panel->Active()) SetFocus(panel->Active()->hwnd());
        },
        [target](const std::wstring& text) {
            CPloder* panel = target();
            return panel && panel->NavigateToTyped(text);
        });
    if (!bar->Create(parent, id)) return nullptr;
    return bar;
}

void CPloder::ShowLocation(CAdressBar& bar) const {
    if (active_ && active_->Current()) bar.SetPath(active_->Current());
}

// Made, restyled or removed; an existing bar shows its folder again, since an option of its
// drop-down may have changed.
void CPloder::ApplyAddressBarMode() {
    if (Options().address_bar_mod != 0) {
        addressBar_.reset();
    } else if (!addressBar_) {
        addressBar_ = MakeAddressBar(hwnd(), kAddressBarId, [this] { return this; });
        if (addressBar_) addressBar_->SetActive(inUse_);
    } else {
        addressBar_->SetStyle(Options().adresbar_style);
    }
    if (addressBar_) ShowLocation(*addressBar_);
    statusHighlight_.SetLit(inUse_ && Options().status_use_highlighted);  // its option sits on the bars' page
    Layout();
}

void CPloder::SetInUse(bool inUse) {
    inUse_ = inUse;
    if (addressBar_) addressBar_->SetActive(inUse);
    statusHighlight_.SetLit(inUse && Options().status_use_highlighted);
    for (int i = 0; i < count_; ++i) browsers_[i]->SetInUseColours(inUse);
}

bool CPloder::NavigateToSpecial(int csidl) { return NavigateTo(win::SpecialFolder(csidl)); }

bool CPloder::NavigateTo(win::UniquePidl folder) {
    if (!folder) return false;
    MakeLaterView();
    if (tabs_->Count() > 0 && active_) return active_->NavigateTo(std::move(folder), false, true) != 0;
    const int index = tabs_->InsertTab(std::move(folder));
    tabs_->Select(index);
    if (HasLocation()) return true;
    tabs_->CloseTab(index);  // the folder could not be shown: no tab for it
    return false;
}

CMyShellBrowser* CPloder::CreateTabBrowser(const TabRecord& tab) {
    CMyShellBrowser* browser = GetOrCreateBrowser();
    if (!browser) return nullptr;
    ApplyTabSettings(tab, *browser);
    browser->NavigateTo(win::ClonePidl(tab.folder.get()), false, true);
    return browser;
}

bool CPloder::CloseTabBrowser(CMyShellBrowser* browser) {
    CloseBrowser(browser);
    return true;
}

void CPloder::NewTab() {
    if (!active_ || !active_->Current()) return;
    tabs_->Select(tabs_->InsertTab(win::ClonePidl(active_->Current()), std::to_wstring(tabs_->Selected() + 1)));
}

void CPloder::OpenTab(win::UniquePidl folder) {
    if (folder && tabs_) tabs_->Select(tabs_->InsertTab(std::move(folder)));
}

void CPloder::CloseCurrentTab() { tabs_->CloseTab(tabs_->Selected(), true); }

void CPloder::TabClosing(const TabRecord& tab, int index) {
    PCIDLIST_ABSOLUTE folder = CurrentFolderOf(tab);
    if (!folder) return;
    ClosedTab closed;
    closed.folder = BytesOf(folder);
    closed.label = win::LocationNameOf(folder);
    closed.index = index;
    if (tab.browser) {
        closed.history = tab.browser->HistoryToKeep();
        closed.hasHistory = true;
    }
    closedTabs_.Remember(std::move(closed));
}

std::vector<std::wstring> CPloder::ClosedTabLabels() const {
    std::vector<std::wstring> labels;
    for (const ClosedTab& tab : closedTabs_.List()) labels.push_back(tab.label);
    return labels;
}

// The tab comes back where it stood, with the history it had.
void CPloder::ReopenClosedTab(size_t position) {
    ClosedTab tab;
    if (!tabs_ || !closedTabs_.Take(position, tab)) return;
    const int at = std::min(tab.index, tabs_->Count());
    const int index = tabs_->InsertTab(win::ClonePidl(reinterpret_cast<PCIDLIST_ABSOLUTE>(tab.folder.data())),
                                       std::to_wstring(at));
    tabs_->Select(index);
    TabRecord* record = tabs_->Record(index);
    if (tab.hasHistory && record && record->browser) record->browser->AdoptHistory(tab.history);
}

void CPloder::NextTab(int step) {
    const int count = tabs_->Count();
    if (count > 1) tabs_->Select((tabs_->Selected() + step + count) % count);
}

bool CPloder::HasLocation() const { return laterWork_ || (active_ && active_->Current()); }

void CPloder::HiddenFilesChanged() {
    toolbars_.Check(ID_VIEW_HIDDEN_FILES, Options().show_hidden != 0);
    for (auto& browser : browsers_)
        if (browser && browser->hwnd()) browser->HiddenFilesChanged(browser.get() == active_);
}

void CPloder::ShowLanguage() {
    SetWindowTextW(filterLabel_, GetText(IDS_FILTER_LABEL).c_str());
    for (int i = 0; i < count_; ++i) browsers_[i]->RequestStatus();
}

void CPloder::Refresh() {
    if (laterWork_) return MakeLaterView();  // listed fresh as it is made
    if (active_) active_->RefreshView();
}

void CPloder::BrowserNavigated(CMyShellBrowser& browser) {
    tabs_->UpdateTab(&browser, browser.Current());
    if (&browser != active_) return;
    const std::wstring name = browser.CurrentPath();
    SetWindowTextW(hwnd(), name.c_str());  // readable by tests and accessibility tools
    wchar_t title[64];
    std::swprintf(title, 64, GetText(IDS_VIEW_NUMBER).c_str(), viewIndex_ + 1);
    SetWindowTextW(location_, (std::wstring(title) + L":  " + name).c_str());
    if (addressBar_) addressBar_->SetPath(browser.Current());
    SendMessageW(GetParent(hwnd()), kMsgViewNavigated, viewIndex_, 0);  // the frame's bar and tree follow
    if (showTree_ == 1 && Options().tree_auto_sel) folderTree_.SyncTo(browser.Current());
    HistoryChanged(browser);
}

void CPloder::HistoryChanged(CMyShellBrowser& browser) {
    if (&browser == active_)
        toolbars_.EnableHistory(browser.History().CanGoBack(), browser.History().CanGoForward());
}

void CPloder::ShowStatusText(const std::wstring& text) {
    const int need = StatusTextNeed(text);
    if (need != statusNeed_) {
        statusNeed_ = need;
        PlaceStatusParts();
    }
    SendMessageW(statusBar_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
    SendMessageW(statusBar_, SB_SETTIPTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

// The width the status text needs, in steps of a few characters so that a changing count does
// not move the toolbars at every selection change.
int CPloder::StatusTextNeed(const std::wstring& text) const {
    const int step = win::Scaled(hwnd(), 24);
    SIZE extent{};
    if (HDC dc = GetDC(statusBar_)) {
        HFONT font = reinterpret_cast<HFONT>(SendMessageW(statusBar_, WM_GETFONT, 0, 0));
        HGDIOBJ old = SelectObject(dc, font ? font : GetStockObject(DEFAULT_GUI_FONT));
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
        SelectObject(dc, old);
        ReleaseDC(statusBar_, dc);
    }
    const int need = extent.cx + win::Scaled(hwnd(), 12);  // the part's borders and margins
    return std::max(win::Scaled(hwnd(), 90), (need + step - 1) / step * step);
}

// The status text gets the room it needs first; the toolbars take the rest.
void CPloder::PlaceStatusParts() {
    RECT bar{};
    GetClientRect(statusBar_, &bar);
    const int toolbarWidth = toolbars_.Place(statusBar_, std::max(statusNeed_, win::Scaled(hwnd(), 90)));
    int parts[2] = {std::max<int>(0, bar.right - toolbarWidth), -1};
    SendMessageW(statusBar_, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(parts));
}

void CPloder::BrowserStatus(CMyShellBrowser& browser, const std::wstring& text) {
    if (&browser == active_) ShowStatusText(text);
}

void CPloder::BrowserRefreshed(CMyShellBrowser& browser) {
    if (&browser == active_ && showTree_ == 1) folderTree_.Refresh();
}

void CPloder::BrowserFolderChanged(CMyShellBrowser& browser) {
    if (showTree_ == 1 && browser.Current()) folderTree_.Reread(browser.Current());
}

// Drawn at once: the listing holds the GUI thread, so no paint message would come meanwhile.
void CPloder::BrowserProgress(CMyShellBrowser& browser, const std::wstring& text) {
    if (&browser != active_) return;
    ShowStatusText(text);
    UpdateWindow(statusBar_);
}

// The main window shows the free space of the T-View that has the keyboard focus.
void CPloder::BrowserFreeSpace(CMyShellBrowser& browser, const std::wstring& text) {
    HWND frameStatus = GetDlgItem(GetAncestor(hwnd(), GA_ROOT), 59393);
    HWND focus = GetFocus();
    if (&browser == active_ && frameStatus && focus && (focus == hwnd() || IsChild(hwnd(), focus)))
        SendMessageW(frameStatus, SB_SETTEXTW, 3, reinterpret_cast<LPARAM>(text.c_str()));
}

win::UniqueMenu CPloder::BuildBackgroundMenu(win::ComPtr<IContextMenu>& menu) {
    win::UniqueMenu popup;
    if (!active_ || !active_->View() ||
        FAILED(active_->View()->GetItemObject(SVGIO_BACKGROUND, IID_IContextMenu, menu.put_void())))
        return popup;
    popup.reset(CreatePopupMenu());
    if (!popup || FAILED(menu->QueryContextMenu(popup.get(), 0, kFirstMenuId, kLastMenuId, CMF_NORMAL))) return {};
    wchar_t title[64];
    std::swprintf(title, 64, L"T-View : %d", viewIndex_ + 1);
    AppendMenuW(popup.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(popup.get(), MF_STRING | MF_DISABLED | MF_GRAYED, ID_BACKGROUND_TITLE, title);
    return popup;
}

void CPloder::ShowBackgroundMenu(POINT screen) {
    win::ComPtr<IContextMenu> menu;
    win::UniqueMenu popup = BuildBackgroundMenu(menu);
    if (!popup) return;
    HWND modes = toolbars_.Modes();
    if (modes) ShowWindow(modes, SW_HIDE);
    const UINT id = win::TrackShellMenu(popup.get(), TPM_RIGHTBUTTON, screen, hwnd(), menu.get());
    if (id >= kFirstMenuId && id <= kLastMenuId && active_) active_->RunMenuCommand(menu.get(), id - kFirstMenuId);
    SendMessageW(statusBar_, SB_SIMPLE, FALSE, 0);
    Layout();  // the mode toolbar comes back where there is room for it
}

void CPloder::BrowserFocused(CMyShellBrowser& browser) {
    BrowserFreeSpace(browser, browser.FreeSpaceText());
    PostMessageW(GetParent(hwnd()), kMsgViewFocused, viewIndex_, 0);
}

// Only the shown tab's list counts: the preview follows what the user sees. Selecting all of a
// large list changes every row one by one; one notice goes out once the burst is over.
void CPloder::SelectionChanged(CMyShellBrowser& browser) {
    if (&browser != Active() || selectionNoticed_) return;
    selectionNoticed_ = PostMessageW(hwnd(), kMsgSelectionSettled, 0, 0);
}

void CPloder::SetTreeState(int shown, int split) {
    showTree_ = shown;
    treeSplit_ = split;
    Layout();
}

void CPloder::ReloadTreeState() {
    showTree_ = Settings().GetInt(sectionName_, L"show_tree", showTree_);
    Layout();
}

// The filter acts only while its box is shown: showing or hiding it lists the folder again.
void CPloder::ToggleFilterBox() {
    FilterSwitches& switches = filter_.switches;
    switches.show_filter = switches.show_filter ? 0 : 1;
    Settings().PutInt(sectionName_, L"show_filter", switches.show_filter);
    Layout();
    if (switches.show_filter) SetFocus(filterBox_);
    if (switches.by_filter && !filter_.tokens.Empty() && active_) active_->ListAgain();
}

void CPloder::Layout() {
    RECT client;
    GetClientRect(hwnd(), &client);
    const int line = win::Scaled(hwnd(), 22);
    const int pad = win::Scaled(hwnd(), 4);
    const int barHeight = toolbars_.Height() + win::Scaled(hwnd(), 4);
    SendMessageW(statusBar_, SB_SETMINHEIGHT, barHeight, 0);
    SetWindowPos(statusBar_, nullptr, 0, client.bottom - barHeight, client.right, barHeight, SWP_NOZORDER);
    PlaceStatusParts();
    int top = 0;
    // The address bar takes the location line's place; without any bar the view gets the room.
    const bool locationLine = !addressBar_ && Options().address_bar_mod == 1;
    ShowWindow(location_, locationLine ? SW_SHOWNA : SW_HIDE);
    if (addressBar_) {
        const int height = addressBar_->Height();
        SetWindowPos(addressBar_->hwnd(), nullptr, 0, top, client.right, height, SWP_NOZORDER | SWP_SHOWWINDOW);
        top += height;
    } else if (locationLine) {
        SetWindowPos(location_, nullptr, pad, top, client.right - 2 * pad, line, SWP_NOZORDER);
        top += line;
    }
    if (const int strip = tabs_ ? tabs_->Height() : 0) {
        tabs_->RefreshStaleLabels();
        SetWindowPos(tabs_->Strip(), nullptr, 0, top, client.right, strip, SWP_NOZORDER | SWP_SHOWWINDOW);
        top += strip;
    } else if (tabs_) {
        ShowWindow(tabs_->Strip(), SW_HIDE);
    }
    const bool showFilter = filter_.switches.show_filter != 0;
    ShowWindow(filterLabel_, showFilter ? SW_SHOW : SW_HIDE);
    ShowWindow(filterBox_, showFilter ? SW_SHOW : SW_HIDE);
    ShowWindow(filterSwitches_.hwnd(), showFilter ? SW_SHOWNA : SW_HIDE);
    if (showFilter) {
        const int label = win::Scaled(hwnd(), 40);
        const int switches = filterSwitches_.Width();
        const int box = std::max<int>(0, client.right - 2 * pad - label - switches);
        SetWindowPos(filterLabel_, nullptr, pad, top, label, line, SWP_NOZORDER);
        SetWindowPos(filterBox_, nullptr, pad + label, top + 1, box, line - 2, SWP_NOZORDER);
        SetWindowPos(filterSwitches_.hwnd(), nullptr, pad + label + box, top, switches, line, SWP_NOZORDER | SWP_NOACTIVATE);
        top += line + pad / 2;
    }
    const int bottom = client.bottom - barHeight;
    int left = 0;
    ShowWindow(tree_, showTree_ == 1 ? SW_SHOW : SW_HIDE);
    ShowWindow(treeEdge_, showTree_ == 1 ? SW_SHOW : SW_HIDE);
    if (showTree_ == 1) {
        folderTree_.EnsureFilled();
        const int split = treeSplit_ >= 1 && treeSplit_ <= 9000 ? treeSplit_ : 2500;
        const int treeWidth = std::max<int>(win::Scaled(hwnd(), 120), static_cast<int>(int64_t{client.right} * split / 10000));
        SetWindowPos(tree_, nullptr, 0, top, treeWidth, bottom - top, SWP_NOZORDER);
        folderTree_.ShowSelection();
        SetWindowPos(treeEdge_, nullptr, treeWidth, top, pad, bottom - top, SWP_NOZORDER);
        left = treeWidth + pad;
    }
    if (active_)
        SetWindowPos(active_->hwnd(), nullptr, left, top, std::max<int>(0, client.right - left),
                     std::max<int>(0, bottom - top), SWP_NOZORDER | SWP_NOACTIVATE);
}

bool CPloder::ShowToolbarMenu(int command, POINT at) {
    if (command == ID_VIEW_MODES) {
        if (active_) active_->ShowViewModeMenu(at);
    } else if (command == ID_VIEW_BACK || command == ID_VIEW_FORWARD) {
        if (active_) active_->ShowHistoryMenu(command == ID_VIEW_FORWARD, at);
    } else if (command == ID_TRANSFER || command == ID_COPY_TO_VIEW || command == ID_MOVE_TO_VIEW) {
        ShowTransferMenu(command, at);
    } else if (command == ID_QUICK_LINKS_MENU || command == ID_PROGRAMS_MENU) {
        ShowUserMenu(command, at);
    } else {
        return false;
    }
    return true;
}

// A button chosen from the chevron acts as a click on it: a menu button opens its menu there.
void CPloder::ShowHiddenButtons() {
    const int command = toolbars_.TrackHiddenMenu(hwnd());
    if (!command) return;
    RECT chevron{};
    GetWindowRect(toolbars_.Chevron(), &chevron);
    const bool menuButton = command != ID_VIEW_BACK && command != ID_VIEW_FORWARD;
    if (!menuButton || !ShowToolbarMenu(command, {chevron.left, chevron.bottom}))
        SendMessageW(hwnd(), WM_COMMAND, MAKEWPARAM(command, BN_CLICKED), 0);
}

LRESULT CPloder::OnNotify(NMHDR* header) {
    if (tabs_ && tabs_->OnNotify(header)) return 0;
    if (LRESULT result = 0; folderTree_.OnNotify(header, result)) return result;
    if (LRESULT result = 0; toolbars_.OnNotify(header, result)) return result;
    if (header->code == TTN_GETDISPINFOW) {
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(header);
        static std::wstring tip;  // the tooltip reads it right after this message
        tip = ButtonTip(static_cast<int>(header->idFrom));
        info->lpszText = tip.data();
        return 0;
    }
    if (header->code == TBN_DROPDOWN) {
        auto* drop = reinterpret_cast<NMTOOLBARW*>(header);
        RECT button;
        SendMessageW(header->hwndFrom, TB_GETRECT, drop->iItem, reinterpret_cast<LPARAM>(&button));
        POINT at{button.left, button.bottom};
        ClientToScreen(header->hwndFrom, &at);
        ShowToolbarMenu(drop->iItem, at);
        return TBDDRET_DEFAULT;
    }
    return 0;
}

LRESULT CPloder::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        return OnCreate() ? 0 : -1;
    case WM_SIZE:
        Layout();
        return 0;
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == filterBox_ && HIWORD(wParam) == EN_CHANGE) OnFilterBoxChanged();
        if (reinterpret_cast<HWND>(lParam) == filterBox_ && HIWORD(wParam) == EN_SETFOCUS) OnFilterBoxFocused();
        if (lParam && HIWORD(wParam) != BN_CLICKED) break;  // notifications of the filter box
        if (LOWORD(wParam) == ID_TOOLBAR_MORE) {
            ShowHiddenButtons();
            return 0;
        }
        if (LOWORD(wParam) == ID_FILTER_INVERT || LOWORD(wParam) == ID_FILTER_FOLDERS) {
            FlipFilterSwitch(LOWORD(wParam));
            return 0;
        }
        if (LOWORD(wParam) == ID_VIEW_HIDDEN_FILES) {  // a switch of all T-Views: the frame's
            SendMessageW(GetAncestor(hwnd(), GA_ROOT), WM_COMMAND, ID_VIEW_HIDDEN_FILES, 0);
            return 0;
        }
        if (active_) active_->Execute(LOWORD(wParam));
        return 0;
    case WM_NOTIFY:
        return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case kMsgMenuIconsFound:
        ShowFoundMenuIcons();
        return 0;
    case kMsgSelectionSettled:
        selectionNoticed_ = false;
        PostMessageW(GetParent(hwnd()), kMsgViewSelection, viewIndex_, 0);
        return 0;
    case WM_MEASUREITEM:
        if (MeasureUserMenuItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam))) return TRUE;
        break;
    case WM_DRAWITEM:
        if (DrawUserMenuItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam))) return TRUE;
        break;
    case WM_SETFOCUS:
        if (CMyShellBrowser* browser = Active()) SetFocus(browser->hwnd());  // a view left for later is made now
        return 0;
    case WM_TIMER:
        if (wParam == kFilterPauseTimer) {
            KillTimer(hwnd(), kFilterPauseTimer);
            ApplyFilterText();
            return 0;
        }
        break;
    case WM_DESTROY:
        // The strip still exists here (children go after their parent's WM_DESTROY): its drop
        // target is revoked and its tab records freed while it can still be asked for them.
        tabs_.reset();
        break;
    case WM_CONTEXTMENU:
        if (reinterpret_cast<HWND>(wParam) == hwnd() || reinterpret_cast<HWND>(wParam) == location_) {
            POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            ShowBackgroundMenu(at);
            return 0;
        }
        break;
    }
    return Default(message, wParam, lParam);
}

PCIDLIST_ABSOLUTE CPloder::DraggedTabFolder() const { return CCBrowserTabCtrl::DraggedTabFolder(); }

}  // namespace tessel
