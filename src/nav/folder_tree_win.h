#pragma once
// A folder tree over the shell's namespace: the desktop at the root, folders below, each level
// read when it is first opened and each expand button decided when the tree first draws it.
// A choice by the keyboard waits until the keys rest (700 ms), one by the mouse 10 ms; the
// tree follows its view's navigations without navigating itself.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <functional>

#include "nav/tree_rules.h"

namespace tessel {

class CShellTree2 {
public:
    using Chosen = std::function<void(PCIDLIST_ABSOLUTE folder)>;
    CShellTree2() = default;
    ~CShellTree2();
    CShellTree2(const CShellTree2&) = delete;
    CShellTree2& operator=(const CShellTree2&) = delete;

    // Takes the tree control (made by the owner); it is filled when first shown.
    void Attach(HWND tree, Chosen chosen);
    // Style, listing and font from the options; called at attach and after an option changed.
    void ApplyOptions();
    // The desktop and its folders, read the first time the tree is shown.
    void EnsureFilled();
    // Walks down from the desktop to the folder, opening levels as needed, and selects it
    // without navigating; false when the folder is not in the tree.
    bool SyncTo(PCIDLIST_ABSOLUTE folder);
    // WM_NOTIFY from the tree; true when it was the tree's.
    bool OnNotify(NMHDR* header);
    HWND hwnd() const { return tree_; }
    int ChildCount(HTREEITEM item) const;  // of an opened item
    static PCIDLIST_ABSOLUTE FolderOf(HWND tree, HTREEITEM item);

private:
    // Takes the list over; its name and icon are asked of the parent folder (null: of the shell).
    HTREEITEM Add(HTREEITEM parent, PIDLIST_ABSOLUTE folder, IShellFolder* parentFolder);
    void Expand(HTREEITEM item);
    int ChildrenOf(PCIDLIST_ABSOLUTE folder) const;
    void DescribeItem(NMTVDISPINFOW& info) const;  // what the tree asks when it draws an item  // 1 or 0, as the expand button shows
    void Choose(bool byMouse);
    static LRESULT TreeProc(HWND, UINT, WPARAM, LPARAM, void* data);

    HWND tree_ = nullptr;
    Chosen chosen_;
    TreeOptions options_;
    TreeListing listing_;
};

}  // namespace tessel
