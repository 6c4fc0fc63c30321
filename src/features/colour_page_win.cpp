#include "features/colour_page_win.h"

#include <commdlg.h>
#include <shellapi.h>

#include <cstdlib>
#include <ctime>

#include "core/help_win.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/user_text_file_win.h"
#include "features/colour_picker_win.h"
#include "features/list_export.h"
#include "features/list_export_win.h"
#include "features/program_colours_win.h"
#include "res/resource.h"
#include "win/file_dialog_win.h"
#include "win/text_file_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr int kColumnCount = 6;
constexpr int kColumnTitles[kColumnCount] = {IDS_COLOUR_PATTERN, IDS_COLOUR_COLOUR, IDS_COLOUR_ITALIC,
                                             IDS_COLOUR_BOLD, IDS_COLOUR_UNDERLINE, IDS_COLOUR_STRIKEOUT};
constexpr int kColumnWidths[kColumnCount] = {140, 60, 52, 52, 52, 52};  // at 96 dpi
constexpr size_t kLargestRulesFile = 1 << 20;  // a rules file is small; more is not read
constexpr UINT kListExportCommand = 1, kListImportCommand = 2, kNoColourCommand = 3;

}  // namespace

int CFarbenOpt::TitleId() const { return IDS_PAGE_COLOURS; }
int CFarbenOpt::DialogId() const { return IDD_PAGE_COLOURS; }

void CFarbenOpt::Init(HWND page) {
    page_ = page;
    list_ = GetDlgItem(page, IDC_COLOUR_LIST);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    for (int i = 0; i < kColumnCount; ++i) {
        std::wstring title = GetText(kColumnTitles[i]);
        LVCOLUMNW column{LVCF_TEXT | LVCF_WIDTH};
        column.pszText = title.data();
        column.cx = win::Scaled(page, kColumnWidths[i]);
        ListView_InsertColumn(list_, i, &column);
    }
    // The page for proposing a rule is a setting, empty unless the program is given one.
    EnableWindow(GetDlgItem(page, ID_COLOUR_RECOMMEND), !Settings().GetString(L"Start", L"recommend_url", L"").empty());
    Fill();
}

void CFarbenOpt::Fill() {
    filling_ = true;
    ListView_DeleteAllItems(list_);
    const RuleTable& table = Colours().Table();
    for (int i = 0; i < table.count; ++i) AddRow(RuleCells(table.slots[i]), table.slots[i].enabled != 0);
    filling_ = false;
}

void CFarbenOpt::AddRow(const std::vector<std::wstring>& cells, bool enabled, int at) {
    LVITEMW item{LVIF_TEXT};
    item.iItem = at < 0 ? ListView_GetItemCount(list_) : at;
    std::wstring first = cells.empty() ? L"" : cells[0];
    item.pszText = first.data();
    const int row = ListView_InsertItem(list_, &item);
    for (int c = 1; c < kColumnCount && c < static_cast<int>(cells.size()); ++c) {
        std::wstring text = cells[static_cast<size_t>(c)];
        ListView_SetItemText(list_, row, c, text.data());
    }
    const bool wasFilling = filling_;
    filling_ = true;
    ListView_SetCheckState(list_, row, enabled);
    filling_ = wasFilling;
}

std::vector<std::wstring> CFarbenOpt::Cells(int row) const {
    std::vector<std::wstring> cells;
    for (int c = 0; c < kColumnCount; ++c) {
        wchar_t text[kSettingsValueLimit] = {};
        ListView_GetItemText(list_, row, c, text, static_cast<int>(kSettingsValueLimit));
        cells.emplace_back(text);
    }
    return cells;
}

int CFarbenOpt::Selected() const { return ListView_GetNextItem(list_, -1, LVNI_SELECTED); }

// Any change ends here: at most 32 rows become the rules, written, rebuilt and shown.
void CFarbenOpt::SaveFromPage() {
    RuleTable table;
    for (int row = 0; row < ListView_GetItemCount(list_) && table.count < kRuleSlots; ++row)
        table.slots[table.count++] = RuleOfCells(Cells(row), ListView_GetCheckState(list_, row) != 0);
    Colours().Replace(Settings(), table);
    if (HWND frame = GetAncestor(page_, GA_ROOTOWNER)) SendMessageW(frame, WM_COMMAND, ID_COLOURS_CHANGED, 0);
}

