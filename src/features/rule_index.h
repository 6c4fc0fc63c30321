#pragma once
// The colour rules made ready for drawing: every enabled token once, in priority order, and
// the background and line colours taken from the "#BG-A", "#BG" and "*" tokens. The list and
// the tree ask it for each item they draw, so matching allocates nothing.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "features/case_fold.h"
#include "features/colour_rules.h"
#include "features/wildcard.h"

namespace tessel {

enum FontStyleFlags : int { kStyleItalic = 0x0001, kStyleBold = 0x0010, kStyleUnderline = 0x0100, kStyleStrikeout = 0x1000 };

// What the drawing code knows about an item, asked only when an attribute token is reached.
enum ItemAttribute : unsigned { kAttrFolder = 1, kAttrHidden = 2 /* hidden or ghosted */, kAttrReadOnly = 4 };
class IItemAttributes {
public:
    virtual unsigned Attributes(unsigned mask) = 0;

protected:
    ~IItemAttributes() = default;
};

class RuleIndex {
public:
    void Rebuild(const RuleTable& table, CaseFold upper);

    // `upperName` is the item's in-folder name, upper-cased. Returns the colour or kNoColour;
    // with `flags`, also the style flags of the first matching rule defining each style.
    int Match(std::wstring_view upperName, IItemAttributes& item, int* flags) const;

    bool Empty() const { return entries_.empty(); }
    int BgActive() const { return bgActive_; }
    int BgOther() const { return bgOther_; }
    int StarColour() const { return starColour_; }
    // "Total :N", "----", then one "Priority NNN [...]" line per token.
    std::wstring PriorityText() const;

private:
    enum class TokenKind : uint8_t { kFolder, kReadOnly, kHidden, kAll, kPattern };
    struct Entry {
        std::wstring token;  // as written
        std::wstring upper;
        WildcardPattern pattern;
        TokenKind kind = TokenKind::kPattern;
        int colour = kNoColour, italic = -1, underline = -1, bold = -1, strikeout = -1;
        int priority = 0;
        int laterStyles = 0;      // the styles this entry or any after it can set
        bool laterColour = false;  // whether this entry or any after it has a colour
    };
    using Indices = std::vector<uint16_t>;

    bool EntryMatches(const Entry& entry, std::wstring_view upperName, IItemAttributes& item,
                      unsigned& known) const;
    void IndexByExtension();
    const Indices* CandidatesFor(std::wstring_view upperName) const;

    std::vector<Entry> entries_;  // ascending priority
    Indices general_;             // entries every name is tried against
    std::vector<std::pair<std::wstring, Indices>> byExtension_;  // "*.ext" entries by extension, with general_
    std::vector<int32_t> extensionSlots_;  // open addressing into byExtension_, -1 empty
    int bgActive_ = kNoColour, bgOther_ = kNoColour, starColour_ = kNoColour;
};

}  // namespace tessel
