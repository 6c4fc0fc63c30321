#pragma once
// What the options dialog asks of each of its pages, and of the window whose options it changes.
// Pages live in the folder of what they edit; the dialog itself is the frame's.
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

}  // namespace tessel