void CFarbenOpt::MoveSelected(int step) {
    const int row = Selected(), target = row + step;
    if (row < 0 || target < 0 || target >= ListView_GetItemCount(list_)) return;
    const std::vector<std::wstring> cells = Cells(row);
    const bool enabled = ListView_GetCheckState(list_, row) != 0;
    filling_ = true;
    ListView_DeleteItem(list_, row);
    AddRow(cells, enabled, target);
    filling_ = false;
    ListView_SetItemState(list_, target, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    SaveFromPage();
}

// The colour cell opens the system's colour picker; a style cell steps through its values.
void CFarbenOpt::OnDoubleClick(int row, int column) {
    std::vector<std::wstring> cells = Cells(row);
    if (column == 1) {
        int colour = ParseColourText(cells[1]);
        if (!PickColour(page_, colour)) return;
        cells[1] = FormatColourText(colour);
    } else if (column >= 2 && column < kColumnCount) {
        cells[static_cast<size_t>(column)] = std::to_wstring(NextStyleValue(_wtoi(cells[static_cast<size_t>(column)].c_str())));
    } else {
        ListView_EditLabel(list_, row);
        return;
    }
    ListView_SetItemText(list_, row, column, cells[static_cast<size_t>(column)].data());
    SaveFromPage();
}

void CFarbenOpt::ExportRules() {
    const std::wstring path = win::ChooseFile(page_, true, win::FileFilter(L"color.ini", L"*.ini"), nullptr, L"color.ini", L"ini");
    if (path.empty()) return;
    std::vector<ColourRule> rules;
    for (int row = 0; row < ListView_GetItemCount(list_); ++row)
        rules.push_back(RuleOfCells(Cells(row), ListView_GetCheckState(list_, row) != 0));
    if (!win::WriteUnicodeFile(path, FormatRulesFile(rules)))
        MessageBoxW(page_, (GetText(IDS_EXPORT_FAILED) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

// A file without the rules header is taken only when the user says so; a file that gives no
// rules leaves the list as it was and says why.
void CFarbenOpt::ImportRules() {
    const std::wstring path = win::ChooseFile(page_, false, win::FileFilter(L"color.ini", L"*.ini;*.txt"), nullptr, nullptr, nullptr);
    if (path.empty()) return;
    std::wstring text;
    UserFileProblem problem = ReadUserTextFile(path, kLargestRulesFile, text);
    if (problem != UserFileProblem::kNone) return ReportImportProblem(page_, problem, path, kLargestRulesFile);
    if (!HasRulesFileHeader(text) &&
        MessageBoxW(page_, GetText(80).c_str(), GetText(60000).c_str(), MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    const std::vector<ColourRule> rules = ParseRulesFile(text);
    if (rules.empty()) return ReportImportProblem(page_, UserFileProblem::kEmpty, path, kLargestRulesFile);
    ShowRules(rules);
}

void CFarbenOpt::ShowRules(const std::vector<ColourRule>& rules) {
    filling_ = true;
    ListView_DeleteAllItems(list_);
    for (const ColourRule& rule : rules) AddRow(RuleCells(rule), rule.enabled != 0);
    filling_ = false;
    SaveFromPage();
}

void CFarbenOpt::ChooseScheme() {
    HMENU menu = CreatePopupMenu();
    for (int id = ID_COLOUR_SCHEME_FIRST; id <= ID_COLOUR_SCHEME_LAST; ++id)
        AppendMenuW(menu, MF_STRING, id, GetText(59003 + id - ID_COLOUR_SCHEME_FIRST).c_str());
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, ID_COLOUR_NONE, GetText(59022).c_str());
    RECT button{};
    GetWindowRect(GetDlgItem(page_, ID_COLOUR_SCHEMES), &button);
    const UINT chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, button.left, button.bottom, 0, page_, nullptr);
    DestroyMenu(menu);
    if (!chosen || MessageBoxW(page_, GetText(78).c_str(), GetText(60000).c_str(), MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    if (HWND frame = GetAncestor(page_, GA_ROOTOWNER)) SendMessageW(frame, WM_COMMAND, chosen, 0);
    Fill();
}

// The selected rule can lose its colour here; the options lists also travel as tab-separated text.
void CFarbenOpt::ShowListMenu(POINT at) {
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING | (Selected() < 0 ? MF_GRAYED : 0), kNoColourCommand, GetText(IDS_COLOUR_NONE).c_str());
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, kListExportCommand, L"Export zu txt");
    AppendMenuW(menu, MF_STRING, kListImportCommand, L"Import aus (ini)txt");
    const UINT chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, page_, nullptr);
    DestroyMenu(menu);
    if (chosen == kNoColourCommand && Selected() >= 0) {
        std::wstring none = FormatColourText(kNoColour);
        ListView_SetItemText(list_, Selected(), 1, none.data());
        SaveFromPage();
    }
    if (chosen == kListExportCommand) ExportTabSeparated();
    if (chosen == kListImportCommand) ImportTabSeparated();
}

void CFarbenOpt::ExportTabSeparated() {
    const std::wstring path =
        win::ChooseFile(page_, true, win::FileFilter(L"Tabgetrennt(*.ini)", L"*.ini"), L"Export zu txt", nullptr, L"ini");
    if (path.empty()) return;
    std::vector<std::vector<std::wstring>> rows;
    for (int row = 0; row < ListView_GetItemCount(list_); ++row)
        rows.push_back(RuleTabRow(RuleOfCells(Cells(row), ListView_GetCheckState(list_, row) != 0)));
    if (!win::WriteUnicodeFile(path, FormatTabSeparated(rows)))
        MessageBoxW(page_, (GetText(IDS_EXPORT_FAILED) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

// Rows whose pattern would not read back as the same rule are left out.
void CFarbenOpt::ImportTabSeparated() {
    const std::wstring path =
        win::ChooseFile(page_, false, win::FileFilter(L"Tabgetrennt(*.ini)", L"*.ini"), L"Import aus (ini)txt", nullptr, nullptr);
    if (path.empty()) return;
    std::wstring text;
    const UserFileProblem problem = ReadUserTextFile(path, kLargestRulesFile, text);
    if (problem != UserFileProblem::kNone) return ReportImportProblem(page_, problem, path, kLargestRulesFile);
    std::vector<ColourRule> rules;
    for (const auto& row : ParseTabSeparated(text)) {
        ColourRule rule = RuleOfTabRow(row);
        if (RulePatternStorable(rule.pattern) && rules.size() < kRuleSlots) rules.push_back(std::move(rule));
    }
    if (rules.empty()) return ReportImportProblem(page_, UserFileProblem::kEmpty, path, kLargestRulesFile);
    ShowRules(rules);
}

bool CFarbenOpt::Command(HWND, int id, int) {
    switch (id) {
    case ID_COLOUR_NEW: {
        if (ListView_GetItemCount(list_) >= kRuleSlots) {  // a rule more would be shown but never kept
            MessageBoxW(page_, GetText(IDS_RULES_FULL).c_str(), GetText(60000).c_str(), MB_OK | MB_ICONINFORMATION);
            return true;
        }
        static const bool seeded = (std::srand(static_cast<unsigned>(std::time(nullptr))), true);
        (void)seeded;
        const int colour = (std::rand() & 127) | ((std::rand() & 127) << 8) | ((std::rand() & 127) << 16);
        AddRow({GetText(79), FormatColourText(colour), L"-1", L"-1", L"-1", L"-1"}, true);
        SaveFromPage();
        // The new rule comes last; the user names it at once and can move it up past a catch-all.
        const int row = ListView_GetItemCount(list_) - 1;
        ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
        ListView_SetItemState(list_, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_EnsureVisible(list_, row, FALSE);
        SetFocus(list_);
        ListView_EditLabel(list_, row);
        return true;
    }
    case ID_COLOUR_DELETE:
        if (Selected() >= 0) {
            ListView_DeleteItem(list_, Selected());
            SaveFromPage();
        }
        return true;
    case ID_COLOUR_UP: MoveSelected(-1); return true;
    case ID_COLOUR_DOWN: MoveSelected(1); return true;
    case ID_COLOUR_EXPORT: ExportRules(); return true;
    case ID_COLOUR_IMPORT: ImportRules(); return true;
    case ID_COLOUR_SCHEMES: ChooseScheme(); return true;
    case ID_COLOUR_PRIORITIES:
        MessageBoxW(page_, Colours().Index().PriorityText().c_str(), GetText(IDS_PAGE_COLOURS).c_str(), MB_OK);
        return true;
    case ID_COLOUR_HELP: OpenHelp(L"#Farben"); return true;
    case ID_COLOUR_RECOMMEND: {
        const int row = Selected();
        if (row < 0) return true;
        SYSTEMTIME now;
        GetLocalTime(&now);
        wchar_t time[32];
        swprintf(time, 32, L"%02d.%02d.%04d %02d:%02d", now.wDay, now.wMonth, now.wYear, now.wHour, now.wMinute);
        const std::wstring address = Settings().GetString(L"Start", L"recommend_url", L"") +
                                     L"?seite=Filter empfehlen&Filter=;" +
                                     FormatRuleLine(RuleOfCells(Cells(row), true)) + L"&Name=" + time;
        ShellExecuteW(page_, L"open", address.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        return true;
    }
    }
    return false;
}

bool CFarbenOpt::Notify(HWND, NMHDR* header, LRESULT& result) {
    if (header->hwndFrom != list_) return false;
    switch (header->code) {
    case LVN_ITEMCHANGED: {
        const auto* change = reinterpret_cast<NMLISTVIEW*>(header);
        if (!filling_ && (change->uChanged & LVIF_STATE) &&
            ((change->uNewState ^ change->uOldState) & LVIS_STATEIMAGEMASK) && (change->uOldState & LVIS_STATEIMAGEMASK))
            SaveFromPage();  // the check box: the rule in force or not
        return false;
    }
    case NM_DBLCLK: {
        const auto* click = reinterpret_cast<NMITEMACTIVATE*>(header);
        if (click->iItem >= 0) OnDoubleClick(click->iItem, click->iSubItem);
        return true;
    }
    case LVN_ENDLABELEDITW: {
        const auto* edit = reinterpret_cast<NMLVDISPINFOW*>(header);
        if (!edit->item.pszText) return result = FALSE, true;  // the edit was cancelled
        // A pattern that would not read back as the same rule is refused; the row keeps its old one.
        result = RulePatternStorable(edit->item.pszText);
        if (!result) {
            MessageBoxW(page_, GetText(IDS_PATTERN_NOT_STORABLE).c_str(), GetText(60000).c_str(), MB_OK | MB_ICONWARNING);
        } else {
            ListView_SetItemText(list_, edit->item.iItem, 0, edit->item.pszText);
            SaveFromPage();
        }
        return true;
    }
    case NM_CUSTOMDRAW: {  // the colour cell shows its colour
        auto* draw = reinterpret_cast<NMLVCUSTOMDRAW*>(header);
        result = CDRF_DODEFAULT;
        if (draw->nmcd.dwDrawStage == CDDS_PREPAINT) result = CDRF_NOTIFYITEMDRAW;
        if (draw->nmcd.dwDrawStage == CDDS_ITEMPREPAINT) result = CDRF_NOTIFYSUBITEMDRAW;
        if (draw->nmcd.dwDrawStage == (CDDS_ITEMPREPAINT | CDDS_SUBITEM)) {
            wchar_t text[16] = {};
            ListView_GetItemText(list_, static_cast<int>(draw->nmcd.dwItemSpec), 1, text, 16);
            const int colour = draw->iSubItem == 1 ? ParseColourText(text) : kNoColour;
            draw->clrTextBk = colour == kNoColour ? GetSysColor(COLOR_WINDOW) : static_cast<COLORREF>(colour);
            const int light = colour == kNoColour ? 255 : (GetRValue(colour) * 3 + GetGValue(colour) * 6 + GetBValue(colour)) / 10;
            draw->clrText = light < 128 ? RGB(255, 255, 255) : GetSysColor(COLOR_WINDOWTEXT);
        }
        return true;
    }
    case NM_RCLICK: {
        POINT at;
        GetCursorPos(&at);
        ShowListMenu(at);
        return true;
    }
    }
    return false;
}

}  // namespace tessel
