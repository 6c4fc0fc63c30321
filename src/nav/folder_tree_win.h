#pragma once
// A folder tree over the shell's namespace: the desktop at the root, folders below, each level
// read when it is first opened and each expand button decided when the tree first draws it.
// A choice by the keyboard waits until the keys rest (700 ms), one by the mouse 10 ms; the
// tree follows its view's navigations without navigating itself.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include "nav/folder_tree_drop_win.h"
#include "nav/sub_folder_probe_win.h"
#include "nav/tree_rules.h"
#include "win/com_ptr_win.h"
#include "win/handles_win.h"

namespace tessel {

class CShellTree2 {
public:
    using Chosen = std::function<void(PCIDLIST_ABSOLUTE folder)>;
    CShellTree2() = default;
    ~CShellTree2();
    CShellTree2(const CShellTree2&) = delete;
    CShellTree2& operator=(const CShellTree2&) = delete;

    // Takes the tree control (made by the owner); it is filled when first shown. The drop-down
    // form (the address bar's) never expands single branches and chooses only by click or Enter.
    void Attach(HWND tree, Chosen chosen, bool dropDown = false);
    // Style, listing and font from the options; called at attach and after an option changed.
    void ApplyOptions();
    // The desktop and its folders, read the first time the tree is shown.
    void EnsureFilled();
    // Walks down from the desktop to the folder, opening levels as needed, and selects it
    // without navigating; false when the folder is not in the tree.
    bool SyncTo(PCIDLIST_ABSOLUTE folder);
    // The levels read so far read again (F5): folders made since appear, gone ones go, and items
    // whose sub-folders were never read ask again whether they have any.
    void Refresh();
    // The same for the level of `folder`, when the tree has read it (a change there).
    void Reread(PCIDLIST_ABSOLUTE folder);
    // WM_NOTIFY from the tree; true when it was the tree's, with the answer in `result`.
    bool OnNotify(NMHDR* header, LRESULT& result);
    // The colour rules' colours of a folder (CLR_NONE keeps the tree's own); false: none.
    // Asked for each item the tree draws while useTreeColor is 1.
    using ItemColors = std::function<bool(PCIDLIST_ABSOLUTE folder, COLORREF& text, COLORREF& back)>;
    void SetItemColors(ItemColors colors);
    HWND hwnd() const { return tree_; }
    int ChildCount(HTREEITEM item) const;  // of an opened item
    static PCIDLIST_ABSOLUTE FolderOf(HWND tree, HTREEITEM item);
    CShellTreeDropTarget* DropTarget() const { return dropTarget_.get(); }
    // Brings the selected folder into view, its name whole where the width allows.
    void ShowSelection();

private:
    struct ItemData;
    static ItemData* DataOf(HWND tree, HTREEITEM item);
    // Its name and icon are asked of the parent folder (null: of the shell), unless what the
    // file system said of it (`found`) shows a plain directory.
    HTREEITEM Add(HTREEITEM parent, win::UniquePidl folder, IShellFolder* parentFolder,
                  const WIN32_FIND_DATAW* found = nullptr);
    // Reads the item's level once; `folder` is the item's folder when already bound.
    void Expand(HTREEITEM item, win::ComPtr<IShellFolder> folder = {});
    void ShowOpen(HTREEITEM item);
    // The folder's item; `readLevels` opens the levels down to it, else only read ones count.
    HTREEITEM WalkTo(PCIDLIST_ABSOLUTE folder, bool readLevels = true);
    void ForEachChild(HTREEITEM item, IShellFolder* folder,
                      const std::function<void(win::UniquePidl, const WIN32_FIND_DATAW*)>& take) const;
    void RereadLevel(HTREEITEM item);
    void AskChildrenAgain(HTREEITEM item);  // the expand button is asked for again
    // Drawing and layout held off from its making to its end.
    class RedrawHold {
    public:
        explicit RedrawHold(HWND tree);
        ~RedrawHold();
        RedrawHold(const RedrawHold&) = delete;
        RedrawHold& operator=(const RedrawHold&) = delete;

    private:
        HWND tree_;
    };
    HTREEITEM ChildFor(HTREEITEM item, PCIDLIST_ABSOLUTE folder) const;
    int ChildrenOf(HTREEITEM item, const ItemData& data);  // 1 or 0, as the expand button shows
    void DescribeItem(NMTVDISPINFOW& info);  // what the tree asks when it draws an item
    LRESULT CustomDraw(NMTVCUSTOMDRAW& draw) const;
    void TakeAnswer(WPARAM answer, LPARAM tag);  // the probe's answer for an item
    void Choose(bool byMouse);
    void StopDrops();
    static LRESULT TreeProc(HWND, UINT, WPARAM, LPARAM, void* data);

    HWND tree_ = nullptr;
    Chosen chosen_;
    bool dropDown_ = false;
    ItemColors itemColors_;
    TreeOptions options_;
    TreeListing listing_;
    std::unordered_map<HTREEITEM, uint64_t> asked_;  // items waiting for the probe, by ticket
    uint64_t lastTicket_ = 0;
    std::unique_ptr<SubFolderProbe> probe_;  // made at the first question
    win::ComPtr<CShellTreeDropTarget> dropTarget_;  // registered while the tree lives
    ULONG notifyId_ = 0;  // the shell's folder changes anywhere, while the tree is filled
    void FollowShellChanges();
    void OnShellChange(WPARAM wParam, LPARAM lParam);
    void StopShellChanges();
};

}  // namespace tessel
