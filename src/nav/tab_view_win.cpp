#include "nav/tab_view_win.h"

#include <shellapi.h>
#include <shlobj.h>
#include <windowsx.h>

#include <vector>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "nav/tab_ctrl_win.h"
#include "res/resource.h"
#include "nav/tab_label.h"
#include "view/column_memory.h"
#include "view/file_clipboard_win.h"
#include "view/shell_browser_win.h"
#include "win/shell_item_win.h"
#include "win/shell_menu_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr int kLabelBuffer = 260;
std::vector<CCBrowserTabView*> g_strips;  // every strip of the program, for RelayoutAll

class DcMeasure : public ITextMeasure {  // the strip's device context as GetDC gives it
public:
    explicit DcMeasure(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~DcMeasure() override { ReleaseDC(window_, dc_); }
    int Width(std::wstring_view text) override {
        SIZE size{};
        GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

private:
    HWND window_;
    HDC dc_;
};

}  // namespace

PCIDLIST_ABSOLUTE CurrentFolderOf(const TabRecord& tab) {
    return tab.browser && tab.browser->Current() ? tab.browser->Current() : tab.folder.get();
}

void ApplyTabSettings(const TabRecord& tab, CMyShellBrowser& browser) {
    std::vector<uint8_t> bytes;
    if (!tab.columnKey.empty() && DecodeColumnValue(tab.columnValue, bytes))
        browser.Columns().Replace(tab.columnKey) = std::move(bytes);
    if (tab.hasSettings) browser.SetOneShotSettings(tab.settings);
}

CCBrowserTabView::CCBrowserTabView(ITabOwner& owner, HWND panel) : owner_(owner) {
    strip_ = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_CLIPSIBLINGS | TCS_FOCUSNEVER, 0, 0,
                             0, 0, panel, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kTabStripId)),
                             GetModuleHandleW(nullptr), nullptr);
    HIMAGELIST icons = win::SystemSmallIcons();
    if (icons) ImageList_SetBkColor(icons, CLR_NONE);
    SendMessageW(strip_, TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(icons));  // the system's list: not ours to free
    SendMessageW(strip_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    SetWindowSubclass(strip_, &CCBrowserTabView::StripProc, 1, reinterpret_cast<DWORD_PTR>(this));
    *control_.put() = new CCBrowserTabCtrl(*this);
    RegisterDragDrop(strip_, control_.get());
    g_strips.push_back(this);
}

void CCBrowserTabView::RelayoutAll() {
    for (CCBrowserTabView* strip : g_strips) strip->owner_.TabsChanged();
}

CCBrowserTabView::~CCBrowserTabView() {
    std::erase(g_strips, this);
    if (IsWindow(strip_)) RevokeDragDrop(strip_);
    control_->Detach();
    for (int i = Count() - 1; i >= 0; --i) delete Record(i);
    if (IsWindow(strip_)) {
        RemoveWindowSubclass(strip_, &CCBrowserTabView::StripProc, 1);
        DestroyWindow(strip_);
    }
}

int CCBrowserTabView::Count() const { return static_cast<int>(SendMessageW(strip_, TCM_GETITEMCOUNT, 0, 0)); }
int CCBrowserTabView::Selected() const { return static_cast<int>(SendMessageW(strip_, TCM_GETCURSEL, 0, 0)); }

TabRecord* CCBrowserTabView::Record(int index) const {
    TCITEMW item{TCIF_PARAM};
    if (!SendMessageW(strip_, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item))) return nullptr;
    return reinterpret_cast<TabRecord*>(item.lParam);
}

void CCBrowserTabView::SetLabel(int index, PCIDLIST_ABSOLUTE folder) {
    const win::ShellLook look = win::FolderLookOf(folder);
    std::wstring label = look.name;
    if (Options().tab_width_mode == 1) {
        DcMeasure measure(strip_);
        label = CutTabLabel(label, ClampTabMaxWidth(Options().tab_max_width), measure);
    }
    label.reserve(kLabelBuffer);
    TCITEMW item{TCIF_TEXT | TCIF_IMAGE};
    item.pszText = label.data();
    item.iImage = look.icon;
    SendMessageW(strip_, TCM_SETITEMW, index, reinterpret_cast<LPARAM>(&item));
}

int CCBrowserTabView::InsertTab(win::UniquePidl folder, const std::wstring& position) {
    if (!folder) return -1;
    auto record = std::make_unique<TabRecord>();
    record->position = position;
    TCITEMW item{TCIF_PARAM | TCIF_TEXT};
    item.pszText = const_cast<wchar_t*>(L"");
    item.lParam = reinterpret_cast<LPARAM>(record.get());
    const int at = std::min(TabInsertIndex(position, Count()), Count());
    const int index = static_cast<int>(SendMessageW(strip_, TCM_INSERTITEMW, at, reinterpret_cast<LPARAM>(&item)));
    if (index < 0) return -1;
    TabRecord* held = record.release();  // owned by the strip item from here on
    held->folder = std::move(folder);
    SetLabel(index, held->folder.get());
    if (layoutHolds_ == 0) owner_.TabsChanged();
    return index;
}

