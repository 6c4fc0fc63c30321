// The quick-links and programs menus of a T-View: built from their lists each time they open
// (the quick-links also list the shortcuts of the Quick-Link folder), drawn with each target's
// icon (found once, off the GUI thread), and carried out by the view in use.
#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "nav/favorites_win.h"
#include "features/quick_links.h"
#include "res/resource.h"
#include "view/command_placeholders_win.h"
#include "panel/menu_icons_win.h"
#include "panel/view_panel_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

void AddQuickLinkFolder(std::vector<QuickLinkEntry>& entries) {
    FavoritesPlacesWin places;
    const std::wstring folder = QuickLinkFolder(Settings(), places);
    if (folder.empty()) return;
    const std::wstring base = folder.back() == L'\\' ? folder : folder + L"\\";
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileW((base + L"*.lnk").c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return;
    do {
        if (entries.size() >= kQuickLinkMaxEntries) break;
        std::wstring name = data.cFileName;
        name.resize(name.size() - 4);  // without ".lnk"
        // A link to a folder opens in the view; any other link is started as it is.
        const std::wstring folder = win::LinkedFolder(base + data.cFileName);
        entries.push_back({name, folder.empty() ? base + data.cFileName : folder});
    } while (FindNextFileW(find, &data));
    FindClose(find);
}

}  // namespace

void CPloder::RefreshUserMenuButtons() {
    toolbars_.ShowUserMenus(!QuickLinksDisabled(Settings(), kQuickLinksSection),
                            !QuickLinksDisabled(Settings(), kProgramsSection));
}

void CPloder::ShowUserMenu(UINT command, POINT screenPoint) {
    const wchar_t* section = command == ID_PROGRAMS_MENU ? kProgramsSection : kQuickLinksSection;
    RefreshUserMenuButtons();
    if (QuickLinksDisabled(Settings(), section)) return;
    menuEntries_ = ReadQuickLinks(Settings(), section);
    if (command == ID_QUICK_LINKS_MENU) AddQuickLinkFolder(menuEntries_);
    win::UniqueMenu menu(CreatePopupMenu());
    for (size_t i = 0; i < menuEntries_.size(); ++i)
        AppendMenuW(menu.get(), MF_OWNERDRAW, kQuickLinkFirstCommand + i, reinterpret_cast<LPCWSTR>(i));
    if (menuEntries_.empty()) AppendMenuW(menu.get(), MF_STRING | MF_GRAYED, 0, GetText(62081).c_str());
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, 0,
                                       hwnd(), nullptr);
    RunUserMenuCommand(chosen);
}

void CPloder::RunUserMenuCommand(UINT command) {
    const size_t index = command - kQuickLinkFirstCommand;
    if (command < kQuickLinkFirstCommand || index >= menuEntries_.size() || !active_) return;
    const std::wstring target = menuEntries_[index].target;
    menuEntries_.clear();
    if (!active_->RunUserCommand(target))
        MessageBoxW(hwnd(), (GetText(62117) + L"\n" + target).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

bool CPloder::MeasureUserMenuItem(MEASUREITEMSTRUCT* item) {
    const size_t index = item->itemData;
    if (item->CtlType != ODT_MENU || index >= menuEntries_.size()) return false;
    HDC dc = GetDC(hwnd());
    NONCLIENTMETRICSW metrics{sizeof(metrics)};
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    win::UniqueFont font(CreateFontIndirectW(&metrics.lfMenuFont));
    HGDIOBJ old = SelectObject(dc, font.get());
    SIZE text{};
    const std::wstring& name = menuEntries_[index].name;
    GetTextExtentPoint32W(dc, name.c_str(), static_cast<int>(name.size()), &text);
    SelectObject(dc, old);
    ReleaseDC(hwnd(), dc);
    const int icon = GetSystemMetrics(SM_CXSMICON);
    item->itemWidth = static_cast<UINT>(text.cx + icon + win::Scaled(hwnd(), 16));
    item->itemHeight = static_cast<UINT>(std::max<LONG>(text.cy, icon) + win::Scaled(hwnd(), 6));
    return true;
}

bool CPloder::DrawUserMenuItem(DRAWITEMSTRUCT* item) {
    const size_t index = item->itemData;
    if (item->CtlType != ODT_MENU || index >= menuEntries_.size()) return false;
    const bool selected = item->itemState & ODS_SELECTED;
    FillRect(item->hDC, &item->rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_MENU));
    const int icon = GetSystemMetrics(SM_CXSMICON);
    const int gap = win::Scaled(hwnd(), 4);
    RECT box = item->rcItem;
    // The target's icon once found, a program's placeholder meanwhile.
    if (!menuIcons_) menuIcons_ = std::make_unique<MenuIcons>(hwnd(), kMsgMenuIconsFound);
    HICON shown = menuIcons_->Find(menuEntries_[index].target);
    DrawIconEx(item->hDC, box.left + gap, box.top + (box.bottom - box.top - icon) / 2,
               shown ? shown : LoadIconW(nullptr, IDI_APPLICATION), icon, icon, 0, nullptr, DI_NORMAL);
    box.left += icon + 2 * gap;
    SetBkMode(item->hDC, TRANSPARENT);
    SetTextColor(item->hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
    DrawTextW(item->hDC, menuEntries_[index].name.c_str(), -1, &box, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    return true;
}

// Icons came in while the menu may be open: its window draws them.
void CPloder::ShowFoundMenuIcons() {
    EnumThreadWindows(GetCurrentThreadId(), [](HWND window, LPARAM) {
        wchar_t name[16] = {};
        GetClassNameW(window, name, 16);
        if (wcscmp(name, L"#32768") == 0 && IsWindowVisible(window)) InvalidateRect(window, nullptr, FALSE);
        return TRUE;
    }, 0);
}

}  // namespace tessel
