#pragma once
// The translation editor: every string id with its English text and its text in a chosen
// language, searched and changed, then saved as the language file beside the program, which
// Tessel loads in place of its own pack from then on.
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "core/translation.h"
#include "frame/options_dialog_win.h"

namespace tessel {

class CTranslationEditor {
public:
    explicit CTranslationEditor(IOptionHost* host) : host_(host) {}
    void Run(HWND owner);

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    void Init(HWND dialog);
    bool Command(int id, int code);
    bool Notify(NMHDR* header);
    void Load(int languageId);
    void ShowRows();
    void ShowStatus();
    void ShowSelected();
    void SetSelected();
    bool Save();
    bool MaySwitchAway();  // asks to save unsaved changes; false when the user cancels
    void ShowMissing(bool show);
    int Selected() const;  // a row of the draft, or -1

    IOptionHost* host_;
    HWND dialog_ = nullptr;
    HWND list_ = nullptr;
    std::vector<int> languages_;  // the language id of each entry of the choice
    int language_ = 1;
    std::unique_ptr<TranslationDraft> draft_;
    std::vector<size_t> shown_;   // the draft's rows that the search lets through
    std::wstring cell_;           // the text handed to the list for its last question
};

}  // namespace tessel
