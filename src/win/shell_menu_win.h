#pragma once
// A popup menu that holds a shell context menu's items. The shell fills its sub-menus ("New",
// "Send to", "Open with") and draws their items only when it is handed the owner window's menu
// messages, so those go to the shell menu while the popup is shown.
#include <windows.h>
#include <shobjidl.h>

namespace tessel::win {

// TrackPopupMenu with TPM_RETURNCMD added; answers the chosen command, 0 for none.
UINT TrackShellMenu(HMENU popup, UINT flags, POINT screen, HWND owner, IContextMenu* shellMenu);

}  // namespace tessel::win
