// Every caption id in the program's menus and dialogs has an English text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/language_packs_win.h"

namespace tessel {
namespace {

std::vector<std::wstring> g_missing;

std::wstring EnglishOrEmpty(int id) {
    static ResourceLanguagePacks packs(GetModuleHandleW(nullptr));
    static const int english = 1;
    static Strings strings(packs, english);
    strings.SetShowMissingIds(true);
    std::wstring text = strings.GetText(id);
    return text.rfind(L"String ", 0) == 0 && text.find(L"is not in list") != std::wstring::npos ? L"" : text;
}

void CheckCaption(const wchar_t* caption, const std::wstring& where, int& checked) {
    int id = 0;
    if (!IsCaptionId(caption, id)) return;
    ++checked;
    if (EnglishOrEmpty(id).empty()) g_missing.push_back(where + L": " + caption);
}

void WalkMenu(HMENU menu, const std::wstring& where, int& checked) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t caption[64] = {};
        GetMenuStringW(menu, i, caption, 64, MF_BYPOSITION);
        CheckCaption(caption, where, checked);
        if (HMENU sub = GetSubMenu(menu, i)) WalkMenu(sub, where, checked);
    }
}

BOOL CALLBACK OnMenu(HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR param) {
    HMENU menu = LoadMenuW(module, name);
    WalkMenu(menu, L"menu " + std::to_wstring(reinterpret_cast<UINT_PTR>(name)), *reinterpret_cast<int*>(param));
    DestroyMenu(menu);
    return TRUE;
}

struct DialogWalk {
    std::wstring where;
    int* checked;
};

BOOL CALLBACK OnChild(HWND child, LPARAM param) {
    auto* walk = reinterpret_cast<DialogWalk*>(param);
    wchar_t caption[64] = {};
    GetWindowTextW(child, caption, 64);
    CheckCaption(caption, walk->where, *walk->checked);
    return TRUE;
}

INT_PTR CALLBACK Silent(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

BOOL CALLBACK OnDialog(HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR param) {
    HWND dialog = CreateDialogParamW(module, name, nullptr, Silent, 0);
    if (!dialog) return TRUE;
    DialogWalk walk{L"dialog " + std::to_wstring(reinterpret_cast<UINT_PTR>(name)), reinterpret_cast<int*>(param)};
    OnChild(dialog, reinterpret_cast<LPARAM>(&walk));
    EnumChildWindows(dialog, OnChild, reinterpret_cast<LPARAM>(&walk));
    DestroyWindow(dialog);
    return TRUE;
}

TEST(Captions, EveryMenuAndDialogCaptionHasAnEnglishText) {
    int checked = 0;
    HMODULE module = GetModuleHandleW(nullptr);
    EnumResourceNamesW(module, MAKEINTRESOURCEW(4) /* RT_MENU */, OnMenu, reinterpret_cast<LONG_PTR>(&checked));
    EnumResourceNamesW(module, MAKEINTRESOURCEW(5) /* RT_DIALOG */, OnDialog, reinterpret_cast<LONG_PTR>(&checked));
    EXPECT_GT(checked, 10) << "the walk found the captions";
    for (const std::wstring& missing : g_missing) ADD_FAILURE() << "no English text for " << std::string(missing.begin(), missing.end());
}

TEST(Captions, LocalizedMenuShowsTheLanguageText) {
    HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(128));
    ASSERT_NE(menu, nullptr);
    LocalizeMenu(menu);
    wchar_t caption[64] = {};
    GetMenuStringW(menu, 0, caption, 64, MF_BYPOSITION);
    EXPECT_EQ(std::wstring(caption), GetText(62001));
    EXPECT_NE(std::wstring(caption), L"62001");
    DestroyMenu(menu);
}

TEST(Captions, PacksLoadFromTheResources) {
    ResourceLanguagePacks packs(GetModuleHandleW(nullptr));
    int german = 0;
    Strings strings(packs, german);
    EXPECT_EQ(strings.GetText(119), L"Abbrechen");
    german = 1;
    EXPECT_EQ(strings.GetText(119), L"Cancel");
    german = 6;  // no Japanese pack: English behind it
    EXPECT_EQ(strings.GetText(119), L"Cancel");
    EXPECT_TRUE(packs.LoadText(L"JA").empty());
}

}  // namespace
}  // namespace tessel
