#include "view/toolbar_choice_win.h"

#include <algorithm>
#include <map>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "view/toolbar_buttons.h"

namespace tessel {
namespace {

constexpr wchar_t kSection[] = L"Toolbars";
std::vector<ToolbarChoice*> g_choices;  // every attached toolbar, so that all of a key follow

// The kept list of each key, read from the settings once: four T-Views share one key.
std::wstring& KeptText(const std::wstring& key) {
    static std::map<std::wstring, std::wstring> kept;
    auto found = kept.find(key);
    if (found == kept.end()) found = kept.emplace(key, Settings().GetString(kSection, key, L"")).first;
    return found->second;
}

int SeparatorWidth(const std::vector<TBBUTTON>& palette) {
    for (const TBBUTTON& button : palette)
        if (button.fsStyle & BTNS_SEP) return button.iBitmap;
    return 6;
}

}  // namespace

ToolbarChoice::~ToolbarChoice() { std::erase(g_choices, this); }

void ToolbarChoice::Attach(HWND bar, const wchar_t* key, void (*changed)(HWND bar)) {
    bar_ = bar;
    key_ = key;
    changed_ = changed;
    if (!bar_) return;
    SetWindowLongPtrW(bar_, GWL_STYLE, GetWindowLongPtrW(bar_, GWL_STYLE) | CCS_ADJUSTABLE);
    const int count = static_cast<int>(SendMessageW(bar_, TB_BUTTONCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        TBBUTTON button{};
        SendMessageW(bar_, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
        defaults_.push_back(button.fsStyle & BTNS_SEP ? 0 : button.idCommand);
        if (!(button.fsStyle & BTNS_SEP)) palette_.push_back(button);
    }
    g_choices.push_back(this);
    std::vector<int> offered;
    for (const TBBUTTON& button : palette_) offered.push_back(button.idCommand);
    const std::vector<int> kept = ParseToolbarButtons(KeptText(key_), offered);
    if (!kept.empty()) Apply(kept);
}

void ToolbarChoice::Customise() {
    if (bar_) SendMessageW(bar_, TB_CUSTOMIZE, 0, 0);
}

// The buttons in the given order; the states of the ones kept (checked, disabled, hidden) stay.
void ToolbarChoice::Apply(const std::vector<int>& buttons) {
    std::vector<TBBUTTON> made;
    for (const int id : buttons) {
        if (id == 0) {
            TBBUTTON separator{};
            separator.fsStyle = BTNS_SEP;
            separator.iBitmap = SeparatorWidth(palette_);
            made.push_back(separator);
            continue;
        }
        auto found = std::find_if(palette_.begin(), palette_.end(), [id](const TBBUTTON& b) { return b.idCommand == id; });
        if (found == palette_.end()) continue;
        TBBUTTON button = *found;
        const LRESULT state = SendMessageW(bar_, TB_GETSTATE, id, 0);
        if (state != -1) button.fsState = static_cast<BYTE>(state);
        made.push_back(button);
    }
    SendMessageW(bar_, WM_SETREDRAW, FALSE, 0);
    while (SendMessageW(bar_, TB_BUTTONCOUNT, 0, 0) > 0) SendMessageW(bar_, TB_DELETEBUTTON, 0, 0);
    SendMessageW(bar_, TB_ADDBUTTONSW, made.size(), reinterpret_cast<LPARAM>(made.data()));
    SendMessageW(bar_, WM_SETREDRAW, TRUE, 0);
    SendMessageW(bar_, TB_AUTOSIZE, 0, 0);
    InvalidateRect(bar_, nullptr, TRUE);
    if (changed_) changed_(bar_);
}

std::vector<int> ToolbarChoice::Shown() const {
    std::vector<int> buttons;
    const int count = static_cast<int>(SendMessageW(bar_, TB_BUTTONCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        TBBUTTON button{};
        SendMessageW(bar_, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
        buttons.push_back(button.fsStyle & BTNS_SEP ? 0 : button.idCommand);
    }
    return buttons;
}

void ToolbarChoice::Save() {
    const std::vector<int> buttons = Shown();
    KeptText(key_) = buttons == defaults_ ? L"" : FormatToolbarButtons(buttons);
    Settings().PutString(kSection, key_, KeptText(key_));
    for (ToolbarChoice* other : g_choices)
        if (other != this && other->key_ == key_) other->Apply(buttons.empty() ? other->defaults_ : buttons);
    if (changed_) changed_(bar_);
}

bool ToolbarChoice::OnNotify(NMHDR* header, LRESULT& result) {
    if (!bar_ || header->hwndFrom != bar_) return false;
    switch (header->code) {
    case TBN_QUERYINSERT:
    case TBN_QUERYDELETE: result = TRUE; return true;
    case TBN_GETBUTTONINFOW: {
        auto* info = reinterpret_cast<NMTOOLBARW*>(header);
        if (info->iItem < 0 || info->iItem >= static_cast<int>(palette_.size())) {
            result = FALSE;
            return true;
        }
        info->tbButton = palette_[static_cast<size_t>(info->iItem)];
        static std::wstring text;  // read by the dialog right after this notice
        text = GetText(info->tbButton.idCommand);
        text = text.substr(0, text.find(L'\t'));
        if (info->pszText && info->cchText > 0) lstrcpynW(info->pszText, text.c_str(), info->cchText);
        result = TRUE;
        return true;
    }
    case TBN_RESET: Apply(defaults_); result = TRUE; return true;
    case TBN_TOOLBARCHANGE: Save(); result = 0; return true;
    case TBN_BEGINADJUST:
    case TBN_ENDADJUST:
    case TBN_INITCUSTOMIZE: result = header->code == TBN_INITCUSTOMIZE ? TBNRF_HIDEHELP : 0; return true;
    }
    return false;
}

}  // namespace tessel
