#pragma once
// The colour rules of the whole program: loaded once at start, replaced by a scheme or the
// colour page, asked by the lists and the tree for each item they draw.
#include <shlobj.h>
#include <windows.h>

#include <map>

#include "features/colour_rules.h"
#include "features/rule_index.h"
#include "win/handles_win.h"

namespace tessel {

class ISettingsStore;

// Upper- and lower-casing as the system's locale does it, ASCII without a call.
void FoldUpperWin(wchar_t* text, size_t length);
void FoldLowerWin(wchar_t* text, size_t length);

class ProgramColours {
public:
    // Reads the rules; with none at all, scheme 0 is written and used.
    void Load(ISettingsStore& settings);
    void WriteScheme(ISettingsStore& settings, int scheme);
    void Replace(ISettingsStore& settings, const RuleTable& table);  // every key written

    const RuleTable& Table() const { return table_; }
    const RuleIndex& Index() const { return index_; }

    // The item's colour or kNoColour; with `flags`, its style flags too.
    int MatchItem(IShellFolder* folder, PCUITEMID_CHILD item, int* flags) const;
    // A font for the style flags made from `base` (the default GUI font when null), kept for
    // the life of the process; null for no flags.
    HFONT FontFor(int flags, HFONT base);

private:
    RuleTable table_;
    RuleIndex index_;
    std::map<int, win::UniqueFont> fonts_;
};

ProgramColours& Colours();

// A folder tree item's colours by the rules: false when the rules give it none.
bool TreeItemColours(PCIDLIST_ABSOLUTE folder, COLORREF& text, COLORREF& back);
// The tree's background and line colours: the rules' "#BG" and "*" colours with useTreeColor 1.
COLORREF TreeBackground();
COLORREF TreeLineColour();

// The background of a file view: the system's unless colours are on and "#BG" is set.
COLORREF ViewBackground(bool activeView);

}  // namespace tessel
