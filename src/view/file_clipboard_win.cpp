#include "view/file_clipboard_win.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "res/resource.h"
#include "view/copy_name.h"
#include "view/name_clash.h"
#include "win/file_system_win.h"
#include "win/handles_win.h"

namespace tessel {
namespace {

UINT PreferredEffectFormat() {
    static const UINT format = RegisterClipboardFormatW(CFSTR_PREFERREDDROPEFFECT);
    return format;
}

// Paths separated by nulls and ended by two: the form of CF_HDROP and of SHFileOperationW.
std::wstring DoubleNullList(const std::vector<std::wstring>& paths) {
    std::wstring list;
    for (const std::wstring& path : paths) {
        list += path;
        list += L'\0';
    }
    list += L'\0';
    return list;
}

HGLOBAL DropFilesBlock(const std::vector<std::wstring>& paths) {
    const std::wstring list = DoubleNullList(paths);
    const size_t bytes = sizeof(DROPFILES) + list.size() * sizeof(wchar_t);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    if (!block) return nullptr;
    auto* drop = static_cast<DROPFILES*>(GlobalLock(block));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(reinterpret_cast<char*>(drop) + sizeof(DROPFILES), list.data(), list.size() * sizeof(wchar_t));
    GlobalUnlock(block);
    return block;
}

HGLOBAL EffectBlock(DWORD effect) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof(DWORD));
    if (!block) return nullptr;
    *static_cast<DWORD*>(GlobalLock(block)) = effect;
    GlobalUnlock(block);
    return block;
}

std::wstring FolderOf(const std::wstring& path) {
    const size_t slash = path.find_last_of(L'\\');
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash == 2 ? 3 : slash);
}

bool SameText(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::vector<std::wstring> FilesOfDrop(HDROP drop) {
    std::vector<std::wstring> files;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        if (!path.empty()) files.push_back(std::move(path));
    }
    return files;
}

constexpr UINT kDropMenuCancel = 100;


// The file operation of the platform replaces a file of the same name on a move without a
// question where a copy asks; the move asks here first, once for all clashing names.
ClashAnswer AskAboutClashes(HWND owner, const std::vector<std::wstring>& clashes) {
    const std::wstring text = FillIn(GetText(IDS_MOVE_CLASH), {ClashList(clashes)});
    switch (MessageBoxW(owner, text.c_str(), GetText(60000).c_str(), MB_YESNOCANCEL | MB_ICONWARNING | MB_DEFBUTTON2)) {
    case IDYES:
        return ClashAnswer::Replace;
    case IDNO:
        return ClashAnswer::Skip;
    default:
        return ClashAnswer::Cancel;
    }
}

}  // namespace

bool PutFilesOnClipboard(HWND owner, const std::vector<std::wstring>& paths, DWORD effect) {
    if (paths.empty() || !OpenClipboard(owner)) return false;
    EmptyClipboard();
    HGLOBAL drop = DropFilesBlock(paths);
    HGLOBAL preferred = EffectBlock(effect);
    // The clipboard owns a block once SetClipboardData accepts it.
    bool ok = drop && SetClipboardData(CF_HDROP, drop);
    if (!ok && drop) GlobalFree(drop);
    if (preferred && !SetClipboardData(PreferredEffectFormat(), preferred)) GlobalFree(preferred);
    CloseClipboard();
    return ok;
}

bool ReadClipboardFiles(HWND owner, ClipboardFiles& files) {
    files = ClipboardFiles{};
    if (!OpenClipboard(owner)) return false;
    if (HANDLE drop = GetClipboardData(CF_HDROP)) files.paths = FilesOfDrop(static_cast<HDROP>(drop));
    if (HANDLE effect = GetClipboardData(PreferredEffectFormat())) {
        if (const auto* value = static_cast<const DWORD*>(GlobalLock(effect))) {
            if (*value & DROPEFFECT_MOVE) files.effect = DROPEFFECT_MOVE;
            GlobalUnlock(effect);
        }
    }
    CloseClipboard();
    return !files.paths.empty();
}

namespace {

// The shell's copy and move stop at the old path limit; what they would refuse is said first.
bool ShellTakesPaths(HWND owner, const std::vector<std::wstring>& paths, const std::wstring& targetFolder) {
    std::wstring tooLong;
    for (const std::wstring& path : paths) {
        const std::wstring target = targetFolder + L"\\" + path.substr(path.find_last_of(L'\\') + 1);
        if (path.size() >= MAX_PATH) tooLong = path;
        else if (target.size() >= MAX_PATH) tooLong = target;
        if (!tooLong.empty()) break;
    }
    if (tooLong.empty()) return true;
    MessageBoxW(owner, FillIn(GetText(IDS_PATH_TOO_LONG_FOR_SHELL), {tooLong}).c_str(), GetText(60000).c_str(),
                MB_OK | MB_ICONWARNING);
    return false;
}

}  // namespace

