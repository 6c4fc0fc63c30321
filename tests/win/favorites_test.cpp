// The favorites: the menu built from the favorites folder, adding the arrangement as a favorite
// through the real program, and search favorites reopening a folder with a filter.
#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "nav/favorites_menu_win.h"
#include "res/resource.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

std::wstring MenuText(HMENU menu, int position) {
    wchar_t text[256] = {};
    GetMenuStringW(menu, position, text, 256, MF_BYPOSITION);
    return text;
}

// The five fixed entries, as the main menu holds them.
HMENU FixedFavoritesMenu() {
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, ID_FAV_ADD, L"add");
    AppendMenuW(menu, MF_STRING, ID_FAV_ORGANISE, L"organise");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING | MF_GRAYED, ID_FAV_NEW_WINDOW_HINT, L"hint");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    return menu;
}

TEST(Favorites, TheMenuListsTheFolderWithSubFoldersFilledWhenOpened) {
    ViewHost host;  // the settings
    TempFolder favorites;
    CreateDirectoryW((favorites / L"Work").c_str(), nullptr);
    WriteBytes(favorites / L"Work\\inner.tsf", "x");
    WriteBytes(favorites / L"b & c.tsf", "x");
    WriteBytes(favorites / L"a.tsq", "x");
    win::UniqueMenu menu(FixedFavoritesMenu());
    FavoritesMenu favoritesMenu;

    Settings().PutString(L"Favoriten", L"Ordner", favorites / L"gone");
    favoritesMenu.Rebuild(menu.get());
    ASSERT_EQ(GetMenuItemCount(menu.get()), 5 + 3 + 4) << "a missing folder: the two hints and the folder commands";
    EXPECT_EQ(MenuText(menu.get(), 6), GetText(40004));
    TempFolder empty;
    Settings().PutString(L"Favoriten", L"Ordner", empty.path());
    favoritesMenu.Rebuild(menu.get());
    ASSERT_EQ(GetMenuItemCount(menu.get()), 5 + 3) << "an empty folder: no second separator";
    EXPECT_EQ(GetMenuItemID(menu.get(), 5), static_cast<UINT>(ID_FAV_OPEN_IN_VIEW));

    Settings().PutString(L"Favoriten", L"Ordner", favorites.path());
    favoritesMenu.Rebuild(menu.get());
    favoritesMenu.Rebuild(menu.get());  // each opening starts again from the five
    ASSERT_EQ(GetMenuItemCount(menu.get()), 5 + 3 + 4);
    EXPECT_EQ(MenuText(menu.get(), 0), L"add");
    EXPECT_EQ(MenuText(menu.get(), 5), L"Work") << "folders first";
    EXPECT_EQ(MenuText(menu.get(), 6), L"a");
    EXPECT_EQ(MenuText(menu.get(), 7), L"b && c") << "no extension, and \"&\" stays a character";
    EXPECT_EQ(GetMenuItemID(menu.get(), 11), static_cast<UINT>(ID_FAV_ADD_SEARCH));
    EXPECT_EQ(Settings().GetString(L"Favoriten", L"Ordner", L""), favorites.path() + L"\\") << "stored with a backslash";

    const FavoritesMenu::Entry* entry = favoritesMenu.EntryOf(GetMenuItemID(menu.get(), 7));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(LowerCase(entry->path), LowerCase(favorites / L"b & c.tsf"));
    HMENU work = GetSubMenu(menu.get(), 5);
    ASSERT_NE(work, nullptr);
    EXPECT_TRUE(favoritesMenu.FillSubmenu(work));
    EXPECT_FALSE(favoritesMenu.FillSubmenu(work)) << "filled once";
    ASSERT_EQ(GetMenuItemCount(work), 1);
    EXPECT_EQ(MenuText(work, 0), L"inner");
    EXPECT_EQ(favoritesMenu.EntryOf(ID_FAV_LAST_ENTRY), nullptr);
}

