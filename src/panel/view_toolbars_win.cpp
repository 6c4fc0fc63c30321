#include "panel/view_toolbars_win.h"

#include <string>
#include <utility>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "res/resource.h"
#include "panel/toolbar_fit.h"
#include "panel/toolbar_images_win.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

std::vector<int> LoadToolbarCommands(int resourceId) {
    std::vector<int> commands;
    HMODULE module = GetModuleHandleW(nullptr);
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(resourceId), MAKEINTRESOURCEW(241));
    HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto* words = loaded ? static_cast<const WORD*>(LockResource(loaded)) : nullptr;
    const size_t wordCount = found ? SizeofResource(module, found) / 2 : 0;
    if (!words || wordCount < 4) return commands;
    // The resource compiler of the SDK writes version 1, width, height, count and the ids as
    // 16-bit words; the GNU one writes width, height, count and the ids as 32-bit numbers.
    const bool wide = words[0] != 1;
    const size_t step = wide ? 2 : 1;
    const size_t first = wide ? 6 : 4;
    const size_t count = wide ? words[4] : words[3];
    for (size_t i = 0; i < count && first + i * step < wordCount; ++i) commands.push_back(words[first + i * step]);
    return commands;
}

std::wstring ButtonTip(int command) {
    std::wstring text = GetText(command);
    text = text.substr(0, text.find(L'\n'));
    std::erase(text, L'&');
    if (const size_t tab = text.find(L'\t'); tab != std::wstring::npos)
        text = text.substr(0, tab) + L" (" + text.substr(tab + 1) + L")";
    return text;
}

namespace {

// Every T-View shows the same pictures: they are drawn once per toolbar and size and copied.
HIMAGELIST ImagesFor(int resourceId, const std::vector<int>& commands, int size) {
    struct Drawn {
        int resourceId, size;
        HIMAGELIST images;  // kept for the life of the program
    };
    static std::vector<Drawn> drawn;
    for (const Drawn& entry : drawn)
        if (entry.resourceId == resourceId && entry.size == size) return ImageList_Duplicate(entry.images);
    HIMAGELIST images = DrawToolbarImages(commands, size);
    if (!images) return nullptr;
    drawn.push_back({resourceId, size, images});
    return ImageList_Duplicate(images);
}

}  // namespace

ViewToolbars::~ViewToolbars() {
    for (HWND& bar : bars_)
        if (bar && IsWindow(bar)) DestroyWindow(bar);
    for (HIMAGELIST images : images_)
        if (images) ImageList_Destroy(images);
}

void ViewToolbars::Make(HWND panel, HWND statusBar, int index, int resourceId, const std::vector<int>& commands) {
    HWND bar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                               WS_CHILD | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NORESIZE | CCS_NODIVIDER |
                                   CCS_NOPARENTALIGN,
                               0, 0, 0, 0, statusBar, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!bar) return;
    SendMessageW(bar, TB_SETPARENT, reinterpret_cast<WPARAM>(panel), 0);  // commands go to the panel
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    std::vector<int> pictured;
    for (int command : commands)
        if (command) pictured.push_back(command);
    HIMAGELIST images = ImagesFor(resourceId, pictured, win::Scaled(panel, 16));
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    std::vector<TBBUTTON> buttons;
    int image = 0;
    for (int command : commands) {
        TBBUTTON button{};
        button.idCommand = command;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = command ? BTNS_BUTTON : BTNS_SEP;
        button.iBitmap = command ? image++ : win::Scaled(panel, 6);  // a separator's width
        buttons.push_back(button);
    }
    SendMessageW(bar, TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data()));
    bars_[index] = bar;
    images_[index] = images;
}

