// The colour rules: their text forms, the settings, the built-in schemes and the rules file,
// then the matching cascade as the list and the tree use it.
#include <gtest/gtest.h>

#include "features/colour_rules.h"
#include "features/list_export.h"
#include "features/rule_index.h"
#include "support/memory_settings.h"

namespace tessel {
namespace {

constexpr int Rgb(int r, int g, int b) { return r | (g << 8) | (b << 16); }

TEST(ColourRules, ColourTextAndRuleLines) {
    EXPECT_EQ(FormatColourText(Rgb(0x12, 0xAB, 0x0F)), L"12AB0F");
    EXPECT_EQ(FormatColourText(-1), L"-1");
    EXPECT_EQ(ParseColourText(L"12AB0F"), Rgb(0x12, 0xAB, 0x0F));
    EXPECT_EQ(ParseColourText(L"ff0000"), Rgb(0xFF, 0, 0));
    EXPECT_EQ(ParseColourText(L"-1"), -1);
    EXPECT_EQ(ParseColourText(L"12-34"), -1) << "any '-' means no colour";
    EXPECT_EQ(ParseColourText(L"xyz"), 0x808080) << "not hexadecimal: grey";

    ColourRule rule;
    ASSERT_TRUE(ParseRuleLine(L"*.txt;*.md=1=0000BB=-1=1=0=-1", rule));
    EXPECT_EQ(rule, (ColourRule{L"*.txt;*.md", 1, Rgb(0, 0, 0xBB), -1, 1, -1, 0}));
    EXPECT_EQ(FormatRuleLine(rule), L"*.txt;*.md=1=0000BB=-1=1=0=-1");
    ASSERT_TRUE(ParseRuleLine(L"*.log", rule)) << "missing fields read as 0";
    EXPECT_EQ(rule, (ColourRule{L"*.log", 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(ParseRuleLine(L"=1=FF0000=0=0=0=0", rule));
    EXPECT_FALSE(ParseRuleLine(L"", rule));
}

TEST(ColourRules, CustomColoursKeepTheirPlacesAndSkipWhatTheyCannotRead) {
    const auto colours = ParseCustomColours(L"FF0000;-1;zz0000;00FF00;;0000ff;12345;1234567");
    EXPECT_EQ(colours[0], 0x0000FF);
    EXPECT_EQ(colours[1], kNoColour);
    EXPECT_EQ(colours[2], kNoColour);  // not a colour text
    EXPECT_EQ(colours[3], 0x00FF00);
    EXPECT_EQ(colours[4], kNoColour);
    EXPECT_EQ(colours[5], 0xFF0000);
    EXPECT_EQ(colours[6], kNoColour);
    EXPECT_EQ(colours[7], kNoColour);
    for (size_t i = 8; i < colours.size(); ++i) EXPECT_EQ(colours[i], kNoColour);
    const std::wstring text = FormatCustomColours(colours);
    EXPECT_EQ(text.substr(0, 24), L"FF0000;-1;-1;00FF00;-1;0");
    EXPECT_EQ(ParseCustomColours(text), colours);
    std::wstring many;
    for (int i = 0; i < 40; ++i) many += L"ABCDEF;";
    EXPECT_EQ(FormatCustomColours(ParseCustomColours(many)).size(), 16u * 7 - 1);
}

TEST(ColourRules, LoadPacksSkipsAndFallsBack) {
    testing::MemorySettings settings;
    settings.PutString(L"Filter", L"0", L"*.old=1=FF0000=-1=-1=-1=-1");
    RuleTable table;
    EXPECT_EQ(LoadRules(settings, table), 1) << "the older section when Filter2 is missing";
    EXPECT_EQ(table.slots[0].pattern, L"*.old");

    settings.PutString(L"Filter2", L"0", L"");
    settings.PutString(L"Filter2", L"3", L"*.a=1=FF0000=-1=-1=-1=-1");
    settings.PutString(L"Filter2", L"7", L"=1=FF0000=-1=-1=-1=-1");
    settings.PutString(L"Filter2", L"9", L"*.b=0=zz=1=1=1=1");
    ASSERT_EQ(LoadRules(settings, table), 2);
    EXPECT_EQ(table.slots[0].pattern, L"*.a");
    EXPECT_EQ(table.slots[1], (ColourRule{L"*.b", 0, 0x808080, 1, 1, 1, 1}));

    for (int key = 0; key < 40; ++key) settings.PutString(L"Filter2", std::to_wstring(key), L"*.x=1=000000=0=0=0=0");
    EXPECT_EQ(LoadRules(settings, table), kRuleSlots) << "keys past 31 are not read";
}

TEST(ColourRules, SchemesAreWrittenAndKeepStrikeout) {
    RuleTable table;
    FillScheme(table, 0);
    ASSERT_EQ(table.count, 12);
    EXPECT_EQ(FormatRuleLine(table.slots[0]), L"#Hidden=1=-1=1=1=-1=0");
    EXPECT_EQ(FormatRuleLine(table.slots[4]), L"*.jpg;*.jpeg;*.png,*.gif;*.bmp;*.ico=1=BB00BB=-1=1=-1=0");
    EXPECT_EQ(FormatRuleLine(table.slots[11]), L"#BG-A=1=-1=-1=1=-1=0");

    table.slots[3].strikeout = 1;
    FillScheme(table, 9);
    EXPECT_EQ(FormatRuleLine(table.slots[3]), L"#DIR=1=000000=-1=1=-1=1") << "the user's strikeout stays";
    EXPECT_EQ(FormatColourText(table.slots[10].colour), L"DD0000");
    FillScheme(table, 42);
    EXPECT_EQ(FormatColourText(table.slots[9].colour), L"0000BB") << "an unknown scheme is scheme 0";

    testing::MemorySettings settings;
    for (int key = 0; key < 20; ++key) settings.PutString(L"Filter2", std::to_wstring(key), L"*.x=1=000000=0=0=0=0");
    WriteRules(settings, table, false);
    RuleTable back;
    EXPECT_EQ(LoadRules(settings, back), 12) << "no older rule comes back after a scheme";
    EXPECT_EQ(back.slots[9].pattern, L"*");
}

TEST(ColourRules, RulesFileRoundTripAndHeaders) {
    const std::vector<ColourRule> rules{{L"*.a", 1, Rgb(1, 2, 3), -1, 1, 0, -1}, {L"#DIR", 0, -1, 0, 0, 0, 0}};
    const std::wstring text = FormatRulesFile(rules);
    EXPECT_TRUE(text.starts_with(L";Tessel Farben\r\n*.a=1=010203=-1=1=-1=0\r\n"));
    EXPECT_TRUE(HasRulesFileHeader(text));
    EXPECT_TRUE(HasRulesFileHeader(L"\xFEFF;Tessel Colors\n"));
    EXPECT_FALSE(HasRulesFileHeader(L"*.a=1=010203=0=0=0=0"));
    EXPECT_EQ(ParseRulesFile(text), rules);
    EXPECT_EQ(ParseRulesFile(std::wstring(L"\0\x01garbage\n=\n;x\nok\x7F\x02=1\n", 21)).size(), 0u)
        << "binary lines are no rules";
}

TEST(ColourRules, OptionsListRows) {
    const ColourRule rule{L"*.a;*.b", 0, Rgb(0x12, 0x34, 0x56), 1, -1, 0, -1};
    EXPECT_EQ(RuleCells(rule), (std::vector<std::wstring>{L"*.a;*.b", L"123456", L"1", L"-1", L"-1", L"0"}));
    EXPECT_EQ(RuleOfCells(RuleCells(rule), false), rule);
    EXPECT_EQ(RuleOfCells({L"*.c"}, true), (ColourRule{L"*.c", 1, -1, -1, -1, -1, -1})) << "missing cells leave it to others";
    EXPECT_EQ(NextStyleValue(-1), 1);
    EXPECT_EQ(NextStyleValue(1), 0);
    EXPECT_EQ(NextStyleValue(0), -1);
    EXPECT_EQ(NextStyleValue(7), 0);
}

// A pattern is taken exactly when it reads back from the settings as the same rule.
TEST(ColourRules, APatternIsTakenOnlyWhenItReadsBackEqual) {
    const std::wstring near(1000, L'x');
    for (const std::wstring& pattern : {std::wstring(L"*.txt;*.log"), std::wstring(L"a=b"), std::wstring(L"=x"), near,
                                        near + std::wstring(10, L'y')}) {
        testing::MemorySettings settings;
        RuleTable table;
        table.slots[0] = {pattern, 0, Rgb(1, 2, 3), 1, 0, -1, 1};
        table.count = 1;
        WriteRules(settings, table, true);
        RuleTable loaded;
        LoadRules(settings, loaded);
        const bool equal = loaded.count == 1 && loaded.slots[0] == table.slots[0];
        EXPECT_EQ(RulePatternStorable(pattern), equal) << pattern.size() << " characters";
    }
    EXPECT_FALSE(RulePatternStorable(L""));
    EXPECT_FALSE(RulePatternStorable(L"two\nlines")) << "a line break ends the settings line";
}

TEST(ColourRules, TheNameMatchedIsTheInFolderNameOrElseTheFullPaths) {
    EXPECT_EQ(RuleMatchName(L"report.txt", L"C:\\x\\report.txt"), L"report.txt");
    EXPECT_EQ(RuleMatchName(L"sub\\a.txt", L""), L"a.txt");
    EXPECT_EQ(RuleMatchName(L"", L"\\\\server\\share\\x.txt"), L"x.txt") << "no in-folder name: the full path's";
    EXPECT_EQ(RuleMatchName(L"", L"C:\\"), L"") << "a drive root's name is empty";
    EXPECT_EQ(RuleMatchName(L"", L"plain"), L"plain");
}

TEST(ColourRules, TabSeparatedRowsKeepADisabledRule) {
    const ColourRule off{L"*.tmp", 0, Rgb(0x12, 0x34, 0x56), -1, 1, -1, 0};
    const auto rows = ParseTabSeparated(FormatTabSeparated({RuleTabRow(off), RuleTabRow({L"*.c", 1})}));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(RuleOfTabRow(rows[0]), off);
    EXPECT_EQ(RuleOfTabRow(rows[1]).enabled, 1);
    EXPECT_EQ(RuleOfTabRow({L"*.old", L"FF0000"}).enabled, 1) << "a row of an older file, without the last cell";
}

// An item whose attributes are given; counts how often it was asked.
struct FakeItem : IItemAttributes {
    explicit FakeItem(unsigned given = 0) : attributes(given) {}
    unsigned attributes;
    int asked = 0;
    unsigned Attributes(unsigned mask) override {
        ++asked;
        return attributes & mask;
    }
};

RuleIndex IndexOf(std::initializer_list<ColourRule> rules) {
    RuleTable table;
    for (const ColourRule& rule : rules) table.slots[table.count++] = rule;
    RuleIndex index;
    index.Rebuild(table, FoldUpperPortable);
    return index;
}

TEST(RuleIndex, CascadeTakesEachStyleFromTheFirstRuleDefiningIt) {
    const RuleIndex index = IndexOf({{L"#Hidden", 1, -1, -1, 1, -1, -1}, {L"*", 1, Rgb(0, 0, 0xBB), 0, 0, -1, -1}});
    FakeItem hidden(kAttrHidden), plain;
    int flags = -1;
    EXPECT_EQ(index.Match(L"A.TXT", hidden, &flags), Rgb(0, 0, 0xBB));
    EXPECT_EQ(flags, kStyleBold);
    EXPECT_EQ(index.Match(L"A.TXT", plain, &flags), Rgb(0, 0, 0xBB));
    EXPECT_EQ(flags, 0);
    EXPECT_EQ(index.Match(L"A.TXT", plain, nullptr), Rgb(0, 0, 0xBB));
}

TEST(RuleIndex, SchemeZeroOnTypicalItems) {
    RuleTable table;
    FillScheme(table, 0);
    RuleIndex index;
    index.Rebuild(table, FoldUpperPortable);
    FakeItem folder(kAttrFolder), file, hidden(kAttrHidden);
    int flags = 0;
    EXPECT_EQ(FormatColourText(index.Match(L"X.ZIP", folder, &flags)), L"00AA00") << "*.zip comes before #DIR";
    EXPECT_EQ(FormatColourText(index.Match(L"DOCS", folder, &flags)), L"008800");
    EXPECT_EQ(FormatColourText(index.Match(L"SETUP.EXE", file, &flags)), L"FF0000");
    EXPECT_EQ(FormatColourText(index.Match(L"A.GIF", file, &flags)), L"BB00BB") << "',' separates too";
    EXPECT_EQ(FormatColourText(index.Match(L"SONG.MP3", file, &flags)), L"DD0058");
    EXPECT_EQ(FormatColourText(index.Match(L"NOTES", file, &flags)), L"0000BB");
    EXPECT_EQ(flags, kStyleBold);
    EXPECT_EQ(FormatColourText(index.Match(L"NOTES", hidden, &flags)), L"0000BB") << "#Hidden sets no colour";
    EXPECT_EQ(flags, kStyleBold | kStyleItalic);
    EXPECT_EQ(index.BgOther(), -1);
    EXPECT_EQ(FormatColourText(index.StarColour()), L"0000BB");

    FillScheme(table, 1);
    index.Rebuild(table, FoldUpperPortable);
    EXPECT_EQ(FormatColourText(index.BgOther()), L"111111");
    EXPECT_EQ(FormatColourText(index.BgActive()), L"333333");
}

TEST(RuleIndex, TokensDuplicatesDisabledRulesAndBackgrounds) {
    const RuleIndex index = IndexOf({{L"*.log;*.LOG", 1, Rgb(1, 0, 0), -1, -1, -1, -1},
                                     {L"#BG", 0, Rgb(9, 9, 9), -1, -1, -1, -1},
                                     {L"*.txt", 1, Rgb(2, 0, 0), -1, -1, -1, -1},
                                     {L"*.log", 1, Rgb(3, 0, 0), -1, -1, -1, -1},
                                     {L"*.exe", 1, Rgb(4, 0, 0), -1, -1, -1, -1}});
    FakeItem file;
    EXPECT_EQ(index.Match(L"A.LOG", file, nullptr), Rgb(3, 0, 0)) << "the later duplicate's values count";
    EXPECT_EQ(index.BgOther(), -1) << "a disabled #BG leaves the background";
    EXPECT_EQ(index.StarColour(), Rgb(4, 0, 0)) << "the last '*' token decides";
    EXPECT_EQ(index.PriorityText(),
              L"Total :3\n----\nPriority 002 [\t-1\t-1\t-1\t-1]\t[*.txt]\n"
              L"Priority 003 [\t-1\t-1\t-1\t-1]\t[*.log]\n"
              L"Priority 004 [\t-1\t-1\t-1\t-1]\t[*.exe]\n")
        << "every token takes a priority, the replaced ones too";
    EXPECT_EQ(file.asked, 0) << "no attribute is asked when no '#' token is reached";
}

TEST(RuleIndex, ReadOnlyFoldersAndShortNames) {
    const RuleIndex index = IndexOf({{L"#RO", 1, Rgb(5, 0, 0), -1, -1, -1, -1}});
    FakeItem readOnlyFile(kAttrReadOnly), readOnlyFolder(kAttrReadOnly | kAttrFolder), writable;
    EXPECT_EQ(index.Match(L"DATA.TXT", readOnlyFile, nullptr), Rgb(5, 0, 0));
    EXPECT_EQ(index.Match(L"A.B", readOnlyFile, nullptr), -1) << "three characters or fewer never match";
    EXPECT_EQ(index.Match(L"", readOnlyFile, nullptr), -1) << "a drive root";
    EXPECT_EQ(index.Match(L"DATA", readOnlyFolder, nullptr), -1);
    EXPECT_EQ(index.Match(L"DATA.TXT", writable, nullptr), -1);
}

TEST(RuleIndex, ExtensionLookupKeepsPriorityOrder) {
    // The general "*A*" sits between two indexed "*.a" tokens: order must hold across both kinds.
    const RuleIndex index = IndexOf({{L"*.tar.gz", 1, Rgb(1, 0, 0), -1, -1, -1, -1},
                                     {L"*A*", 1, Rgb(2, 0, 0), 1, -1, -1, -1},
                                     {L"*.gz", 1, Rgb(3, 0, 0), 0, 1, -1, -1},
                                     {L"x.gz", 1, Rgb(4, 0, 0), -1, -1, 1, 1}});
    FakeItem file;
    int flags = 0;
    EXPECT_EQ(index.Match(L"A.TAR.GZ", file, &flags), Rgb(1, 0, 0));
    EXPECT_EQ(flags, kStyleItalic | kStyleBold);
    EXPECT_EQ(index.Match(L"B.GZ", file, &flags), Rgb(3, 0, 0));
    EXPECT_EQ(index.Match(L"X.GZ", file, &flags), Rgb(3, 0, 0));
    EXPECT_EQ(flags, kStyleBold | kStyleUnderline | kStyleStrikeout);
    EXPECT_EQ(index.Match(L"GZ", file, &flags), -1);
    EXPECT_EQ(IndexOf({}).Match(L"A", file, &flags), -1);
}

}  // namespace
}  // namespace tessel
