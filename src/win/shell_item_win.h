#pragma once
// Small helpers around item identifier lists and shell folders. Every list handed out is owned.
#include <windows.h>
#include <shlobj.h>

#include <string>

#include "win/com_ptr_win.h"
#include "win/handles_win.h"

namespace tessel::win {

UniquePidl ClonePidl(PCIDLIST_ABSOLUTE pidl);
UniquePidl ParentOf(PCIDLIST_ABSOLUTE pidl);  // null for the desktop
UniquePidl PidlFromPath(const std::wstring& text);  // parsed display name; null when unknown
UniquePidl SpecialFolder(int csidl);
ComPtr<IShellFolder> DesktopFolder();
ComPtr<IShellFolder> BindFolder(PCIDLIST_ABSOLUTE pidl);  // the desktop for the empty list
bool SamePidl(PCIDLIST_ABSOLUTE a, PCIDLIST_ABSOLUTE b);
// Byte for byte the same list: the same item under the same names (cheaper than SamePidl).
bool IdenticalPidl(PCIDLIST_ABSOLUTE a, PCIDLIST_ABSOLUTE b);
// SIGDN_DESKTOPABSOLUTEPARSING, or the display name for folders named by class identifier.
std::wstring LocationNameOf(PCIDLIST_ABSOLUTE pidl);
std::wstring ParsingNameOf(PCIDLIST_ABSOLUTE pidl);
std::wstring FileSystemPathOf(PCIDLIST_ABSOLUTE pidl);  // "" when the folder has no path
// The folder a shortcut (".lnk") points to; "" when it points elsewhere or cannot be read.
std::wstring LinkedFolder(const std::wstring& linkPath);
// A shortcut file at `linkPath` that starts `target` in `workingFolder`.
bool CreateShortcut(const std::wstring& linkPath, const std::wstring& target, const std::wstring& workingFolder,
                    const std::wstring& description);
// The path, or the parsing name of a folder without one: text that parses back to the folder.
std::wstring FolderTextOf(PCIDLIST_ABSOLUTE pidl);
// The system's small-icon list, asked for without extracting any icon (asking with a drive's
// path also loads that drive's icon first: about 50 ms at start under Wine). Not ours to free.
HIMAGELIST SystemSmallIcons();
// A directory not marked read-only or system (nor a reparse point): the only kind whose
// desktop.ini cannot give it a name or icon of its own.
bool IsPlainDirectory(DWORD attributes);
// The system list's icon of a plain folder, closed or open, asked for without any folder.
int PlainFolderIcon(bool open);
// The shell's display name of a folder or item and its index in the system's small-icon list.
struct ShellLook {
    std::wstring name;
    int icon = 0;
};
ShellLook LookOf(PCIDLIST_ABSOLUTE pidl);
// The same for a folder shown by name and icon (address box, tab): a plain directory on a drive
// is named by its path and takes the shared folder icon, since the shell reads a whole folder
// to decide its icon (about 150 ms for 100,000 files under Wine). Anything else asks the shell.
ShellLook FolderLookOf(PCIDLIST_ABSOLUTE pidl);
// An item's name in its folder; "" when the folder cannot give it.
std::wstring NameInFolder(IShellFolder* folder, PCUITEMID_CHILD child, SHGDNF form = SHGDN_INFOLDER);
// An item's small-icon index asked of its folder (no bind of its parent); 0 when unknown.
int IconInFolder(IShellFolder* folder, PCUITEMID_CHILD child);
// The language-independent verb of a context-menu command, lower case; "" when it has none.
std::string VerbOf(IContextMenu* menu, UINT offset);

}  // namespace tessel::win
