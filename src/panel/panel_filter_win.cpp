// The T-View's filter box: its text becomes the filter of every browser view of the panel.
#include "core/settings_store_win.h"
#include "features/program_colours_win.h"
#include "panel/view_panel_win.h"
#include "win/text_suggestions_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

// The text the filter box starts with, read once for the program.
const std::wstring& InitialFilterText() {
    static const std::wstring text = Settings().GetString(L"Ordner", L"Filter", L"");
    return text;
}

}  // namespace

void CPloder::InitFilterBox() {
    if (!InitialFilterText().empty()) SetWindowTextW(filterBox_, InitialFilterText().c_str());
}

// The recently used filters drop down under the box (the Down key opens them), made when the
// box first takes the focus: most boxes of a start never do.
void CPloder::OnFilterBoxFocused() {
    if (filterSuggestions_) return;
    filterSuggestions_ = win::AttachTextSuggestions(filterBox_, [] { return ReadRecentFilters(Settings()); });
}

// Each change waits for a pause in the typing, so the folder is listed once per pause.
void CPloder::OnFilterBoxChanged() { SetTimer(hwnd(), kFilterPauseTimer, kFilterPauseMs, nullptr); }

// The switches beside the box are kept per T-View and list the folder again while a filter acts.
void CPloder::FlipFilterSwitch(int command) {
    int* value = FilterSwitchBar::SwitchOf(filter_.switches, command);
    if (!value) return;
    *value = *value ? 0 : 1;
    Settings().PutInt(sectionName_, FilterSwitchBar::KeyOf(command), *value);
    filterSwitches_.Show(filter_.switches);
    if (filter_.Acts() && active_) active_->ListAgain();
}

void CPloder::ShowFilter(const std::wstring& text) {
    if (!filter_.switches.show_filter) ToggleFilterBox();
    SetWindowTextW(filterBox_, text.c_str());
    ApplyFilterText();
}

void CPloder::ApplyFilterText() {
    KillTimer(hwnd(), kFilterPauseTimer);
    std::wstring text = win::WindowText(filterBox_);
    if (text == filterText_) return;
    FilterTokens tokens(text, FoldLowerWin);
    const bool changed = tokens.Tokens() != filter_.tokens.Tokens();
    filterText_ = std::move(text);
    filter_.tokens = std::move(tokens);
    FilterSwitches& switches = filter_.switches;
    if (!filter_.tokens.Empty()) {
        RememberFilter(Settings(), filterText_);
        if (!switches.by_filter) {  // typing a filter means wanting it
            switches.by_filter = 1;
            Settings().PutInt(sectionName_, L"by_filter", 1);
        }
    }
    if (changed && switches.show_filter && switches.by_filter && active_) active_->ListAgain();
}

}  // namespace tessel
