#include "win/shell_item_win.h"

#include <cctype>
#include <cstring>
#include <utility>

#include <commoncontrols.h>
#include <shellapi.h>
#include <shlwapi.h>

#include "win/file_system_win.h"

namespace tessel::win {

UniquePidl ClonePidl(PCIDLIST_ABSOLUTE pidl) { return UniquePidl(pidl ? ILCloneFull(pidl) : nullptr); }

UniquePidl ParentOf(PCIDLIST_ABSOLUTE pidl) {
    if (!pidl || ILIsEmpty(pidl)) return {};
    UniquePidl parent = ClonePidl(pidl);
    if (parent) ILRemoveLastID(parent.get());
    return parent;
}

UniquePidl PidlFromPath(const std::wstring& text) {
    PIDLIST_ABSOLUTE pidl = nullptr;
    if (text.empty() || FAILED(SHParseDisplayName(text.c_str(), nullptr, &pidl, 0, nullptr))) return {};
    return UniquePidl(pidl);
}

UniquePidl SpecialFolder(int csidl) {
    PIDLIST_ABSOLUTE pidl = nullptr;
    if (FAILED(SHGetFolderLocation(nullptr, csidl, nullptr, 0, &pidl))) return {};
    return UniquePidl(pidl);
}

ComPtr<IShellFolder> DesktopFolder() {
    ComPtr<IShellFolder> desktop;
    SHGetDesktopFolder(desktop.put());
    return desktop;
}

ComPtr<IShellFolder> BindFolder(PCIDLIST_ABSOLUTE pidl) {
    ComPtr<IShellFolder> desktop = DesktopFolder();
    if (!desktop || !pidl || ILIsEmpty(pidl)) return desktop;
    ComPtr<IShellFolder> folder;
    if (FAILED(desktop->BindToObject(pidl, nullptr, IID_IShellFolder, folder.put_void()))) return {};
    return folder;
}

bool SamePidl(PCIDLIST_ABSOLUTE a, PCIDLIST_ABSOLUTE b) {
    if (!a || !b) return a == b;
    ComPtr<IShellFolder> desktop = DesktopFolder();
    return desktop && HRESULT_CODE(desktop->CompareIDs(0, a, b)) == 0;
}

bool IdenticalPidl(PCIDLIST_ABSOLUTE a, PCIDLIST_ABSOLUTE b) {
    if (!a || !b) return a == b;
    const UINT size = ILGetSize(a);
    return size == ILGetSize(b) && std::memcmp(a, b, size) == 0;
}

static std::wstring NameOf(PCIDLIST_ABSOLUTE pidl, SIGDN kind) {
    PWSTR name = nullptr;
    if (!pidl || FAILED(SHGetNameFromIDList(pidl, kind, &name))) return {};
    std::wstring result = name;
    CoTaskMemFree(name);
    return result;
}

std::wstring ParsingNameOf(PCIDLIST_ABSOLUTE pidl) { return NameOf(pidl, SIGDN_DESKTOPABSOLUTEPARSING); }

std::wstring LocationNameOf(PCIDLIST_ABSOLUTE pidl) {
    std::wstring name = ParsingNameOf(pidl);
    if (name.empty() || name.rfind(L"::", 0) == 0) name = NameOf(pidl, SIGDN_NORMALDISPLAY);
    return name;
}

// Paths are not limited to the old 260 characters: a deep one is asked again with room for the
// longest a path can be.
std::wstring FileSystemPathOf(PCIDLIST_ABSOLUTE pidl) {
    if (!pidl) return {};
    wchar_t path[MAX_PATH * 4] = {};
    if (SHGetPathFromIDListEx(pidl, path, ARRAYSIZE(path), GPFIDL_DEFAULT) && wcslen(path) < MAX_PATH - 1) return path;
    // Cut at the old limit by some platforms, or past the buffer: the folder's path and the
    // item's own name, which travels in its identifier.
    UniquePidl parent = ParentOf(pidl);
    const std::wstring folder = parent && !ILIsEmpty(parent.get()) ? FileSystemPathOf(parent.get()) : std::wstring();
    ComPtr<IShellFolder> bound = folder.empty() ? nullptr : BindFolder(parent.get());
    WIN32_FIND_DATAW data{};
    if (!bound || FAILED(SHGetDataFromIDListW(bound.get(), ILFindLastID(pidl), SHGDFIL_FINDDATA, &data, sizeof(data))) ||
        !data.cFileName[0])
        return path;
    return folder + (folder.back() == L'\\' ? L"" : L"\\") + data.cFileName;
}

std::wstring FolderTextOf(PCIDLIST_ABSOLUTE pidl) {
    std::wstring text = FileSystemPathOf(pidl);
    return text.empty() ? ParsingNameOf(pidl) : text;
}

ShellLook LookOf(PCIDLIST_ABSOLUTE pidl) {
    SHFILEINFOW info{};
    SHGetFileInfoW(reinterpret_cast<LPCWSTR>(pidl), 0, &info, sizeof(info),
                   SHGFI_PIDL | SHGFI_DISPLAYNAME | SHGFI_SYSICONINDEX | SHGFI_SMALLICON);
    return {info.szDisplayName, info.iIcon};
}

bool IsPlainDirectory(DWORD attributes) {
    const DWORD own = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_REPARSE_POINT;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) && !(attributes & own);
}