bool CopyOrMoveFiles(HWND owner, const ClipboardFiles& files, const std::wstring& targetFolder) {
    if (files.paths.empty() || targetFolder.empty()) return false;
    if (!ShellTakesPaths(owner, files.paths, targetFolder)) return false;
    const bool move = files.effect & DROPEFFECT_MOVE;
    if (move && SameText(FolderOf(files.paths.front()), targetFolder)) return false;  // nothing to move
    std::vector<std::wstring> sources = files.paths;
    bool replaceAnswered = false;
    if (move) {
        const std::vector<std::wstring> clashes = NameClashes(sources, targetFolder, win::PathExists);
        if (!clashes.empty()) {
            const ClashAnswer answer = AskAboutClashes(owner, clashes);
            sources = SourcesToMove(sources, clashes, answer);
            replaceAnswered = answer == ClashAnswer::Replace;
        }
        if (sources.empty()) return false;
    }
    const std::wstring from = DoubleNullList(sources);
    SHFILEOPSTRUCTW operation{};
    operation.hwnd = owner;
    operation.wFunc = move ? FO_MOVE : FO_COPY;
    operation.pFrom = from.c_str();
    // Asked once already: the platform's own question would only repeat it.
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMMKDIR | (replaceAnswered ? FOF_NOCONFIRMATION : 0);
    std::vector<std::wstring> targets{targetFolder};
    if (!move && SameText(FolderOf(files.paths.front()), targetFolder)) {
        // Copies beside their originals get free names of their own.
        targets.clear();
        auto taken = [&](const std::wstring& name) { return win::PathExists(targetFolder + L"\\" + name); };
        for (const std::wstring& path : files.paths)
            targets.push_back(targetFolder + L"\\" + FreeCopyName(path.substr(path.find_last_of(L'\\') + 1), taken));
        operation.fFlags |= FOF_MULTIDESTFILES;
    }
    const std::wstring to = DoubleNullList(targets);
    operation.pTo = to.c_str();
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

bool PasteFiles(HWND owner, const ClipboardFiles& files, const std::wstring& targetFolder) {
    const bool ok = CopyOrMoveFiles(owner, files, targetFolder);
    // Cut files that arrived are no longer where the clipboard says.
    if (ok && (files.effect & DROPEFFECT_MOVE) && OpenClipboard(owner)) {
        EmptyClipboard();
        CloseClipboard();
    }
    return ok;
}

std::vector<std::wstring> DroppedFiles(IDataObject* data) {
    FORMATETC wanted{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (!data || FAILED(data->GetData(&wanted, &medium))) return {};
    std::vector<std::wstring> files = FilesOfDrop(static_cast<HDROP>(medium.hGlobal));
    ReleaseStgMedium(&medium);
    return files;
}

DWORD AskFileDropEffect(HWND owner, POINTL screen, DWORD allowed, DWORD proposed) {
    win::UniqueMenu menu(CreatePopupMenu());
    if (!menu) return DROPEFFECT_NONE;
    AppendMenuW(menu.get(), MF_STRING | (allowed & DROPEFFECT_COPY ? 0 : MF_GRAYED), DROPEFFECT_COPY,
                GetText(IDS_DROP_COPY_HERE).c_str());
    AppendMenuW(menu.get(), MF_STRING | (allowed & DROPEFFECT_MOVE ? 0 : MF_GRAYED), DROPEFFECT_MOVE,
                GetText(IDS_DROP_MOVE_HERE).c_str());
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), MF_STRING, kDropMenuCancel, GetText(119).c_str());
    if (proposed == DROPEFFECT_COPY || proposed == DROPEFFECT_MOVE) SetMenuDefaultItem(menu.get(), proposed, FALSE);
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr);
    return chosen == DROPEFFECT_COPY || chosen == DROPEFFECT_MOVE ? (chosen & allowed) : DROPEFFECT_NONE;
}

void TellMovePerformed(IDataObject* data) {
    if (!data) return;
    static const CLIPFORMAT performed = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(CFSTR_PERFORMEDDROPEFFECT));
    FORMATETC format{performed, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{TYMED_HGLOBAL};
    medium.hGlobal = GlobalAlloc(GMEM_MOVEABLE, sizeof(DWORD));
    if (auto* value = medium.hGlobal ? static_cast<DWORD*>(GlobalLock(medium.hGlobal)) : nullptr) {
        *value = DROPEFFECT_MOVE;
        GlobalUnlock(medium.hGlobal);
        if (FAILED(data->SetData(&format, &medium, TRUE))) GlobalFree(medium.hGlobal);  // taken on success
    } else if (medium.hGlobal) {
        GlobalFree(medium.hGlobal);
    }
}

bool DeleteFiles(HWND owner, const std::vector<std::wstring>& paths, bool permanently) {
    if (paths.empty()) return false;
    const std::wstring from = DoubleNullList(paths);
    SHFILEOPSTRUCTW operation{};
    operation.hwnd = owner;
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    operation.fFlags = permanently ? 0 : FOF_ALLOWUNDO;
    return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

}  // namespace tessel
