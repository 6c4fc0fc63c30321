#pragma once
// The options dialog: a list of pages on the left, the chosen page beside it. Each page is one
// class with a dialog template of its own; the table of pages is in options_dialog_win.cpp.
#include <windows.h>
#include <commctrl.h>

namespace tessel {

class IOptionsPage {
public:
    virtual ~IOptionsPage() = default;
    virtual int TitleId() const = 0;   // string id of its name in the page list
    virtual int DialogId() const = 0;  // its child dialog template
    virtual void Init(HWND page) = 0;
    virtual bool Command(HWND page, int id, int code) = 0;     // true when handled
    virtual bool Notify(HWND page, NMHDR* header, LRESULT& result) = 0;
};

class COptionenWnd {
public:
    // Shows the dialog until it is closed; `firstPage` is the page shown first (0: the first).
    static void Run(HWND owner, int firstPage = 0);
};

}  // namespace tessel
