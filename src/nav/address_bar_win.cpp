#include "nav/address_bar_win.h"

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "core/general_options.h"
#include "nav/address_popup_win.h"
#include "nav/address_tree_popup_win.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"

namespace tessel {
namespace {

constexpr int kMargin = 2;  // the highlighted frame around the field
constexpr UINT kMsgSegmentsBack = WM_APP + 0x140;
constexpr UINT kMsgMakeCombo = WM_APP + 0x141;

}  // namespace

CAdressBar::CAdressBar(Navigate navigate, Typed typed) : navigate_(std::move(navigate)), typed_(std::move(typed)) {}

CAdressBar::~CAdressBar() {
    if (hwnd()) DestroyWindow(hwnd());
}

bool CAdressBar::Create(HWND parent, int id) {
    if (!CreateWindowOf(L"TesselAddressBar", WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, L"", 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id))))
        return false;
    // The box costs about 30 ms to make (its drop-down list is a window of its own): it is made
    // just after the window shows, or at once when something asks for it.
    PostMessageW(hwnd(), kMsgMakeCombo, 0, 0);
    drives_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                              WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NORESIZE | CCS_NODIVIDER |
                                  CCS_NOPARENTALIGN,
                              0, 0, 0, 0, hwnd(), nullptr, GetModuleHandleW(nullptr), nullptr);
    FillDrives();
    MakeTools();
    SetStyle(Options().adresbar_style);
    return true;
}

