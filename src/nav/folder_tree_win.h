#pragma once
// A folder tree over the shell's namespace: the desktop at the root, folders below, each level
// read when it is first opened. Choosing a folder hands it to the tree's owner.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <functional>

namespace tessel {

class CShellTree2 {
public:
    using Chosen = std::function<void(PCIDLIST_ABSOLUTE folder)>;
    CShellTree2() = default;
    CShellTree2(const CShellTree2&) = delete;
    CShellTree2& operator=(const CShellTree2&) = delete;

    // Takes the tree control (made by the owner); it is filled when first shown.
    void Attach(HWND tree, Chosen chosen);
    // The desktop and its folders, read the first time the tree is shown.
    void EnsureFilled();
    // WM_NOTIFY from the tree; true when it was the tree's.
    bool OnNotify(NMHDR* header);
    HWND hwnd() const { return tree_; }
    int ChildCount(HTREEITEM item) const;  // of an opened item

private:
    HTREEITEM Add(HTREEITEM parent, PIDLIST_ABSOLUTE folder);  // takes the list over
    void Expand(HTREEITEM item);

    HWND tree_ = nullptr;
    Chosen chosen_;
};

}  // namespace tessel
