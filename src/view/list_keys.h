#pragma once
// The keys a T-View's list answers itself, before the shell's view sees them.
namespace tessel {

enum class ListKeyCommand {
    kNone, kCopy, kCut, kPaste, kDelete, kDeleteForever, kRename, kRefresh, kUp, kBack, kForward, kSelectAll
};

struct ListKey {
    int key = 0;  // the virtual-key code
    bool control = false, shift = false, alt = false;
};

// `ownClipboard`: Tessel's own copy, cut and paste (copy_cut_paste_mode 0) rather than the view's.
ListKeyCommand ListCommandOfKey(const ListKey& key, bool ownClipboard);

}  // namespace tessel
