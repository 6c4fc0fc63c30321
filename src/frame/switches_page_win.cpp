#include "frame/switches_page_win.h"

#include <windowsx.h>

#include <string>
#include <vector>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/folder_size_worker_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

// Dialog units of the page (338 x 196).
constexpr int kPageWidth = 338, kPageHeight = 196;
constexpr int kLabelWidth = 150, kFieldLeft = 156, kRowHeight = 16, kCheckHeight = 13;
constexpr int kUpDownOffset = 100;  // the arrows of a number beside its field

// The variable the program reads for a key; null when the window holds it (tree mode, style).
int* LiveVariable(const OptionItem& item) {
    if (std::wstring_view(item.section) == L"X-Size") return FolderSizeField(FolderSizeOptions(), item.key);
    return OptionField(Options(), item.key);
}

std::wstring ItemText(int id) { return PlainMenuText(GetText(id)); }

struct ShownChoice {
    int value;
    std::wstring text;
};

// The languages come from the packs in the program and the files beside it; the rest from the table.
std::vector<ShownChoice> ChoicesOf(const OptionItem& item) {
    std::vector<ShownChoice> choices;
    if (std::wstring_view(item.key) == L"m_lang_id") {
        for (const AvailableLanguage& language : AvailableLanguages()) choices.push_back({language.id, language.name});
        return choices;
    }
    for (const OptionChoice& choice : item.choices) choices.push_back({choice.value, ItemText(choice.textId)});
    return choices;
}

}  // namespace

int CSwitchesPage::DialogId() const { return IDD_PAGE_SWITCHES; }

int CSwitchesPage::Stored(const OptionItem& item) const {
    if (const int* live = LiveVariable(item)) return *live;
    int held = 0;
    if (host_ && host_->HeldOption(item.key, held)) return held;
    return Settings().GetInt(item.section, item.key, item.fallback);
}

void CSwitchesPage::Store(const OptionItem& item, int value) {
    if (int* live = LiveVariable(item)) *live = value;
    if (std::wstring_view(item.section) == L"Start") WriteOption(Settings(), item.key, value);
    else Settings().PutInt(item.section, item.key, value);
    if (host_) host_->ApplyOptions(item.effect);
    if (item.effect & kEffectLanguage) PostMessageW(GetParent(page_), kMsgOptionsRebuild, 0, 0);
}

HWND CSwitchesPage::MakeControl(const wchar_t* type, DWORD style, RECT units, int id, const std::wstring& text) {
    MapDialogRect(page_, &units);
    HWND control = CreateWindowExW(0, type, text.c_str(), WS_CHILD | WS_VISIBLE | style, units.left, units.top,
                                   units.right - units.left, units.bottom - units.top, page_,
                                   reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, SendMessageW(page_, WM_GETFONT, 0, 0), FALSE);
    return control;
}

// A choice or a number: its label on the left, the field on the right.
void CSwitchesPage::MakeLabelled(size_t index, int top) {
    const OptionItem& item = table_.items[index];
    const int id = ControlId(index);
    MakeControl(L"STATIC", SS_LEFT | SS_NOPREFIX, {0, top + 2, kLabelWidth, top + 12}, -1, GetText(item.labelId));
    const int stored = Stored(item);
    const int shown = ShownValue(item, stored);
    if (item.kind == OptionKind::kNumber) {
        HWND field = MakeControl(L"EDIT", WS_BORDER | WS_TABSTOP | ES_NUMBER | ES_AUTOHSCROLL,
                                 {kFieldLeft, top, kFieldLeft + 44, top + 12}, id, std::to_wstring(shown));
        HWND arrows = MakeControl(UPDOWN_CLASSW, UDS_ALIGNRIGHT | UDS_SETBUDDYINT | UDS_ARROWKEYS | UDS_NOTHOUSANDS,
                                  {0, 0, 0, 0}, id + kUpDownOffset, L"");
        SendMessageW(arrows, UDM_SETBUDDY, reinterpret_cast<WPARAM>(field), 0);
        SendMessageW(arrows, UDM_SETRANGE32, item.minimum, item.maximum);
        SendMessageW(arrows, UDM_SETPOS32, 0, shown);
        return;
    }
    HWND box = MakeControl(WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                           {kFieldLeft, top, kPageWidth, top + 120}, id, L"");
    const std::vector<ShownChoice> choices = ChoicesOf(item);
    int selected = -1, fallback = 0;
    for (const ShownChoice& choice : choices) {
        const int at = static_cast<int>(SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.text.c_str())));
        SendMessageW(box, CB_SETITEMDATA, at, choice.value);
        if (choice.value == stored) selected = at;
        if (choice.value == shown) fallback = at;
    }
    SendMessageW(box, CB_SETCURSEL, selected >= 0 ? selected : fallback, 0);
}

void CSwitchesPage::MakeCheck(size_t index, RECT units) {
    const OptionItem& item = table_.items[index];
    HWND box = MakeControl(L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, units, ControlId(index), ItemText(item.labelId));
    Button_SetCheck(box, ShownValue(item, Stored(item)) ? BST_CHECKED : BST_UNCHECKED);
}

// Choices and numbers first, one per row; then the check boxes, in two columns when one would
// not fit.
void CSwitchesPage::Init(HWND page) {
    page_ = page;
    filling_ = true;
    int top = 2;
    std::vector<size_t> checks;
    for (size_t i = 0; i < table_.items.size(); ++i) {
        if (table_.items[i].kind == OptionKind::kCheck) {
            checks.push_back(i);
            continue;
        }
        MakeLabelled(i, top);
        top += kRowHeight;
    }
    top += 4;
    const bool twoColumns = static_cast<int>(checks.size()) * kCheckHeight > kPageHeight - top;
    const size_t perColumn = twoColumns ? (checks.size() + 1) / 2 : checks.size();
    const int columnWidth = twoColumns ? kPageWidth / 2 - 4 : kPageWidth;
    for (size_t n = 0; n < checks.size(); ++n) {
        const int left = n < perColumn ? 0 : kPageWidth / 2 + 4;
        const int y = top + static_cast<int>(n % perColumn) * kCheckHeight;
        MakeCheck(checks[n], {left, y, left + columnWidth, y + 10});
    }
    filling_ = false;
}

bool CSwitchesPage::Command(HWND page, int id, int code) {
    const int index = id - kFirstControl;
    if (filling_ || index < 0 || index >= static_cast<int>(table_.items.size())) return false;
    const OptionItem& item = table_.items[static_cast<size_t>(index)];
    HWND control = GetDlgItem(page, id);
    if (item.kind == OptionKind::kCheck && code == BN_CLICKED) {
        Store(item, Button_GetCheck(control) == BST_CHECKED ? 1 : 0);
    } else if (item.kind == OptionKind::kChoice && code == CBN_SELCHANGE) {
        const LRESULT at = SendMessageW(control, CB_GETCURSEL, 0, 0);
        if (at >= 0) Store(item, static_cast<int>(SendMessageW(control, CB_GETITEMDATA, at, 0)));
    } else if (item.kind == OptionKind::kNumber && code == EN_CHANGE) {
        // Only a whole number in range is kept: typing "1" on the way to "150" changes nothing.
        BOOL ok = FALSE;
        const int value = static_cast<int>(GetDlgItemInt(page, id, &ok, TRUE));
        if (ok && value >= item.minimum && value <= item.maximum && value != Stored(item)) Store(item, value);
    } else {
        return false;
    }
    return true;
}

}  // namespace tessel
