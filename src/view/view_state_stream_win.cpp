// The browser view's side of the column memory: the streams the shell view reads its columns
// from and writes them to, kept per kind of folder and stored in the view's settings section.
#include <windows.h>
#include <shlwapi.h>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "view/column_memory.h"
#include "view/shell_browser_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

constexpr int kColumnProbeLimit = 512;

int DetailColumnCount(IShellFolder* folder, HWND owner) {
    int count = 0;
    SHELLDETAILS details{};
    if (win::ComPtr<IShellFolder2> folder2 = win::ComPtr<IShellFolder>(folder).As<IShellFolder2>()) {
        while (count < kColumnProbeLimit && SUCCEEDED(folder2->GetDetailsOf(nullptr, count, &details))) {
            if (details.str.uType == STRRET_WSTR) CoTaskMemFree(details.str.pOleStr);
            ++count;
        }
        return count;
    }
    win::ComPtr<IShellDetails> shellDetails;
    if (FAILED(folder->CreateViewObject(owner, IID_IShellDetails, shellDetails.put_void()))) return 0;
    while (count < kColumnProbeLimit && SUCCEEDED(shellDetails->GetDetailsOf(nullptr, count, &details))) {
        if (details.str.uType == STRRET_WSTR) CoTaskMemFree(details.str.pOleStr);
        ++count;
    }
    return count;
}

// A fresh movable block for the view to write into; its bytes are taken over later.
win::ComPtr<IStream> NewWriteStream() {
    win::ComPtr<IStream> stream;
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 0);
    if (block && FAILED(CreateStreamOnHGlobal(block, TRUE, stream.put()))) GlobalFree(block);
    return stream;
}

win::ComPtr<IStream> ReadStream(const StreamBytes& bytes) {
    win::ComPtr<IStream> stream;
    *stream.put() = SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size()));  // hands over its reference
    return stream;
}

StreamBytes BytesOf(IStream* stream) {
    StreamBytes bytes;
    STATSTG stat{};
    HGLOBAL block = nullptr;
    if (FAILED(stream->Stat(&stat, STATFLAG_NONAME)) || FAILED(GetHGlobalFromStream(stream, &block))) return bytes;
    const size_t size = static_cast<size_t>(stat.cbSize.QuadPart);
    if (const auto* data = static_cast<const uint8_t*>(GlobalLock(block))) {
        bytes.assign(data, data + std::min(size, GlobalSize(block)));
        GlobalUnlock(block);
    }
    return bytes;
}

}  // namespace

std::wstring CMyShellBrowser::ColumnKeyOf(PCIDLIST_ABSOLUTE folder, IShellFolder* shellFolder) const {
    if (!folder || !shellFolder) return {};
    const std::wstring parsing = win::ParsingNameOf(folder);
    // Counting the columns asks the folder for each one: only when the key depends on it.
    return ColumnKey(parsing, ColumnKeyNeedsCount(parsing) ? DetailColumnCount(shellFolder, hwnd()) : 0);
}

void CMyShellBrowser::LoadColumnMemory() { columns_.Load(Settings(), columnSection_); }

void CMyShellBrowser::SaveColumnMemory() {
    HarvestStreams();
    columns_.Save(Settings(), columnSection_);
}

// Streams handed to the view are read back once it has written and let them go. True when a
// column stream changed.
bool CMyShellBrowser::HarvestStreams() {
    bool columnsChanged = false;
    for (PendingStream& pending : pendingStreams_) {
        StreamBytes bytes = BytesOf(pending.stream.get());
        if (pending.history) {
            columns_.StoreHistory(pending.historyIndex, std::move(bytes));
        } else {
            columns_.Replace(pending.key) = std::move(bytes);
            columnsChanged = true;
        }
    }
    pendingStreams_.clear();
    return columnsChanged;
}

STDMETHODIMP CMyShellBrowser::GetViewStateStream(DWORD mode, IStream** stream) {
    if (!stream) return E_POINTER;
    *stream = nullptr;
    const bool write = (mode & (STGM_WRITE | STGM_READWRITE)) != 0;
    win::ComPtr<IStream> result;
    if (write ? columns_.HistoryWritePending() : columns_.HistoryReadPending()) {
        if (write) {
            const int index = columns_.TakeHistoryWriteIndex();
            result = NewWriteStream();
            if (result) pendingStreams_.push_back({true, index, L"", result});
        } else if (const StreamBytes* bytes = columns_.TakeHistoryRead()) {
            result = ReadStream(*bytes);
        }
    } else {
        if (!Options().spalten_speichern || !target_) return E_FAIL;
        HarvestStreams();
        if (write) {
            const std::wstring key = ColumnKeyOf(shown_.get(), shownFolder_.get());
            if (key.empty()) return E_FAIL;
            result = NewWriteStream();
            if (result) pendingStreams_.push_back({false, -1, key, result});
        } else {
            win::ComPtr<IShellFolder> folder = targetFolder_ ? targetFolder_ : win::BindFolder(target_.get());
            const StreamBytes* bytes = columns_.Find(ColumnKeyOf(target_.get(), folder.get()));
            if (!bytes) return E_FAIL;
            result = ReadStream(*bytes);
        }
    }
    if (!result) return E_FAIL;
    if (!write) columnsRemembered_ = true;
    *stream = result.get();
    (*stream)->AddRef();
    return S_OK;
}

std::wstring CMyShellBrowser::GetEncodedViewState(std::wstring* keyOut) {
    if (view_) {
        ScopedOption off(Options().spalten_speichern, 0);
        view_->SaveViewState();
    }
    HarvestStreams();
    const std::wstring key = ColumnKeyOf(shown_.get(), shownFolder_.get());
    if (keyOut) *keyOut = key;
    const StreamBytes* bytes = key.empty() ? nullptr : columns_.Find(key);
    return bytes ? EncodeColumnValue(*bytes) : std::wstring();
}

}  // namespace tessel
