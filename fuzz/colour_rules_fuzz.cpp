// A colour rules file, "Filter2" lines or a tab-separated list as a user may hand them over: the
// rules read, made into the index and matched against names.
#include "features/colour_rules.h"
#include "features/list_export.h"
#include "features/rule_index.h"
#include "fuzz_text.h"

using namespace tessel;

namespace {

struct FixedItem : IItemAttributes {
    unsigned given = 0;
    unsigned Attributes(unsigned mask) override { return given & mask; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    const auto custom = ParseCustomColours(text);
    fuzz::Check(ParseCustomColours(FormatCustomColours(custom)) == custom);
    std::vector<ColourRule> rules = ParseRulesFile(text);
    fuzz::Check(rules.size() <= kRuleSlots);
    const auto rows = ParseTabSeparated(text);
    for (size_t i = 0; i < rows.size() && rules.size() < kRuleSlots; ++i) {
        ColourRule rule = RuleOfTabRow(rows[i]);
        // A pattern the page takes reads back from its settings line as the same rule.
        if (RulePatternStorable(rule.pattern)) {
            ColourRule back;
            fuzz::Check(ParseRuleLine(FormatRuleLine(rule), back) && back == rule);
        }
        rules.push_back(std::move(rule));
    }
    RuleTable table;
    for (const ColourRule& rule : rules) table.slots[table.count++] = rule;
    RuleIndex index;
    index.Rebuild(table, FoldUpperPortable);
    FixedItem item;
    for (const wchar_t* name : {L"A.TAR.GZ", L"[X]*?\\"}) {
        for (unsigned given : {0u, 7u}) {
            item.given = given;
            int flags = 0;
            const int colour = index.Match(name, item, &flags);
            fuzz::Check(colour == kNoColour || (colour >= 0 && colour <= 0xFFFFFF));
            fuzz::Check((flags & ~(kStyleItalic | kStyleBold | kStyleUnderline | kStyleStrikeout)) == 0);
        }
    }
    return 0;
}
