#include "features/list_export_win.h"

#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <shlwapi.h>

#include <ctime>
#include <map>
#include <vector>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "win/com_ptr_win.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

constexpr size_t kCellBuffer = 1024;
constexpr wchar_t kFilter[] =
    L"Text(*.txt)\0*.txt\0CSV (*.csv)\0*.csv\0html (*.html)\0*.html\0XLS (*.xls)\0*.xls\0DOC (*.doc)\0*.doc\0";

std::wstring ListCell(HWND list, int row, int column) {
    wchar_t text[kCellBuffer] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = static_cast<int>(kCellBuffer);
    SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return text;
}

// The list's columns in the order shown, each with its caption and width.
std::vector<int> ShownOrder(HWND list, ExportTable& table) {
    HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int count = header ? static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
    std::vector<int> order(static_cast<size_t>(std::max(count, 0)));
    if (count <= 0 || !SendMessageW(list, LVM_GETCOLUMNORDERARRAY, count, reinterpret_cast<LPARAM>(order.data())))
        for (int i = 0; i < count; ++i) order[static_cast<size_t>(i)] = i;
    for (int column : order) {
        wchar_t caption[kCellBuffer] = {};
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH;
        item.pszText = caption;
        item.cchTextMax = static_cast<int>(kCellBuffer);
        SendMessageW(header, HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
        table.captions.emplace_back(caption);
        table.widths.push_back(item.cxy);
        table.columns.push_back(column);
    }
    return order;
}

std::wstring DetailText(IShellFolder2* folder, PCUITEMID_CHILD item, UINT column) {
    SHELLDETAILS details{};
    wchar_t text[kCellBuffer] = {};
    if (SUCCEEDED(folder->GetDetailsOf(item, column, &details))) StrRetToBufW(&details.str, item, text, kCellBuffer);
    return text;
}

// For each shown column, the folder's column of the same caption, or -1.
std::vector<int> FolderColumns(IShellFolder2* folder, const ExportTable& table) {
    std::vector<std::wstring> captions;
    for (UINT column = 0; column < 256; ++column) {
        SHELLDETAILS details{};
        if (FAILED(folder->GetDetailsOf(nullptr, column, &details))) break;
        wchar_t text[kCellBuffer] = {};
        StrRetToBufW(&details.str, nullptr, text, kCellBuffer);
        captions.emplace_back(text);
    }
    std::vector<int> mapped;
    for (const std::wstring& caption : table.captions) {
        int found = -1;
        for (size_t i = 0; i < captions.size() && found < 0; ++i)
            if (!caption.empty() && captions[i] == caption) found = static_cast<int>(i);
        mapped.push_back(found);
    }
    return mapped;
}

std::wstring DefaultName() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_s(&local, &now);
    wchar_t name[64];
    wcsftime(name, 64, L"Export_%Y-%m-%d_%H-%M-%S", &local);
    return name;
}

// Asking a folder for an item's shown name or type is slow (the shell reads its settings each
// time); both depend only on the kind of item, so each is asked once per kind: folder or file and
// extension. The parsing name, which is fast, then gives every other row.
class FolderRows {
public:
    FolderRows(IShellFolder2* folder, const ExportTable& table) : folder_(folder), mapped_(FolderColumns(folder, table)) {
        for (UINT column = 0; column < 64; ++column) {
            SHCOLUMNID id{};
            if (FAILED(folder->MapColumnToSCID(column, &id))) break;
            if (id.fmtid == kStorageColumns && id.pid == kTypeProperty) typeColumn_ = static_cast<int>(column);
        }
    }

    // The cell of a shown column, or nothing when the folder does not have that column.
    bool Cell(PCUITEMID_CHILD item, size_t shownColumn, std::wstring& text) {
        const int column = mapped_[shownColumn];
        if (column < 0) return false;
        if (column == 0) text = ShownName(item);
        else if (column == typeColumn_) text = TypeText(item, static_cast<UINT>(column));
        else text = DetailText(folder_, item, static_cast<UINT>(column));
        return true;
    }

    void StartRow(PCUITEMID_CHILD item) {
        parsing_ = Name(item, SHGDN_INFOLDER | SHGDN_FORPARSING);
        SFGAOF attributes = SFGAO_FOLDER;
        const bool isFolder = SUCCEEDED(folder_->GetAttributesOf(1, &item, &attributes)) && (attributes & SFGAO_FOLDER);
        const size_t dot = parsing_.rfind(L'.');
        extension_ = dot == std::wstring::npos ? std::wstring() : parsing_.substr(dot);
        kind_ = (isFolder ? L"\\" : L"") + extension_;
        CharUpperBuffW(kind_.data(), static_cast<DWORD>(kind_.size()));
    }

private:
    enum class NameRule { kParsing, kWithoutExtension, kAsk };

    std::wstring Name(PCUITEMID_CHILD item, SHGDNF flags) const {
        STRRET name{};
        wchar_t text[kCellBuffer] = {};
        if (SUCCEEDED(folder_->GetDisplayNameOf(item, flags, &name))) StrRetToBufW(&name, item, text, kCellBuffer);
        return text;
    }

