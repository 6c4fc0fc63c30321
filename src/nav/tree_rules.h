#pragma once
// The folder tree's rules without windows: its style from the options, which items it lists,
// whether an item gets an expand button, and how long a keyboard or mouse choice waits.
#include <cstdint>
#include <string_view>

namespace tessel {

struct TreeOptions {
    int single_expand = 0;
    int fullrowselect = 0;
    int disable_line = 0;
    int all_browsable = 1;
    int auto_chk_subdir = 1;
};

// Tree-control style bits (the platform's values, handed in so this file stays platform-free).
struct TreeStyleBits {
    uint32_t singleExpand, fullRowSelect, hasLines, linesAtRoot;
};
struct StyleChange {
    uint32_t set = 0;
    uint32_t clear = 0;
};
// Single-expand only outside the drop-down form; full-row selection means no lines; lines can
// be switched off in every case.
StyleChange TreeStyle(const TreeOptions& options, bool dropDownForm, const TreeStyleBits& bits);
uint32_t ApplyStyle(uint32_t style, const StyleChange& change);

struct TreeListing {
    bool folders = true;
    bool browsableItems = false;  // items the shell can browse into (archives and the like)
    bool hidden = false;
};
TreeListing TreeEnumeration(const TreeOptions& options, bool shellShowsAll);

// What is known of an item when the tree asks whether it has children.
struct TreeItemFacts {
    bool folder = false;
    bool removable = false;
    std::wstring_view path;  // file-system path, empty when none
    bool pathIsDirectory = false;
};
enum class ChildrenAnswer { kNone, kSome, kAskForSubFolders };
// Removable drives are never touched; network paths keep the button; a local folder is asked
// for sub-folders only when the option wants a true answer.
ChildrenAnswer TreeChildren(const TreeItemFacts& item, const TreeOptions& options);

// A drag resting over a tree item: the state kept from one check to the next.
struct TreeHover {
    bool seen = false;  // a check happened since the drag entered
    int x = 0, y = 0;   // where the cursor was at the last check
    uint32_t mark = 0;  // ms: when the delay started
};
// One check of a drag over an item: true when the item is to be opened now. An open item
// restarts the delay; a closed one opens once the cursor stood still at two checks in a row
// and the delay has passed since the mark.
bool TreeHoverOpens(TreeHover& hover, bool expanded, int x, int y, uint32_t now, unsigned delayMs);

inline constexpr unsigned kTreeKeyboardDelayMs = 700;
inline constexpr unsigned kTreeMouseDelayMs = 10;

}  // namespace tessel
