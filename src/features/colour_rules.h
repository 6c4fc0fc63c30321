#pragma once
// The colour rules as the user keeps them: up to 32 rules of name patterns with a colour and
// four font styles, their line form in the settings, the built-in schemes and the rules file.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

class ISettingsStore;

inline constexpr int kNoColour = -1;  // a colour value: the rule or the view sets none
inline constexpr int kRuleSlots = 32;
inline constexpr int kSchemeCount = 11;

struct ColourRule {
    std::wstring pattern;  // tokens separated by ";" or ","; empty: an unused slot
    int enabled = 1;
    int colour = kNoColour;  // COLORREF: red in the low byte
    // Tri-state: -1 leaves the style to later rules, 0 off, anything else on.
    int italic = -1, bold = -1, strikeout = -1, underline = -1;
    bool operator==(const ColourRule&) const = default;
};

struct RuleTable {
    std::array<ColourRule, kRuleSlots> slots;
    int count = 0;  // used slots, packed at the front
};

// "RRGGBB" in upper-case hexadecimal, "-1" for no colour.
std::wstring FormatColourText(int colour);
// Any "-" gives no colour, text that is not hexadecimal gives grey.
int ParseColourText(std::wstring_view text);

// The sixteen custom colours of the colour picker, kept as colour texts joined by ";" ("-1" for
// an empty place). Missing or unreadable places are empty; more than sixteen are ignored.
inline constexpr int kCustomColourCount = 16;
std::array<int, kCustomColourCount> ParseCustomColours(std::wstring_view text);
std::wstring FormatCustomColours(const std::array<int, kCustomColourCount>& colours);

// "pattern=enabled=RRGGBB=italic=bold=underline=strikeout". Fields past the end read as 0;
// an empty pattern gives false.
bool ParseRuleLine(std::wstring_view line, ColourRule& rule);
std::wstring FormatRuleLine(const ColourRule& rule);

// Reads "Filter2" (or the older "Filter" when "Filter2" is empty); returns the rules loaded.
int LoadRules(ISettingsStore& settings, RuleTable& table);
// Writes the rules to "Filter2". Every key past the last rule is written empty when
// `everyKey`, else only the keys that still hold a rule are emptied, so none comes back.
void WriteRules(ISettingsStore& settings, const RuleTable& table, bool everyKey);
// Fills the table with built-in scheme `scheme` (any value out of 0..10 is scheme 0). The
// strikeout of each slot is left as it was.
void FillScheme(RuleTable& table, int scheme);

// A rule as a row of the options list: pattern, colour text, italic, bold, underline,
// strikeout (the check box holds `enabled`), and back; missing cells read as -1.
std::vector<std::wstring> RuleCells(const ColourRule& rule);
ColourRule RuleOfCells(const std::vector<std::wstring>& cells, bool enabled);
// The name the rules match for an item: its in-folder parsing name, or its full file-system path
// when that is empty; of either the part after the last "\" (empty for a drive root).
std::wstring_view RuleMatchName(std::wstring_view inFolder, std::wstring_view fullPath);

// Whether a pattern reads back as the same rule from the settings: no "=" (it separates the
// fields), no line break, and a line that fits the settings' value limit.
bool RulePatternStorable(std::wstring_view pattern);
// A rule as a row of the tab-separated list file: its cells, then "1" or "0" for enabled; a row
// without that last cell (older files) reads as enabled.
std::vector<std::wstring> RuleTabRow(const ColourRule& rule);
ColourRule RuleOfTabRow(const std::vector<std::wstring>& row);
// The style value a click on its cell gives next: -1 (left to later rules), then on, then off.
int NextStyleValue(int value);

// The rules file: a header line, then one rule line per rule, CR LF after each.
inline constexpr std::wstring_view kRulesFileHeader = L";Tessel Farben";
inline constexpr std::wstring_view kRulesFileHeaderEnglish = L";Tessel Colors";
std::wstring FormatRulesFile(const std::vector<ColourRule>& rules);
bool HasRulesFileHeader(std::wstring_view text);
// Every line that reads as a rule, header and comment lines left out; at most 32.
std::vector<ColourRule> ParseRulesFile(std::wstring_view text);

}  // namespace tessel
