#include "nav/tab_ctrl_win.h"

#include <commctrl.h>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "nav/tab_label.h"
#include "nav/tab_view_win.h"
#include "view/file_drop.h"
#include "view/shell_browser_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

// One tab drag at a time in the whole program.
struct TabDrag {
    bool active = false;
    bool rightButton = false;
    CCBrowserTabView* source = nullptr;
    int sourceIndex = -1;
    HWND tooltip = nullptr;
    TOOLINFOW tool{};
} g_drag;

enum DropMenu { kCancel = 0, kMoveHere = 1, kCopyHere = 2 };

}  // namespace

CCBrowserTabCtrl::CCBrowserTabCtrl(CCBrowserTabView& view) : CIDropTargetPlus(view.Strip()), view_(&view) {}

void CCBrowserTabCtrl::Detach() { view_ = nullptr; }

bool CCBrowserTabCtrl::TabDragActive() { return g_drag.active; }

PCIDLIST_ABSOLUTE CCBrowserTabCtrl::DraggedTabFolder() {
    const TabRecord* record = g_drag.active && g_drag.source ? g_drag.source->Record(g_drag.sourceIndex) : nullptr;
    return record ? CurrentFolderOf(*record) : nullptr;
}

void CCBrowserTabCtrl::BeginTabDrag(CCBrowserTabView& source, int index, bool rightButton) {
    g_drag = TabDrag{true, rightButton, &source, index};
    g_drag.tooltip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                                     0, 0, 0, 0, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    g_drag.tool = TOOLINFOW{sizeof(TOOLINFOW), TTF_TRACK | TTF_ABSOLUTE};
    g_drag.tool.lpszText = const_cast<wchar_t*>(L"");
    SendMessageW(g_drag.tooltip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&g_drag.tool));
}

void CCBrowserTabCtrl::EndTabDrag() {
    if (g_drag.tooltip) DestroyWindow(g_drag.tooltip);
    g_drag = TabDrag{};
}

int CCBrowserTabCtrl::TabAtScreen(POINTL point) const {
    POINT client{point.x, point.y};
    ScreenToClient(view_->Strip(), &client);
    TCHITTESTINFO hit{client};
    return static_cast<int>(SendMessageW(view_->Strip(), TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

void CCBrowserTabCtrl::OnButtonDown(POINT client, bool right) {
    TCHITTESTINFO hit{client};
    pressed_ = static_cast<int>(SendMessageW(view_->Strip(), TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    pressPoint_ = client;
    ClientToScreen(view_->Strip(), &pressPoint_);
    pressedRight_ = right;
}

void CCBrowserTabCtrl::OnButtonUp() {
    pressed_ = -1;
    pressPoint_ = {32333, 32333};
}

void CCBrowserTabCtrl::OnMouseMove(POINT client) {
    if (pressed_ < 0 || !view_) return;
    POINT screen = client;
    ClientToScreen(view_->Strip(), &screen);
    if (std::abs(screen.x - pressPoint_.x) <= GetSystemMetrics(SM_CXDRAG) &&
        std::abs(screen.y - pressPoint_.y) <= GetSystemMetrics(SM_CYDRAG))
        return;
    StartDrag();
}

void CCBrowserTabCtrl::StartDrag() {
    TabRecord* record = view_->Record(pressed_);
    win::ComPtr<IShellFolder> parent;
    PCUITEMID_CHILD last = nullptr;
    win::ComPtr<IDataObject> data;
    if (!record || !record->folder ||
        FAILED(SHBindToParent(record->folder.get(), IID_IShellFolder, parent.put_void(), &last)) ||
        FAILED(parent->GetUIObjectOf(view_->Strip(), 1, &last, IID_IDataObject, nullptr, data.put_void()))) {
        OnButtonUp();
        return;
    }
    BeginTabDrag(*view_, pressed_, pressedRight_);
    // Every strip shows while a tab is dragged, so that any of them can take it.
    const int stripMode = Options().show_tabs;
    Options().show_tabs = 1;
    CCBrowserTabView::RelayoutAll();
    win::ComPtr<CIDropSource> source;
    *source.put() = new CIDropSource();
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK, &effect);
    EndTabDrag();
    pressed_ = -1;
    pressPoint_ = {30000, 30000};
    Options().show_tabs = stripMode;
    CCBrowserTabView::RelayoutAll();
}

void CCBrowserTabCtrl::ShowTip(int target) {
    if (!g_drag.tooltip) return;
    if (target < 0) {
        SendMessageW(g_drag.tooltip, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&g_drag.tool));
        return;
    }
    const int text = g_drag.source != view_ ? 286 : target == g_drag.sourceIndex ? 284 : 285;
    static std::wstring tip;
    tip = GetText(text);
    g_drag.tool.lpszText = tip.data();
    SendMessageW(g_drag.tooltip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&g_drag.tool));
    RECT tab;
    SendMessageW(view_->Strip(), TCM_GETITEMRECT, target, reinterpret_cast<LPARAM>(&tab));
    POINT corner{tab.left - 6, tab.top - 1};
    ClientToScreen(view_->Strip(), &corner);
    SendMessageW(g_drag.tooltip, TTM_TRACKPOSITION, 0, MAKELPARAM(corner.x, corner.y));
    SendMessageW(g_drag.tooltip, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&g_drag.tool));
}

// Any drag over a tab other than the selected one opens it after the hover delay.
void CCBrowserTabCtrl::Hover(POINT screen) {
    const int index = TabAtScreen({screen.x, screen.y});
    if (index < 0) return;
    const DWORD now = GetTickCount();
    if (index == view_->Selected()) {
        hoverMark_ = now;
        return;
    }
    const int delay = HoverDelayMs(Options().tabs_hover_time);
    if (delay <= 200 || now - hoverMark_ >= static_cast<DWORD>(delay)) {
        hoverMark_ = now;
        view_->Select(index);
    }
}

STDMETHODIMP CCBrowserTabCtrl::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    hoverMark_ = GetTickCount();
    CIDropTargetPlus::DragEnter(data, keys, point, effect);
    return DragOver(keys, point, effect);
}

