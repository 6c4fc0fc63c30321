#pragma once
// Files on the clipboard as every file manager exchanges them: CF_HDROP with the
// "Preferred DropEffect" that tells copy from cut. Pasting copies or moves with the shell's
// file operation, which asks before it overwrites and can be undone.
#include <windows.h>
#include <ole2.h>

#include <string>
#include <vector>

namespace tessel {

struct ClipboardFiles {
    std::vector<std::wstring> paths;
    DWORD effect = DROPEFFECT_COPY;  // DROPEFFECT_MOVE after a cut
};

bool PutFilesOnClipboard(HWND owner, const std::vector<std::wstring>& paths, DWORD effect);
bool ReadClipboardFiles(HWND owner, ClipboardFiles& files);
// Copies or moves into the folder. A copy into the folder the files come from gets new names.
bool CopyOrMoveFiles(HWND owner, const ClipboardFiles& files, const std::wstring& targetFolder);
// The same for what the clipboard held; after a move the clipboard is emptied.
bool PasteFiles(HWND owner, const ClipboardFiles& files, const std::wstring& targetFolder);
// To the recycle bin unless `permanently`; the shell asks first.
bool DeleteFiles(HWND owner, const std::vector<std::wstring>& paths, bool permanently);

}  // namespace tessel