ShellLook FolderLookOf(PCIDLIST_ABSOLUTE pidl) {
    const std::wstring path = FileSystemPathOf(pidl);
    const bool belowDrive = path.size() > 3 && path[1] == L':' && path[2] == L'\\';
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (belowDrive && GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) &&
        IsPlainDirectory(data.dwFileAttributes)) {
        const size_t slash = path.find_last_of(L'\\');
        if (slash + 1 < path.size()) return {path.substr(slash + 1), PlainFolderIcon(false)};
    }
    return LookOf(pidl);
}

std::wstring NameInFolder(IShellFolder* folder, PCUITEMID_CHILD child, SHGDNF form) {
    STRRET name{};
    wchar_t text[4098] = {};
    if (folder && SUCCEEDED(folder->GetDisplayNameOf(child, form, &name))) StrRetToBufW(&name, child, text, 4098);
    return text;
}

int IconInFolder(IShellFolder* folder, PCUITEMID_CHILD child) {
    const int icon = folder ? SHMapPIDLToSystemImageListIndex(folder, child, nullptr) : -1;
    return icon < 0 ? 0 : icon;
}

int PlainFolderIcon(bool open) {
    static const std::pair<int, int> icons = [] {  // closed, open; made once per process
        SHFILEINFOW info{};
        const UINT flags = SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES;
        const int closed =
            SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof(info), flags) ? info.iIcon : 0;
        const bool opened =
            SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof(info), flags | SHGFI_OPENICON) != 0;
        return std::pair<int, int>{closed, opened ? info.iIcon : closed};
    }();
    return open ? icons.second : icons.first;
}

HIMAGELIST SystemSmallIcons() {
    // IID_IImageList, spelled out: not every import library of the SDKs carries it.
    static constexpr GUID kImageListId = {0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};
    IImageList* list = nullptr;  // the shell keeps the list for the process; no reference is held
    if (FAILED(SHGetImageList(SHIL_SMALL, kImageListId, reinterpret_cast<void**>(&list))) || !list) return nullptr;
    list->Release();
    return reinterpret_cast<HIMAGELIST>(list);
}

std::string VerbOf(IContextMenu* menu, UINT offset) {
    char verb[128] = {};
    if (!menu || FAILED(menu->GetCommandString(offset, GCS_VERBA, nullptr, verb, sizeof(verb)))) return {};
    for (char* c = verb; *c; ++c) *c = static_cast<char>(tolower(static_cast<unsigned char>(*c)));
    return verb;
}

std::wstring LinkedFolder(const std::wstring& linkPath) {
    ComPtr<IShellLinkW> link;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.put_void())))
        return {};
    ComPtr<IPersistFile> file = link.As<IPersistFile>();
    wchar_t target[MAX_PATH] = {};
    if (!file || FAILED(file->Load(linkPath.c_str(), STGM_READ)) || FAILED(link->GetPath(target, MAX_PATH, nullptr, 0)) ||
        !target[0])
        return {};
    return IsDirectory(target) ? target : L"";
}

bool CreateShortcut(const std::wstring& linkPath, const std::wstring& target, const std::wstring& workingFolder,
                    const std::wstring& description) {
    ComPtr<IShellLinkW> link;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.put_void())))
        return false;
    ComPtr<IPersistFile> file = link.As<IPersistFile>();
    return file && SUCCEEDED(link->SetPath(target.c_str())) && SUCCEEDED(link->SetWorkingDirectory(workingFolder.c_str())) &&
           SUCCEEDED(link->SetDescription(description.c_str())) && SUCCEEDED(file->Save(linkPath.c_str(), TRUE));
}

}  // namespace tessel::win