void ViewToolbars::Create(HWND panel, HWND statusBar) {
    Make(panel, statusBar, 0, IDR_TOOLBAR_VIEW, LoadToolbarCommands(IDR_TOOLBAR_VIEW));
    Make(panel, statusBar, 1, IDR_TOOLBAR_EXTRA, LoadToolbarCommands(IDR_TOOLBAR_EXTRA));
    Make(panel, statusBar, 2, IDR_TOOLBAR_MODES, LoadToolbarCommands(IDR_TOOLBAR_MODES));
    Make(panel, statusBar, 3, ID_TOOLBAR_MORE, {ID_TOOLBAR_MORE});
    if (bars_[0]) {
        const LRESULT index = SendMessageW(bars_[0], TB_COMMANDTOINDEX, ID_VIEW_FOLDER_SIZES, 0);
        if (index >= 0) SendMessageW(bars_[0], TB_DELETEBUTTON, index, 0);
        // Back and forward list their history behind an arrow; both start disabled.
        SendMessageW(bars_[0], TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
        for (int command : {ID_VIEW_BACK, ID_VIEW_FORWARD}) {
            TBBUTTONINFOW info{sizeof(info), TBIF_STYLE | TBIF_STATE};
            info.fsStyle = BTNS_BUTTON | BTNS_DROPDOWN;
            info.fsState = 0;
            SendMessageW(bars_[0], TB_SETBUTTONINFOW, command, reinterpret_cast<LPARAM>(&info));
        }
        // Transfer, copy-to and move-to are menus of the T-Views only, as are the user's lists.
        for (int command : {ID_TRANSFER, ID_COPY_TO_VIEW, ID_MOVE_TO_VIEW, ID_QUICK_LINKS_MENU, ID_PROGRAMS_MENU}) {
            TBBUTTONINFOW info{sizeof(info), TBIF_STYLE};
            info.fsStyle = BTNS_BUTTON | BTNS_WHOLEDROPDOWN;
            SendMessageW(bars_[0], TB_SETBUTTONINFOW, command, reinterpret_cast<LPARAM>(&info));
        }
    }
    if (bars_[2]) {
        SendMessageW(bars_[2], TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
        for (int position : {3, 2, 1}) SendMessageW(bars_[2], TB_DELETEBUTTON, position, 0);
        TBBUTTONINFOW info{sizeof(info), TBIF_STYLE};
        info.fsStyle = BTNS_BUTTON | BTNS_WHOLEDROPDOWN;
        SendMessageW(bars_[2], TB_SETBUTTONINFOW, ID_VIEW_MODES, reinterpret_cast<LPARAM>(&info));
        info.fsStyle = BTNS_CHECK;  // pressed while hidden files show
        SendMessageW(bars_[2], TB_SETBUTTONINFOW, ID_VIEW_HIDDEN_FILES, reinterpret_cast<LPARAM>(&info));
        SendMessageW(bars_[2], TB_CHECKBUTTON, ID_VIEW_HIDDEN_FILES, MAKELONG(Options().show_hidden != 0, 0));
    }
    for (HWND bar : bars_)
        if (bar) SendMessageW(bar, TB_AUTOSIZE, 0, 0);
    // The panel places the bars again when the user changed the buttons.
    choice_.Attach(bars_[0], L"View", [](HWND bar) { PostMessageW(GetParent(GetParent(bar)), WM_SIZE, 0, 0); });
}

void ViewToolbars::ShowUserMenus(bool quickLinks, bool programs) {
    quickLinksWanted_ = quickLinks;
    programsWanted_ = programs;
    if (!bars_[0]) return;
    SendMessageW(bars_[0], TB_HIDEBUTTON, ID_QUICK_LINKS_MENU, !quickLinks);
    SendMessageW(bars_[0], TB_HIDEBUTTON, ID_PROGRAMS_MENU, !programs);
    SendMessageW(bars_[0], TB_AUTOSIZE, 0, 0);
}

void ViewToolbars::EnableHistory(bool back, bool forward) {
    if (!bars_[0]) return;
    // Only a change: every enabling repaints the button, and this runs at each navigation.
    for (auto [command, enabled] : {std::pair{ID_VIEW_BACK, back}, std::pair{ID_VIEW_FORWARD, forward}})
        if ((SendMessageW(bars_[0], TB_ISBUTTONENABLED, command, 0) != 0) != enabled)
            SendMessageW(bars_[0], TB_ENABLEBUTTON, command, MAKELONG(enabled, 0));
}

void ViewToolbars::Check(int command, bool checked) {
    for (HWND bar : bars_)
        if (bar) SendMessageW(bar, TB_CHECKBUTTON, command, MAKELONG(checked, 0));
}

int ViewToolbars::Height() const {
    const DWORD size = bars_[0] ? static_cast<DWORD>(SendMessageW(bars_[0], TB_GETBUTTONSIZE, 0, 0)) : 0;
    return HIWORD(size);
}

bool ViewToolbars::UserWants(int command) const {
    return (command != ID_QUICK_LINKS_MENU || quickLinksWanted_) && (command != ID_PROGRAMS_MENU || programsWanted_);
}

void ViewToolbars::ShowMainButtons(int from, bool visible) {
    HWND bar = bars_[0];
    const int count = static_cast<int>(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0));
    for (int i = from; i < count; ++i) {
        TBBUTTON button{};
        if (!SendMessageW(bar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button))) continue;
        const bool show = visible && UserWants(button.idCommand);
        SendMessageW(bar, TB_SETSTATE, button.idCommand, show ? button.fsState & ~TBSTATE_HIDDEN : button.fsState | TBSTATE_HIDDEN);
    }
    mainHidden_ = !visible && from < count;
}