void CAdressBar::MakeTools() {
    tools_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                             WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | CCS_NORESIZE | CCS_NODIVIDER | CCS_NOPARENTALIGN, 0,
                             0, 0, 0, hwnd(), nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!tools_) return;
    SendMessageW(tools_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(tools_, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
    SendMessageW(tools_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(win::SystemSmallIcons()));  // not ours
    TBBUTTON button{};
    button.iBitmap = win::PlainFolderIcon(true);
    button.idCommand = kTreeDropDownId;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON | BTNS_WHOLEDROPDOWN;
    SendMessageW(tools_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
}

bool CAdressBar::MakeCombo() {
    if (combo_ || !hwnd()) return combo_ != nullptr;
    const int heightBefore = Height();
    combo_ = CreateWindowExW(0, WC_COMBOBOXEXW, L"", WS_CHILD | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWN, 0, 0, 0, 300,
                             hwnd(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kAddressComboId)),
                             GetModuleHandleW(nullptr), nullptr);
    if (!combo_) return false;
    SendMessageW(combo_, CBEM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(win::SystemSmallIcons()));  // not ours
    if (HWND edit = EditIfMade()) win::Subclass(edit, &CAdressBar::EditProc, this);
    Layout();  // sized before the text goes in: an edit too narrow for it keeps showing only its end
    hierarchy_.clear();
    FillHierarchy();
    const bool segmented = style_ == 1 && segments_ && !editing_;
    if (!segmented) ShowWindow(combo_, SW_SHOWNA);
    if (Height() != heightBefore) {  // the owner lays its parts out again around the new height
        RECT client{};
        HWND parent = GetParent(hwnd());
        GetClientRect(parent, &client);
        SendMessageW(parent, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
    }
    return true;
}

HWND CAdressBar::Combo() {
    MakeCombo();
    return combo_;
}

void CAdressBar::OpenTreeDropDown() {
    if (!shown_) return;
    RECT below{};
    GetWindowRect(Combo() ? combo_ : hwnd(), &below);
    CAdressTreePopup popup;
    if (win::UniquePidl chosen = popup.Track(hwnd(), below, shown_.get())) navigate_(std::move(chosen));
}

HWND CAdressBar::Edit() {
    MakeCombo();
    return EditIfMade();
}

HWND CAdressBar::EditIfMade() const {
    return combo_ ? reinterpret_cast<HWND>(SendMessageW(combo_, CBEM_GETEDITCONTROL, 0, 0)) : nullptr;
}

void CAdressBar::FillDrives() {
    if (!drives_) return;
    SendMessageW(drives_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(drives_, TB_SETIMAGELIST, 0, 0);
    const DWORD drives = GetLogicalDrives();
    for (int letter = 0; letter < 26 && kFirstDriveId + static_cast<int>(driveTexts_.size()) <= kLastDriveId; ++letter) {
        if (!(drives & (1u << letter))) continue;
        driveTexts_.push_back(std::wstring(1, static_cast<wchar_t>(L'A' + letter)));
    }
    for (size_t i = 0; i < driveTexts_.size(); ++i) {
        TBBUTTON button{};
        button.iBitmap = I_IMAGENONE;
        button.idCommand = kFirstDriveId + static_cast<int>(i);
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT;
        button.iString = reinterpret_cast<INT_PTR>(driveTexts_[i].c_str());
        SendMessageW(drives_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
}

void CAdressBar::SetStyle(int style) {
    style_ = style == 1 ? 1 : 0;
    editing_ = false;
    if (style_ == 1 && !segments_) {
        auto made = std::make_unique<CComboBoxVista>();
        if (made->Create(hwnd())) segments_ = std::move(made);
        if (segments_ && shown_) segments_->SetPath(shown_.get());
    }
    if (segments_) segments_->Show(style_ == 1);
    ShowWindow(combo_, style_ == 1 && segments_ ? SW_HIDE : SW_SHOWNA);
    // The segmented bar has the folders itself: its tree button goes.
    if (tools_) SendMessageW(tools_, TB_HIDEBUTTON, kTreeDropDownId, MAKELPARAM(style_ == 1 && segments_, 0));
    Layout();
}

void CAdressBar::SetActive(bool active) {
    if (active_ == active) return;
    active_ = active;
    InvalidateRect(hwnd(), nullptr, TRUE);
}

int CAdressBar::Height() const {
    RECT combo{};
    if (combo_) GetWindowRect(combo_, &combo);
    return std::max<int>(combo.bottom - combo.top, win::Scaled(hwnd(), 22)) + 2 * kMargin;
}

void CAdressBar::SetPath(PCIDLIST_ABSOLUTE folder) {
    if (!folder) return;
    shown_ = win::ClonePidl(folder);
    FillHierarchy();
    if (segments_) segments_->SetPath(folder);
}

// The box shows the folder with its icon; the drop-down's hierarchy (from the desktop down, or
// only the folder when the hierarchy is switched off) is made when the list opens, so a
// navigation asks the shell for one name and icon, not one per level.
void CAdressBar::FillHierarchy() {
    if (!shown_ || !combo_) return;  // the box fills itself when it is made
    // The one item is rewritten in place: emptying and refilling the box repaints it twice.
    const bool reuse = hierarchy_.size() == 1 && SendMessageW(combo_, CB_GETCOUNT, 0, 0) == 1;
    hierarchy_.clear();
    hierarchy_.push_back(win::ClonePidl(shown_.get()));
    if (reuse) {
        PutItem(CBEM_SETITEMW, 0, false);
    } else {
        SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
        InsertHierarchyItems(false);
    }
    ShowFolderText();
}

void CAdressBar::OpenHierarchy() {
    if (!shown_ || !Options().adress_tree || hierarchy_.size() != 1) return;
    SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
    hierarchy_.clear();
    for (win::UniquePidl step = win::ClonePidl(shown_.get()); step; step = win::ParentOf(step.get()))
        hierarchy_.insert(hierarchy_.begin(), win::ClonePidl(step.get()));
    InsertHierarchyItems(Options().adress_tree);
    ShowFolderText();
}

void CAdressBar::InsertHierarchyItems(bool indented) {
    for (size_t i = 0; i < hierarchy_.size(); ++i) PutItem(CBEM_INSERTITEMW, i, indented);
    SendMessageW(combo_, CB_SETCURSEL, hierarchy_.empty() ? static_cast<WPARAM>(-1) : hierarchy_.size() - 1, 0);
}

// Writes (CBEM_SETITEMW) or inserts (CBEM_INSERTITEMW) the box's item for a hierarchy entry.
void CAdressBar::PutItem(UINT message, size_t index, bool indented) {
    win::ShellLook look = win::FolderLookOf(hierarchy_[index].get());
    COMBOBOXEXITEMW item{};
    item.mask = CBEIF_TEXT | CBEIF_IMAGE | CBEIF_SELECTEDIMAGE | CBEIF_INDENT | CBEIF_LPARAM;
    item.iItem = static_cast<INT_PTR>(index);
    item.pszText = look.name.data();
    item.iImage = item.iSelectedImage = look.icon;
    item.iIndent = indented ? static_cast<int>(index) : 0;
    item.lParam = static_cast<LPARAM>(index);
    SendMessageW(combo_, message, 0, reinterpret_cast<LPARAM>(&item));
}

// A folder of the file system shows its path; others (Computer, the desktop) their name.
std::wstring CAdressBar::FolderText() const {
    if (!shown_) return {};
    const std::wstring path = win::FileSystemPathOf(shown_.get());
    return path.empty() ? win::LookOf(shown_.get()).name : path;
}

void CAdressBar::ShowFolderText() {
    HWND edit = EditIfMade();
    if (!edit) return;
    const std::wstring text = FolderText();
    wchar_t now[MAX_PATH + 2] = {};
    GetWindowTextW(edit, now, MAX_PATH + 2);
    if (text != now) SetWindowTextW(edit, text.c_str());
}

void CAdressBar::Layout() {
    RECT client;
    GetClientRect(hwnd(), &client);
    SIZE drives{};
    if (drives_) SendMessageW(drives_, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&drives));
    const int height = client.bottom - 2 * kMargin;
    const int driveWidth = std::min<int>(drives.cx, client.right / 3);
    SIZE tools{};
    if (tools_) SendMessageW(tools_, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&tools));
    const int toolsLeft = std::max<int>(kMargin, client.right - kMargin - driveWidth - tools.cx);
    const int fieldRight = toolsLeft;
    if (drives_)
        SetWindowPos(drives_, nullptr, toolsLeft + tools.cx, kMargin, driveWidth, height, SWP_NOZORDER | SWP_NOACTIVATE);
    if (tools_) SetWindowPos(tools_, nullptr, toolsLeft, kMargin, tools.cx, height, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(combo_, nullptr, kMargin, kMargin, fieldRight - 2 * kMargin, 300, SWP_NOZORDER | SWP_NOACTIVATE);
    if (segments_) segments_->Place({kMargin, kMargin, fieldRight - kMargin, kMargin + height});
}

// The drive buttons' ids run into the segmented bar's (the 14th drive is 1123, the edit
// button): the toolbar that sent the command tells them apart.
void CAdressBar::Command(int id, HWND from) {
    if (from == drives_) {
        if (id >= kFirstDriveId && id <= kLastDriveId && id - kFirstDriveId < static_cast<int>(driveTexts_.size()))
            // A drive without medium parses but cannot be shown: the view refuses it, no prompt.
            if (win::UniquePidl drive = win::PidlFromPath(driveTexts_[id - kFirstDriveId] + L":\\"))
                navigate_(std::move(drive));
        return;
    }
    if (id >= kFirstSegmentId && segments_ && id < kFirstSegmentId + segments_->SegmentCount()) {
        navigate_(win::ClonePidl(segments_->Segment(id - kFirstSegmentId)));
    } else if (id == kSegmentsOverflowId && segments_) {
        ShowHiddenSegments();
    } else if (id == kEditPathId && segments_) {
        editing_ = true;
        segments_->Show(false);
        ShowWindow(Combo(), SW_SHOWNA);
        SetFocus(Edit());
    }
}

// The segments that gave way for room, the desktop first, under "«".
void CAdressBar::ShowHiddenSegments() {
    win::UniqueMenu menu(CreatePopupMenu());
    for (int i = 0; i < segments_->SegmentCount(); ++i)
        if (!segments_->SegmentShown(i)) AppendMenuW(menu.get(), MF_STRING, i + 1, segments_->SegmentText(i).c_str());
    RECT button{};
    SendMessageW(segments_->Segments(), TB_GETRECT, kSegmentsOverflowId, reinterpret_cast<LPARAM>(&button));
    POINT at{button.left, button.bottom};
    ClientToScreen(segments_->Segments(), &at);
    const int chosen = static_cast<int>(TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr));
    if (chosen > 0 && segments_->Segment(chosen - 1)) navigate_(win::ClonePidl(segments_->Segment(chosen - 1)));
}

void CAdressBar::OpenSegmentPopup(int index) {
    if (!segments_ || !segments_->Segment(index)) return;
    RECT button{};
    SendMessageW(segments_->Segments(), TB_GETRECT, kFirstSegmentId + index, reinterpret_cast<LPARAM>(&button));
    POINT at{button.left, button.bottom};
    ClientToScreen(segments_->Segments(), &at);
    CAdressBarPopup popup(segments_->Segment(index));
    if (win::UniquePidl chosen = popup.Track(hwnd(), at)) navigate_(std::move(chosen));
}

bool CAdressBar::SubmitTypedText() {
    HWND edit = Edit();
    if (!edit) return false;
    const std::wstring text = win::WindowText(edit);
    if (shown_ && text == FolderText()) {  // the shown folder's own text: go there again
        navigate_(win::ClonePidl(shown_.get()));
        return true;
    }
    const bool went = typed_ && typed_(text);
    if (!went) {  // nothing by that name: the view stays where it was, the text is kept to correct
        MessageBeep(MB_OK);
        SendMessageW(edit, EM_SETSEL, 0, -1);
    }
    return went;
}

void CAdressBar::ShowSegmentsAgain() {
    if (style_ != 1 || !segments_ || !editing_) return;
    editing_ = false;
    ShowWindow(combo_, SW_HIDE);
    segments_->Show(true);
    ShowFolderText();
}

LRESULT CAdressBar::EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* self = static_cast<CAdressBar*>(data);
    switch (message) {
    case WM_KEYDOWN:
        if (wParam == VK_RETURN) {
            if (self->SubmitTypedText()) PostMessageW(self->hwnd(), kMsgSegmentsBack, 0, 0);
            return 0;
        }
        if (wParam == VK_ESCAPE) {  // the typing is dropped: the shown folder again
            self->ShowFolderText();
            SendMessageW(edit, EM_SETSEL, 0, -1);
            PostMessageW(self->hwnd(), kMsgSegmentsBack, 0, 0);
            return 0;
        }
        break;
    case WM_CHAR:
        if (wParam == L'\r' || wParam == 27) return 0;  // handled at the key: no beep
        break;
    case WM_SETFOCUS:
        if (!self->completing_) {  // made at first use: it costs start-up time in every T-View
            self->completing_ = true;
            SHAutoComplete(edit, SHACF_FILESYS_DIRS);  // Tab and the list complete typed folders
        }
        if (Options().adress_autosel) PostMessageW(edit, EM_SETSEL, 0, -1);
        break;
    case WM_KILLFOCUS:
        PostMessageW(self->hwnd(), kMsgSegmentsBack, 0, 0);
        break;
    }
    return win::CallOriginal(edit, message, wParam, lParam);
}

LRESULT CAdressBar::OnNotify(NMHDR* header) {
    if (tools_ && header->hwndFrom == tools_ && header->code == TBN_DROPDOWN) {
        PostMessageW(hwnd(), WM_COMMAND, MAKEWPARAM(kTreeDropDownId, BN_CLICKED), reinterpret_cast<LPARAM>(tools_));
        return TBDDRET_DEFAULT;
    }
    if (segments_ && header->hwndFrom == segments_->Segments() && header->code == TBN_DROPDOWN) {
        OpenSegmentPopup(reinterpret_cast<NMTOOLBARW*>(header)->iItem - kFirstSegmentId);
        return TBDDRET_DEFAULT;
    }
    if (header->code == TTN_GETDISPINFOW && segments_) {
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(header);
        static std::wstring tip;  // read by the tooltip right after this message
        tip = segments_->Tooltip(static_cast<int>(header->idFrom));
        info->lpszText = tip.data();
    }
    return 0;
}

LRESULT CAdressBar::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        Layout();
        return 0;
    case WM_ERASEBKGND: {
        RECT client;
        GetClientRect(hwnd(), &client);
        const bool lit = active_ && Options().adresbar_use_highlighted;
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(lit ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
        return 1;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == kAddressComboId && HIWORD(wParam) == CBN_DROPDOWN) {
            OpenHierarchy();
            return 0;
        }
        if (LOWORD(wParam) == kAddressComboId && HIWORD(wParam) == CBN_SELENDOK) {
            // Only a pick from the open list; arrow keys in the closed box do not navigate.
            const LRESULT index = SendMessageW(combo_, CB_GETCURSEL, 0, 0);
            if (SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0) && index >= 0 && static_cast<size_t>(index) < hierarchy_.size())
                navigate_(win::ClonePidl(hierarchy_[index].get()));
            return 0;
        }
        if (lParam && reinterpret_cast<HWND>(lParam) == tools_) {
            if (LOWORD(wParam) == kTreeDropDownId) OpenTreeDropDown();  // posted by the button's arrow
            return 0;
        }
        if (lParam && HIWORD(wParam) == BN_CLICKED) Command(LOWORD(wParam), reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_NOTIFY:
        return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case kMsgSegmentsBack:
        ShowSegmentsAgain();
        return 0;
    case kMsgMakeCombo:
        MakeCombo();
        return 0;
    case WM_DESTROY:
        if (HWND edit = EditIfMade()) win::Unsubclass(edit);
        segments_.reset();
        break;
    }
    return Default(message, wParam, lParam);
}

}  // namespace tessel