STDMETHODIMP CCBrowserTabCtrl::DragOver(DWORD keys, POINTL point, DWORD* effect) {
    if (!view_) return *effect = DROPEFFECT_NONE, S_OK;
    CIDropTargetPlus::DragOver(keys, point, effect);
    if (!g_drag.active) {
        *effect = OpeningEffect(*effect);  // a drop opens a folder; nothing is moved
        Hover({point.x, point.y});
        return S_OK;
    }
    const int target = TabAtScreen(point);
    ShowTip(target);
    *effect = target >= 0 ? DROPEFFECT_MOVE : DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
    return S_OK;
}

STDMETHODIMP CCBrowserTabCtrl::DragLeave() {
    ShowTip(-1);
    return CIDropTargetPlus::DragLeave();
}

STDMETHODIMP CCBrowserTabCtrl::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    ShowTip(-1);
    if (!view_) return *effect = DROPEFFECT_NONE, S_OK;
    if (!g_drag.active) return CIDropTargetPlus::Drop(data, keys, point, effect);
    CIDropTargetPlus::DragLeave();
    int target = TabAtScreen(point);
    if (target < 0) target = view_->Count();
    const bool ownTab = g_drag.source == view_ && target == g_drag.sourceIndex;
    int command = kMoveHere;
    if (g_drag.rightButton) {
        win::UniqueMenu menu(CreatePopupMenu());
        AppendMenuW(menu.get(), MF_STRING | (ownTab ? MF_GRAYED : 0), kMoveHere, GetText(285).c_str());
        AppendMenuW(menu.get(), MF_STRING, kCopyHere, GetText(286).c_str());
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu.get(), MF_STRING, kCancel, GetText(119).c_str());
        command = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0, view_->Strip(), nullptr);
    } else if (ownTab) {
        command = kCancel;
    }
    if (command != kCancel && !DropTab(target, command == kCopyHere)) command = kCancel;
    *effect = command == kCancel ? DROPEFFECT_NONE : command == kCopyHere ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
    return S_OK;
}

// A tab moves only once it has arrived: a strip that is full refuses the new tab, and the source
// keeps its own.
bool CCBrowserTabCtrl::DropTab(int target, bool copy) {
    CCBrowserTabView* source = g_drag.source;
    const int from = g_drag.sourceIndex;
    if (!source || !view_) return false;
    if (source == view_) {
        if (copy) view_->DuplicateTab(from, std::min(target, view_->Count()));
        else view_->MoveTab(from, std::min(target, view_->Count() - 1));
        return true;
    }
    TabRecord* record = source->Record(from);
    if (!record) return false;
    const int before = view_->Count();
    view_->Select(view_->InsertTab(win::ClonePidl(CurrentFolderOf(*record)), std::to_wstring(target)));
    if (view_->Count() <= before) return false;
    // The tab keeps where it has been.
    TabRecord* arrived = view_->Record(view_->Selected());
    if (arrived && arrived->browser && record->browser) arrived->browser->TakeHistoryOf(*record->browser);
    if (!copy) source->CloseTab(from);  // the last tab of a T-View stays where it is
    return true;
}

// A folder dropped on the strip opens in a new tab; anything else is left alone.
bool CCBrowserTabCtrl::OnDropText(const std::wstring& text, DWORD) {
    if (!view_ || text.empty()) return false;
    const DWORD attributes = GetFileAttributesW(text.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) return false;
    const int index = view_->InsertTab(win::PidlFromPath(text));
    view_->Select(index);
    return index >= 0;
}

}  // namespace tessel
