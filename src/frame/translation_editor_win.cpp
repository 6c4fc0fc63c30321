#include "frame/translation_editor_win.h"

#include <commctrl.h>

#include <algorithm>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "core/general_options.h"
#include "frame/option_pages.h"
#include "res/resource.h"
#include "win/text_file_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr int kColumnTitles[] = {62354, 62355, 62356};
constexpr int kColumnWidths[] = {60, 300, 300};  // at 96 dpi

StringTable Parsed(const std::wstring& text) {
    StringTable table;
    table.Parse(text);
    return table;
}

}  // namespace

void CTranslationEditor::Run(HWND owner) {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_TRANSLATION), owner, Procedure,
                    reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK CTranslationEditor::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<CTranslationEditor*>(lParam)->Init(dialog);
        return TRUE;
    }
    auto* editor = reinterpret_cast<CTranslationEditor*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (!editor) return FALSE;
    if (message == WM_COMMAND) return editor->Command(LOWORD(wParam), HIWORD(wParam));
    if (message == WM_NOTIFY) return editor->Notify(reinterpret_cast<NMHDR*>(lParam));
    if (message == WM_CLOSE) return editor->Command(IDCANCEL, 0);
    return FALSE;
}

// Every language number with a code of its own; the ones with a pack or a file show their name.
void CTranslationEditor::Init(HWND dialog) {
    dialog_ = dialog;
    LocalizeDialog(dialog);
    list_ = GetDlgItem(dialog, IDC_TR_LIST);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    for (size_t i = 0; i < std::size(kColumnTitles); ++i) {
        std::wstring title = GetText(kColumnTitles[i]);
        LVCOLUMNW column{LVCF_TEXT | LVCF_WIDTH};
        column.pszText = title.data();
        column.cx = win::Scaled(dialog, kColumnWidths[i]);
        ListView_InsertColumn(list_, static_cast<int>(i), &column);
    }
    const std::vector<AvailableLanguage> available = AvailableLanguages();
    HWND box = GetDlgItem(dialog, IDC_TR_LANGUAGE);
    for (const int id : LanguageIds()) {
        const std::wstring code = LanguageCode(id);
        std::wstring text = code;
        for (const AvailableLanguage& language : available)
            if (language.id == id && language.name != code) text += L" - " + language.name;
        SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        languages_.push_back(id);
        if (id == Options().m_lang_id) SendMessageW(box, CB_SETCURSEL, languages_.size() - 1, 0);
    }
    if (SendMessageW(box, CB_GETCURSEL, 0, 0) < 0) SendMessageW(box, CB_SETCURSEL, 1, 0);  // English
    CheckDlgButton(dialog, IDC_TR_MISSING, Texts().ShowsMissingIds() ? BST_CHECKED : BST_UNCHECKED);
    Load(languages_[static_cast<size_t>(SendMessageW(box, CB_GETCURSEL, 0, 0))]);
}

void CTranslationEditor::Load(int languageId) {
    ResourceLanguagePacks packs(GetModuleHandleW(nullptr));
    language_ = languageId;
    draft_ = std::make_unique<TranslationDraft>(Parsed(packs.LoadText(L"EN")), Parsed(packs.LoadText(LanguageCode(languageId))),
                                                Parsed(packs.BuiltInText(LanguageCode(languageId))));
    ShowRows();
}

void CTranslationEditor::ShowRows() {
    shown_ = draft_->Find(win::WindowText(GetDlgItem(dialog_, IDC_TR_SEARCH)));
    ListView_SetItemCountEx(list_, static_cast<int>(shown_.size()), 0);
    InvalidateRect(list_, nullptr, TRUE);
    ShowSelected();
    ShowStatus();
}

void CTranslationEditor::ShowStatus() {
    const std::wstring status = FillIn(GetText(62359), {std::to_wstring(draft_->Translated()),
                                                        std::to_wstring(draft_->Rows().size()),
                                                        LanguageFilePath(LanguageCode(language_))});
    SetDlgItemTextW(dialog_, IDC_TR_STATUS, status.c_str());
}

int CTranslationEditor::Selected() const {
    const int item = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    return item >= 0 && item < static_cast<int>(shown_.size()) ? static_cast<int>(shown_[static_cast<size_t>(item)]) : -1;
}