namespace {

int BarWidth(HWND bar) {
    SIZE size{};
    SendMessageW(bar, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size.cx;
}

}  // namespace

int ViewToolbars::Place(HWND statusBar, int textWidth) {
    RECT bar;
    GetClientRect(statusBar, &bar);
    if (mainHidden_ && bars_[0]) ShowMainButtons(0, true);  // measured whole, then fitted again
    ToolbarWidths widths;
    const int count = bars_[0] ? static_cast<int>(SendMessageW(bars_[0], TB_BUTTONCOUNT, 0, 0)) : 0;
    for (int i = 0; i < count; ++i) {
        TBBUTTON button{};
        RECT item{};
        SendMessageW(bars_[0], TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
        const bool hidden = button.fsState & TBSTATE_HIDDEN;
        widths.main.push_back(!hidden && SendMessageW(bars_[0], TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&item))
                                  ? item.right - item.left : 0);
        widths.separators.push_back((button.fsStyle & BTNS_SEP) != 0);
    }
    widths.extra = bars_[1] && wanted_[1] ? BarWidth(bars_[1]) : 0;
    widths.modes = bars_[2] && wanted_[2] ? BarWidth(bars_[2]) : 0;
    widths.chevron = bars_[3] ? BarWidth(bars_[3]) : 0;
    const ToolbarFit fit = FitToolbars(widths, bar.right - 2, textWidth);
    mainShown_ = fit.mainShown;
    if (fit.mainShown < count) ShowMainButtons(fit.mainShown, false);
    const bool shown[4] = {bars_[0] != nullptr, fit.extraShown, fit.modesShown, fit.chevron};
    int right = bar.right - 2;
    for (int i = 3; i >= 0; --i) {
        shown_[i] = bars_[i] && shown[i];
        if (!bars_[i]) continue;
        ShowWindow(bars_[i], shown_[i] ? SW_SHOWNA : SW_HIDE);
        if (!shown_[i]) continue;
        SIZE size{};
        SendMessageW(bars_[i], TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
        right -= size.cx;
        const int top = (bar.bottom - size.cy) / 2 + 1;
        SetWindowPos(bars_[i], nullptr, right, top > 0 ? top : 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return bar.right - right;
}

std::vector<int> ViewToolbars::HiddenCommands() const {
    std::vector<int> commands;
    const auto add = [&](HWND bar, int from) {
        const int count = bar ? static_cast<int>(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0)) : 0;
        for (int i = from; i < count; ++i) {
            TBBUTTON button{};
            if (SendMessageW(bar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button)) && !(button.fsStyle & BTNS_SEP) &&
                UserWants(button.idCommand))
                commands.push_back(button.idCommand);
        }
    };
    if (mainHidden_) add(bars_[0], mainShown_);
    for (int i : {1, 2})
        if (wanted_[i] && !shown_[i]) add(bars_[i], 0);
    return commands;
}

int ViewToolbars::TrackHiddenMenu(HWND owner) const {
    const std::vector<int> commands = HiddenCommands();
    if (commands.empty() || !bars_[3]) return 0;
    win::UniqueMenu menu(CreatePopupMenu());
    for (int command : commands) {
        const std::wstring text = ButtonTip(command);
        const bool enabled = !bars_[0] || SendMessageW(bars_[0], TB_COMMANDTOINDEX, command, 0) < 0 ||
                             SendMessageW(bars_[0], TB_ISBUTTONENABLED, command, 0);
        AppendMenuW(menu.get(), MF_STRING | (enabled ? 0 : MF_GRAYED), static_cast<UINT_PTR>(command), text.c_str());
    }
    RECT button{};
    GetWindowRect(bars_[3], &button);
    return static_cast<int>(TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_RIGHTALIGN,
                                           button.right, button.bottom, 0, owner, nullptr));
}

HWND ViewToolbars::BarOf(int command) const {
    for (int i = 0; i < 3; ++i) {
        if (!bars_[i] || !shown_[i]) continue;
        const LRESULT index = SendMessageW(bars_[i], TB_COMMANDTOINDEX, command, 0);
        TBBUTTON button{};
        if (index >= 0 && SendMessageW(bars_[i], TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button)) &&
            !(button.fsState & TBSTATE_HIDDEN))
            return bars_[i];
    }
    return nullptr;
}

}  // namespace tessel
