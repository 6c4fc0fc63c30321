#include "nav/address_segments_win.h"

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "win/shell_item_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

HWND MakeBar(HWND parent, DWORD extraStyle) {
    HWND bar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                               WS_CHILD | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_NORESIZE | CCS_NODIVIDER |
                                   CCS_NOPARENTALIGN | extraStyle,
                               0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!bar) return nullptr;
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS | TBSTYLE_EX_MIXEDBUTTONS);
    return bar;
}


}  // namespace

CComboBoxVista::~CComboBoxVista() {
    for (HWND bar : {segmentBar_, editBar_})
        if (bar && IsWindow(bar)) DestroyWindow(bar);
}

bool CComboBoxVista::Create(HWND parent) {
    segmentBar_ = MakeBar(parent, 0);
    editBar_ = MakeBar(parent, 0);
    if (!segmentBar_ || !editBar_) return false;
    SendMessageW(segmentBar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(win::SystemSmallIcons()));  // not ours
    TBBUTTON edit{};
    edit.iBitmap = I_IMAGENONE;
    edit.idCommand = kEditPathId;
    edit.fsState = TBSTATE_ENABLED;
    edit.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT;
    edit.iString = reinterpret_cast<INT_PTR>(L"\u2026");
    SendMessageW(editBar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&edit));
    return true;
}

void CComboBoxVista::SetPath(PCIDLIST_ABSOLUTE folder) {
    if (!segmentBar_ || !folder) return;
    SendMessageW(segmentBar_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(segmentBar_, TB_SETHOTITEM, static_cast<WPARAM>(-1), 0);
    for (int i = static_cast<int>(SendMessageW(segmentBar_, TB_BUTTONCOUNT, 0, 0)) - 1; i >= 0; --i)
        SendMessageW(segmentBar_, TB_DELETEBUTTON, i, 0);
    segments_.clear();
    texts_.clear();
    TBBUTTON overflow{};
    overflow.iBitmap = I_IMAGENONE;
    overflow.idCommand = kSegmentsOverflowId;
    overflow.fsState = TBSTATE_ENABLED | TBSTATE_HIDDEN;
    overflow.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT;
    overflow.iString = reinterpret_cast<INT_PTR>(L"\u00AB");
    SendMessageW(segmentBar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&overflow));
    // The desktop, then one segment per item of the folder's list.
    win::UniquePidl step = win::ClonePidl(folder);
    std::vector<win::UniquePidl> reversed;
    while (step) {
        win::UniquePidl parent = win::ParentOf(step.get());
        reversed.push_back(std::move(step));
        step = std::move(parent);
    }
    for (auto it = reversed.rbegin(); it != reversed.rend(); ++it) segments_.push_back(std::move(*it));
    // Each segment's folder is bound from the one before it: one bind per level. From the third
    // segment on a segment shows its name in its parent, before that the display name of the
    // whole list (the desktop, then a drive or a root such as Computer).
    win::ComPtr<IShellFolder> parent;
    for (int index = 0; index < static_cast<int>(segments_.size()); ++index) {
        PCIDLIST_ABSOLUTE pidl = segments_[index].get();
        PCUITEMID_CHILD child = ILFindLastID(pidl);
        win::ShellLook look;
        if (index < 2) look = win::LookOf(pidl);
        if (index >= 2) look = {win::NameInFolder(parent.get(), child), win::IconInFolder(parent.get(), child)};
        texts_.push_back(look.name);
        win::ComPtr<IShellFolder> next;
        if (index == 0) next = win::DesktopFolder();
        else if (parent) parent->BindToObject(child, nullptr, IID_IShellFolder, next.put_void());
        parent = next;
        TBBUTTON button{};
        button.iBitmap = look.icon;
        button.idCommand = kFirstSegmentId + index;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_DROPDOWN | BTNS_SHOWTEXT;
        button.dwData = reinterpret_cast<DWORD_PTR>(segments_[index].get());
        button.iString = reinterpret_cast<INT_PTR>(texts_.back().c_str());
        SendMessageW(segmentBar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
    RECT bar{};
    GetClientRect(segmentBar_, &bar);
    FitSegments(bar.right);
    SendMessageW(segmentBar_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(segmentBar_, nullptr, TRUE);
}

void CComboBoxVista::Show(bool shown) {
    for (HWND bar : {segmentBar_, editBar_})
        if (bar) ShowWindow(bar, shown ? SW_SHOWNA : SW_HIDE);
}

void CComboBoxVista::Place(const RECT& area) {
    SIZE edit{};
    SendMessageW(editBar_, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&edit));
    const int height = area.bottom - area.top;
    SetWindowPos(editBar_, nullptr, area.right - edit.cx, area.top, edit.cx, height, SWP_NOZORDER | SWP_NOACTIVATE);
    const int width = std::max<int>(0, area.right - area.left - edit.cx);
    SetWindowPos(segmentBar_, nullptr, area.left, area.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    FitSegments(width);
}

// Every path starts at the item below the desktop (Computer, a user folder, the network), so all
// T-Views start alike; the desktop shows only as itself. A path wider than the bar keeps its
// deepest segments: the first ones give way, the folder shown always stays.
// Segments that gave way are offered by "«" in front of the others.
void CComboBoxVista::FitSegments(int width) {
    const int count = SegmentCount();
    SendMessageW(segmentBar_, TB_HIDEBUTTON, kSegmentsOverflowId, TRUE);
    for (int i = 0; i < count; ++i) SendMessageW(segmentBar_, TB_HIDEBUTTON, kFirstSegmentId + i, i == 0 && count > 1);
    for (int hidden = count > 1 ? 1 : 0; hidden + 1 < count; ++hidden) {
        RECT last{};
        SendMessageW(segmentBar_, TB_GETRECT, kFirstSegmentId + count - 1, reinterpret_cast<LPARAM>(&last));
        if (last.right <= width) break;
        SendMessageW(segmentBar_, TB_HIDEBUTTON, kFirstSegmentId + hidden, TRUE);
        SendMessageW(segmentBar_, TB_HIDEBUTTON, kSegmentsOverflowId, FALSE);
    }
}

bool CComboBoxVista::SegmentShown(int index) const {
    return index >= 0 && index < SegmentCount() && !SendMessageW(segmentBar_, TB_ISBUTTONHIDDEN, kFirstSegmentId + index, 0);
}

bool CComboBoxVista::Overflows() const { return !SendMessageW(segmentBar_, TB_ISBUTTONHIDDEN, kSegmentsOverflowId, 0); }

PCIDLIST_ABSOLUTE CComboBoxVista::Segment(int index) const {
    return index >= 0 && index < SegmentCount() ? segments_[index].get() : nullptr;
}

std::wstring CComboBoxVista::SegmentText(int index) const {
    return index >= 0 && index < SegmentCount() ? texts_[index] : std::wstring();
}

std::wstring CComboBoxVista::Tooltip(int command) const {
    if (command == kEditPathId) return L"Edit Path ;)";
    PCIDLIST_ABSOLUTE segment = Segment(command - kFirstSegmentId);
    if (!segment) return {};
    const std::wstring full = win::LocationNameOf(segment);
    return full.empty() ? win::LookOf(segment).name : full;
}

}  // namespace tessel