    std::wstring ShownName(PCUITEMID_CHILD item) {
        auto rule = nameRules_.find(kind_);
        if (rule == nameRules_.end()) {
            const std::wstring shown = Name(item, SHGDN_INFOLDER);
            NameRule found = NameRule::kAsk;
            if (shown == parsing_) found = NameRule::kParsing;
            else if (!extension_.empty() && shown == parsing_.substr(0, parsing_.size() - extension_.size()))
                found = NameRule::kWithoutExtension;
            nameRules_.emplace(kind_, found);
            return shown;
        }
        switch (rule->second) {
        case NameRule::kParsing: return parsing_;
        case NameRule::kWithoutExtension: return parsing_.substr(0, parsing_.size() - extension_.size());
        default: return Name(item, SHGDN_INFOLDER);
        }
    }

    std::wstring TypeText(PCUITEMID_CHILD item, UINT column) {
        auto known = types_.find(kind_);
        if (known == types_.end()) known = types_.emplace(kind_, DetailText(folder_, item, column)).first;
        return known->second;
    }

    static constexpr GUID kStorageColumns = {0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}};
    static constexpr DWORD kTypeProperty = 4;

    IShellFolder2* folder_;
    std::vector<int> mapped_;
    int typeColumn_ = -1;
    std::wstring parsing_, extension_, kind_;
    std::map<std::wstring, NameRule> nameRules_;
    std::map<std::wstring, std::wstring> types_;
};

}  // namespace

ExportTable GatherList(HWND list) {
    ExportTable table;
    const std::vector<int> order = ShownOrder(list, table);
    const int rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    table.rows.reserve(static_cast<size_t>(std::max(rows, 0)));
    for (int row = 0; row < rows; ++row) {
        auto& cells = table.rows.emplace_back();
        for (int column : order) cells.push_back(ListCell(list, row, column));
    }
    return table;
}

ExportTable GatherFolderList(HWND list, IFolderView* view, IShellFolder* folder) {
    win::ComPtr<IShellFolder2> details = win::ComPtr<IShellFolder>(folder).As<IShellFolder2>();
    if (!view || !details) return GatherList(list);
    ExportTable table;
    const std::vector<int> order = ShownOrder(list, table);
    FolderRows cells(details.get(), table);
    const int rows = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    table.rows.reserve(static_cast<size_t>(std::max(rows, 0)));
    for (int row = 0; row < rows; ++row) {
        PITEMID_CHILD item = nullptr;
        if (FAILED(view->Item(row, &item))) item = nullptr;
        if (item) cells.StartRow(item);
        auto& row_cells = table.rows.emplace_back(order.size());
        for (size_t c = 0; c < order.size(); ++c)
            if (!item || !cells.Cell(item, c, row_cells[c])) row_cells[c] = ListCell(list, row, order[c]);
        CoTaskMemFree(item);
    }
    return table;
}

bool WriteExportFile(const std::wstring& path, const ExportTable& table, ExportType type) {
    const DWORD existing = GetFileAttributesW(path.c_str());
    if (existing != INVALID_FILE_ATTRIBUTES && (existing & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))) return false;
    return win::WriteFileReplacing(path, ExportFileBytes(table, type));
}

// The dialog's own question about an existing file sees the name before the type's extension
// is added, so the question is asked here, about the file that will be written; "No" offers the
// dialog again.
bool ExportWithDialog(HWND owner, const ExportTable& table) {
    ISettingsStore& settings = Settings();
    wchar_t path[MAX_PATH * 2] = {};
    wcsncpy(path, DefaultName().c_str(), MAX_PATH);
    OPENFILENAMEW save{sizeof(save)};
    save.hwndOwner = owner;
    save.lpstrFilter = kFilter;
    save.nFilterIndex = static_cast<DWORD>(ExportTypeOf(settings.GetInt(L"List", L"ExportIndex", 1)));
    save.lpstrFile = path;
    save.nMaxFile = MAX_PATH * 2;
    save.lpstrTitle = L"Export zu TXT,CSV,HTML oder XLS ";
    save.Flags = OFN_PATHMUSTEXIST | OFN_EXPLORER | OFN_NOCHANGEDIR;
    ExportType type = ExportType::kText;
    std::wstring target;
    for (;;) {
        if (!GetSaveFileNameW(&save)) return false;
        type = ExportTypeOf(static_cast<int>(save.nFilterIndex));
        target = WithExportExtension(path, type);
        if (GetFileAttributesW(target.c_str()) == INVALID_FILE_ATTRIBUTES) break;
        const std::wstring question = FillIn(GetText(IDS_FILE_EXISTS_REPLACE), {target});
        if (MessageBoxW(owner, question.c_str(), GetText(60000).c_str(), MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) == IDYES)
            break;
    }
    settings.PutInt(L"List", L"ExportIndex", static_cast<int>(type));
    if (!WriteExportFile(target, table, type)) {
        MessageBoxW(owner, (GetText(IDS_EXPORT_FAILED) + L"\n" + target).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
        return false;
    }
    ShellExecuteW(owner, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return true;
}

}  // namespace tessel
