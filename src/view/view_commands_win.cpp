// What the user does inside a browser view's list: context menus, keys, the clipboard and the
// view commands of the toolbars. The shell view lists; these are the host's additions.
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
#include <windowsx.h>

#include <cwchar>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/path_text.h"
#include "res/resource.h"
#include "view/file_clipboard_win.h"
#include "view/list_keys.h"
#include "view/shell_browser_win.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"
#include "win/shell_menu_win.h"
#include "win/subclass_win.h"

namespace tessel {
namespace {

constexpr UINT kFirstMenuId = 1;
constexpr UINT kLastMenuId = 32767;

bool KeyDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

LRESULT CMyShellBrowser::ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* self = static_cast<CMyShellBrowser*>(data);
    switch (message) {
    case WM_CONTEXTMENU:
        self->OnListContextMenu(list, lParam);
        return 0;
    case WM_SETFOCUS: {
        const LRESULT result = win::CallOriginal(list, message, wParam, lParam);
        self->owner_.BrowserFocused(*self);  // this T-View is now the one in use
        return result;
    }
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:  // with Alt held
        if (self->OnListKey(wParam)) return 0;
        break;
    case WM_XBUTTONUP:  // the mouse's back and forward buttons
        if (GET_XBUTTON_WPARAM(wParam) == XBUTTON1) self->GoBack();
        if (GET_XBUTTON_WPARAM(wParam) == XBUTTON2) self->GoForward();
        return TRUE;
    case WM_LBUTTONDBLCLK: {
        LVHITTESTINFO hit{{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}};
        if (Options().lmouse_dblclk && SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0) {
            self->NavigateUp();  // a double-click on empty space goes up
            return 0;
        }
        break;
    }
    case WM_LBUTTONDOWN: {
        LVHITTESTINFO hit{{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}};
        const bool details = (GetWindowLongW(list, GWL_STYLE) & LVS_TYPEMASK) == LVS_REPORT;
        if (Options().only_label_or_icon_clk && details &&
            SendMessageW(list, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) >= 0 &&
            (hit.iSubItem != 0 || !(hit.flags & (LVHT_ONITEMICON | LVHT_ONITEMLABEL)))) {
            // Beside the name: a click on empty space, which clears the selection.
            LVITEMW none{};
            none.stateMask = LVIS_SELECTED;
            SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&none));
            SetFocus(list);
            return 0;
        }
        break;
    }
    case WM_NCDESTROY:
        if (self->subclassedList_ == list) self->subclassedList_ = nullptr;  // the table lets it go
        break;
    }
    return win::CallOriginal(list, message, wParam, lParam);
}

