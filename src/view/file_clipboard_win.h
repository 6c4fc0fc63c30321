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
// Every file of a file drop (CF_HDROP), in order; empty when the data offers none.
std::vector<std::wstring> DroppedFiles(IDataObject* data);
// After a right-button drag: the menu every file drop target shows (copy here, move here,
// cancel), with the effect the keys would give marked as the default. DROPEFFECT_NONE when
// cancelled.
DWORD AskFileDropEffect(HWND owner, POINTL screen, DWORD allowed, DWORD proposed);
// A move carried out by the target is told to the source ("Performed DropEffect"), which then
// must not delete what is already gone.
void TellMovePerformed(IDataObject* data);
// To the recycle bin unless `permanently`; the shell asks first.
bool DeleteFiles(HWND owner, const std::vector<std::wstring>& paths, bool permanently);

}  // namespace tessel
