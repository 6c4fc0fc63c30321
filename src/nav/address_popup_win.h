#pragma once
// The sub-folder list behind a segment's arrow: the folder's sub-folders as the shell lists
// them (folders only), shown as a popup menu at the segment; choosing one hands it back.
#include <windows.h>

#include <vector>

#include "win/handles_win.h"

namespace tessel {

class CAdressBarPopup {
public:
    // Reads the sub-folders of `folder` (folders only, hidden ones when the shell shows them).
    explicit CAdressBarPopup(PCIDLIST_ABSOLUTE folder);
    size_t Count() const { return children_.size(); }
    HMENU Menu() const { return menu_.get(); }
    // Shows the popup at a screen point; the chosen folder, or none.
    win::UniquePidl Track(HWND owner, POINT screenPoint);
    win::UniquePidl Child(size_t index) const;  // absolute

private:
    win::UniquePidl folder_;
    std::vector<win::UniquePidl> children_;  // relative to folder_, in the shell's order
    win::UniqueMenu menu_;
};

}  // namespace tessel