int CCBrowserTabView::IndexOf(const CMyShellBrowser* browser) const {
    for (int i = 0; browser && i < Count(); ++i)
        if (TabRecord* record = Record(i); record && record->browser == browser) return i;
    return -1;
}

void CCBrowserTabView::UpdateTab(CMyShellBrowser* browser, PCIDLIST_ABSOLUTE folder) {
    const int index = IndexOf(browser);
    if (index < 0) return;
    TabRecord* record = Record(index);
    if (!record->labelStale && win::IdenticalPidl(record->folder.get(), folder)) return;  // refreshed or re-shown
    record->folder = win::ClonePidl(folder);
    // A hidden strip (one tab) is not labelled at every navigation: the name and icon look-up
    // is a good part of what a navigation costs beyond the shell's own view.
    record->labelStale = !(GetWindowLongW(strip_, GWL_STYLE) & WS_VISIBLE);  // its own state, not its T-View's
    if (!record->labelStale) SetLabel(index, folder);
}

void CCBrowserTabView::RefreshStaleLabels() {
    for (int i = 0; i < Count(); ++i)
        if (TabRecord* record = Record(i); record && record->labelStale) {
            record->labelStale = false;
            SetLabel(i, record->folder.get());
        }
}

void CCBrowserTabView::Select(int index) {
    if (index < 0 || index >= Count()) return;
    SendMessageW(strip_, TCM_SETCURSEL, index, 0);
    ActivateTab();
}

void CCBrowserTabView::ActivateTab() {
    const int selected = Selected();
    TabRecord* record = Record(selected);
    if (!record) return;
    if (!record->browser) record->browser = owner_.CreateTabBrowser(*record);
    if (!record->browser) {
        // No browser view could be made for it (the panel's limit): the tab goes again, and the
        // strip selects the tab whose view stays on screen.
        SendMessageW(strip_, TCM_DELETEITEM, selected, 0);
        delete record;
        SendMessageW(strip_, TCM_SETCURSEL, IndexOf(shown_), 0);
        owner_.TabsChanged();
        return;
    }
    if (record->browser != shown_) {
        shown_ = record->browser;
        owner_.ShowTabBrowser(shown_);
    }
}

bool CCBrowserTabView::CloseTab(int index, bool byUser) {
    const int count = Count();
    TabRecord* record = Record(index);
    const int selected = Selected();
    const int next = TabSelectedAfterClose(index, count, selected, record && record->browser);
    if (!record || next < 0) return false;
    if (byUser) owner_.TabClosing(*record, index);
    if (record->browser && !owner_.CloseTabBrowser(record->browser)) return false;
    if (record->browser == shown_) shown_ = nullptr;
    SendMessageW(strip_, TCM_DELETEITEM, index, 0);
    delete record;
    SendMessageW(strip_, TCM_SETCURSEL, next, 0);
    ActivateTab();
    owner_.TabsChanged();
    return true;
}

int CCBrowserTabView::DuplicateTab(int index, int target) {
    TabRecord* record = Record(index);
    if (!record) return -1;
    const int copy = InsertTab(win::ClonePidl(CurrentFolderOf(*record)), std::to_wstring(index + 1));
    Select(copy);
    if (target != -1) MoveTab(copy, target);
    return copy;
}

void CCBrowserTabView::MoveTab(int from, int to) {
    const int count = Count();
    if (from < 0 || to < 0 || from >= count || to >= count || from == to) return;
    wchar_t text[kLabelBuffer] = {};
    TCITEMW item{TCIF_PARAM | TCIF_TEXT | TCIF_IMAGE};
    item.pszText = text;
    item.cchTextMax = kLabelBuffer;
    SendMessageW(strip_, TCM_GETITEMW, from, reinterpret_cast<LPARAM>(&item));
    SendMessageW(strip_, TCM_DELETEITEM, from, 0);
    SendMessageW(strip_, TCM_INSERTITEMW, to, reinterpret_cast<LPARAM>(&item));
    if (TabRecord* record = Record(to)) SetLabel(to, record->folder.get());
    Select(to);
}

int CCBrowserTabView::Height() const {
    const int mode = Options().show_tabs;
    if (mode == 0 || (mode == 2 && Count() < 2)) return 0;
    return win::Scaled(strip_, 24);
}