bool CMyShellBrowser::OnListKey(WPARAM key) {
    const ListKey pressed{static_cast<int>(key), KeyDown(VK_CONTROL), KeyDown(VK_SHIFT), KeyDown(VK_MENU)};
    switch (ListCommandOfKey(pressed, Options().copy_cut_paste_mode == 0)) {
    case ListKeyCommand::kNone: return false;
    case ListKeyCommand::kCopy: Execute(ID_VIEW_COPY); break;
    case ListKeyCommand::kCut: Execute(ID_VIEW_CUT); break;
    case ListKeyCommand::kPaste: Execute(ID_VIEW_PASTE); break;
    case ListKeyCommand::kDelete: Execute(ID_VIEW_DELETE); break;
    case ListKeyCommand::kDeleteForever:
        DeleteFiles(hwnd(), SelectedPaths(), true);
        if (view_) view_->Refresh();
        break;
    case ListKeyCommand::kRename: Execute(ID_VIEW_RENAME); break;
    case ListKeyCommand::kRefresh: Execute(ID_VIEW_REFRESH); break;
    case ListKeyCommand::kUp: NavigateUp(); break;
    case ListKeyCommand::kBack: GoBack(); break;
    case ListKeyCommand::kForward: GoForward(); break;
    case ListKeyCommand::kSelectAll: {
        LVITEMW all{};
        all.state = all.stateMask = LVIS_SELECTED;
        SendMessageW(GetListControl(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
        break;
    }
    }
    return true;
}

void CMyShellBrowser::OnListContextMenu(HWND list, LPARAM lParam) {
    POINT screen{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const bool fromKeyboard = lParam == -1;
    LVHITTESTINFO hit{};
    if (fromKeyboard) {
        const int focused = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
        RECT item{LVIR_ICON};
        if (focused >= 0 && SendMessageW(list, LVM_GETITEMRECT, focused, reinterpret_cast<LPARAM>(&item)))
            screen = {item.left, item.bottom};
        else
            screen = {0, 0};
        ClientToScreen(list, &screen);
    } else {
        hit.pt = screen;
        ScreenToClient(list, &hit.pt);
    }
    const bool onItem = fromKeyboard ? SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0) > 0
                                     : SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) >= 0;
    if (!onItem) {
        owner_.ShowBackgroundMenu(screen);
        return;
    }
    if (!fromKeyboard && !(ListView_GetItemState(list, hit.iItem, LVIS_SELECTED) & LVIS_SELECTED)) {
        LVITEMW none{};
        none.stateMask = LVIS_SELECTED;
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&none));
        ListView_SetItemState(list, hit.iItem, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    RunItemMenu(screen);
}

void CMyShellBrowser::RunItemMenu(POINT screen) {
    win::ComPtr<IContextMenu> menu;
    if (!view_ || FAILED(view_->GetItemObject(SVGIO_SELECTION, IID_IContextMenu, menu.put_void()))) return;
    win::UniqueMenu popup(CreatePopupMenu());
    if (!popup || FAILED(menu->QueryContextMenu(popup.get(), 0, kFirstMenuId, kLastMenuId, CMF_NORMAL | CMF_CANRENAME)))
        return;
    const UINT id = win::TrackShellMenu(popup.get(), TPM_RIGHTBUTTON, screen, hwnd(), menu.get());
    if (id >= kFirstMenuId) RunMenuCommand(menu.get(), id - kFirstMenuId);
}

// Copy, cut, paste, delete and rename are the host's own; every other verb goes to the shell.
bool CMyShellBrowser::RunMenuCommand(IContextMenu* menu, UINT offset) {
    const std::string verb = win::VerbOf(menu, offset);
    const bool own = Options().copy_cut_paste_mode == 0;
    if (own && verb == "copy") return Execute(ID_VIEW_COPY), true;
    if (own && verb == "cut") return Execute(ID_VIEW_CUT), true;
    if (own && verb == "paste") return Execute(ID_VIEW_PASTE), true;
    if (verb == "delete") return Execute(ID_VIEW_DELETE), true;
    if (verb == "rename") return Execute(ID_VIEW_RENAME), true;
    if (verb == "newfolder") return Execute(ID_VIEW_NEW_FOLDER), true;
    CMINVOKECOMMANDINFO invoke{sizeof(invoke)};
    invoke.hwnd = hwnd();
    invoke.lpVerb = MAKEINTRESOURCEA(offset);
    invoke.nShow = SW_SHOWNORMAL;
    const bool ok = SUCCEEDED(menu->InvokeCommand(&invoke));
    if (ok && view_ && verb != "open" && verb != "properties") view_->Refresh();
    return ok;
}

std::vector<std::wstring> CMyShellBrowser::SelectedPaths() const {
    std::vector<std::wstring> paths;
    if (!shown_) return paths;
    for (const ItemBytes& bytes : SelectedItems()) {
        if (!IsItemList(bytes)) continue;
        win::UniquePidl item(ILCombine(shown_.get(), reinterpret_cast<PCUIDLIST_RELATIVE>(bytes.data())));
        std::wstring path = item ? win::FileSystemPathOf(item.get()) : std::wstring();
        // A row the list still shows for an item moved or deleted a moment ago is left out.
        if (!path.empty() && GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) paths.push_back(std::move(path));
    }
    return paths;
}

bool CMyShellBrowser::TakeFiles(const ClipboardFiles& files) {
    const std::wstring target = win::FileSystemPathOf(shown_.get());
    if (target.empty() || !CopyOrMoveFiles(hwnd(), files, target)) return false;
    RefreshKeepingPlace();
    return true;
}

void CMyShellBrowser::PasteFiles() {
    ClipboardFiles files;
    const std::wstring target = win::FileSystemPathOf(shown_.get());
    if (ReadClipboardFiles(hwnd(), files) && tessel::PasteFiles(hwnd(), files, target)) RefreshKeepingPlace();
}

void CMyShellBrowser::NewFolder() {
    const std::wstring folder = win::FileSystemPathOf(shown_.get());
    if (folder.empty()) return;
    const std::wstring base = GetText(IDS_NEW_FOLDER_NAME);
    std::wstring name = base;
    for (int n = 2; n < 1000 && win::PathExists(LongPathForm(folder + L"\\" + name)); ++n)
        name = base + L" (" + std::to_wstring(n) + L")";
    if (!CreateDirectoryW(LongPathForm(folder + L"\\" + name).c_str(), nullptr)) return;
    if (!view_) return;
    view_->Refresh();
    win::UniquePidl created = win::PidlFromPath(folder + L"\\" + name);
    if (created)
        view_->SelectItem(ILFindLastID(created.get()),
                          SVSI_SELECT | SVSI_DESELECTOTHERS | SVSI_ENSUREVISIBLE | SVSI_FOCUSED | SVSI_EDIT);
}

void CMyShellBrowser::ShowViewModeMenu(POINT screen) {
    win::UniqueMenu popup(CreatePopupMenu());
    win::ComPtr<IFolderView> folderView = view_.As<IFolderView>();
    UINT current = 0;
    if (folderView) folderView->GetCurrentViewMode(&current);
    for (int id = ID_VIEW_MODE_ICONS; id <= ID_VIEW_MODE_THUMBNAILS; ++id) {
        const UINT mode = FVM_ICON + (id - ID_VIEW_MODE_ICONS);
        AppendMenuW(popup.get(), MF_STRING | (mode == current ? MF_CHECKED : 0), id, GetText(id).c_str());
    }
    const UINT id = TrackPopupMenu(popup.get(), TPM_RETURNCMD, screen.x, screen.y, 0, hwnd(), nullptr);
    if (id) Execute(static_cast<int>(id));
}

void CMyShellBrowser::Execute(int command) {
    const bool hasFolder = static_cast<bool>(shown_);
    switch (command) {
    case ID_VIEW_UP:
        NavigateUp();
        break;
    case ID_VIEW_BACK:
        GoBack();
        break;
    case ID_VIEW_FORWARD:
        GoForward();
        break;
    case ID_VIEW_FILTER_TOGGLE:
        owner_.ToggleFilterBox();
        break;
    case ID_VIEW_FOCUS_LIST:
        if (HWND list = GetListControl()) SetFocus(list);
        break;
    case ID_VIEW_COPY:
    case ID_VIEW_CUT:
        PutFilesOnClipboard(hwnd(), SelectedPaths(), command == ID_VIEW_CUT ? DROPEFFECT_MOVE : DROPEFFECT_COPY);
        break;
    case ID_VIEW_PASTE:
        if (hasFolder) PasteFiles();
        break;
    case ID_VIEW_DELETE:
        if (DeleteFiles(hwnd(), SelectedPaths(), false)) RefreshKeepingPlace();
        break;
    case ID_VIEW_RENAME:
        if (HWND list = GetListControl()) {
            const int focused = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
            if (focused >= 0) {
                SetFocus(list);
                SendMessageW(list, LVM_EDITLABELW, focused, 0);
            }
        }
        break;
    case ID_VIEW_NEW_FOLDER:
        NewFolder();
        break;
    case ID_VIEW_PROPERTIES:
        InvokeSelectionVerb("properties");
        break;
    case ID_VIEW_REFRESH:
        RefreshView();
        break;
    case ID_VIEW_MODES: {
        POINT at;
        GetCursorPos(&at);
        ShowViewModeMenu(at);
        break;
    }
    default:
        if (command >= ID_VIEW_MODE_ICONS && command <= ID_VIEW_MODE_THUMBNAILS) {
            if (win::ComPtr<IFolderView> folderView = view_.As<IFolderView>()) {
                folderView->SetCurrentViewMode(FVM_ICON + (command - ID_VIEW_MODE_ICONS));
                // Wine's view changes the list's style without repainting it.
                RedrawWindow(viewWindow_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_FRAME);
                statusRequested_ = true;
            }
        }
        break;
    }
}

void CMyShellBrowser::InvokeSelectionVerb(const char* verb) {
    win::ComPtr<IContextMenu> menu;
    const UINT which = SendMessageW(GetListControl(), LVM_GETSELECTEDCOUNT, 0, 0) > 0 ? SVGIO_SELECTION : SVGIO_BACKGROUND;
    if (!view_ || FAILED(view_->GetItemObject(which, IID_IContextMenu, menu.put_void()))) return;
    win::UniqueMenu popup(CreatePopupMenu());
    menu->QueryContextMenu(popup.get(), 0, kFirstMenuId, kLastMenuId, CMF_NORMAL);
    CMINVOKECOMMANDINFO invoke{sizeof(invoke)};
    invoke.hwnd = hwnd();
    invoke.lpVerb = verb;
    invoke.nShow = SW_SHOWNORMAL;
    menu->InvokeCommand(&invoke);
}

}  // namespace tessel
