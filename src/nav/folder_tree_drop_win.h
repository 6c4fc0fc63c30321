#pragma once
// The folder tree as a drop target: a drag resting over a closed folder opens it after the
// hover delay, and files dropped on a folder are copied or moved into it (Ctrl copies, Shift
// moves, else a move on the same volume and a copy elsewhere).
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "nav/drop_target_win.h"
#include "nav/tree_rules.h"

namespace tessel {

class CShellTreeDropTarget : public CIDropTargetPlus {
public:
    CShellTreeDropTarget(HWND tree, unsigned hoverDelayMs);
    void Detach();  // the tree is going: no more calls into it

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;

private:
    HTREEITEM ItemAt(POINTL screen) const;
    std::wstring FolderPathOf(HTREEITEM item) const;  // "" unless a file-system folder
    DWORD EffectOn(HTREEITEM item, DWORD keys, DWORD allowed) const;
    void Highlight(HTREEITEM item);

    HWND tree_;
    unsigned delayMs_;
    TreeHover hover_;
    std::vector<std::wstring> files_;  // what the drag carries, read when it entered
};

}  // namespace tessel