int CCBrowserTabView::TabAt(POINT client) const {
    TCHITTESTINFO hit{client};
    return static_cast<int>(SendMessageW(strip_, TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

void CCBrowserTabView::ShowContextMenu(POINT screen, bool fromKeyboard) {
    int index = Selected();
    if (!fromKeyboard) {
        POINT client = screen;
        ScreenToClient(strip_, &client);
        index = TabAt(client);
    }
    win::UniqueMenu menu(CreatePopupMenu());
    if (index >= 0) {
        AppendMenuW(menu.get(), MF_STRING, kTabClose, GetText(51206).c_str());
        AppendMenuW(menu.get(), MF_STRING, kTabRefresh, GetText(288).c_str());
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    }
    AppendMenuW(menu.get(), MF_STRING, kTabDuplicate, GetText(51208).c_str());
    AppendMenuW(menu.get(), MF_STRING, kTabNewHere, GetText(20004).c_str());
    AppendMenuW(menu.get(), MF_STRING, kTabNewComputer, GetText(51207).c_str());
    AppendClosedMenu(menu.get());
    AppendWidthMenu(menu.get());
    TabRecord* record = Record(index >= 0 ? index : Selected());
    win::ComPtr<IContextMenu> shellMenu;
    if (Options().tab_use_context_menu && record && record->folder) {
        PCUITEMID_CHILD last = nullptr;
        win::ComPtr<IShellFolder> parent;
        if (SUCCEEDED(SHBindToParent(record->folder.get(), IID_IShellFolder, parent.put_void(), &last)) &&
            SUCCEEDED(parent->GetUIObjectOf(strip_, 1, &last, IID_IContextMenu, nullptr, shellMenu.put_void()))) {
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
            shellMenu->QueryContextMenu(menu.get(), GetMenuItemCount(menu.get()), kTabFirstShellId, kTabLastShellId,
                                       CMF_NORMAL);
        }
    }
    if (fromKeyboard && index >= 0) {
        RECT tab;
        SendMessageW(strip_, TCM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&tab));
        screen = {tab.left, tab.bottom};
        ClientToScreen(strip_, &screen);
    }
    const UINT command = win::TrackShellMenu(menu.get(), TPM_RIGHTBUTTON, screen, strip_, shellMenu.get());
    RunContextCommand(command, index, shellMenu.get());
}

void CCBrowserTabView::AppendClosedMenu(HMENU menu) {
    const std::vector<std::wstring> labels = owner_.ClosedTabLabels();
    HMENU closed = CreatePopupMenu();
    for (size_t i = 0; i < labels.size() && kTabReopenFirst + i <= kTabReopenLast; ++i) {
        std::wstring text;
        for (wchar_t c : labels[i]) text += c == L'&' ? std::wstring(L"&&") : std::wstring(1, c);  // no mnemonics
        AppendMenuW(closed, MF_STRING, kTabReopenFirst + i, text.c_str());
    }
    AppendMenuW(menu, MF_POPUP | (labels.empty() ? MF_GRAYED : 0), reinterpret_cast<UINT_PTR>(closed),
                GetText(IDS_RECENTLY_CLOSED).c_str());  // the menu owns the submenu from here
}

void CCBrowserTabView::RunContextCommand(UINT command, int index, IContextMenu* shellMenu) {
    const int at = index >= 0 ? index : Selected();
    switch (command) {
    case kTabClose: CloseTab(at, true); break;
    case kTabRefresh:
        if (Selected() != at) Select(at);
        if (shown_) shown_->RefreshView();
        break;
    case kTabDuplicate: DuplicateTab(at); break;
    case kTabNewHere:
        if (shown_ && shown_->Current()) Select(InsertTab(win::ClonePidl(shown_->Current()), std::to_wstring(at + 1)));
        break;
    case kTabNewComputer:
        Select(InsertTab(win::SpecialFolder(CSIDL_DRIVES), index >= 0 ? std::to_wstring(index + 1) : L""));
        break;
    default:
        if (command >= kTabReopenFirst && command <= kTabReopenLast)
            owner_.ReopenClosedTab(command - kTabReopenFirst);
        else if (command == kTabWidthUncut || (command >= kTabWidthFirst && command <= kTabWidthLast))
            SetLabelWidth(static_cast<int>(command));
        else if (command >= kTabFirstShellId && shellMenu)
            RunFolderVerb(at, shellMenu, command - kTabFirstShellId);
        break;
    }
}

// The tab's shell menu acts on the tab's folder, never on what its list has selected.
void CCBrowserTabView::RunFolderVerb(int index, IContextMenu* menu, UINT offset) {
    TabRecord* record = Record(index);
    if (!record) return;
    const std::wstring path = win::FileSystemPathOf(CurrentFolderOf(*record));
    const std::string verb = win::VerbOf(menu, offset);
    const bool own = Options().copy_cut_paste_mode == 0 && !path.empty();
    if (own && (verb == "copy" || verb == "cut")) {
        PutFilesOnClipboard(strip_, {path}, verb == "cut" ? DROPEFFECT_MOVE : DROPEFFECT_COPY);
    } else if (own && verb == "paste") {
        ClipboardFiles files;
        if (ReadClipboardFiles(strip_, files) && PasteFiles(strip_, files, path) && record->browser)
            record->browser->RefreshView();
    } else if (verb == "delete" && !path.empty()) {
        // The shell's question first; a tab whose folder is gone shows the folder above it.
        if (DeleteFiles(strip_, {path}, false) && record->browser && GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES)
            record->browser->NavigateUp();
    } else if (verb == "rename" && record->browser && record->browser->Current()) {
        // Renamed where it is listed: in the folder above, with its name open for editing.
        win::UniquePidl folder = win::ClonePidl(record->browser->Current());
        Select(index);
        record->browser->NavigateUp();
        if (record->browser->View())
            record->browser->View()->SelectItem(ILFindLastID(folder.get()), SVSI_SELECT | SVSI_DESELECTOTHERS |
                                                                              SVSI_ENSUREVISIBLE | SVSI_FOCUSED | SVSI_EDIT);
    } else {
        CMINVOKECOMMANDINFO invoke{sizeof(invoke)};
        invoke.hwnd = strip_;
        invoke.lpVerb = MAKEINTRESOURCEA(offset);
        invoke.nShow = SW_SHOWNORMAL;
        menu->InvokeCommand(&invoke);
    }
}

// Widths 60 (string 137), then 70 to 300 in steps of 10, and labels that are never cut.
void CCBrowserTabView::AppendWidthMenu(HMENU menu) {
    HMENU widths = CreatePopupMenu();
    const bool cut = Options().tab_width_mode == 1;
    for (int width = kTabWidthFirst; width <= static_cast<int>(kTabWidthLast); width += 10) {
        const UINT checked = cut && ClampTabMaxWidth(Options().tab_max_width) == width ? MF_CHECKED : 0;
        AppendMenuW(widths, MF_STRING | checked, width, width == kTabWidthFirst ? GetText(137).c_str() : std::to_wstring(width).c_str());
    }
    AppendMenuW(widths, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(widths, MF_STRING | (cut ? 0 : MF_CHECKED), kTabWidthUncut, GetText(IDS_TAB_WIDTH_UNCUT).c_str());
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(widths), GetText(IDS_TAB_WIDTH).c_str());  // owned by menu
}

void CCBrowserTabView::SetLabelWidth(int command) {
    if (command == kTabWidthUncut) {
        Options().tab_width_mode = 0;
    } else {
        Options().tab_width_mode = 1;
        Options().tab_max_width = ClampTabMaxWidth(command);
        WriteOption(Settings(), L"tab_max_width", Options().tab_max_width);
    }
    WriteOption(Settings(), L"tab_width_mode", Options().tab_width_mode);
    RelabelAll();
}

void CCBrowserTabView::RelabelAll() {
    for (CCBrowserTabView* strip : g_strips)
        for (int i = 0; i < strip->Count(); ++i)
            if (TabRecord* record = strip->Record(i)) strip->SetLabel(i, record->folder.get());
    RelayoutAll();
}

bool CCBrowserTabView::OnNotify(NMHDR* header) {
    if (header->hwndFrom != strip_) return false;
    if (header->code == TCN_SELCHANGE) ActivateTab();
    return true;
}

LRESULT CALLBACK CCBrowserTabView::StripProc(HWND strip, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                              DWORD_PTR data) {
    auto* self = reinterpret_cast<CCBrowserTabView*>(data);
    switch (message) {
    case WM_CONTEXTMENU:
        self->ShowContextMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, lParam == -1);
        return 0;
    case WM_LBUTTONDBLCLK:
    case WM_MBUTTONUP: {
        const int index = self->TabAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        if (index >= 0) self->CloseTab(index, true);
        return 0;
    }
    case WM_RBUTTONDBLCLK:
        MessageBoxW(strip, L"Next-Ver ;-)", GetText(60000).c_str(), MB_OK);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        self->control_->OnButtonDown({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, message == WM_RBUTTONDOWN);
        break;
    case WM_MOUSEMOVE:
        if (wParam & (MK_LBUTTON | MK_RBUTTON)) self->control_->OnMouseMove({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
        self->control_->OnButtonUp();
        break;
    }
    return DefSubclassProc(strip, message, wParam, lParam);
}

}  // namespace tessel
