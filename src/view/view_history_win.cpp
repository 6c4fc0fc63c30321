// The browser view's history: what each navigation records of the view it leaves, the jumps
// back and forward with view mode and selection restored, the history menus, and the transfer
// of a view with its history to another T-View.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <cstring>
#include <functional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "view/shell_browser_win.h"
#include "win/shell_item_win.h"

namespace tessel {

ItemBytes BytesOf(PCUIDLIST_RELATIVE pidl) {
    if (!pidl) return {};
    const auto* data = reinterpret_cast<const uint8_t*>(pidl);
    return ItemBytes(data, data + ILGetSize(pidl));
}

namespace {

// A list of our own from stored bytes; none when the bytes are not a list.
win::UniquePidl PidlOf(const ItemBytes& bytes) {
    if (!IsItemList(bytes)) return {};
    void* copy = CoTaskMemAlloc(bytes.size());
    if (copy) std::memcpy(copy, bytes.data(), bytes.size());
    return win::UniquePidl(static_cast<PIDLIST_ABSOLUTE>(copy));
}

}  // namespace

// The items of the shell's identifier array, read in place: each one's bytes, checked to end
// inside the block.
void ForEachIdArrayItem(IDataObject* data, const std::function<void(const uint8_t*, size_t)>& take) {
    static const CLIPFORMAT format = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"Shell IDList Array"));
    FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (!data || FAILED(data->GetData(&wanted, &medium))) return;
    const size_t size = GlobalSize(medium.hGlobal);
    if (const auto* ids = static_cast<const CIDA*>(GlobalLock(medium.hGlobal))) {
        const auto* base = reinterpret_cast<const uint8_t*>(ids);
        const size_t header = sizeof(UINT) * (size_t{ids->cidl} + 2);
        for (UINT i = 1; size >= header && i <= ids->cidl; ++i) {
            const size_t offset = ids->aoffset[i];
            if (offset >= size) continue;
            if (const size_t length = ItemListLength(base + offset, size - offset)) take(base + offset, length);
        }
        GlobalUnlock(medium.hGlobal);
    }
    ReleaseStgMedium(&medium);
}

std::vector<ItemBytes> ItemsOfIdArray(IDataObject* data) {
    std::vector<ItemBytes> items;
    ForEachIdArrayItem(data, [&](const uint8_t* bytes, size_t length) { items.emplace_back(bytes, bytes + length); });
    return items;
}

// The list's rows in order, each item asked of the view by its index: Wine's view answers no
// question for all its items at once, and its selection object is not asked for rows that may
// be stale (see SelectedItems).
void CMyShellBrowser::ForEachViewItem(bool selectedOnly, const std::function<void(PCUITEMID_CHILD)>& take) const {
    HWND list = GetListControl();
    if (!folderView_ || !list) return;
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int index = 0; index < count; ++index) {
        if (selectedOnly && !(SendMessageW(list, LVM_GETITEMSTATE, index, LVIS_SELECTED) & LVIS_SELECTED)) continue;
        PITEMID_CHILD child = nullptr;
        if (SUCCEEDED(folderView_->Item(index, &child)) && child) take(child);
        CoTaskMemFree(child);
    }
}

// Read from the list's rows, never from the view's selection object: after a move or delete
// the view may still hold rows whose items are gone, and building its data object for them
// faulted inside the shell.
std::vector<ItemBytes> CMyShellBrowser::SelectedItems() const {
    HWND list = GetListControl();
    if (!folderView_ || !list || SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0) <= 0) return {};
    std::vector<ItemBytes> items;
    for (int index = -1;;) {
        index = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(index), LVNI_SELECTED));
        if (index < 0) break;
        PITEMID_CHILD child = nullptr;
        if (SUCCEEDED(folderView_->Item(index, &child)) && child) items.push_back(BytesOf(child));
        CoTaskMemFree(child);
    }
    return items;
}

// One pass over the rows, each looked up among the wanted identifiers: asking the view item by
// item costs a search of the whole list each. An item whose identifier changed since (its size
// or time) is asked of the view by name, when few are left.
void CMyShellBrowser::SelectItems(const std::vector<ItemBytes>& items, UINT firstFlags) {
    if (!view_) return;
    std::unordered_set<std::string_view> wanted;
    for (const ItemBytes& bytes : items)
        if (IsItemList(bytes)) wanted.emplace(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    HWND list = GetListControl();
    const int count = list && folderView_ ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : 0;
    std::vector<int> rows;
    for (int index = 0; index < count && !wanted.empty(); ++index) {
        PITEMID_CHILD child = nullptr;
        if (SUCCEEDED(folderView_->Item(index, &child)) && child &&
            wanted.erase(std::string_view(reinterpret_cast<const char*>(child), ILGetSize(child))))
            rows.push_back(index);
        CoTaskMemFree(child);
    }
    UINT flags = firstFlags;
    if (!rows.empty() && SUCCEEDED(folderView_->SelectItem(rows.front(), flags))) flags = SVSI_SELECT;
    if (rows.size() == static_cast<size_t>(count) && count > 1) {
        // Every row: one request, as Select All makes it.
        ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED);
    } else {
        for (size_t i = 1; i < rows.size(); ++i) folderView_->SelectItem(rows[i], SVSI_SELECT);
    }
    constexpr size_t kAskedByName = 64;
    if (wanted.size() > kAskedByName) return;
    for (std::string_view bytes : wanted)
        if (SUCCEEDED(view_->SelectItem(reinterpret_cast<PCUITEMID_CHILD>(bytes.data()), flags))) flags = SVSI_SELECT;
}

