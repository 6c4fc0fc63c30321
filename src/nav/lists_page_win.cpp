#include "nav/lists_page_win.h"

#include <commctrl.h>

#include <algorithm>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/user_text_file_win.h"
#include "features/list_export.h"
#include "res/resource.h"
#include "win/file_dialog_win.h"
#include "win/text_file_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr const wchar_t* kSections[] = {kProgramsSection, kQuickLinksSection, kAssociationSection};
constexpr int kListNames[] = {62101, 62102, 62103};
constexpr size_t kLargestListFile = 1 << 20;

std::wstring FieldText(HWND page, int id) { return win::WindowText(GetDlgItem(page, id)); }

}  // namespace

int CListsOpt::TitleId() const { return IDS_PAGE_LISTS; }
int CListsOpt::DialogId() const { return IDD_PAGE_LISTS; }
const wchar_t* CListsOpt::Section() const { return kSections[which_]; }

void CListsOpt::Init(HWND page) {
    page_ = page;
    list_ = GetDlgItem(page, IDC_LISTS_ENTRIES);
    HWND which = GetDlgItem(page, IDC_LISTS_WHICH);
    for (int name : kListNames) SendMessageW(which, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(GetText(name).c_str()));
    SendMessageW(which, CB_SETCURSEL, 0, 0);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    const int widths[2] = {140, 260};
    for (int column = 0; column < 2; ++column) {
        const std::wstring title = GetText(62114 + column);
        LVCOLUMNW info{LVCF_TEXT | LVCF_WIDTH};
        info.pszText = const_cast<wchar_t*>(title.c_str());
        info.cx = win::Scaled(page, widths[column]);
        ListView_InsertColumn(list_, column, &info);
    }
    Load();
}

void CListsOpt::Load() {
    entries_ = ParseQuickLinks(Settings().GetSection(Section()));
    CheckDlgButton(page_, IDC_LISTS_DISABLE, QuickLinksDisabled(Settings(), Section()) ? BST_CHECKED : BST_UNCHECKED);
    ShowEntries(entries_.empty() ? -1 : 0);
}