// The menu shown as the main menu shows it, an entry of a sub-folder chosen with the keys.
TEST(Favorites, AnEntryIsChosenFromTheOpenMenu) {
    ViewHost host;
    TempFolder favorites;
    CreateDirectoryW((favorites / L"Work").c_str(), nullptr);
    WriteBytes(favorites / L"Work\\inner.tsf", "x");
    WriteBytes(favorites / L"top.tsf", "x");
    Settings().PutString(L"Favoriten", L"Ordner", favorites.path());
    FavoritesMenu favoritesMenu;
    win::UniqueMenu menu(FixedFavoritesMenu());
    favoritesMenu.Rebuild(menu.get());
    HWND owner = host.hwnd();
    // The owner fills the sub-folder's popup when it opens, as the main window does.
    static FavoritesMenu* filling = nullptr;
    filling = &favoritesMenu;
    const auto proc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_INITMENUPOPUP && filling) filling->FillSubmenu(reinterpret_cast<HMENU>(wParam));
        return DefWindowProcW(window, message, wParam, lParam);
    };
    SetWindowLongPtrW(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(proc)));
    std::jthread user([owner] {
        const auto menusShown = [] {
            int shown = 0;
            for (HWND m = FindWindowW(L"#32768", nullptr); m; m = FindWindowExW(nullptr, m, L"#32768", nullptr))
                shown += IsWindowVisible(m) ? 1 : 0;
            return shown;
        };
        for (int i = 0; i < 250 && menusShown() < 1; ++i) Sleep(20);
        Sleep(100);
        // Add, organise, the hint, then "Work", into it (once its popup shows), its first entry.
        for (WPARAM key : {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RIGHT}) {
            PostMessageW(owner, WM_KEYDOWN, key, 0);
            Sleep(80);
        }
        for (int i = 0; i < 150 && menusShown() < 2; ++i) Sleep(20);
        Sleep(100);
        PostMessageW(owner, WM_KEYDOWN, VK_RETURN, 0);
    });
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD, 100, 100, 0, owner, nullptr);
    user.join();
    SetWindowLongPtrW(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProcW));
    filling = nullptr;
    const FavoritesMenu::Entry* entry = favoritesMenu.EntryOf(chosen);
    ASSERT_NE(entry, nullptr) << chosen;
    EXPECT_EQ(LowerCase(entry->path), LowerCase(favorites / L"Work\\inner.tsf"));
}

TEST(Favorites, AddingWritesTheArrangementAndTheChoices) {
    TempFolder folder, favorites;
    const std::wstring exe = folder / L"tessel.exe";
    ASSERT_TRUE(CopyFileW((TestBinFolder() + L"\\tessel.exe").c_str(), exe.c_str(), FALSE));
    WriteUnicodeText(folder / L"Tessel.ini", L"[Favoriten]\r\nOrdner=" + favorites.path() + L"\r\n[FAV]\r\ncolumns=1\r\n");
    TesselProcess tessel(exe, L"\"" + folder.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    PostMessageW(tessel.Frame(), WM_COMMAND, ID_FAV_ADD, 0);
    HWND dialog = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (dialog = FindWindowW(L"#32770", GetText(62090).c_str())) != nullptr; }));
    wchar_t name[64] = {};  // another process's control: asked by message
    SendMessageW(GetDlgItem(dialog, IDC_FAV_NAME), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(name));
    EXPECT_NE(std::wstring(name).find(L'.'), std::wstring::npos) << "a dated name";
    EXPECT_EQ(SendMessageW(GetDlgItem(dialog, IDC_FAV_COLUMNS), BM_GETCHECK, 0, 0), BST_CHECKED);
    SendMessageW(GetDlgItem(dialog, IDC_FAV_NAME), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"My set"));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(PumpUntil([&] { return FileExists(favorites / L"My set.tsf"); }));
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    const std::wstring set = ReadUnicodeText(favorites / L"My set.tsf");
    EXPECT_NE(LowerCase(set).find(LowerCase(folder.path())), std::wstring::npos) << "the folders of the views";
    EXPECT_NE(ReadUnicodeText(folder / L"Tessel.ini").find(L"seitenansicht=1"), std::wstring::npos);
}

TEST(Favorites, ASearchFavoriteReopensItsFolderWithItsFilter) {
    TempFolder files;
    WriteBytes(files / L"a.cpp", "a");
    WriteBytes(files / L"b.txt", "b");
    ViewHost host;
    host.Panel().ShowFilter(L"*.cpp");
    ASSERT_TRUE(host.Panel().NavigateToText(files.path()));
    EXPECT_EQ(ListCount(host.Browser()), 1) << "only what the filter lets through";
    EXPECT_EQ(Settings().GetInt(L"T_View_0", L"show_filter", 0), 1);
}

}  // namespace
}  // namespace tessel::testing
