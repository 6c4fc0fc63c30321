// The translation editor on the real dialog: a third language made from nothing, saved beside
// the program and then used by the program's texts; gaps shown as placeholders while asked for;
// a damaged language file read by the pack rules.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "frame/translation_editor_win.h"
#include "res/resource.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

// The French file beside the test program, removed before and after.
class FrenchFile {
public:
    FrenchFile() { Remove(); }
    ~FrenchFile() {
        Remove();
        Texts().Invalidate();
    }
    std::wstring Path() const { return LanguageFilePath(L"FR"); }

private:
    void Remove() const { DeleteFileW(Path().c_str()); }
};

HWND WaitForEditor() {
    for (int i = 0; i < 250; ++i, Sleep(20))
        for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
            if (IsWindowVisible(d) && GetDlgItem(d, IDC_TR_LIST)) return d;
    return nullptr;
}

void ChooseLanguage(HWND dialog, const wchar_t* code) {
    HWND box = GetDlgItem(dialog, IDC_TR_LANGUAGE);
    SendMessageW(box, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(code));
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_TR_LANGUAGE, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
}

TEST(TranslationEditor, AThirdLanguageIsMadeSavedAndUsedWithoutABuild) {
    ViewHost host(1);
    FrenchFile french;
    ScopedOption english(Options().m_lang_id, 1);
    struct Seen {
        int rowsFound = -1;
        std::wstring fieldBefore;
        bool missingWhileChecked = false;
    } seen;
    std::jthread user([&] {
        HWND dialog = WaitForEditor();
        if (!dialog) return;
        ChooseLanguage(dialog, L"FR");
        SetDlgItemTextW(dialog, IDC_TR_SEARCH, L"32881");  // the options command
        HWND list = GetDlgItem(dialog, IDC_TR_LIST);
        seen.rowsFound = ListView_GetItemCount(list);
        ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        seen.fieldBefore = GetWindowTextString(GetDlgItem(dialog, IDC_TR_TEXT));
        SetDlgItemTextW(dialog, IDC_TR_TEXT, L"&Options (fr)...\\tCtrl+O");
        SendMessageW(GetDlgItem(dialog, IDC_TR_SET), BM_CLICK, 0, 0);
        SendMessageW(GetDlgItem(dialog, IDC_TR_SAVE), BM_CLICK, 0, 0);
        SendMessageW(GetDlgItem(dialog, IDC_TR_MISSING), BM_CLICK, 0, 0);
        seen.missingWhileChecked = Texts().ShowsMissingIds();
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    CTranslationEditor(nullptr).Run(host.hwnd());
    user.join();
    EXPECT_EQ(seen.rowsFound, 1);
    EXPECT_EQ(seen.fieldBefore, L"") << "French has no text of its own yet";
    EXPECT_TRUE(seen.missingWhileChecked);
    EXPECT_FALSE(Texts().ShowsMissingIds()) << "the placeholders end with the editor";
    ASSERT_EQ(GetFileAttributesW(french.Path().c_str()) != INVALID_FILE_ATTRIBUTES, true) << "saved beside the program";

    bool offered = false;
    for (const AvailableLanguage& language : AvailableLanguages()) offered |= language.id == 2 && language.name == L"FR";
    EXPECT_TRUE(offered) << "the file makes French a language to choose";
    ScopedOption inFrench(Options().m_lang_id, 2);
    EXPECT_EQ(GetText(32881), L"&Options (fr)...\tCtrl+O");
    EXPECT_EQ(GetText(32880), L"&Ask before closing") << "what French lacks comes in English";
    Texts().SetShowMissingIds(true);
    EXPECT_EQ(GetText(32880), L"String 32880 is not in list");
    Texts().SetShowMissingIds(false);
}

TEST(TranslationEditor, ADamagedLanguageFileIsReadByThePackRules) {
    FrenchFile french;
    WriteBytes(french.Path(), "garbage without an equals sign\n32881=first\n32881=second\n0=zero\n\xC3");
    Texts().Invalidate();
    ScopedOption inFrench(Options().m_lang_id, 2);
    EXPECT_EQ(GetText(32881), L"first") << "the first line of an id counts";
    EXPECT_EQ(GetText(32880), L"&Ask before closing");
    ScopedOption inGerman(Options().m_lang_id, 0);
    EXPECT_EQ(GetText(32880), L"Vor dem Schlie\u00DFen &fragen") << "German keeps its own pack";
}

}  // namespace
}  // namespace tessel::testing
