#pragma once
// Export of what a list shows: gathered from the list (and, for a folder's list, from the
// folder itself, which is much faster than asking the list cell by cell), written safely, opened.
#include <windows.h>
#include <shlobj.h>

#include <string>

#include "features/list_export.h"

namespace tessel {

// Captions, widths and the rows of every column, in the order the list shows them.
ExportTable GatherList(HWND list);
// The same for a folder view's list: the cells come from the folder's details where a column's
// caption names one, from the list otherwise.
ExportTable GatherFolderList(HWND list, IFolderView* view, IShellFolder* folder);

// Writes beside the target first and then replaces it, so a failed write leaves any earlier
// file as it was. A read-only target is not replaced. False when the file could not be written.
bool WriteExportFile(const std::wstring& path, const ExportTable& table, ExportType type);

// The save dialog (type remembered as "ExportIndex" in "List"), the file written and opened;
// a failure is reported to the user. False when nothing was written.
bool ExportWithDialog(HWND owner, const ExportTable& table);

}  // namespace tessel
