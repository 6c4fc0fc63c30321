#pragma once
// The options dialog: a list of pages on the left, the chosen page beside it. Each page is one
// class with a dialog template of its own; the table of pages is in options_dialog_win.cpp.
#include <windows.h>
#include <commctrl.h>

#include <string_view>

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

// The window the dialog changes options for: it holds a few values of its own and redoes what a
// change needs (see OptionEffect).
class IOptionHost {
public:
    virtual ~IOptionHost() = default;
    // The value of a setting that the window keeps itself (its tree mode, its panel style).
    virtual bool HeldOption(std::wstring_view key, int& value) = 0;
    virtual void ApplyOptions(unsigned effects) = 0;
};

// Posted by a page to the dialog after the language changed: the dialog is built again.
constexpr UINT kMsgOptionsRebuild = WM_APP + 61;

class COptionenWnd {
public:
    // Shows the dialog until it is closed; `firstPage` is the page shown first (0: the first).
    static void Run(HWND owner, int firstPage = 0, IOptionHost* host = nullptr);
    // The place of the page named by string `titleId` in the page list; -1 when none is.
    static int PageIndex(int titleId);
};

}  // namespace tessel
