#pragma once
// The pages of the options dialog that hold plain switches and numbers: which settings key each
// control shows, the values it offers, how an out-of-range stored value is shown, and what has
// to be redone in the open window after a change. Platform-free, so that the tables are tested.
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tessel {

enum class OptionKind { kCheck, kChoice, kNumber };

// What the main window redoes after a change; several may be joined.
enum OptionEffect : unsigned {
    kEffectNone = 0,         // read where it is used, nothing to redo
    kEffectViews = 1,        // the file lists are refreshed
    kEffectAddress = 2,      // the address bars are rebuilt, the in-use highlights painted again
    kEffectTree = 4,         // the folder trees take their options again
    kEffectTreeMode = 8,     // the frame's tree mode changes
    kEffectTabs = 16,        // the tab strips are laid out again
    kEffectStatusBar = 32,   // the frame's status bar is shown or hidden
    kEffectDesign = 64,      // the panels' frames and theme
    kEffectTitle = 128,      // the window title
    kEffectLanguage = 256,   // every menu and text is loaded again
    kEffectColours = 512,    // the colour switches of lists and trees
    kEffectPreview = 1024,   // the preview reads its item again
};

struct OptionChoice {
    int value;
    int textId;
};

struct OptionItem {
    const wchar_t* section;
    const wchar_t* key;
    int labelId;
    OptionKind kind;
    int fallback;  // the value a check or choice shows when the stored one is not offered
    std::span<const OptionChoice> choices;  // kChoice only
    int minimum = 0, maximum = 1;           // kNumber only
    unsigned effect = kEffectNone;
};

struct OptionPageTable {
    int titleId;
    std::span<const OptionItem> items;
};

std::span<const OptionPageTable> OptionPageTables();

// The value a control shows for a stored value: a check is on for any non-zero value, a choice
// not offered shows the fallback, a number is clamped to its range.
int ShownValue(const OptionItem& item, int stored);

// The index of the choice offering `value`, or -1.
int ChoiceIndex(const OptionItem& item, int value);

// The text of a menu item made fit for a control: "&" marks and a "\t" shortcut removed.
std::wstring PlainMenuText(std::wstring_view text);

}  // namespace tessel