void CListsOpt::ShowEntries(int select) {
    ListView_DeleteAllItems(list_);
    for (size_t i = 0; i < entries_.size(); ++i) {
        LVITEMW item{LVIF_TEXT};
        item.iItem = static_cast<int>(i);
        item.pszText = entries_[i].name.data();
        ListView_InsertItem(list_, &item);
        ListView_SetItemText(list_, static_cast<int>(i), 1, entries_[i].target.data());
    }
    if (select >= 0 && select < static_cast<int>(entries_.size())) {
        ListView_SetItemState(list_, select, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_EnsureVisible(list_, select, FALSE);
    }
}

void CListsOpt::Save() {
    WriteQuickLinks(Settings(), Section(), entries_);
    ShowEntries(Selected());
}

QuickLinkEntry CListsOpt::Edited() const { return {FieldText(page_, IDC_LISTS_NAME), FieldText(page_, IDC_LISTS_TARGET)}; }

int CListsOpt::Selected() const { return ListView_GetNextItem(list_, -1, LVNI_SELECTED); }

void CListsOpt::Move(int step) {
    const int from = Selected();
    const int to = from + step;
    if (from < 0 || to < 0 || to >= static_cast<int>(entries_.size())) return;
    std::swap(entries_[from], entries_[to]);
    WriteQuickLinks(Settings(), Section(), entries_);
    ShowEntries(to);
}

void CListsOpt::Export() {
    const std::wstring path = win::ChooseFile(page_, true, win::FileFilter(L"Tabgetrennt(*.ini)", L"*.ini"),
                                              L"Export zu txt", nullptr, L"ini");
    if (path.empty()) return;
    std::vector<std::vector<std::wstring>> rows;
    for (const QuickLinkEntry& entry : entries_) rows.push_back({entry.name, entry.target});
    if (!win::WriteUnicodeFile(path, FormatTabSeparated(rows)))
        MessageBoxW(page_, (GetText(IDS_EXPORT_FAILED) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

// The rows of the file replace the list; a row needs a name that reads back equal. A file that
// gives no entries leaves the list as it was and says why.
void CListsOpt::Import() {
    const std::wstring path = win::ChooseFile(page_, false, win::FileFilter(L"Tabgetrennt(*.ini)", L"*.ini;*.txt"),
                                              L"Import aus (ini)txt", nullptr, nullptr);
    if (path.empty()) return;
    std::wstring text;
    const UserFileProblem problem = ReadUserTextFile(path, kLargestListFile, text);
    if (problem != UserFileProblem::kNone) return ReportImportProblem(page_, problem, path, kLargestListFile);
    std::vector<QuickLinkEntry> read;
    for (const auto& row : ParseTabSeparated(text)) {
        QuickLinkEntry entry{row.empty() ? L"" : row[0], row.size() > 1 ? row[1] : L""};
        if (entry.target.empty()) entry.target = entry.name;
        if (QuickLinkStorable(entry) && read.size() < kQuickLinkMaxEntries) read.push_back(std::move(entry));
    }
    if (read.empty()) return ReportImportProblem(page_, UserFileProblem::kEmpty, path, kLargestListFile);
    entries_ = std::move(read);
    Save();
}

bool CListsOpt::Storable(const QuickLinkEntry& entry) const {
    if (QuickLinkStorable(entry)) return true;
    MessageBoxW(page_, GetText(IDS_ENTRY_NOT_STORABLE).c_str(), GetText(60000).c_str(), MB_OK | MB_ICONWARNING);
    return false;
}

bool CListsOpt::Command(HWND, int id, int code) {
    const int selected = Selected();
    switch (id) {
    case IDC_LISTS_WHICH:
        if (code != CBN_SELCHANGE) return false;
        which_ = static_cast<int>(SendDlgItemMessageW(page_, IDC_LISTS_WHICH, CB_GETCURSEL, 0, 0));
        if (which_ < 0 || which_ > 2) which_ = 0;
        Load();
        return true;
    case IDC_LISTS_DISABLE:
        Settings().PutInt(std::wstring(Section()) + L"_State", L"Disable",
                          IsDlgButtonChecked(page_, IDC_LISTS_DISABLE) == BST_CHECKED ? 1 : 0);
        return true;
    case IDC_LISTS_ADD: {
        const QuickLinkEntry entry = Edited();
        if (entry.name.empty() || entry.target.empty() || entries_.size() >= kQuickLinkMaxEntries || !Storable(entry))
            return true;
        const int at = selected < 0 ? static_cast<int>(entries_.size()) : selected + 1;
        entries_.insert(entries_.begin() + at, entry);
        WriteQuickLinks(Settings(), Section(), entries_);
        ShowEntries(at);
        return true;
    }
    case IDC_LISTS_CHANGE:
        if (selected < 0 || Edited().name.empty() || !Storable(Edited())) return true;
        entries_[selected] = Edited();
        Save();
        return true;
    case IDC_LISTS_REMOVE:
        if (selected < 0) return true;
        entries_.erase(entries_.begin() + selected);
        WriteQuickLinks(Settings(), Section(), entries_);
        ShowEntries(std::min(selected, static_cast<int>(entries_.size()) - 1));
        return true;
    case IDC_LISTS_UP: Move(-1); return true;
    case IDC_LISTS_DOWN: Move(1); return true;
    case IDC_LISTS_EXPORT: Export(); return true;
    case IDC_LISTS_IMPORT: Import(); return true;
    }
    return false;
}

// The selected entry is shown in the fields, ready to be changed or copied.
bool CListsOpt::Notify(HWND, NMHDR* header, LRESULT&) {
    if (header->hwndFrom != list_ || header->code != LVN_ITEMCHANGED) return false;
    const auto* change = reinterpret_cast<NMLISTVIEW*>(header);
    if (!(change->uNewState & LVIS_SELECTED) || change->iItem < 0 || change->iItem >= static_cast<int>(entries_.size()))
        return false;
    SetDlgItemTextW(page_, IDC_LISTS_NAME, entries_[change->iItem].name.c_str());
    SetDlgItemTextW(page_, IDC_LISTS_TARGET, entries_[change->iItem].target.c_str());
    return true;
}

}  // namespace tessel
