// Folder sizes in the browser view's list: the worker started for each folder shown, its
// results written into the size column of the folders' rows as the list asks for their text.
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>

#include "features/folder_size_worker_win.h"
#include "view/shell_browser_win.h"
#include "view/shell_change.h"
#include "win/shell_item_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

// The size property of the shell's storage columns.
constexpr GUID kStorageColumns = {0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}};
constexpr DWORD kSizeProperty = 12;
constexpr int kSizeColumnWidth = 170;  // at 96 dpi

// The folder's column that holds sizes, or -1. A file-system folder that cannot say which
// has it second, after the name.
int SizeColumnOf(IShellFolder* folder) {
    win::ComPtr<IShellFolder2> details = win::ComPtr<IShellFolder>(folder).As<IShellFolder2>();
    if (!details) return -1;
    for (UINT column = 0; column < 64; ++column) {
        SHCOLUMNID id{};
        if (FAILED(details->MapColumnToSCID(column, &id))) return column == 0 ? 1 : -1;
        if (id.fmtid == kStorageColumns && id.pid == kSizeProperty) return static_cast<int>(column);
    }
    return -1;
}

std::wstring ThousandsSeparator() {
    wchar_t separator[8] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8);
    return separator;
}

}  // namespace

void CMyShellBrowser::StartFolderSizes() {
    sizeWorker_.Stop();
    sizeWorker_.Cache().Clear();
    sizesShown_.clear();
    sizesChanged_.clear();
    sizesAllChanged_ = false;
    sizeColumn_ = -1;
    const FolderSizeSettings& settings = FolderSizeOptions();
    const std::wstring path = shown_ ? win::FileSystemPathOf(shown_.get()) : std::wstring();
    if (!settings.fld_size || path.empty()) return;
    sizeColumn_ = SizeColumnOf(shownFolder_.get());
    if (sizeColumn_ < 0) return;
    // Room for the size, the share and the counts.
    const int wanted = win::Scaled(hwnd(), kSizeColumnWidth);
    if (subclassedList_ && SendMessageW(subclassedList_, LVM_GETCOLUMNWIDTH, sizeColumn_, 0) < wanted)
        SendMessageW(subclassedList_, LVM_SETCOLUMNWIDTH, sizeColumn_, wanted);
    // "mode" 1 counts only what lies directly in each folder; any other value walks the whole tree.
    sizeWorker_.Start(path, settings.mode != 1, hwnd(), kMsgFolderSizes);
    PauseFolderSizes();
}

void CMyShellBrowser::NoteSizeChange(const std::wstring& path) {
    if (!FolderSizeOptions().fld_size || sizeColumn_ < 0) return;
    const SizeChange change = SizeChangeOf(win::FileSystemPathOf(shown_.get()), path);
    if (!change.all && change.folder.empty()) return;  // a file of the folder: no folder's size changed
    sizesAllChanged_ = sizesAllChanged_ || change.all;
    if (!change.folder.empty()) sizesChanged_.insert(change.folder);
    SetTimer(hwnd(), kTimerFolderSizes, 500, nullptr);
}

// Only the folders that changed are measured again, once the walk before has ended; the sizes
// of the others stay.
void CMyShellBrowser::MeasureChangedSizes() {
    if (sizesAllChanged_ || sizeColumn_ < 0) return StartFolderSizes();
    if (sizesChanged_.empty()) return;
    if (sizeWorker_.Running()) {
        SetTimer(hwnd(), kTimerFolderSizes, 500, nullptr);
        return;
    }
    std::vector<std::wstring> names(sizesChanged_.begin(), sizesChanged_.end());
    for (const std::wstring& name : names) sizesShown_.erase(UpperName(name));
    sizesChanged_.clear();
    sizeWorker_.Start(win::FileSystemPathOf(shown_.get()), FolderSizeOptions().mode != 1, hwnd(), kMsgFolderSizes,
                      std::move(names));
    PauseFolderSizes();
}

void CMyShellBrowser::PauseFolderSizes() {
    sizeWorker_.SetPaused(FolderSizeOptions().block_no_focus && !inUse_);
}

// Only the size cells of the rows in sight whose folders were measured since they were last drawn
// are drawn again, a few at a time: under Wine each cell costs milliseconds to paint, and a whole
// list drawn at once holds the window far too long. The rest follow a moment later.
void CMyShellBrowser::OnFolderSizes() {
    HWND list = subclassedList_;
    if (!list || !folderView_ || sizeColumn_ < 0) return;
    const int top = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    const int count = std::min(static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)),
                               top + static_cast<int>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0)) + 1);
    int drawn = 0;
    for (int row = std::max(top, 0); row < count; ++row) {
        const std::wstring name = UpperNameOf(row);
        FolderTotals totals;
        if (name.empty() || sizesShown_.count(name) || !sizeWorker_.Cache().Find(name, totals)) continue;
        if (drawn == kSizeCellsPerPaint) {
            SetTimer(hwnd(), kTimerSizeCells, kSizeCellsPause, nullptr);
            return;
        }
        sizesShown_.insert(name);
        RECT cell{LVIR_BOUNDS, sizeColumn_, 0, 0};  // the flag and the column, as the message wants them
        if (SendMessageW(list, LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&cell))) InvalidateRect(list, &cell, TRUE);
        ++drawn;
    }
}

std::wstring CMyShellBrowser::UpperNameOf(int row) const {
    PITEMID_CHILD child = nullptr;
    if (!folderView_ || FAILED(folderView_->Item(row, &child)) || !child) return {};
    STRRET name{};
    wchar_t text[MAX_PATH] = {};
    if (SUCCEEDED(shownFolder_->GetDisplayNameOf(child, SHGDN_INFOLDER | SHGDN_FORPARSING, &name)))
        StrRetToBufW(&name, child, text, MAX_PATH);
    CoTaskMemFree(child);
    CharUpperBuffW(text, static_cast<DWORD>(wcslen(text)));
    return text;
}

// A folder's row gets its size once the walk has measured it.
void CMyShellBrowser::AnswerSizeText(NMLVDISPINFOW* info) {
    LVITEMW& item = info->item;
    if (sizeColumn_ < 0 || item.iSubItem != sizeColumn_ || !(item.mask & LVIF_TEXT) || !item.pszText ||
        item.cchTextMax <= 0)
        return;
    const std::wstring size = SizeTextOf(item.iItem);
    if (!size.empty()) lstrcpynW(item.pszText, size.c_str(), item.cchTextMax);
}

std::wstring CMyShellBrowser::SizeTextOf(int row) const {
    static const std::wstring separator = ThousandsSeparator();
    return sizeWorker_.Cache().Text(UpperNameOf(row), FolderSizeOptions(), separator);
}

// Folder sizes live in the view's cache, not in the folder's columns: the list's table takes them
// from there, so that export and print show what the list shows.
void CMyShellBrowser::PutFolderSizes(ExportTable& table) const {
    if (sizeColumn_ < 0) return;
    for (size_t shown = 0; shown < table.columns.size(); ++shown) {
        if (table.columns[shown] != sizeColumn_) continue;
        for (size_t row = 0; row < table.rows.size(); ++row)
            if (std::wstring size = SizeTextOf(static_cast<int>(row)); !size.empty() && shown < table.rows[row].size())
                table.rows[row][shown] = std::move(size);
    }
}

}  // namespace tessel