void CTranslationEditor::ShowSelected() {
    const int row = Selected();
    const std::wstring text = row >= 0 ? EscapedText(draft_->Rows()[static_cast<size_t>(row)].text) : L"";
    SetDlgItemTextW(dialog_, IDC_TR_TEXT, text.c_str());
    EnableWindow(GetDlgItem(dialog_, IDC_TR_SET), row >= 0);
}

void CTranslationEditor::SetSelected() {
    const int row = Selected();
    if (row < 0) return;
    draft_->Set(static_cast<size_t>(row), UnescapedText(win::WindowText(GetDlgItem(dialog_, IDC_TR_TEXT))));
    ListView_RedrawItems(list_, 0, static_cast<int>(shown_.size()) - 1);
    ShowStatus();
}

bool CTranslationEditor::Save() {
    const std::wstring code = LanguageCode(language_);
    const std::wstring path = LanguageFilePath(code);
    if (!win::WriteUnicodeFile(path, draft_->PackText(L"; Tessel " + code))) {
        MessageBoxW(dialog_, (GetText(62360) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
        return false;
    }
    draft_->MarkSaved();
    Texts().Invalidate();  // the texts of the program come from the new file now
    if (host_ && language_ == Options().m_lang_id) host_->ApplyOptions(kEffectLanguage);
    return true;
}

bool CTranslationEditor::MaySwitchAway() {
    if (!draft_ || !draft_->Changed()) return true;
    const int answer = MessageBoxW(dialog_, GetText(62361).c_str(), GetText(60000).c_str(), MB_YESNOCANCEL | MB_ICONQUESTION);
    return answer == IDNO || (answer == IDYES && Save());
}

// Translators see the gaps of their language as the placeholder texts, in the whole window.
void CTranslationEditor::ShowMissing(bool show) {
    if (Texts().ShowsMissingIds() == show) return;
    Texts().SetShowMissingIds(show);
    if (host_) host_->ApplyOptions(kEffectLanguage);
}

bool CTranslationEditor::Command(int id, int code) {
    switch (id) {
    case IDC_TR_LANGUAGE:
        if (code == CBN_SELCHANGE) {
            HWND box = GetDlgItem(dialog_, IDC_TR_LANGUAGE);
            if (MaySwitchAway()) Load(languages_[static_cast<size_t>(SendMessageW(box, CB_GETCURSEL, 0, 0))]);
            else SendMessageW(box, CB_SETCURSEL, std::find(languages_.begin(), languages_.end(), language_) - languages_.begin(), 0);
        }
        return TRUE;
    case IDC_TR_SEARCH:
        if (code == EN_CHANGE && draft_) ShowRows();
        return TRUE;
    case IDC_TR_MISSING: ShowMissing(IsDlgButtonChecked(dialog_, IDC_TR_MISSING) == BST_CHECKED); return TRUE;
    case IDC_TR_SET: SetSelected(); return TRUE;
    case IDC_TR_SAVE: Save(); return TRUE;
    case IDOK:
    case IDCANCEL:
        if (!MaySwitchAway()) return TRUE;
        ShowMissing(false);  // the placeholders are for the time of editing
        EndDialog(dialog_, IDOK);
        return TRUE;
    }
    return FALSE;
}

bool CTranslationEditor::Notify(NMHDR* header) {
    if (header->idFrom != IDC_TR_LIST) return false;
    if (header->code == LVN_GETDISPINFOW) {
        auto* info = reinterpret_cast<NMLVDISPINFOW*>(header);
        if (!(info->item.mask & LVIF_TEXT) || info->item.iItem < 0 || info->item.iItem >= static_cast<int>(shown_.size()))
            return true;
        const TranslationRow& row = draft_->Rows()[shown_[static_cast<size_t>(info->item.iItem)]];
        cell_ = info->item.iSubItem == 0 ? std::to_wstring(row.id) : EscapedText(info->item.iSubItem == 1 ? row.english : row.text);
        info->item.pszText = cell_.data();
        return true;
    }
    if (header->code == LVN_ITEMCHANGED) ShowSelected();
    return false;
}

}  // namespace tessel
