#pragma once
// The options dialog: a list of pages on the left, the chosen page beside it. Each page is one
// class with a dialog template of its own; the table of pages is in options_dialog_win.cpp.
#include <windows.h>
#include <commctrl.h>

#include <string_view>

#include "core/options_page_win.h"

namespace tessel {

class COptionenWnd {
public:
    // Shows the dialog until it is closed; `firstPage` is the page shown first (0: the first).
    static void Run(HWND owner, int firstPage = 0, IOptionHost* host = nullptr);
    // The place of the page named by string `titleId` in the page list; -1 when none is.
    static int PageIndex(int titleId);
};

}  // namespace tessel