std::wstring CMyShellBrowser::FilterText() const {
    if (!filterBox_) return {};
    std::wstring text(kHistoryFilterTextLimit + 1, L'\0');
    text.resize(GetWindowTextW(filterBox_, text.data(), static_cast<int>(text.size())));
    return text;
}

// The entry of the current index gets the state the view is left in.
void CMyShellBrowser::RecordHistoryEntry() {
    if (!shown_) return;
    HistoryEntry& entry = history_.RecordCurrent();
    entry.folder = BytesOf(shown_.get());
    entry.filter = owner_.FilterState();
    entry.filterText = outgoing_.filterText;
    entry.selection = outgoing_.selectedCount > 0 ? SelectedItems() : std::vector<ItemBytes>{};
    entry.viewMode = outgoing_.settings.ViewMode;
    entry.viewFlags = outgoing_.settings.fFlags;
}

int CMyShellBrowser::GoToEntry(int index) {
    HistoryJumpGuard jump;
    if (!jump.Acquired() || index < 0) return 0;
    const HistoryEntry& entry = history_.Entry(index);
    const bool sameFilter = SameFilter(entry, owner_.FilterState(), FilterText());
    jumpIndex_ = index;
    if (Options().merke_ansicht && entry.viewMode) {
        jumpSettings_ = {entry.viewMode, entry.viewFlags};
        callerSettings_ = &jumpSettings_;
    }
    if (win::UniquePidl folder = PidlOf(entry.folder)) NavigateTo(std::move(folder), true, false);
    // The index follows the request, shown or not.
    history_.SetCurrent(index);
    callerSettings_ = nullptr;
    jumpIndex_ = -1;
    if (Options().merke_markierte && sameFilter && history_.Find(index)) SelectItems(history_.Find(index)->selection);
    owner_.HistoryChanged(*this);
    return 1;
}

void CMyShellBrowser::GoBack() {
    if (history_.CanGoBack()) GoToEntry(history_.Current() - 1);
}

void CMyShellBrowser::GoForward() {
    if (history_.CanGoForward()) GoToEntry(history_.Current() + 1);
}

void CMyShellBrowser::ClearHistory() {
    history_.Clear();
    owner_.HistoryChanged(*this);
}

win::UniqueMenu CMyShellBrowser::BuildHistoryMenu(bool forward) const {
    win::UniqueMenu menu(CreatePopupMenu());
    const std::vector<int> indices = forward ? history_.ForwardIndices() : history_.BackIndices();
    int shown = 0;
    for (int index : indices) {
        const HistoryEntry* entry = history_.Find(index);
        win::UniquePidl folder = entry ? PidlOf(entry->folder) : win::UniquePidl();
        if (!folder || index == kHistoryClearCommand - 1) continue;
        std::wstring name = win::LocationNameOf(folder.get());
        if (name.empty()) name = L"?";
        AppendMenuW(menu.get(), MF_STRING, static_cast<UINT_PTR>(index) + 1, name.c_str());
        ++shown;
    }
    if (shown > 0) {
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu.get(), MF_STRING, kHistoryClearCommand, GetText(19).c_str());
    }
    return menu;
}

void CMyShellBrowser::RunHistoryCommand(UINT command) {
    if (command == kHistoryClearCommand)
        ClearHistory();
    else if (command >= 1)
        GoToEntry(static_cast<int>(command - 1));
}

void CMyShellBrowser::ShowHistoryMenu(bool forward, POINT screen) {
    win::UniqueMenu menu = BuildHistoryMenu(forward);
    if (!menu || GetMenuItemCount(menu.get()) <= 0) return;
    const UINT command = TrackPopupMenu(menu.get(), TPM_RETURNCMD, screen.x, screen.y, 0, hwnd(), nullptr);
    if (command) RunHistoryCommand(command);
}

void CMyShellBrowser::TransferTo(CMyShellBrowser& target, bool viewSettings, bool history, bool selection) {
    if (!view_ || !shown_ || &target == this) return;
    const std::vector<ItemBytes> selected = selection ? SelectedItems() : std::vector<ItemBytes>{};
    if (viewSettings) {
        // The columns go along: the source's memory is written to the target's section, which
        // the target reads again.
        ScopedOption columns(Options().spalten_speichern, 1);
        view_->SaveViewState();
        HarvestStreams();
        columns_.Save(Settings(), columnSection_);
        columns_.SaveInto(Settings(), target.columnSection_);
        target.LoadColumnMemory();
        target.jumpSettings_ = CurrentSettings();
        target.callerSettings_ = &target.jumpSettings_;
    }
    // Without the history the target's own goes on, so the step counts there.
    target.NavigateTo(win::ClonePidl(shown_.get()), true, !history);
    target.callerSettings_ = nullptr;
    if (history) target.TakeHistoryOf(*this);
    if (selection) target.SelectItems(selected);
    target.owner_.HistoryChanged(target);
}

// The source's shown folder's entry as it is now, then its whole history, after this view's own
// navigation has recorded what it left.
void CMyShellBrowser::TakeHistoryOf(CMyShellBrowser& source) {
    if (&source == this) return;
    AdoptHistory(source.HistoryToKeep());
}

NavigationHistory CMyShellBrowser::HistoryToKeep() {
    if (view_) {
        CaptureOutgoingState();
        RecordHistoryEntry();
    }
    return history_;
}

void CMyShellBrowser::AdoptHistory(const NavigationHistory& history) {
    history_.CopyFrom(history);
    owner_.HistoryChanged(*this);
}

}  // namespace tessel
