#include "nav/tree_rules.h"

namespace tessel {

StyleChange TreeStyle(const TreeOptions& options, bool dropDownForm, const TreeStyleBits& bits) {
    StyleChange change;
    if (options.single_expand && !dropDownForm)
        change.set |= bits.singleExpand;
    else
        change.clear |= bits.singleExpand;
    if (options.fullrowselect) {
        change.set |= bits.fullRowSelect;
        change.clear |= bits.hasLines | bits.linesAtRoot;
    } else {
        change.clear |= bits.fullRowSelect;
        change.set |= bits.hasLines | bits.linesAtRoot;
    }
    if (options.disable_line) {
        change.set &= ~(bits.hasLines | bits.linesAtRoot);
        change.clear |= bits.hasLines | bits.linesAtRoot;
    }
    return change;
}

uint32_t ApplyStyle(uint32_t style, const StyleChange& change) { return (style & ~change.clear) | change.set; }

TreeListing TreeEnumeration(const TreeOptions& options, bool shellShowsAll) {
    return {true, options.all_browsable != 0, shellShowsAll};
}

ChildrenAnswer TreeChildren(const TreeItemFacts& item, const TreeOptions& options) {
    if (item.removable) return ChildrenAnswer::kSome;
    if (!item.folder) return ChildrenAnswer::kNone;
    if (!options.auto_chk_subdir || item.path.empty()) return ChildrenAnswer::kSome;
    if (item.path.size() >= 2 && item.path[0] == L'\\' && item.path[1] == L'\\') return ChildrenAnswer::kSome;
    return item.pathIsDirectory ? ChildrenAnswer::kAskForSubFolders : ChildrenAnswer::kSome;
}

bool TreeHoverOpens(TreeHover& hover, bool expanded, int x, int y, uint32_t now, unsigned delayMs) {
    const bool still = hover.seen && hover.x == x && hover.y == y;
    hover.seen = true;
    hover.x = x;
    hover.y = y;
    if (expanded) {
        hover.mark = now;
        return false;
    }
    if (!still || now - hover.mark < delayMs) return false;
    hover.mark = now;
    return true;
}

}  // namespace tessel
